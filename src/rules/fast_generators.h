#pragma once

#include "rules/families.h"
#include "rules/position.h"

namespace tavlon12 {

/// The generators with a family's rules built in, for positions under exactly those rules: the moves of
/// `GenerateMoves`, save that of equal captures by a man and a king the Italian one gives the king's alone, and that
/// the American one gives quiet moves and captures square by square. Mode above 0: quiet moves and captures; else
/// captures only.
template <Family F> void GenerateFamilyMoves(Position& position, Long mode);

/// The same for a family known at run time; `family` must not be None.
void GenerateFamilyMoves(Family family, Position& position, Long mode);

/// The legal moves of the side to move: captures first, and all moves when there are none. Gives their number.
template <Family F> Long GenerateLegalFamilyMoves(Position& position);
Long GenerateLegalFamilyMoves(Family family, Position& position);

/// The number of legal moves alone, quiet ones counted in bulk. `family` must not be None.
Long CountFamilyMoves(Family family, Position& position);

} // namespace tavlon12
