#pragma once

#include "rules/basics.h"

#include <array>
#include <string>
#include <string_view>

namespace tavlon12 {

// The mailbox: 16 rows of 14 cells, index = row * 14 + column. The 12 by 12 squares are rows 2 to 13, columns 1 to 12,
// that is the indices 29 (a1, bottom left, White's side) to 194 (top right). Two border rows above and below and one
// border column on each side let a step of up to 28 land on a border cell, so that no index is ever tested against the
// edge.
inline constexpr Long kBoardCells = 224;
inline constexpr Long kBoardWidth = 14;
inline constexpr Long kFirstSquare = 29;
inline constexpr Long kLastSquare = 194;
inline constexpr Long kFirstRow = 2;
inline constexpr Long kLastRow = 13;
inline constexpr Long kLastColumn = 12;
inline constexpr std::size_t kSquareCount = 144;

// Cell values: White positive, Black negative, the magnitude is the value in men. Within a generator a jumped piece is
// marked by 10 less, so any value from -12 to -8 is a marked piece.
inline constexpr Long kBorder = 100;
inline constexpr Long kEmpty = 0;
inline constexpr Long kMan = 1;
inline constexpr Long kKing = 2;
inline constexpr Long kJumpedMark = 10;

inline constexpr Long kWhite = 1;
inline constexpr Long kBlack = -1;

/// The `From` of a move that places a piece from off the board.
inline constexpr Long kOffBoard = 999;

using BoardCells = std::array<Long, kBoardCells>;

constexpr Long RowOf(Long square) {
    return square / kBoardWidth;
}

constexpr Long ColumnOf(Long square) {
    return square % kBoardWidth;
}

constexpr bool IsSquare(Long index) {
    return index >= kFirstSquare && index <= kLastSquare && ColumnOf(index) >= 1 && ColumnOf(index) <= kLastColumn;
}

/// 0 for White, 1 for Black: the index of a side in tables by side.
constexpr std::size_t SideIndex(Long side) {
    return side == kWhite ? 0 : 1;
}

constexpr Long Magnitude(Long cell) {
    return cell < 0 ? -cell : cell;
}

constexpr bool IsMarked(Long cell) {
    return cell < -5;
}

/// A piece that is on the board and not marked as jumped.
constexpr bool IsLivePiece(Long cell) {
    return cell >= -2 && cell <= 2 && cell != kEmpty;
}

/// 0 white man, 1 black man, 2 white king, 3 black king: the row of a piece in the table of steps.
constexpr Long PieceType(Long piece) {
    return (Magnitude(piece) == kKing ? 2 : 0) + (piece < 0 ? 1 : 0);
}

/// |row difference| + |column difference| of two board indices.
constexpr Long Distance(Long a, Long b) {
    Long rows = RowOf(a) - RowOf(b);
    Long columns = ColumnOf(a) - ColumnOf(b);
    return (rows < 0 ? -rows : rows) + (columns < 0 ? -columns : columns);
}

/// How a square lies to the playing colour. `Shift` is the step to the neighbouring square of that colour in the same
/// column pair: 0 on a square of the colour, else +1 in an odd column and -1 in an even one.
struct ColourShift {
    bool SquareIsDark;
    Long Shift;
};

/// Row + column odd is the playing colour, and with `piecesOnBlack` 0 row + column even.
constexpr ColourShift SquareColourShift(Long square, Long piecesOnBlack) {
    bool odd = (RowOf(square) + ColumnOf(square)) % 2 != 0;
    bool dark = piecesOnBlack == 0 ? !odd : odd;
    return {dark, dark ? 0 : (ColumnOf(square) % 2 != 0 ? 1 : -1)};
}

/// Whether a piece may stand on the square: all squares are playable with `piecesOnBlack` 2.
constexpr bool IsPlayingSquare(Long square, Long piecesOnBlack) {
    return piecesOnBlack >= 2 || SquareColourShift(square, piecesOnBlack).SquareIsDark;
}

/// Border cells and empty squares.
BoardCells EmptyBoard();

/// Five rows of men each, on the squares with row + column odd.
BoardCells ClassicStart();

/// 144 digits in index order: 0 empty, 1 white man, 2 black man, 3 white king, 4 black king.
std::string PositionString(const BoardCells& board);

/// Reads such digits; cells without a digit become empty, and so does a cell with any other character. Border cells
/// stay.
BoardCells ReadPositionString(std::string_view digits);

} // namespace tavlon12
