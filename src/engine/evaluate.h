#pragma once

#include "engine/search_state.h"
#include "rules/position.h"

namespace tavlon12 {

inline constexpr Long kWin = 32000; ///< minus the ply: a won position. The search window is -kWin to kWin

/// The score of the position for `side`, a man 100 and a win 32000 - ply; alpha and beta serve the lazy exit only. Sets
/// `LostFlag` and `NoMovesDraw`, and stores the key of a position that it scores in full.
/// With `wholeScore` false only a won position has its value, any other gets 0 or its material: enough where the search
/// asks for no more, with the same effects.
Long Evaluate(Position& position, SearchState& search, Long alpha, Long beta, Long side, bool wholeScore = true);

/// What pieces add by their squares alone, into the position's terms, from the tables built so far.
void BuildPieceTerms(Position& position, EvaluationTables& tables);

} // namespace tavlon12
