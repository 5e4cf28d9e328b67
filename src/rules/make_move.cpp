#include "rules/make_move.h"

#include <cassert>

namespace tavlon12 {

namespace {

Long& OffBoardCount(GameTree& tree, Long side) {
    return side == kWhite ? tree.WhiteOffBoard : tree.BlackOffBoard;
}

void MovePiece(Position& position, Long from, Long to) {
    Long piece = position.Board[from];
    assert(IsLivePiece(piece) && position.Board[to] == kEmpty);
    Long type = PieceType(piece);
    position.Board[from] = kEmpty;
    position.Board[to] = piece;
    position.Sums.Key.Move(type, from, to);
    position.Sums.TermSum += position.TermsOfPieces[type][to];
    position.Sums.TermSum -= position.TermsOfPieces[type][from];
}

void ReplacePiece(Position& position, Long square, Long piece) {
    LiftPiece(position, square);
    PutPiece(position, square, piece);
}

/// Whether the side to move can make the move on the board as it is.
[[maybe_unused]] bool FitsTheBoard(const Position& position, const MoveRecord& move) {
    const Long side = position.Tree.SideToMove;
    const CapturePath& captures = move.Captures;
    for (Long i = 0; i < captures.Count; ++i) {
        if (position.Board[captures.Squares[i]] != -side * captures.MagnitudeAt(i)) return false;
    }
    if (!IsSquare(move.To) || (move.Promotes != 0 && move.Promotes != kKing)) return false;
    if (move.From == kOffBoard) return move.Promotes == 0 && position.Board[move.To] == kEmpty;
    return IsSquare(move.From) && IsLivePiece(position.Board[move.From]) && position.Board[move.From] * side > 0;
}

/// The rule that crowns the only man of a side, which acts on the opponent of the mover.
void CrownLastMan(Position& position) {
    GameTree& tree = position.Tree;
    Long man = PieceType(tree.SideToMove * kMan);
    tree.TreeLastMan[tree.TreeIndex] = 0;
    if (position.Sums.PieceCount[man] != 1 || position.Sums.PieceCount[man + 2] != 0) return;
    Long square = position.Sums.Key.Sets[man].First();
    tree.TreeLastMan[tree.TreeIndex] = square;
    ReplacePiece(position, square, kKing * tree.SideToMove);
    tree.PlyValue[tree.Ply] += 100;
    tree.PlyMaterial[tree.Ply] += 100;
}

} // namespace

void PerformMove(Position& position, Long slot) {
    GameTree& tree = position.Tree;
    BoardCells& board = position.Board;
    const RuleSet& rules = position.Rules;
    const MoveRecord& move = position.Moves[slot];
    assert(slot >= 0 && slot < kMoveSlots);
    assert(tree.Ply >= 0 && tree.Ply < kMaxPly && tree.TreeIndex >= 0 && tree.TreeIndex + 1 < kTreeSize);
    assert(FitsTheBoard(position, move));

    Long ply = ++tree.Ply;
    Long index = ++tree.TreeIndex;
    tree.TreeTo[index] = move.To;
    tree.PlyLastTo[ply] = move.To;
    tree.PlyForcing[ply] = 0;
    tree.TreeKingMan[index] = 0;

    // The balance is seen from the opponent from here on: what the mover gains lowers it.
    Long value = -tree.PlyValue[ply - 1];
    Long material = tree.PlyMaterial[ply - 1];

    if (move.IsCapture()) {
        tree.PlyForcing[ply] = 1;
        for (Long i = 0; i < move.Captures.Count; ++i) LiftPiece(position, move.Captures.Squares[i]);
        Long taken = 100 * move.Captures.MaterialSum();
        value -= taken;
        material -= taken;
        if (rules.KingMan == 1 && move.To != move.From && Magnitude(board[move.From]) == kKing) {
            tree.TreeKingMan[index] = 1;
            value -= 100;
            material -= 100;
            ReplacePiece(position, move.From, tree.SideToMove * kMan);
        }
    }

    if (move.From == kOffBoard) {
        PutPiece(position, move.To, tree.SideToMove);
        assert(OffBoardCount(tree, tree.SideToMove) > 0);
        --OffBoardCount(tree, tree.SideToMove);
    } else if (move.To != move.From) {
        MovePiece(position, move.From, move.To);
    }

    if (move.Promotes != 0) {
        tree.PlyForcing[ply] = 1;
        value -= 100;
        material += 100;
        if (rules.ChangeSide == 1) value += 200;
        ReplacePiece(position, move.To, (rules.ChangeSide == 1 ? -kKing : kKing) * tree.SideToMove);
    }

    tree.PlyValue[ply] = value;
    tree.PlyMaterial[ply] = material;
    tree.SideToMove = -tree.SideToMove;
    if (rules.ManKing == 1) CrownLastMan(position);
}

void TakeBackMove(Position& position, Long slot) {
    GameTree& tree = position.Tree;
    const RuleSet& rules = position.Rules;
    const MoveRecord& move = position.Moves[slot];
    assert(tree.Ply > 0 && tree.TreeIndex > 0);
    assert(tree.TreeTo[tree.TreeIndex] == move.To); // the last move made is the first taken back

    Long index = tree.TreeIndex;
    --tree.TreeIndex;
    --tree.Ply;
    tree.SideToMove = -tree.SideToMove;
    Long side = tree.SideToMove;

    if (move.From == kOffBoard) {
        LiftPiece(position, move.To);
        ++OffBoardCount(tree, side);
    } else if (move.To != move.From) {
        MovePiece(position, move.To, move.From);
    }
    for (Long i = 0; i < move.Captures.Count; ++i) {
        PutPiece(position, move.Captures.Squares[i], -side * move.Captures.MagnitudeAt(i));
    }
    // A man again also where the promotion has changed its colour.
    if (move.Promotes != 0 && move.From != kOffBoard) ReplacePiece(position, move.From, side * kMan);
    if (rules.ManKing == 1 && tree.TreeLastMan[index] != 0)
        ReplacePiece(position, tree.TreeLastMan[index], -side * kMan);
    if (rules.KingMan == 1 && tree.TreeKingMan[index] == 1) ReplacePiece(position, move.From, side * kKing);
    assert(FitsTheBoard(position, move));
}

} // namespace tavlon12
