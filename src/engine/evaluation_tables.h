#pragma once

#include "engine/search_state.h"
#include "rules/position.h"

namespace tavlon12 {

/// All tables of the evaluation for the rules in force, in their order: closeness, cones, square values, promotion
/// counts. The variant family stays 0 until a family with generators of its own is recognised.
void BuildEvaluationTables(Position& position, EvaluationTables& tables);

/// The last step of it: the family's square values, if there is a family, and what the pieces add by their squares.
void AdoptFamily(Position& position, EvaluationTables& tables, Family family);

void BuildPromotionCones(const Position& position, EvaluationTables& tables);
void BuildSquareValues(const Position& position, EvaluationTables& tables);

/// Sets `PromoCountMax` and `PromoEven`; without even promotion squares the cones do not matter.
void CountPromoSquares(const Position& position, EvaluationTables& tables);

/// The numbers of men above which a side still counts as being in the opening.
void SetManThresholds(const Position& position, SearchState& search);

} // namespace tavlon12
