#include "rules/notation.h"

namespace tavlon12 {

namespace {

constexpr std::string_view kRanks = "1234567890ab";

std::string NumberText(Long number, Padding padding) {
    std::string text = std::to_string(number);
    if (number >= 10 || padding == Padding::None) return text;
    return (padding == Padding::Blank ? " " : "0") + text;
}

Long SquareOfNumber(double value, Long piecesOnBlack) {
    if (!(value >= 1 && value <= 72)) return 0;
    Long number = RoundHalfEven(value);
    Long rowFromTop = (number - 1) / 6;
    Long place = number % 6 == 0 ? 6 : number % 6;
    Long odd = rowFromTop % 2;
    Long square = (kLastRow - rowFromTop) * kBoardWidth + 2 * place - odd;
    if (piecesOnBlack == 0) square += RowOf(square) % 2 == 0 ? 1 : -1;
    return square;
}

Long SquareOfLetters(std::string_view text) {
    if (text.size() < 2 || text[0] < 'A' || text[0] > 'L') return 0;
    std::size_t rank = kRanks.find(LowerCase(text.substr(1, 1)));
    if (rank == std::string_view::npos) return 0;
    return (static_cast<Long>(rank) + kFirstRow) * kBoardWidth + (text[0] - 'A' + 1);
}

} // namespace

std::string SquareNotation(Long square, Padding padding, Byte notation) {
    if (square == kOffBoard) return "";
    if (!IsSquare(square)) return "--";
    Long row = RowOf(square);
    Long column = ColumnOf(square);
    if (notation != kAlgebraic) return NumberText((kLastRow - row) * 6 + (column + 1) / 2, padding);
    return {static_cast<char>('a' + column - 1), kRanks[static_cast<std::size_t>(row - kFirstRow)]};
}

Long SquareNumber(std::string_view text, Byte notation, Long piecesOnBlack) {
    return notation == kAlgebraic ? SquareOfLetters(text) : SquareOfNumber(ParseNumber(text), piecesOnBlack);
}

} // namespace tavlon12
