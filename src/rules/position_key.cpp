#include "rules/position_key.h"

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

} // namespace tavlon12
