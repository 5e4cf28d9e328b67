#include "files/pdn_moves.h"

#include "rules/notation.h"

#include <algorithm>
#include <optional>

namespace tavlon12 {

namespace {

// The moves of a game, "1. 9-14 {sharp} 22-18 2. 14x23 27x18 1-0". Before each half-move stand its comments; before the
// first of a pair also the number of the pair and, behind it, one more comment. The last word is the result, whatever
// it says.

void SkipBlanks(std::string_view& text) {
    while (text.starts_with(' ')) text.remove_prefix(1);
}

/// Cuts off a comment that the text begins with, and the blanks behind it; nothing when it has no end.
std::optional<std::string> CutComment(std::string_view& text) {
    const std::size_t end = text.find('}');
    if (end == std::string_view::npos) return std::nullopt;
    std::string comment(text.substr(1, end - 1));
    text.remove_prefix(end + 1);
    SkipBlanks(text);
    return comment;
}

/// The comments that the text begins with as one, each on lines of its own.
std::optional<std::string> CutComments(std::string_view& text) {
    std::optional<std::string> sum = CutComment(text);
    while (sum && text.starts_with('{')) {
        const std::optional<std::string> comment = CutComment(text);
        if (!comment) return std::nullopt;
        *sum += "\r\n" + *comment;
    }
    return sum;
}

void CutNumber(std::string_view& text) {
    const std::size_t point = text.find('.');
    if (point == std::string_view::npos || point > text.find(' ')) return;
    text.remove_prefix(point + 1);
    SkipBlanks(text);
}

/// Takes the comments, or the number with its comment, that may stand before a half-move.
std::optional<PdnItem> NextComment(PdnMoveReader& reader) {
    const bool behindNumber = reader.Next == PdnMoveReader::Step::Number;
    if (behindNumber && !reader.SecondHalf) CutNumber(reader.Rest);
    reader.Next = behindNumber ? PdnMoveReader::Step::Word : PdnMoveReader::Step::Number;
    if (!reader.Rest.starts_with('{')) return std::nullopt;
    const auto comment = behindNumber ? CutComment(reader.Rest) : CutComments(reader.Rest);
    if (!comment) return PdnItem{PdnItem::Kind::Error, std::string(reader.Rest)};
    return PdnItem{PdnItem::Kind::Comment, *comment};
}

/// Cuts off the word up to the first blank, which there must be. A comment that clings to the first half of a pair is
/// left for the second.
std::string_view CutWord(PdnMoveReader& reader) {
    const std::string_view text = reader.Rest;
    std::string_view word = text.substr(0, text.find(' '));
    const std::size_t brace = word.find('{');
    if (!reader.SecondHalf && word.ends_with('}') && brace != std::string_view::npos) {
        reader.Rest = text.substr(brace);
        return word.substr(0, brace);
    }
    reader.Rest = text.substr(word.size());
    SkipBlanks(reader.Rest);
    return word;
}

bool InLetters(std::string_view word) {
    return !word.empty() && static_cast<unsigned char>(word[0]) > '9';
}

Byte NotationOf(std::string_view word) {
    return InLetters(word) ? kAlgebraic : kNumeric;
}

std::string Padded(std::string_view square) {
    return std::string(square.size() == 1 ? 1 : 0, ' ').append(square);
}

/// The square alone as a key; nothing when it is no square.
std::optional<std::string> PlacementKey(std::string_view word, const PdnMoveSettings& settings) {
    const bool square =
        word.size() <= 2 && SquareNumber(UpperCase(word), NotationOf(word), settings.PiecesOnBlack) != 0;
    if (!square) return std::nullopt;
    return Padded(word);
}

/// The squares that the word begins and ends with, in four characters: "9-14" is " 914", "5x14x23" is " 523".
std::optional<std::string> KeyOfWord(std::string_view word, const PdnMoveSettings& settings) {
    const char mark = word.find('x') != std::string_view::npos ? 'x' : '-';
    const std::size_t first = word.find(mark);
    if (first == std::string_view::npos) {
        return settings.Placements ? PlacementKey(word, settings) : std::nullopt;
    }
    std::string key = Padded(word.substr(0, first)).append(word.substr(word.rfind(mark) + 1));
    if (key.size() == 3) key.insert(2, 1, ' ');
    return key.substr(0, 4);
}

/// Whether a word is written in the other notation than the one in force. With an own tag only letters are.
bool NeedsConversion(std::string_view word, const PdnMoveSettings& settings) {
    if (settings.AsVariant) return false;
    const bool numbersInForce = settings.Notation != kAlgebraic;
    return InLetters(word) ? numbersInForce : !numbersInForce && !settings.OwnTag;
}

std::string Converted(std::string_view key, Byte from, const PdnMoveSettings& settings) {
    std::string result;
    for (; !key.empty(); key.remove_prefix(std::min<std::size_t>(2, key.size()))) {
        const Long square = SquareNumber(UpperCase(key.substr(0, 2)), from, settings.PiecesOnBlack);
        result += SquareNotation(square, Padding::Blank, settings.Notation);
    }
    return result;
}

PdnItem NextMove(PdnMoveReader& reader) {
    PdnMoveSettings& settings = reader.Settings;
    if (reader.Rest.find(' ') == std::string_view::npos) return {PdnItem::Kind::End, ""};
    const std::string_view word = CutWord(reader);
    if (settings.AsVariant && !reader.AnyWord) settings.Notation = NotationOf(word);
    std::optional<std::string> key = KeyOfWord(word, settings);
    if (!key) return {PdnItem::Kind::Error, std::string(word)};
    if (NeedsConversion(word, settings)) key = Converted(*key, NotationOf(word), settings);
    reader.AnyWord = true;
    reader.SecondHalf = !reader.SecondHalf;
    reader.Next = PdnMoveReader::Step::Comments;
    const bool capitals = settings.OwnTag || settings.Notation == kAlgebraic;
    return {PdnItem::Kind::Move, capitals ? UpperCase(*key) : *key};
}

} // namespace

PdnItem NextPdnItem(PdnMoveReader& reader) {
    while (reader.Next != PdnMoveReader::Step::Word) {
        if (auto comment = NextComment(reader)) return *comment;
    }
    return NextMove(reader);
}

} // namespace tavlon12
