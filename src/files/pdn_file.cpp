#include "files/pdn_file.h"

#include "files/game_file.h"
#include "rules/families.h"
#include "rules/notation.h"
#include "rules/rule_keys.h"

#include <algorithm>

namespace tavlon12 {

namespace {

// A PDN file is any number of games. A game is lines of tags, each [Name "value"], then lines of moves with comments in
// braces, which end with the result. A game ends at an empty line or where the tags of the next one begin.
//
//     [Event "Club"]
//     [Result "1-0"]
//
//     1. 9-14 22-18 2. {sharp} 14x23 27x18 1-0

enum class Written { Never, IfFilled, Always };

/// A tag by its name. Those that are written stand first, in their order.
struct TagRow {
    std::string_view Name;
    std::string PdnTags::*Field; ///< null for a tag whose value is not kept
    Written When = Written::Never;
};

const TagRow kTags[] = {
    {"Event", &PdnTags::Event, Written::IfFilled},
    {"Date", &PdnTags::Date, Written::Always},
    {"Black", &PdnTags::Black, Written::IfFilled},
    {"White", &PdnTags::White, Written::IfFilled},
    {"Site", &PdnTags::Site, Written::IfFilled},
    {"Result", &PdnTags::Result, Written::Always},
    {"Year", &PdnTags::Date},
    {"Round", &PdnTags::Round},
    {"BlackElo", &PdnTags::BlackElo},
    {"WhiteElo", &PdnTags::WhiteElo},
    {"SetUp", &PdnTags::SetUp},
    {"Setup", &PdnTags::SetUp},
    {"FEN", &PdnTags::Fen},
    {"fen", &PdnTags::Fen},
    {"ECO", &PdnTags::Eco},
    {"eco", &PdnTags::Eco},
    {"Tavlon12", &PdnTags::OwnTag},
    {"Comment", nullptr},
    {"Rem", nullptr},
    {"Ram", nullptr},
};

constexpr std::string_view kOwnTag = "Tavlon12";
constexpr std::size_t kTestedBytes = 80;

/// The row whose tag the text begins with, name and blank included; null when there is none.
const TagRow* FindTag(std::string_view text) {
    if (!text.starts_with('[')) return nullptr;
    const std::string_view name = text.substr(1, text.find(' ') - 1);
    if (name.size() + 1 == text.size()) return nullptr;
    auto found = std::ranges::find(kTags, name, &TagRow::Name);
    return found == std::end(kTags) ? nullptr : found;
}

std::string_view TrimBlanks(std::string_view text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
    while (text.ends_with(' ')) text.remove_suffix(1);
    return text;
}

// Line ends

constexpr std::size_t kBlock = 1000;

std::string WithCarriageReturns(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 16);
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n' && (at == 0 || text[at - 1] != '\r')) result += '\r';
        result += text[at];
    }
    return result;
}

std::string BlocksUpToNul(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (; !bytes.empty(); bytes.remove_prefix(std::min(kBlock, bytes.size()))) {
        const std::string_view block = bytes.substr(0, kBlock);
        text += block.substr(0, block.find('\0'));
    }
    return text;
}

/// Whether the first LF of a text has no CR before it.
bool BeginsWithBareLineEnd(std::string_view text) {
    const std::size_t end = text.find('\n');
    return end != std::string_view::npos && (end == 0 || text[end - 1] != '\r');
}

// Tags

/// What ends a line would end the tag. A quote needs no mark: the value goes on to the end of the line.
std::string TagLine(std::string_view name, std::string_view value) {
    return "[" + std::string(name) + " \"" + OneLine(value) + "\"]\r\n";
}

std::string TagLines(const PdnTags& tags) {
    std::string text;
    for (const TagRow& row : kTags) {
        if (row.When == Written::Never) continue;
        std::string value = tags.*row.Field;
        if (row.Field == &PdnTags::Result && value.empty()) value = PdnTags().Result;
        if (row.When == Written::Always || !value.empty()) text += TagLine(row.Name, value);
    }
    if (!tags.OwnTag.empty()) text += TagLine("TVersion", "1.00") + TagLine(kOwnTag, tags.OwnTag);
    return text;
}

// The own tag: the variant between two stars, the start position, the rules in the order that a game file has them,
// one blank between two items; then the movements, each with two blanks behind it, and the last rule.

constexpr std::string_view kEndOfItem = " ";
constexpr std::string_view kEndOfMovement = "  ";
constexpr Long kBlackSlotsRead = 16;

/// The text up to the mark, which is cut off with it; nothing when there is no mark.
std::optional<std::string_view> CutAt(std::string_view& text, std::string_view mark) {
    const std::size_t end = text.find(mark);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view item = text.substr(0, end);
    text.remove_prefix(end + mark.size());
    return item;
}

