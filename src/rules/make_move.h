#pragma once

#include "rules/position.h"

namespace tavlon12 {

/// Makes the move in that slot of the move list for the side to move, one ply deeper. The ply must be below 100.
void PerformMove(Position& position, Long slot);

/// Unmakes it. The slot must still hold the record, and calls must nest: the last move made is the first taken back.
void TakeBackMove(Position& position, Long slot);

} // namespace tavlon12
