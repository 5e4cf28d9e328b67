#pragma once

#include "rules/capture_walk.h"
#include "rules/position.h"

#include <cassert>
#include <cstdlib>

namespace tavlon12 {

// The walk over the squares that the generator and the evaluation's scan share. In ascending order of index each piece
// of the side to move first gets its quiet moves, then its capture walk; on an empty square a piece may be placed from
// off the board. Within a square the words of the movement string tell the order, and along a line the nearest square
// comes first.

enum class MoveWalk { Finished, Stopped, LimitPassed };

/// The length of a friend jump's run of pieces like `piece` from `cell` on; `end` becomes the cell behind it.
inline Long FriendRun(const BoardCells& board, Long piece, Long cell, Long step, Long& end) {
    Long length = 0;
    for (end = cell; board[end] == piece; end += step) ++length;
    return length;
}

/// Calls `onQuiet(from, to, promotes, free)` for each quiet move of the piece on `square` until that returns true; gives
/// whether it did. For short steps it is called whether the square is free or not, and `free` tells: a processor guesses
/// that branch wrongly so often that writing a move in vain costs less.
template <typename Rules, typename OnQuiet>
bool WalkQuietMoves(const Position& position, const Rules& rules, Long square, OnQuiet onQuiet) {
    constexpr Long kFriendJumpPromotionSlots = 12;
    const BoardCells& board = position.Board;
    Long piece = board[square];
    Long side = position.Tree.SideToMove;
    assert(IsLivePiece(piece) && piece * side > 0);
    bool man = Magnitude(piece) == kMan;
    bool flying = rules.LongKings() && !man;
    for (Long step : position.DirTable[PieceType(piece)]) {
        if (step == kEndOfSteps) break;
        Long target = square + step;
        if (flying) {
            for (; board[target] == kEmpty; target += step) {
                if (onQuiet(square, target, false, true)) return true;
            }
        } else if (!rules.JumpFriend() || board[target] != piece) {
            bool promotes = man && IsPromotionSquare(position, side, target, Rules::kPromotionSlots);
            if (onQuiet(square, target, promotes, board[target] == kEmpty)) return true;
        } else {
            Long end;
            Long length = FriendRun(board, piece, target, step, end);
            if (board[end] != kEmpty ||
                (position.Rules.NumberFriends != kUnlimited && position.Rules.NumberFriends != length))
                continue;
            bool promotes = man && IsPromotionSquare(position, side, end, kFriendJumpPromotionSlots);
            if (onQuiet(square, end, promotes, true)) return true;
        }
    }
    return false;
}

/// Whether the side to move may place a piece from off the board on the square: it lies in the side's first row and the
/// cell of the same column in its last row is free.
inline bool MayPlace(const Position& position, Long square) {
    const RuleSet& rules = position.Rules;
    const GameTree& tree = position.Tree;
    if (position.Board[square] != kEmpty) return false;
    if (!IsPlayingSquare(square, rules.PiecesOnBlack)) return false;
    bool white = tree.SideToMove == kWhite;
    Long firstRow = white ? rules.ContractW1 : rules.ContractB1;
    Long lastRow = white ? rules.ContractW2 : rules.ContractB2;
    if ((white ? tree.WhiteOffBoard : tree.BlackOffBoard) <= 0 || RowOf(square) != firstRow) return false;
    std::int64_t rows = std::llabs(std::int64_t{firstRow} - lastRow);
    if (rows > kLastRow) return false;
    Long other = square + static_cast<Long>(rows) * kBoardWidth * tree.SideToMove;
    return other >= 0 && other < kBoardCells && position.Board[other] == kEmpty;
}

/// The pieces of the side to move that a capture may start from: short pieces with a piece to take beside them and a
/// free square behind it, and all flying pieces. No other piece's walk can make a jump.
template <typename Rules> SquareSet CaptureStarters(const Position& position, const Rules& rules) {
    Long man = PieceType(position.Tree.SideToMove * kMan);
    const auto& sets = position.Sums.Key.Sets;
    const SquareSet& enemyMen = sets[man ^ 1];
    const SquareSet& enemyKings = sets[man ^ 3];
    SquareSet empty = EmptySquares(position);
    SquareSet starters;
    auto addShortPieces = [&](Long type, const SquareSet& prey) {
        for (Long step : position.DirTable[type + 4]) {
            if (step == kEndOfSteps) break;
            starters |= sets[type] & (prey & empty.Shifted(-step)).Shifted(-step);
        }
    };
    if (rules.ManCapMoveKing()) {
        starters |= sets[man];
    } else {
        addShortPieces(man, rules.ManCapKing() ? enemyMen | enemyKings : enemyMen);
    }
    if (position.Sums.PieceCount[man + 2] == 0) return starters;
    if (rules.LongKings()) {
        starters |= sets[man + 2];
    } else {
        addShortPieces(man + 2, enemyMen | enemyKings);
    }
    return starters;
}

/// The pieces of the side to move that have an empty square to step to; where runs can be jumped, all its pieces.
template <typename Rules> SquareSet QuietStarters(const Position& position, const Rules& rules) {
    if (rules.JumpFriend()) return PiecesOf(position, position.Tree.SideToMove);
    Long man = PieceType(position.Tree.SideToMove * kMan);
    SquareSet empty = EmptySquares(position);
    SquareSet starters;
    for (Long type : {man, man + 2}) {
        if (position.Sums.PieceCount[type] == 0) continue;
        for (Long step : position.DirTable[type]) {
            if (step == kEndOfSteps) break;
            starters |= position.Sums.Key.Sets[type] & empty.Shifted(-step);
        }
    }
    return starters;
}

/// The number of quiet moves, where neither runs are jumped nor pieces placed: steps of short pieces are shifts of
/// their set. A number that the move list has no room for sets `StopFlag`, as listing them would.
template <typename Rules> Long CountQuietMoves(Position& position, const Rules& rules) {
    assert(SumsMatchBoard(position) && !rules.JumpFriend() && !rules.CanContract());
    SquareSet empty = EmptySquares(position);
    Long man = PieceType(position.Tree.SideToMove * kMan);
    Long count = 0;
    for (Long type : {man, man + 2}) {
        const SquareSet& pieces = position.Sums.Key.Sets[type];
        if (position.Sums.PieceCount[type] == 0) continue;
        if (type == man + 2 && rules.LongKings()) {
            pieces.ForEach([&](Long square) {
                WalkQuietMoves(position, rules, square, [&](Long, Long, bool, bool free) {
                    count += free;
                    return false;
                });
            });
            continue;
        }
        for (Long step : position.DirTable[type]) {
            if (step == kEndOfSteps) break;
            count += (pieces.Shifted(step) & empty).Count();
        }
    }
    if (position.Tree.PlyFirstMove[position.Tree.Ply] + count >= kMoveSlots) position.StopFlag = kStopCancel;
    return count;
}

/// Whether quiet moves are asked for beside the captures.
template <typename Rules> bool WantsQuietMoves(const Rules& rules, Long mode) {
    return mode > 0 || (mode == 0 && !rules.CapRequired());
}

/// Walks over all squares: quiet moves and placements to `onQuiet`, captures into the table. `captures` are the pieces
/// that a capture may start from, as `CaptureStarters` gives them.
template <typename Rules, typename OnQuiet>
MoveWalk WalkMoves(Position& position, const Rules& rules, Long mode, const SquareSet& captures, CaptureTable& table,
                   OnQuiet onQuiet) {
    assert(SumsMatchBoard(position));
    ClearCaptures(table);
    SquareSet sources = captures;
    SquareSet quiet;
    if (WantsQuietMoves(rules, mode)) {
        quiet = QuietStarters(position, rules);
        if (rules.CanContract()) quiet |= EmptySquares(position);
        sources |= quiet;
    }
    if (!sources.Any()) return MoveWalk::Finished;

    CaptureWalk<Rules> walk(position, table);
    MoveWalk outcome = MoveWalk::Finished;
    sources.ForEachUntil([&](Long square) {
        if (rules.CanContract() && position.Board[square] == kEmpty) {
            if (MayPlace(position, square) && onQuiet(kOffBoard, square, false, true)) outcome = MoveWalk::Stopped;
        } else if (quiet.Has(square) && WalkQuietMoves(position, rules, square, onQuiet)) {
            outcome = MoveWalk::Stopped;
        } else if (captures.Has(square) && !walk.Run(square)) {
            outcome = MoveWalk::LimitPassed;
        }
        return outcome != MoveWalk::Finished;
    });
    assert(SumsMatchBoard(position)); // the board is whole again
    return outcome;
}

} // namespace tavlon12
