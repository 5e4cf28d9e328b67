#include "files/opening_book.h"

#include "files/format_line.h"
#include "files/game_file.h"
#include "files/key_lines.h"
#include "files/variant_file.h"
#include "rules/directions.h"
#include "rules/notation.h"
#include "rules/rule_keys.h"

#include <algorithm>
#include <optional>

namespace tavlon12 {

namespace {

// A book is sections, each for one set of rules: a head of key lines, the line "start", the lines of a tree, the line
// "names" with lines of names where it has any, the line "end".
//
// The tree is written in columns. A field of five characters is a move and the side that plays it, "0913b" for Black's
// move from 9 to 13. What a line has in common with the line before it is left blank:
//
//     0913b2217w1115b
//               1014b2925w
//          2318w
//
// These are the lines 9-13 22-17 11-15, then 9-13 22-17 10-14 29-25, then 9-13 23-18. The game so far, written in the
// same columns as its path "0913 2217", is compared with each line made whole; where all its moves agree, the field
// behind them is a candidate. A candidate is taken from the line as it stands, so that each counts once.
//
// A name line is the beginning of a path, then the name: "0913 2217'Some Name'". The last one that fits names the game.

constexpr std::string_view kCanadianBookHead = "Variant=American Checkers 12x12";
constexpr std::size_t kField = 5;
constexpr std::size_t kKey = 4;
constexpr std::size_t kMostCandidates = 11;
constexpr Long kPromotionSlotsCompared = 12;

// Heads

/// Compares the heads of the sections, line by line, with what the question says.
struct HeadComparison {
    bool Match = false;
    std::string_view VariantLine;
    DirectionTable BookDirTable{}; ///< zeros, which no rules have: a head must name all movements
};

bool DiffersFrom(Long value, std::string_view text, const PromotionForm&) {
    return ParseNumber(text) != value;
}

bool DiffersFrom(const PromotionList& value, std::string_view text, const PromotionForm& form) {
    const PromotionList list = ReadPromotionList(text, form);
    return !std::equal(list.begin(), list.begin() + form.Slots, value.begin());
}

/// A text is no value that is compared here.
bool DiffersFrom(const std::string&, std::string_view, const PromotionForm&) {
    return false;
}

bool DiffersFrom(const RuleSet& rules, const RuleKey& key, std::string_view text) {
    return std::visit([&](auto member) { return DiffersFrom(rules.*member, text, {.Slots = kPromotionSlotsCompared}); },
                      key.Member);
}

void CompareHeadLine(std::string_view text, const BookQuestion& question, HeadComparison& comparison) {
    const auto line = SplitKeyLine(text);
    if (!line) return;
    if (line->Key == "Variant") {
        comparison.VariantLine = text;
        comparison.Match = line->Value == question.VariantName;
    }
    if (line->Key == "Setup" && line->Value != question.StartDigits) comparison.Match = false;
    const RuleKey* key = FindRuleKey(line->Key);
    if (key == nullptr) return;
    if (DiffersFrom(question.Rules, *key, line->Value)) comparison.Match = false;
    const auto movement = std::ranges::find(MovementOrder(), line->Key);
    const auto pieceType = static_cast<Long>(movement - MovementOrder().begin());
    if (movement != MovementOrder().end()) ParseMovement(line->Value, pieceType, comparison.BookDirTable);
}

/// The verdict of the line "start".
bool HeadMatches(const BookQuestion& question, const HeadComparison& comparison) {
    if (!question.CanadianBook) return comparison.Match && comparison.BookDirTable == DirectionsOf(question.Rules);
    return comparison.VariantLine == kCanadianBookHead && question.StartDigits == PositionString(ClassicStart()) &&
           question.Rules.AntiMode == 0 && question.Rules.PiecesOnBlack == 1;
}

using Lines = std::vector<std::string_view>;

/// The line behind the "start" of the first section that matches; behind the last line when none does.
std::size_t FindTree(const Lines& lines, const BookQuestion& question) {
    HeadComparison comparison;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] != "start") {
            CompareHeadLine(lines[i], question, comparison);
        } else if (comparison.Match = HeadMatches(question, comparison); comparison.Match) {
            return i + 1;
        }
    }
    return lines.size();
}

// Moves as a book has them

Byte BookNotation(const RuleSet& rules) {
    return rules.PiecesOnBlack < 2 ? kNumeric : kAlgebraic;
}

/// Whether the book is read with the colours exchanged and the board turned.
bool IsFlipped(const BookQuestion& question) {
    return question.CanadianBook && question.Rules.BlackStarts == 0;
}

SquarePair Flipped(SquarePair move) {
    return {MirrorSquare(move.From), MirrorSquare(move.To)};
}

/// No book has a move that places a piece: the second half of its key is no square.
std::string BookKey(SquarePair move, Byte notation) {
    const auto text = [&](Long square) { return SquareNotation(square, Padding::Zero, notation); };
    return move.From == kOffBoard ? text(move.To) + text(0) : text(move.From) + text(move.To);
}

std::string PathOf(const BookQuestion& question) {
    std::string path;
    for (SquarePair move : question.Moves) {
        if (IsFlipped(question) && move.From != kOffBoard) move = Flipped(move);
        if (!path.empty()) path += ' ';
        path += BookKey(move, BookNotation(question.Rules));
    }
    return path;
}

SquarePair MoveOfKey(std::string_view key, const RuleSet& rules) {
    const auto square = [&](std::string_view text) {
        return SquareNumber(UpperCase(text), BookNotation(rules), rules.PiecesOnBlack);
    };
    return {square(key.substr(0, 2)), square(key.substr(2))};
}

