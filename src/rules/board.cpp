#include "rules/board.h"

namespace tavlon12 {

namespace {

constexpr std::array<Long, 5> kPieceOfDigit = {kEmpty, kMan, -kMan, kKing, -kKing};

char DigitOfPiece(Long piece) {
    for (std::size_t digit = 0; digit < kPieceOfDigit.size(); ++digit) {
        if (kPieceOfDigit[digit] == piece) return static_cast<char>('0' + digit);
    }
    return '0';
}

} // namespace

BoardCells EmptyBoard() {
    BoardCells board;
    for (Long index = 0; index < kBoardCells; ++index) board[index] = IsSquare(index) ? kEmpty : kBorder;
    return board;
}

BoardCells ClassicStart() {
    BoardCells board = EmptyBoard();
    for (Long row = 0; row < 5; ++row) {
        for (Long pair = 0; pair < 6; ++pair) {
            Long further = row % 2;
            board[kFirstSquare + kBoardWidth * row + 2 * pair + further] = kMan;
            board[128 + kBoardWidth * row + 2 * pair - further] = -kMan;
        }
    }
    return board;
}

std::string PositionString(const BoardCells& board) {
    std::string digits;
    digits.reserve(kSquareCount);
    for (Long index = kFirstSquare; index <= kLastSquare; ++index) {
        if (board[index] != kBorder) digits += DigitOfPiece(board[index]);
    }
    return digits;
}

BoardCells ReadPositionString(std::string_view digits) {
    BoardCells board = EmptyBoard();
    std::size_t next = 0;
    for (Long& cell : board) {
        if (cell == kBorder) continue;
        if (next == digits.size()) break;
        char digit = digits[next++];
        if (digit >= '0' && digit <= '4') cell = kPieceOfDigit[static_cast<std::size_t>(digit - '0')];
    }
    return board;
}

} // namespace tavlon12
