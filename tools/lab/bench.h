#pragma once

#include "lab/commands.h"

#include <span>
#include <string>
#include <vector>

namespace tavlon12::lab {

/// One measurement: a command line as in a batch, on the built-in rules instead of a definition file.
struct BenchCase {
    std::string Name;
    std::string Line;
    bool MakesLastPly = false; ///< a perft that makes the moves of its last ply
};

/// The fixed set of positions and rule sets.
std::vector<BenchCase> BenchCases();

/// Runs the cases: a line "NAME nodes K seconds T nps R" each, then a line of the totals. With `seconds` all of them
/// are run again and again until that time is over, and the figures are those of all rounds.
Failure RunBench(Lab& lab, std::span<const BenchCase> cases, std::optional<Long> seconds, Report& report);

} // namespace tavlon12::lab
