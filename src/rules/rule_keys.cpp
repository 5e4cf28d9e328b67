#include "rules/rule_keys.h"

#include <algorithm>

namespace tavlon12 {

namespace {

// The column at the end: whether a value unlike the definition's marks the variant as modified.
const RuleKey kRuleKeys[] = {
    {"MulJumps", &RuleSet::MulJumps, "Multiple captures in one move mandatory", true},
    {"MaxCapMove", &RuleSet::MaxCapMove, "Move with most captures mandatory", true},
    {"MaxCapMoveKings", &RuleSet::MaxCapMoveKings, "If even capture most Kings", true},
    {"MaxCapMoveK", &RuleSet::MaxCapMoveK, "Finish a started capture move", true},
    {"CapRequired", &RuleSet::CapRequired, "Captures mandatory", true},
    {"KingCapMove", &RuleSet::KingCapMove, "Capture with King mandatory", true},
    {"LastCap", &RuleSet::LastCap, "Capture last moved piece mandatory", true},
    {"ManCapKing", &RuleSet::ManCapKing, "Man can capture King", true},
    {"ManContJump", &RuleSet::ManContJump, "Man must continue jumping at last rank", true},
    {"ManContJumpCrowned", &RuleSet::ManContJumpCrowned, "if yes promote to King", true},
    {"ManCapMoveKing", &RuleSet::ManCapMoveKing, "Man move like a flying King when jumping", true},
    {"LongKings", &RuleSet::LongKings, "Kings can move multiple squares", true},
    {"KingFirst", &RuleSet::KingFirst, "Land on 1st square after last jumped piece", true},
    {"CapReverse", &RuleSet::CapReverse, "Kings can reverse direction in capture", true},
    {"RemovePieces", &RuleSet::RemovePieces, "Remove captured pieces after move", true},
    {"JumpFriend", &RuleSet::JumpFriend, "Men can jump own pieces", true},
    {"NumberFriends", &RuleSet::NumberFriends, "# pieces:", false},
    {"KingMan", &RuleSet::KingMan, "King becomes Man after capturing", true},
    {"ManKing", &RuleSet::ManKing, "Last Man becomes King", true},
    {"ChangeSide", &RuleSet::ChangeSide, "Promoted Men change color", true},
    {"BlackStarts", &RuleSet::BlackStarts, "Black begins", true},
    {"RndColor", &RuleSet::RndColor, "Random", true},
    {"PiecesOnBlack", &RuleSet::PiecesOnBlack, "Bottom left square is black", true},
    {"AntiMode", &RuleSet::AntiMode, "Anti Mode", true},
    {"WinAtPromo", &RuleSet::WinAtPromo, "Win when King returns", true},
    {"KingWin", &RuleSet::KingWin, "Win when player gets first King", true},
    {"NoLegalDraw", &RuleSet::NoLegalDraw, "Draw when no moves but pieces", true},
    {"NumberPieces", &RuleSet::NumberPieces, "Loose when less than # pieces:", true},
    {"ThreeKings", &RuleSet::ThreeKings, "Draw with 3 Kings versus 1 King", true},
    {"NumberKings", &RuleSet::NumberKings, "After # moves:", true},
    {"TwoKings", &RuleSet::TwoKings, "Draw with 2 Kings versus 1 King", true},
    {"NumberKings2", &RuleSet::NumberKings2, "After # moves:", true},
    {"RemoveMen", &RuleSet::RemoveMen, "Remove Men", true},
    {"NumberMen", &RuleSet::NumberMen, "", true},
    {"DoMoves", &RuleSet::DoMoves, "Automatic Moves", true},
    {"NumberMoves", &RuleSet::NumberMoves, "", true},
    {"canContract", &RuleSet::canContract, "Start with pieces off the board", true},
    {"ContractNumber", &RuleSet::ContractNumber, "# pieces:", true},
    {"ContractW1", &RuleSet::ContractW1, "White First Row:", true},
    {"ContractW2", &RuleSet::ContractW2, "White Last Row:", true},
    {"ContractB1", &RuleSet::ContractB1, "Black First Row:", true},
    {"ContractB2", &RuleSet::ContractB2, "Black Last Row:", true},
    {"PromoW", &RuleSet::PromoW, "White:", true},
    {"PromoB", &RuleSet::PromoB, "Black:", true},
    {"WhiteManMovement", &RuleSet::WhiteManMovement, "White Man:", true},
    {"BlackManMovement", &RuleSet::BlackManMovement, "Black Man:", true},
    {"WhiteKingMovement", &RuleSet::WhiteKingMovement, "White King:", true},
    {"BlackKingMovement", &RuleSet::BlackKingMovement, "Black King:", true},
    {"Setup", &RuleSet::Setup, "", false},
};

template <typename Number> bool ReadValue(std::string_view text, Number& value, const PromotionForm&) {
    return ReadWhole(text, value);
}

bool ReadValue(std::string_view text, PromotionList& value, const PromotionForm& form) {
    value = ReadPromotionList(text, form);
    return true;
}

bool ReadValue(std::string_view text, std::string& value, const PromotionForm&) {
    value = text;
    return true;
}

std::string ValueText(Long value, const PromotionForm&) {
    return std::to_string(value);
}

std::string ValueText(const PromotionList& value, const PromotionForm& form) {
    return PromotionListText(value, form);
}

std::string ValueText(const std::string& value, const PromotionForm&) {
    return value;
}

/// A square's text, which `SquareNotation` gives in small letters, in the case of the form.
std::string InCase(std::string text, PromotionForm::Case letters) {
    if (letters == PromotionForm::Case::Small) return text;
    if (letters == PromotionForm::Case::Capitals) return UpperCase(text);
    return UpperCase(text.substr(0, 1)) + text.substr(1);
}

} // namespace

std::span<const RuleKey> RuleKeys() {
    return kRuleKeys;
}

const RuleKey* FindRuleKey(std::string_view name) {
    auto found = std::ranges::find(kRuleKeys, name, &RuleKey::Name);
    return found == std::end(kRuleKeys) ? nullptr : found;
}

bool SetRuleValue(RuleSet& rules, const RuleKey& key, std::string_view text, const PromotionForm& form) {
    return std::visit([&](auto member) { return ReadValue(text, rules.*member, form); }, key.Member);
}

std::string RuleValueText(const RuleSet& rules, const RuleKey& key, const PromotionForm& form) {
    return std::visit([&](auto member) { return ValueText(rules.*member, form); }, key.Member);
}

PromotionList ReadPromotionList(std::string_view text, const PromotionForm& form) {
    PromotionList list;
    list.fill(kUnusedSlot);
    const bool small = form.Letters == PromotionForm::Case::Small;
    for (Long slot = 0; slot < form.Slots; ++slot) {
        const std::string pair = small ? UpperCase(text.substr(0, 2)) : std::string(text.substr(0, 2));
        Long square = SquareNumber(pair, form.Notation, form.PiecesOnBlack);
        if (square != 0) list[slot] = square;
        text.remove_prefix(std::min<std::size_t>(2, text.size()));
    }
    return list;
}

std::string PromotionListText(const PromotionList& list, const PromotionForm& form) {
    std::string text;
    for (Long slot = 0; slot < form.Slots; ++slot) {
        if (list[slot] == kUnusedSlot) continue;
        text += InCase(SquareNotation(list[slot], Padding::Blank, form.Notation), form.Letters);
    }
    return text;
}

} // namespace tavlon12
