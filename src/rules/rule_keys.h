#pragma once

#include "rules/notation.h"
#include "rules/rule_set.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace tavlon12 {

using RuleMember = std::variant<Byte RuleSet::*, Long RuleSet::*, PromotionList RuleSet::*, std::string RuleSet::*>;

/// One rule value: its key in every file, the member that holds it, the text beside its control and the sentence that
/// explains it.
struct RuleKey {
    std::string_view Name;
    RuleMember Member;
    std::string_view Caption;
    std::string_view Tip;
    bool MarksModified; ///< a value that differs from the definition's marks the variant as modified
};

/// Every rule key once. Each file format is a list of names in its own order over this table.
std::span<const RuleKey> RuleKeys();

/// The key spelled exactly so, or null.
const RuleKey* FindRuleKey(std::string_view name);

/// The key of a member of the rules.
const RuleKey& RuleKeyOf(const RuleMember& member);

// `NumberFriends` has a second control, a box for `kUnlimited`.
inline constexpr std::string_view kUnlimitedCaption = "unlimited";
inline constexpr std::string_view kUnlimitedTip = "A man jumps over any number of its own pieces.";

/// How a list of promotion squares is written. The default is the form of definition files, "BbDbFb".
struct PromotionForm {
    enum class Case { Column, Capitals, Small }; ///< "Bb", "BB" or "bb"

    Case Letters = Case::Column;
    Long Slots = kPromotionSlots; ///< those written or read, from the first
    Byte Notation = kAlgebraic;   ///< numbers are padded to two characters by a blank
    Long PiecesOnBlack = 1;       ///< for reading numbers
};

/// Reads a value in the form of a definition file: numbers by their longest start, promotion squares as
/// `ReadPromotionList` does, other texts as they stand. False, with nothing changed, when a number is out of the range
/// of its kind (Byte 0 to 255, Long 32 bits).
[[nodiscard]] bool SetRuleValue(RuleSet& rules, const RuleKey& key, std::string_view text,
                                const PromotionForm& form = {});

/// The value in the form that `SetRuleValue` reads, numbers without blanks.
std::string RuleValueText(const RuleSet& rules, const RuleKey& key, const PromotionForm& form = {});

/// Up to `Slots` squares, two characters each; a pair that is no square leaves its slot unused, and so are the slots
/// behind. A column letter in lower case is no square unless the form has small letters.
PromotionList ReadPromotionList(std::string_view text, const PromotionForm& form = {});

/// The used slots, joined.
std::string PromotionListText(const PromotionList& list, const PromotionForm& form = {});

} // namespace tavlon12
