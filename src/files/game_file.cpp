#include "files/game_file.h"

#include "files/format_line.h"
#include "files/key_lines.h"
#include "rules/rule_keys.h"

#include <algorithm>

namespace tavlon12 {

namespace {

// A game file is a head of key lines up to the line "START", then the moves, one a line, up to the end or an empty
// line. A comment stands before the move that leaves its position; its line breaks are two bytes of 255 each. The
// four lines behind "Offset=" have no key: they are the movements.
//
//     TAVLON12 Version=0.89
//     Variant=Canadian Checkers
//     ...
//     Offset=
//     NW;NE NW;NE;SE;SW
//     NW;NE NW;NE;SE;SW
//     NW;NE;SE;SW NW;NE;SE;SW
//     NW;NE;SE;SW NW;NE;SE;SW
//     ...
//     START
//     c3d4
//     {a good start}
//     f6e5

constexpr std::string_view kEndOfHead = "START";
constexpr std::string_view kMovementsFollow = "Offset";
constexpr std::string_view kLineBreakInComment = "\xFF\xFF";
constexpr Long kPromotionSlotsWritten = 16;

/// A key that is no rule.
struct OwnKey {
    std::string_view Name;
    std::variant<Byte GameHead::*, Long GameHead::*, std::string GameHead::*> Member;
};

const OwnKey kOwnKeys[] = {
    {"Variant", &GameHead::VariantFile}, {"Setup", &GameHead::StartDigits},     {"Book", &GameHead::BookOpen},
    {"Notation", &GameHead::Notation},   {"UseClassic", &GameHead::UseClassic}, {"PlayerName", &GameHead::UserName},
};

// The order of the head; between its two parts stands `kGameRules`.
constexpr std::string_view kHeadBeforeRules[] = {"Variant", "Setup", "Book", "Notation"};
constexpr std::string_view kHeadBehindRules[] = {"UseClassic", kMovementsFollow, kLastGameRule, "PlayerName"};

constexpr std::string_view kGameRules[] = {
    "MulJumps",     "MaxCapMove",      "BlackStarts", "PromoW",         "PromoB",      "PiecesOnBlack", "AntiMode",
    "WinAtPromo",   "MaxCapMoveKings", "ManCapKing",  "KingCapMove",    "ManContJump", "LongKings",     "RemovePieces",
    "KingFirst",    "ManCapMoveKing",  "KingWin",     "MaxCapMoveK",    "CapRequired", "NoLegalDraw",   "RemoveMen",
    "NumberMen",    "DoMoves",         "NumberMoves", "LastCap",        "ManKing",     "KingMan",       "ChangeSide",
    "ThreeKings",   "NumberKings",     "CapReverse",  "RndColor",       "JumpFriend",  "NumberFriends", "TwoKings",
    "NumberKings2", "NumberPieces",    "canContract", "ContractNumber", "ContractW1",  "ContractW2",    "ContractB1",
    "ContractB2",
};

constexpr std::string_view kMovements[] = {"WhiteManMovement", "BlackManMovement", "WhiteKingMovement",
                                           "BlackKingMovement"};

template <std::size_t Count> bool Contains(const std::string_view (&names)[Count], std::string_view name) {
    return std::ranges::find(names, name) != std::end(names);
}

bool IsHeadKey(std::string_view name) {
    return Contains(kHeadBeforeRules, name) || Contains(kGameRules, name) || Contains(kHeadBehindRules, name);
}

const OwnKey* FindOwnKey(std::string_view name) {
    auto found = std::ranges::find(kOwnKeys, name, &OwnKey::Name);
    return found == std::end(kOwnKeys) ? nullptr : found;
}

/// The notation of the promotion squares. A number stands for two squares where all are played on, so that they are
/// written in letters there; numbers are still read.
Byte PromotionNotation(const GameHead& head, Byte piecesOnBlack, bool letters) {
    return piecesOnBlack >= 2 && letters ? kAlgebraic : head.Notation;
}

bool BeginsWithLetter(std::string_view text) {
    return !text.empty() && text[0] > '9';
}

// Reading

struct HeadItem {
    std::string_view Key, Value;
    Long Line;
};

FileFailure EndsInHead() {
    return {FileFailure::Kind::EndTooEarly, "", 0, "no line \"START\""};
}

/// The key lines of the head, and the index of the line behind it.
struct HeadLines {
    std::vector<HeadItem> Items;
    std::size_t End = 0;
};

/// The four lines from `next` on as the values of the movements; false when there are fewer.
bool AddMovements(const std::vector<std::string_view>& lines, std::size_t& next, std::vector<HeadItem>& items) {
    if (lines.size() - next < std::size(kMovements)) return false;
    for (std::string_view key : kMovements) {
        items.push_back({key, lines[next], static_cast<Long>(next + 1)});
        ++next;
    }
    return true;
}

std::optional<HeadLines> FindHead(const std::vector<std::string_view>& lines) {
    HeadLines head;
    for (std::size_t next = 0; next < lines.size();) {
        const std::string_view text = lines[next++];
        if (text == kEndOfHead) {
            head.End = next;
            return head;
        }
        const auto line = SplitKeyLine(text);
        if (!line || !IsHeadKey(line->Key)) continue;
        if (line->Key != kMovementsFollow) {
            head.Items.push_back({line->Key, line->Value, static_cast<Long>(next)});
        } else if (!AddMovements(lines, next, head.Items)) {
            break;
        }
    }
    return std::nullopt;
}

template <typename Number> bool ReadOwn(std::string_view text, Number& value) {
    return ReadWhole(text, value);
}

bool ReadOwn(std::string_view text, std::string& value) {
    value = text;
    return true;
}

/// False when the number is out of the range of its kind. `piecesOnBlack` is the one of the whole head, since it stands
/// behind the squares that are counted by it.
bool ReadItem(const HeadItem& item, GameHead& head, Byte piecesOnBlack) {
    if (item.Key == "Setup" && item.Value == "normal") return true;
    if (const OwnKey* own = FindOwnKey(item.Key)) {
        return std::visit([&](auto member) { return ReadOwn(item.Value, head.*member); }, own->Member);
    }
    const PromotionForm form{.Letters = PromotionForm::Case::Small,
                             .Notation = PromotionNotation(head, piecesOnBlack, BeginsWithLetter(item.Value)),
                             .PiecesOnBlack = piecesOnBlack};
    return SetRuleValue(head.Rules, *FindRuleKey(item.Key), item.Value, form);
}

Byte ColourOfHead(const std::vector<HeadItem>& items, Byte kept) {
    Byte colour = kept;
    for (const HeadItem& item : items) {
        if (item.Key == "PiecesOnBlack" && !ReadWhole(item.Value, colour)) break; // told where the item is read
    }
    return colour;
}

std::string CommentOf(std::string_view line) {
    std::string comment(line.substr(1, line.size() < 2 ? 0 : line.size() - 2));
    for (std::size_t at = 0; (at = comment.find(kLineBreakInComment, at)) != std::string::npos; at += 2) {
        comment.replace(at, 2, "\r\n");
    }
    return comment;
}

std::vector<GameFileLine> ReadLines(std::span<const std::string_view> lines) {
    std::vector<GameFileLine> read;
    Long position = 0;
    for (std::string_view line : lines) {
        if (line.empty()) break;
        if (line.starts_with('{')) {
            read.push_back({GameFileLine::Kind::Comment, CommentOf(line), position});
        } else {
            read.push_back({GameFileLine::Kind::Move, std::string(line), position++});
        }
    }
    return read;
}

// Writing

template <typename Number> std::string OwnText(Number value) {
    return std::to_string(value);
}

std::string OwnText(const std::string& value) {
    return OneLine(value);
}

std::string AllSlotsText(const PromotionList& list, Byte notation) {
    std::string text;
    for (Long square : list) text += UpperCase(SquareNotation(square, Padding::Blank, notation));
    return text;
}

std::string RuleText(const GameHead& head, std::string_view name, PromotionSlots slots) {
    const RuleKey& key = *FindRuleKey(name);
    const Byte notation = PromotionNotation(head, head.Rules.PiecesOnBlack, true);
    const auto* squares = std::get_if<PromotionList RuleSet::*>(&key.Member);
    if (slots == PromotionSlots::All && squares != nullptr) return AllSlotsText(head.Rules.*(*squares), notation);
    return OneLine(
        RuleValueText(head.Rules, key,
                      {.Letters = PromotionForm::Case::Small, .Slots = kPromotionSlotsWritten, .Notation = notation}));
}

std::string ValueText(const GameHead& head, std::string_view key, PromotionSlots slots) {
    const OwnKey* own = FindOwnKey(key);
    if (own == nullptr) return RuleText(head, key, slots);
    return std::visit([&](auto member) { return OwnText(head.*member); }, own->Member);
}

std::string HeadText(const GameHead& head, std::string_view key, PromotionSlots slots) {
    if (key != kMovementsFollow) return KeyLineText(key, ValueText(head, key, slots));
    std::string text = KeyLineText(key, "");
    for (std::string_view movement : kMovements) text += RuleText(head, movement, slots) + "\r\n";
    return text;
}

/// A line end of any kind becomes the break of a comment.
std::string CommentLine(std::string_view comment) {
    std::string line = "{";
    for (std::size_t at = 0; at < comment.size(); ++at) {
        if (comment[at] == '\r' && comment.substr(at, 2) == "\r\n") ++at;
        const bool breaks = comment[at] == '\n' || comment[at] == '\r';
        line += breaks ? kLineBreakInComment : comment.substr(at, 1);
    }
    return line + "}\r\n";
}

std::string LineText(const GameFileLine& line) {
    if (line.What == GameFileLine::Kind::Move) return line.Text + "\r\n";
    return line.Text.empty() ? "" : CommentLine(line.Text);
}

} // namespace

bool HasKey(const GameFile& game, std::string_view key) {
    return std::ranges::find(game.Keys, key) != game.Keys.end();
}

Outcome<GameFile> ReadGameFile(std::string_view bytes, const GameHead& kept) {
    if (auto failure = FormatFailure(bytes)) return *failure;
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const std::optional<HeadLines> found = FindHead(lines);
    if (!found) return EndsInHead();
    GameFile game{.Head = kept, .Lines = {}, .Keys = {}, .AtUseClassic = {}};
    const Byte colour = ColourOfHead(found->Items, kept.Rules.PiecesOnBlack);
    for (const HeadItem& item : found->Items) {
        if (!ReadItem(item, game.Head, colour)) {
            return FileFailure{FileFailure::Kind::BadValue, "", item.Line, std::string(item.Value)};
        }
        game.Keys.push_back(FindRuleKey(item.Key) ? FindRuleKey(item.Key)->Name : FindOwnKey(item.Key)->Name);
        if (item.Key == "UseClassic") game.AtUseClassic = game.Head;
    }
    game.Lines = ReadLines(std::span(lines).subspan(found->End));
    return game;
}

Long GameLineCount(std::string_view bytes) {
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const std::optional<HeadLines> found = FindHead(lines);
    return found ? static_cast<Long>(lines.size() - found->End) : 0;
}

std::string GameFileText(const GameHead& head, std::span<const GameFileLine> lines, PromotionSlots slots) {
    std::string text = FormatLine() + "\r\n";
    for (std::string_view key : kHeadBeforeRules) text += HeadText(head, key, slots);
    for (std::string_view key : kGameRules) text += HeadText(head, key, slots);
    for (std::string_view key : kHeadBehindRules) text += HeadText(head, key, slots);
    text.append(kEndOfHead).append("\r\n");
    for (const GameFileLine& line : lines) text += LineText(line);
    return text;
}

std::span<const std::string_view> GameRuleOrder() {
    return kGameRules;
}

std::span<const std::string_view> MovementOrder() {
    return kMovements;
}

std::string OneLine(std::string_view text) {
    std::string line(text);
    std::ranges::replace_if(
        line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

} // namespace tavlon12
