#pragma once

#include "rules/position.h"

namespace tavlon12 {

/// Fills the stretch of the move list for the current ply. Mode above 0: quiet moves and captures; 0: captures only,
/// and with `CapRequired` off quiet moves too; below 0: captures only. The board is as before, also when a limit is
/// passed: then `Fault` is set, `StopFlag` is 1 and the ply has no moves.
void GenerateMoves(Position& position, Long mode);

/// The legal moves of the side to move: captures first, and all moves when there are none. Gives their number.
Long GenerateLegalMoves(Position& position);

/// The number of legal moves alone, without a list of them where the rules allow to count them in bulk.
Long CountLegalMoves(Position& position);

} // namespace tavlon12
