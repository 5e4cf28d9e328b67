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

struct RootValue {
    Long Value = 0;           ///< as `Evaluate` gives it with the full window
    bool Lost = false;        ///< the side has lost by the pieces or the winning squares
    bool NoMovesDraw = false; ///< the side to move has no moves, where that is a draw
};

/// Scores the position on the board. A limit that the scan for moves passes is left to who lists the moves.
RootValue EvaluateRoot(Position& position, SearchState& search, Long side);

/// What pieces add by their squares alone, into the position's terms, from the tables built so far.
void BuildPieceTerms(Position& position, EvaluationTables& tables);

} // namespace tavlon12
