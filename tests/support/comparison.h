#pragma once

#include "rules/position.h"

namespace tavlon12::support {

enum class Comparison {
    Compared,
    Limit,  ///< both generators agree that a limit of the walk was passed
    Skipped ///< too many routes for the reference, or more moves than the list holds
};

/// Generates the moves of the current ply under `mode` with the program's generator, its move scan and the reference,
/// and reports every difference as a failure of the running test.
Comparison CompareGenerators(Position& position, Long mode);

} // namespace tavlon12::support
