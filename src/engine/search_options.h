#pragma once

#include "rules/basics.h"

namespace tavlon12 {

/// When the computer stops thinking about a move.
struct SearchLimits {
    Byte StrengthStep = 1; ///< 0 to 9, 10 minus the strength shown
    Byte DepthLimit = 2;   ///< 1 to 20 iterations, when `FixedDepth` is 1
    Byte FixedDepth = 0;   ///< 1: stop by `DepthLimit`, 0: by `TimeLimit`
    Integer TimeLimit = 2; ///< 1 to 180 seconds
};

/// How the search spreads.
struct SearchOptions {
    Integer Balance = 150;   ///< 1 to 750: extensions only where the static value lies this near to the window
    Byte Plys = 3;           ///< 1 to 6: how far extensions may lead beyond the iteration's depth
    Byte ExtendedSearch = 1; ///< extensions after captures and promotions
    Byte BruteForce = 0;     ///< no cut-offs
};

/// Amplitude of the random term of the evaluation for a strength step: 0, 5, 70, 140 and so on up to 560.
Long NoiseRangeOf(Byte strengthStep);

} // namespace tavlon12
