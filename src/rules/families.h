#pragma once

#include "rules/board.h"
#include "rules/rule_set.h"

#include <array>
#include <cassert>
#include <utility>

namespace tavlon12 {

/// The four rule sets that have generators and evaluations of their own.
enum class Family : Long { None, American, Italian, German, Russian };
inline constexpr std::array kFamilies{Family::American, Family::Italian, Family::German, Family::Russian};

/// The rules of a family; those of no family are the defaults. Only the first six promotion squares of a side count.
RuleSet RulesOfFamily(Family family);

/// The family whose rules these are, whatever the start position.
Family FamilyOfRules(const RuleSet& rules);

/// The same for a game that begins with `start`, the initial board: only the classic start has a family.
Family RecognizeVariantFamily(const RuleSet& rules, const BoardCells& start);

/// Calls `visitor.template operator()<F>()` for a family known at run time, which must not be None.
template <typename Visitor> decltype(auto) VisitFamily(Family family, Visitor&& visitor) {
    assert(family != Family::None);
    switch (family) {
    case Family::American: return visitor.template operator()<Family::American>();
    case Family::Italian: return visitor.template operator()<Family::Italian>();
    case Family::Russian: return visitor.template operator()<Family::Russian>();
    default: return visitor.template operator()<Family::German>();
    }
}

} // namespace tavlon12
