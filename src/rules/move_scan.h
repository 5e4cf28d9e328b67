#pragma once

#include "rules/position.h"

namespace tavlon12 {

/// Whether the side to move has a move under `mode` as `GenerateMoves` has it. The move list stays as it is.
bool GenerateMoves1(Position& position, Long mode);

/// 1, plus 2 for each direction in which a man or a king of `side` could step onto the square.
Long Isamulti(const Position& position, Long square, Long side);

} // namespace tavlon12
