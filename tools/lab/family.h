#pragma once

#include "engine/search.h"
#include "engine/search_state.h"
#include "rules/fast_generators.h"
#include "rules/position.h"

namespace tavlon12::lab {

// All that the tool asks of the families with generators and evaluations of their own.

/// The tables of the evaluation for the rules in force, as a game of this family has them.
void BuildTables(Position& position, Family family, SearchState& search);

/// The legal moves of the side to move, by the family's generator or the general one. Gives their number.
Long GenerateLegalMovesOf(Family family, Position& position);

/// The same number without a list, where it can be counted in bulk.
Long CountLegalMovesOf(Family family, Position& position);

/// The family's evaluation, or the general one, with the full window.
Long EvaluateOf(Family family, Position& position, SearchState& search, Long side);

/// The member that searches a computer's move: that of the family in the tables, else a general one.
SearchMember MemberOf(const Position& position, const SearchState& search);

} // namespace tavlon12::lab