PromotionForm OwnTagForm(std::string_view key) {
    return {.Letters = PromotionForm::Case::Capitals, .Slots = key == "PromoB" ? kBlackSlotsRead : kPromotionSlots};
}

/// Takes the next item as the value of a rule. The last rule has no mark behind it.
std::optional<FileFailure> ReadItem(std::string_view& text, std::string_view key, std::string_view mark,
                                    RuleSet& rules) {
    using Kind = FileFailure::Kind;
    std::optional<std::string_view> item = mark.empty() ? text : CutAt(text, mark);
    if (!item) return FileFailure{Kind::EndTooEarly, "", 0, std::string(key)};
    if (!SetRuleValue(rules, *FindRuleKey(key), *item, OwnTagForm(key))) {
        return FileFailure{Kind::BadValue, "", 0, std::string(key)};
    }
    return std::nullopt;
}

std::string MovementText(std::string text) {
    text.resize(std::min(text.size(), text.find(kEndOfMovement)));
    if (text.ends_with(' ')) text.pop_back();
    return text;
}

// Positions

void PlaceFenItem(std::string_view item, Long side, Long piecesOnBlack, BoardCells& board) {
    item = TrimBlanks(item);
    const bool king = item.starts_with('K') || item.starts_with('k');
    const Long square = SquareNumber(item.substr(king ? 1 : 0), kNumeric, piecesOnBlack);
    if (square != 0) board[square] = side * (king ? kKing : kMan);
}

/// Takes the items of a side off the text, and the ":" that ends them; all of the text where a "." does.
void ReadFenSide(std::string_view& text, Long side, Long piecesOnBlack, BoardCells& board) {
    for (char mark = ','; mark == ',' && !text.empty();) {
        const std::size_t end = std::min(text.find_first_of(",:."), text.size());
        PlaceFenItem(text.substr(0, end), side, piecesOnBlack, board);
        mark = end < text.size() ? text[end] : '.';
        text.remove_prefix(mark == '.' ? text.size() : end + 1);
    }
}

// Moves

constexpr std::size_t kFullLine = 70;

/// A comment on one line. The form has no way to write a closing brace.
std::string CommentText(std::string_view comment) {
    std::string text;
    for (char c : comment) text += c == '\r' || c == '\n' ? ' ' : c == '}' ? ')' : c;
    return "{" + text + "} ";
}

std::string MoveText(const PdnHalfMove& move, Byte notation) {
    const std::string to = SquareNotation(move.Squares.To, Padding::None, notation);
    if (move.Squares.From == kOffBoard) return to;
    return SquareNotation(move.Squares.From, Padding::None, notation) + (move.Captures ? "x" : "-") + to;
}

/// A result as the last word of the moves: without what would make it anything else.
std::string ResultWord(const std::string& result) {
    std::string word = OneLine(result);
    std::erase_if(word, [](char c) { return std::string_view(" {}[").find(c) != std::string_view::npos; });
    return word.empty() ? PdnTags().Result : word;
}

std::string MoveLines(std::span<const PdnHalfMove> moves, Byte notation, const std::string& result) {
    std::string text, line;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        if (i % 2 == 0) line += std::to_string(i / 2 + 1) + ". ";
        if (!moves[i].CommentBefore.empty()) line += CommentText(moves[i].CommentBefore);
        line += MoveText(moves[i], notation) + " ";
        if (line.size() <= kFullLine) continue;
        text += line + "\r\n";
        line.clear();
    }
    return text + line + ResultWord(result) + "\r\n";
}

} // namespace

void ParsePdnTag(std::string_view line, PdnTags& tags) {
    const TagRow* row = FindTag(line);
    if (row == nullptr || row->Field == nullptr) return;
    const std::size_t quote = row->Name.size() + 2;
    if (line.size() <= quote || line[quote] != '"') return;
    const std::size_t begin = quote + 1;
    tags.*row->Field = line.size() < begin + 2 ? "" : line.substr(begin, line.size() - 2 - begin);
}

std::string PdnText(std::string_view bytes) {
    const std::string_view start = bytes.substr(0, kBlock);
    if (start.find('\r') == std::string_view::npos) {
        const std::string text = BlocksUpToNul(bytes);
        return WithCarriageReturns(std::string_view(text).substr(0, text.rfind('\n') + 1));
    }
    return BeginsWithBareLineEnd(start) ? WithCarriageReturns(bytes) : std::string(bytes);
}

bool IsPdnText(std::string_view text) {
    text = text.substr(0, kTestedBytes);
    while (text.starts_with("\r\n")) text.remove_prefix(2);
    return FindTag(text) != nullptr;
}

PdnReader::PdnReader(std::string_view text) : Lines(SplitLines(text)) {
    for (std::string_view& line : Lines) line = TrimBlanks(line);
}

