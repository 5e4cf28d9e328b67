#pragma once

#include "rules/capture_walk.h"
#include "rules/position.h"

#include <cstdlib>

namespace tavlon12 {

// The walk over the squares that the generator and the evaluation's scan share. In ascending order of index each piece of the
// side to move first gets its quiet moves, then its capture walk; on an empty square a piece may be placed from off the
// board. Within a square the words of the movement string tell the order, and along a line the nearest square comes first.

enum class MoveWalk { Finished, Stopped, LimitPassed };

/// The length of a friend jump's run of pieces like `piece` from `cell` on; `end` becomes the cell behind it.
inline Long FriendRun(const BoardCells& board, Long piece, Long cell, Long step, Long& end) {
    Long length = 0;
    for (end = cell; board[end] == piece; end += step) ++length;
    return length;
}

/// Calls `onQuiet(from, to, promotes)` for each quiet move of the piece on `square` until that returns true; gives whether it did.
template <typename Rules, typename OnQuiet>
bool WalkQuietMoves(const Position& position, const Rules& rules, Long square, OnQuiet onQuiet) {
    constexpr Long kFriendJumpPromotionSlots = 12;
    const BoardCells& board = position.Board;
    Long piece = board[square];
    Long side = position.Tree.SideToMove;
    bool man = Magnitude(piece) == kMan;
    bool flying = rules.LongKings() && !man;
    for (Long step : position.DirTable[PieceType(piece)]) {
        if (step == kEndOfSteps) break;
        Long target = square + step;
        if (flying) {
            for (; board[target] == kEmpty; target += step) {
                if (onQuiet(square, target, false)) return true;
            }
        } else if (board[target] == kEmpty) {
            if (onQuiet(square, target, man && IsPromotionSquare(position, side, target, Rules::kPromotionSlots))) {
                return true;
            }
        } else if (rules.JumpFriend() && board[target] == piece) {
            Long end;
            Long length = FriendRun(board, piece, target, step, end);
            if (board[end] != kEmpty || (position.Rules.NumberFriends != -1 && position.Rules.NumberFriends != length)) continue;
            bool promotes = man && IsPromotionSquare(position, side, end, kFriendJumpPromotionSlots);
            if (onQuiet(square, end, promotes)) return true;
        }
    }
    return false;
}

/// Whether the side to move may place a piece from off the board on the square: it lies in the side's first row and the cell of
/// the same column in its last row is free.
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

/// Walks over all squares: quiet moves and placements to `onQuiet`, captures into the table.
template <typename Rules, typename OnQuiet>
MoveWalk WalkMoves(Position& position, Long mode, CaptureTable& table, OnQuiet onQuiet) {
    const Rules rules(position);
    bool quiet = mode > 0 || (mode == 0 && !rules.CapRequired());
    Long side = position.Tree.SideToMove;
    ClearCaptures(table);
    CaptureWalk<Rules> walk(position, table);
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        Long cell = position.Board[square];
        if (cell == kBorder) continue;
        if (cell * side > 0) {
            if (quiet && WalkQuietMoves(position, rules, square, onQuiet)) return MoveWalk::Stopped;
            if (!walk.Run(square)) return MoveWalk::LimitPassed;
        } else if (rules.CanContract() && quiet && MayPlace(position, square)) {
            if (onQuiet(kOffBoard, square, false)) return MoveWalk::Stopped;
        }
    }
    return MoveWalk::Finished;
}

} // namespace tavlon12
