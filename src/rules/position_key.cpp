#include "rules/position_key.h"

#include "rules/position.h"

namespace tavlon12 {

PositionKey KeyOf(const BoardCells& board) {
    PositionKey key;
    std::size_t cell = 0;
    for (Long row = kFirstRow; row <= kLastRow; ++row) {
        for (Long column = 1; column <= kLastColumn; ++column, ++cell) {
            Long piece = board[row * kBoardWidth + column];
            if (!IsLivePiece(piece)) continue;
            std::uint64_t code = static_cast<std::uint64_t>(PieceType(piece)) + 1;
            key.Words[cell / 21] |= code << (cell % 21 * 3);
        }
    }
    return key;
}

PieceCensus CountPieces(const BoardCells& board) {
    PieceCensus census;
    for (Long index = kFirstSquare; index <= kLastSquare; ++index) {
        Long cell = board[index];
        if (!IsLivePiece(cell)) continue;
        (cell > 0 ? census.WhiteSum : census.BlackSum) += Magnitude(cell);
        if (Magnitude(cell) == kMan) census.AnyMan = true;
    }
    return census;
}

Repetition FindRepetition(const Position& position, Long index) {
    PositionKey key = KeyOf(position.Board);
    Long count = 0;
    for (Long i = 0; i <= index; ++i) {
        if (position.PositionKeys[i] == key) ++count;
    }
    PieceCensus census = CountPieces(position.Board);
    return {count, census.WhiteSum == kKing && census.BlackSum == kKing && !census.AnyMan};
}

} // namespace tavlon12
