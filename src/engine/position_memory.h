#pragma once

#include "rules/position.h"

namespace tavlon12 {

/// Puts the move of the current ply, which has been taken back, before the best line of the ply below.
void StoreBestLine(Position& position, Long slot);

/// The smallest k from 1 on with an empty cell in row 1 of the best lines: 1 when a root move has no continuation.
Long BestLineLength(const Position& position);

/// After a cut-off: the move becomes the ply's first killer, the first becomes the second.
void StoreKiller(Position& position, Long slot);

} // namespace tavlon12
