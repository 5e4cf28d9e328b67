#pragma once

#include "lab/commands.h"

namespace tavlon12::lab {

/// Runs the fixed set of positions and rule sets: a line "NAME nodes K seconds T nps R" each, then a line of the totals. With
/// `Seconds` the whole set is run again and again until that time is over, and the figures are those of all rounds.
Failure RunBench(Lab& lab, const Options& options, Report& report);

} // namespace tavlon12::lab
