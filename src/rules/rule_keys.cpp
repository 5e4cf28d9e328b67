#include "rules/rule_keys.h"

#include <algorithm>

namespace tavlon12 {

namespace {

// The column at the end: whether a value unlike the definition's marks the variant as modified.
const RuleKey kRuleKeys[] = {
    {"MulJumps", &RuleSet::MulJumps, "Multiple captures in one move mandatory",
     "A capture goes on as long as the piece can jump another one.", true},
    {"MaxCapMove", &RuleSet::MaxCapMove, "Move with most captures mandatory",
     "Of all captures one that takes the most pieces must be chosen.", true},
    {"MaxCapMoveKings", &RuleSet::MaxCapMoveKings, "If even capture most Kings",
     "Of the captures that take the most pieces, one that takes the most kings must be chosen.", true},
    {"MaxCapMoveK", &RuleSet::MaxCapMoveK, "Finish a started capture move",
     "A flying king may not choose a shorter way than one that it has already reached.", true},
    {"CapRequired", &RuleSet::CapRequired, "Captures mandatory",
     "Who can capture must do so; otherwise captures and other moves are both allowed.", true},
    {"KingCapMove", &RuleSet::KingCapMove, "Capture with King mandatory",
     "When a king can capture, it goes before the men.", true},
    {"LastCap", &RuleSet::LastCap, "Capture last moved piece mandatory",
     "When the piece that the opponent has just moved can be jumped first, only such captures are allowed.", true},
    {"ManCapKing", &RuleSet::ManCapKing, "Man can capture King", "Men may jump kings as well as men.", true},
    {"ManContJump", &RuleSet::ManContJump, "Man must continue jumping at last rank",
     "A man that reaches the last rank in a capture jumps on if it can, and is promoted only where its move ends.",
     true},
    {"ManContJumpCrowned", &RuleSet::ManContJumpCrowned, "if yes promote to King",
     "A man that reaches the last rank in a capture becomes a king there and jumps on as one.", true},
    {"ManCapMoveKing", &RuleSet::ManCapMoveKing, "Man move like a flying King when jumping",
     "When they capture, men jump and land at a distance as flying kings do.", true},
    {"LongKings", &RuleSet::LongKings, "Kings can move multiple squares",
     "Kings move and capture along a whole line; otherwise they move one square.", true},
    {"KingFirst", &RuleSet::KingFirst, "Land on 1st square after last jumped piece",
     "A flying piece lands on the square right behind the piece that it has jumped.", true},
    {"CapReverse", &RuleSet::CapReverse, "Kings can reverse direction in capture",
     "After a jump a flying king may turn round and jump back along the same line.", true},
    {"RemovePieces", &RuleSet::RemovePieces, "Remove captured pieces after move",
     "Jumped pieces stay on the board, and in the way, until the capture is over.", true},
    {"JumpFriend", &RuleSet::JumpFriend, "Men can jump own pieces",
     "A man may jump over a row of its own men without capturing them.", true},
    {"NumberFriends", &RuleSet::NumberFriends,
     "# pieces:", "How many pieces of its own, no more and no fewer, a man jumps over.", false},
    {"KingMan", &RuleSet::KingMan, "King becomes Man after capturing", "A king that has captured is a man again.",
     true},
    {"ManKing", &RuleSet::ManKing, "Last Man becomes King",
     "When all that a side has left is one man, this man becomes a king.", true},
    {"ChangeSide", &RuleSet::ChangeSide, "Promoted Men change color",
     "A man that is promoted becomes a king of the opponent.", true},
    {"BlackStarts", &RuleSet::BlackStarts, "Black begins",
     "Black makes the first move of a game; otherwise White does.", true},
    {"RndColor", &RuleSet::RndColor, "Random", "Who makes the first move is drawn at random for each game.", true},
    {"PiecesOnBlack", &RuleSet::PiecesOnBlack, "Bottom left square is black",
     "The square in the bottom left corner is one of those that are played on.", true},
    {"AntiMode", &RuleSet::AntiMode, "Anti Mode", "The aim is reversed: who has no pieces or no moves left has won.",
     true},
    {"WinAtPromo", &RuleSet::WinAtPromo, "Win when King returns",
     "A king that returns to its own first rank wins the game.", true},
    {"KingWin", &RuleSet::KingWin, "Win when player gets first King",
     "The player who first promotes a man wins the game.", true},
    {"NoLegalDraw", &RuleSet::NoLegalDraw, "Draw when no moves but pieces",
     "A player who has pieces but cannot move draws the game instead of losing it.", true},
    {"NumberPieces", &RuleSet::NumberPieces,
     "Loose when less than # pieces:", "A player with this many pieces or fewer has lost; with 0, who has none.", true},
    {"ThreeKings", &RuleSet::ThreeKings, "Draw with 3 Kings versus 1 King",
     "Three kings against one are a draw after a number of moves.", true},
    {"NumberKings", &RuleSet::NumberKings, "After # moves:", "How many moves may be made with three kings against one.",
     true},
    {"TwoKings", &RuleSet::TwoKings, "Draw with 2 Kings versus 1 King",
     "Two kings against one are a draw after a number of moves.", true},
    {"NumberKings2", &RuleSet::NumberKings2, "After # moves:", "How many moves may be made with two kings against one.",
     true},
    {"RemoveMen", &RuleSet::RemoveMen, "Remove Men", "Before a game begins, men of both sides are removed at random.",
     true},
    {"NumberMen", &RuleSet::NumberMen, "# men:", "How many men of each side are removed; one piece always stays.",
     true},
    {"DoMoves", &RuleSet::DoMoves, "Automatic Moves", "A game begins with moves that the program plays at random.",
     true},
    {"NumberMoves", &RuleSet::NumberMoves, "# moves:", "How many moves the program plays.", true},
    {"canContract", &RuleSet::canContract, "Start with pieces off the board",
     "Each side has pieces off the board and may place one instead of moving.", true},
    {"ContractNumber", &RuleSet::ContractNumber,
     "# pieces:", "How many pieces each side has off the board at the start.", true},
    {"ContractW1", &RuleSet::ContractW1, "White First Row:",
     "The row on which White places pieces; the first rank of the board is 2, the twelfth 13.", true},
    {"ContractW2", &RuleSet::ContractW2, "White Last Row:",
     "The row, from 2 to 13, whose square in the same column must be free when White places a piece.", true},
    {"ContractB1", &RuleSet::ContractB1, "Black First Row:",
     "The row on which Black places pieces; the first rank of the board is 2, the twelfth 13.", true},
    {"ContractB2", &RuleSet::ContractB2, "Black Last Row:",
     "The row, from 2 to 13, whose square in the same column must be free when Black places a piece.", true},
    {"PromoW", &RuleSet::PromoW, "White:", "A square, such as bb, on which a white man is promoted; empty for none.",
     true},
    {"PromoB", &RuleSet::PromoB, "Black:", "A square, such as a1, on which a black man is promoted; empty for none.",
     true},
    {"WhiteManMovement", &RuleSet::WhiteManMovement,
     "White Man:", "Directions of a white man, such as NW;NE; N is forward.", true},
    {"BlackManMovement", &RuleSet::BlackManMovement,
     "Black Man:", "Directions of a black man, such as NW;NE; N is forward, as Black sees it.", true},
    {"WhiteKingMovement", &RuleSet::WhiteKingMovement,
     "White King:", "Directions of a white king, such as NW;NE;SE;SW; N is forward.", true},
    {"BlackKingMovement", &RuleSet::BlackKingMovement,
     "Black King:", "Directions of a black king, such as NW;NE;SE;SW; N is forward, as Black sees it.", true},
    {"Setup", &RuleSet::Setup, "", "The position at the start.", false},
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

const RuleKey& RuleKeyOf(const RuleMember& member) {
    return *std::ranges::find(kRuleKeys, member, &RuleKey::Member);
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
