#pragma once

#include "rules/rule_set.h"

#include <optional>
#include <span>
#include <string_view>
#include <variant>

namespace tavlon12 {

using RuleMember = std::variant<Byte RuleSet::*, Long RuleSet::*, PromotionList RuleSet::*, std::string RuleSet::*>;

/// One rule value: its key in every file, the member that holds it, and the text beside its control.
struct RuleKey {
    std::string_view Name;
    RuleMember Member;
    std::string_view Caption;
    bool MarksModified; ///< a value that differs from the definition's marks the variant as modified
};

/// Every rule key once. Each file format is a list of names in its own order over this table.
std::span<const RuleKey> RuleKeys();

/// The key spelled exactly so, or null.
const RuleKey* FindRuleKey(std::string_view name);

/// Reads a value in the form of a definition file: numbers by their longest start, promotion squares as pairs of column
/// letter and rank ("BbDb"), other texts as they stand. False, with nothing changed, when a number is out of the range
/// of its kind (Byte 0 to 255, Long 32 bits).
[[nodiscard]] bool SetRuleValue(RuleSet& rules, const RuleKey& key, std::string_view text);

/// Up to 20 squares, two characters each; a pair that is no square leaves its slot unused.
PromotionList ReadPromotionList(std::string_view text);

/// The used slots as text in capitals, for instance "BBDBFB".
std::string PromotionListText(const PromotionList& list);

} // namespace tavlon12