std::optional<PdnGame> NextPdnGame(PdnReader& reader) {
    const std::vector<std::string_view>& lines = reader.Lines;
    std::size_t& next = reader.Next;
    while (next < lines.size() && !lines[next].starts_with('[')) ++next;
    PdnGame game;
    for (; next < lines.size(); ++next) {
        if (lines[next].starts_with('[')) {
            ParsePdnTag(lines[next], game.Tags);
        } else if (!lines[next].empty()) {
            game.FirstMoveLine = next++;
            return game;
        }
    }
    return std::nullopt;
}

std::string PdnMoveText(const PdnReader& reader, const PdnGame& game) {
    std::string joined;
    for (std::size_t i = game.FirstMoveLine; i < reader.Lines.size(); ++i) {
        const std::string_view line = reader.Lines[i];
        if (line.empty() || (line.starts_with('[') && i != game.FirstMoveLine)) break;
        if (i != game.FirstMoveLine) joined += ' ';
        joined += line;
    }
    std::string text;
    for (char c : joined) {
        const bool behindMark = text.ends_with('-') || text.ends_with('x');
        if (c != ' ' || !behindMark) text += c;
    }
    return std::string(TrimBlanks(text));
}

std::array<std::string, kPdnColumns> PdnRow(const PdnTags& tags) {
    const std::string event = tags.Round.empty() ? tags.Event : tags.Event + " " + tags.Round;
    return {event,     tags.Date,  tags.Black, tags.White,    tags.Result,
            tags.Site, tags.SetUp, tags.Eco,   tags.BlackElo, tags.WhiteElo};
}

Outcome<PdnOwnTag> ReadOwnTag(std::string_view value) {
    const FileFailure early{FileFailure::Kind::EndTooEarly, "", 0, ""};
    PdnOwnTag tag;
    if (!CutAt(value, "*")) return early;
    const auto variant = CutAt(value, "*");
    const auto behind = CutAt(value, kEndOfItem);
    const auto digits = CutAt(value, kEndOfItem);
    if (!variant || !behind || !digits) return early;
    tag.VariantFile = *variant;
    tag.StartDigits = *digits;
    for (std::string_view key : GameRuleOrder()) {
        if (auto failure = ReadItem(value, key, kEndOfItem, tag.Rules)) return *failure;
    }
    for (std::string_view key : MovementOrder()) {
        if (auto failure = ReadItem(value, key, kEndOfMovement, tag.Rules)) return *failure;
    }
    if (auto failure = ReadItem(value, kLastGameRule, "", tag.Rules)) return *failure;
    return tag;
}

std::string OwnTagText(const PdnOwnTag& tag) {
    const auto text = [&](std::string_view key) {
        return RuleValueText(tag.Rules, *FindRuleKey(key), {.Letters = PromotionForm::Case::Capitals});
    };
    std::string value = "*" + tag.VariantFile + "* " + tag.StartDigits + " ";
    for (std::string_view key : GameRuleOrder()) value.append(text(key)).append(kEndOfItem);
    for (std::string_view key : MovementOrder()) value.append(MovementText(text(key))).append(kEndOfMovement);
    return value + text(kLastGameRule);
}

RuleSet PlainPdnRules(const RuleSet& inForce) {
    RuleSet rules = RulesOfFamily(Family::American);
    rules.PromoW = inForce.PromoW;
    rules.PromoB = inForce.PromoB;
    rules.Setup = inForce.Setup;
    return rules;
}

std::optional<FenPosition> ReadFen(std::string_view value, Long piecesOnBlack) {
    const std::string start = UpperCase(value.substr(0, 2));
    if ((start != "W:" && start != "B:") || UpperCase(value) == "W::.") return std::nullopt;
    FenPosition fen;
    fen.BlackStarts = start == "B:" ? 1 : 0;
    value.remove_prefix(2);
    while (!value.empty()) {
        const Long side = value[0] == 'W' ? kWhite : kBlack;
        value.remove_prefix(1);
        ReadFenSide(value, side, piecesOnBlack, fen.Board);
    }
    return fen;
}

Byte PdnNotation(Byte piecesOnBlack, bool algebraic) {
    return algebraic || piecesOnBlack >= 2 ? kAlgebraic : kNumeric;
}

std::string PdnGameText(const PdnTags& tags, std::span<const PdnHalfMove> moves, Byte notation) {
    return TagLines(tags) + "\r\n" + MoveLines(moves, notation, tags.Result) + "\r\n";
}

std::string WithGameAdded(std::string_view file, std::string_view game) {
    std::string bytes(file);
    if (!bytes.empty() && !bytes.ends_with('\n')) bytes += "\r\n";
    return bytes.append(game);
}

} // namespace tavlon12