// The tree

std::string ColoursExchanged(std::string_view line) {
    std::string exchanged(line);
    for (char& c : exchanged) c = c == 'b' ? 'w' : c == 'w' ? 'b' : c;
    return exchanged;
}

/// Puts what a line says into the whole line: from its first character on it replaces what the lines before have left.
void Overlay(std::string_view line, std::string& buffer) {
    const std::size_t begin = line.find_first_not_of(' ');
    if (begin == std::string_view::npos) return;
    buffer.resize(begin, ' ');
    buffer += line.substr(begin);
}

bool LiesOn(std::string_view path, std::string_view buffer) {
    for (std::size_t at = 0; at < path.size(); at += kField) {
        if (buffer.size() < at + kKey || buffer.substr(at, kKey) != path.substr(at, kKey)) return false;
    }
    return true;
}

/// Reads one line of the tree: whether the path lies on it, and the move that it offers.
void ReadTreeLine(std::string_view line, std::string_view path, char side, std::string& buffer, BookAnswer& answer) {
    Overlay(line, buffer);
    if (!path.empty()) {
        if (!LiesOn(path, buffer)) return;
        answer.InBook = true;
    }
    const std::size_t field = path.empty() ? 0 : path.size() + 1;
    if (line.size() < field + kField || line[field + kKey] != side) return;
    answer.BookCandidates.emplace_back(line.substr(field, kKey));
}

FileFailure BadLine(const Lines& lines, std::size_t index) {
    return {FileFailure::Kind::BadValue, "", static_cast<Long>(index + 1), std::string(lines[index])};
}

/// Reads the tree from a line on, which becomes the one behind it.
std::optional<FileFailure> ReadTree(const Lines& lines, std::size_t& next, const BookQuestion& question,
                                    std::string_view path, BookAnswer& answer) {
    const char side = question.SideToMove == kWhite ? 'w' : 'b';
    std::string buffer;
    for (; next < lines.size() && lines[next] != "names" && lines[next] != "end"; ++next) {
        const std::string line = IsFlipped(question) ? ColoursExchanged(lines[next]) : std::string(lines[next]);
        ReadTreeLine(line, path, side, buffer, answer);
        if (answer.BookCandidates.size() > kMostCandidates) return BadLine(lines, next);
    }
    return std::nullopt;
}

/// Reads the tree and gives the candidates as moves on the board, which a flipped book is turned against.
std::optional<FileFailure> ReadCandidates(const Lines& lines, std::size_t& next, const BookQuestion& question,
                                          std::string_view path, BookAnswer& answer) {
    if (auto failure = ReadTree(lines, next, question, path, answer)) return failure;
    if (!IsFlipped(question)) return std::nullopt;
    for (std::string& key : answer.BookCandidates) {
        key = BookKey(Flipped(MoveOfKey(key, question.Rules)), BookNotation(question.Rules));
    }
    return std::nullopt;
}

// Names

/// The name of a line that fits the path. What follows the compared text loses its first and last character, which are
/// the apostrophes.
void ReadNameLine(std::string_view line, std::string_view path, BookAnswer& answer) {
    const std::size_t apostrophe = line.find('\'');
    if (!path.starts_with(line.substr(0, apostrophe))) return;
    const std::string_view quoted = line.substr(apostrophe);
    answer.OpeningName = quoted.size() < 2 ? "" : quoted.substr(1, quoted.size() - 2);
}

std::optional<FileFailure> ReadNames(const Lines& lines, std::size_t next, std::string_view path, BookAnswer& answer) {
    for (; next < lines.size() && lines[next] != "end"; ++next) {
        if (lines[next].find('\'') == std::string_view::npos) return BadLine(lines, next);
        ReadNameLine(lines[next], path, answer);
    }
    return std::nullopt;
}

} // namespace

std::string BookPath(std::string_view variantFile, bool canadianBook) {
    return "books/" + std::string(canadianBook ? kDefaultVariant : variantFile) + ".bok";
}

Outcome<BookAnswer> AskBook(std::string_view bytes, const BookQuestion& question, std::mt19937& random) {
    if (auto failure = FormatFailure(bytes)) return *failure;
    const Lines lines = SplitLines(bytes);
    std::size_t next = FindTree(lines, question);
    std::string path = PathOf(question);
    BookAnswer answer;
    if (auto failure = ReadCandidates(lines, next, question, path, answer)) return *failure;
    if (question.WantMove && !answer.BookCandidates.empty()) {
        std::uniform_int_distribution<std::size_t> draw(0, answer.BookCandidates.size() - 1); // the same chance for all
        const std::string& chosen = answer.BookCandidates[draw(random)];
        answer.Move = MoveOfKey(chosen, question.Rules);
        path += (path.empty() ? "" : " ") + chosen;
    }
    const bool names = next < lines.size() && lines[next] == "names";
    if (auto failure = names ? ReadNames(lines, next + 1, path, answer) : std::nullopt) return *failure;
    return answer;
}

bool IsBookCandidate(std::span<const std::string> candidates, SquarePair move, Byte piecesOnBlack) {
    const std::string key = BookKey(move, piecesOnBlack < 2 ? kNumeric : kAlgebraic);
    return std::ranges::any_of(candidates, [&](const std::string& candidate) {
        if (piecesOnBlack >= 2) return candidate == key;
        return ParseNumber(candidate.substr(0, 2)) == ParseNumber(key.substr(0, 2)) &&
               ParseNumber(candidate.substr(2)) == ParseNumber(key.substr(2));
    });
}

} // namespace tavlon12
