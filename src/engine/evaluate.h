#pragma once

#include "engine/search_state.h"
#include "rules/position.h"

namespace tavlon12 {

inline constexpr Long kWin = 32000; ///< minus the ply: a won position. The search window is -kWin to kWin

/// The score of the position for `side`, a man 100 and a win 32000 - ply; alpha and beta serve the lazy exit only. Sets
/// `LostFlag` and `NoMovesDraw`, and stores the key of a position that it scores in full.
Long Evaluate(Position& position, SearchState& search, Long alpha, Long beta, Long side);

} // namespace tavlon12
