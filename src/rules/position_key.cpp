#include "rules/position_key.h"

#include "rules/position.h"

namespace tavlon12 {

PositionKey KeyOf(const BoardCells& board) {
    PositionKey key;
    for (Long index = kFirstSquare; index <= kLastSquare; ++index) {
        if (IsLivePiece(board[index])) key.Flip(PieceType(board[index]), index);
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
    Long count = 0;
    for (Long i = 0; i <= index; ++i) {
        if (position.PositionKeys[i] == position.Key) ++count;
    }
    PieceCensus census = CountPieces(position.Board);
    return {count, census.WhiteSum == kKing && census.BlackSum == kKing && !census.AnyMan};
}

} // namespace tavlon12
