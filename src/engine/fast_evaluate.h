#pragma once

#include "engine/search_state.h"
#include "rules/families.h"
#include "rules/position.h"

namespace tavlon12 {

/// The shorter evaluation of a family's search members, on the scale of `Evaluate` and with its effects, for positions
/// under exactly the family's rules. The German and the Russian family share one.
template <Family F>
Long EvaluateFamily(Position& position, SearchState& search, Long alpha, Long beta, Long side, bool wholeScore = true);

/// The same for a family known at run time; `family` must not be None.
Long EvaluateFamily(Family family, Position& position, SearchState& search, Long alpha, Long beta, Long side);

/// What pieces add by their squares alone under the family, into the position's terms, and its back rank lines.
void BuildFamilyTerms(Family family, Position& position, EvaluationTables& tables);

/// Replaces the square values for a family: 50 on the promotion squares, 6 less with each step away from the nearest.
void BuildFastSquareValues(const Position& position, EvaluationTables& tables);

} // namespace tavlon12
