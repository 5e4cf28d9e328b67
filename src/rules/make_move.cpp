#include "rules/make_move.h"

#include <cassert>

namespace tavlon12 {

namespace {

Long& OffBoardCount(GameTree& tree, Long side) {
    return side == kWhite ? tree.WhiteOffBoard : tree.BlackOffBoard;
}

/// The square of a side's last man when that man is all it has, else 0.
Long LastManOf(const BoardCells& board, Long side) {
    Long lastMan = 0;
    for (Long index = kFirstSquare; index <= kLastSquare; ++index) {
        Long cell = board[index];
        if (cell == kBorder || cell * side <= 0) continue;
        if (lastMan != 0 || Magnitude(cell) != kMan) return 0;
        lastMan = index;
    }
    return lastMan;
}

/// The rule that crowns the only man of a side, which acts on the opponent of the mover.
void CrownLastMan(Position& position) {
    GameTree& tree = position.Tree;
    Long square = LastManOf(position.Board, tree.SideToMove);
    tree.TreeLastMan[tree.TreeIndex] = square;
    if (square == 0) return;
    position.Board[square] = kKing * tree.SideToMove;
    tree.PlyValue[tree.Ply] += 100;
    tree.PlyMaterial[tree.Ply] += 100;
}

} // namespace

void PerformMove(Position& position, Long slot) {
    GameTree& tree = position.Tree;
    BoardCells& board = position.Board;
    const RuleSet& rules = position.Rules;
    const MoveRecord& move = position.Moves[slot];
    assert(tree.Ply < kMaxPly && tree.TreeIndex + 1 < kTreeSize);

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
        for (Long i = 0; i < move.Captures.Count; ++i) board[move.Captures.Squares[i]] = kEmpty;
        Long taken = 100 * move.Captures.MaterialSum();
        value -= taken;
        material -= taken;
        if (rules.KingMan == 1 && move.To != move.From && Magnitude(board[move.From]) == kKing) {
            tree.TreeKingMan[index] = 1;
            value -= 100;
            material -= 100;
            board[move.From] /= 2;
        }
    }

    if (move.From == kOffBoard) {
        board[move.To] = tree.SideToMove;
        --OffBoardCount(tree, tree.SideToMove);
    } else if (move.To != move.From) {
        board[move.To] = board[move.From];
        board[move.From] = kEmpty;
    }

    if (move.Promotes != 0) {
        tree.PlyForcing[ply] = 1;
        board[move.To] = move.Promotes * tree.SideToMove;
        value -= 100;
        material += 100;
        if (rules.ChangeSide == 1) {
            board[move.To] = -board[move.To];
            value += 200;
        }
    }

    tree.PlyValue[ply] = value;
    tree.PlyMaterial[ply] = material;
    tree.SideToMove = -tree.SideToMove;
    if (rules.ManKing == 1) CrownLastMan(position);
}

void TakeBackMove(Position& position, Long slot) {
    GameTree& tree = position.Tree;
    BoardCells& board = position.Board;
    const RuleSet& rules = position.Rules;
    const MoveRecord& move = position.Moves[slot];
    assert(tree.Ply > 0 || tree.TreeIndex > 0);

    Long index = tree.TreeIndex;
    --tree.TreeIndex;
    --tree.Ply;
    tree.SideToMove = -tree.SideToMove;
    Long side = tree.SideToMove;

    if (move.From == kOffBoard) {
        board[move.To] = kEmpty;
        ++OffBoardCount(tree, side);
    } else if (move.To != move.From) {
        board[move.From] = board[move.To];
        board[move.To] = kEmpty;
    }
    for (Long i = 0; i < move.Captures.Count; ++i) {
        board[move.Captures.Squares[i]] = -side * move.Captures.MagnitudeAt(i);
    }
    // A man again also where the promotion has changed its colour.
    if (move.Promotes != 0 && move.From != kOffBoard) board[move.From] = side;
    if (rules.ManKing == 1 && tree.TreeLastMan[index] != 0) board[tree.TreeLastMan[index]] = -side;
    if (rules.KingMan == 1 && tree.TreeKingMan[index] == 1) board[move.From] *= 2;
}

} // namespace tavlon12
