#pragma once

#include "rules/position.h"

#include <cassert>

namespace tavlon12 {

// Appending to the move list with the sort score. In a full list the last slot is overwritten and `StopFlag` set.

inline constexpr Long kBestLineScore = 500;
inline constexpr Long kFirstKillerScore = 250;
inline constexpr Long kSecondKillerScore = 150;
inline constexpr Long kRecaptureScore = 300;

/// What the memory of the search adds to a move: the jumped pieces play no part.
inline Long MemoryScore(const Position& position, Long from, Long to) {
    Long ply = position.Tree.Ply;
    const BestLineCell& best = position.BestLine[0][ply];
    if (best.From == from && best.To == to) return kBestLineScore;
    const auto& killers = position.Killers[ply];
    if (killers[0] == SquarePair{from, to}) return kFirstKillerScore;
    if (killers[1] == SquarePair{from, to}) return kSecondKillerScore;
    return 0;
}

/// The board must show the moving piece on `from` for the score to count its worth.
inline Long CaptureScore(const Position& position, Long from, Long to, const CapturePath& captures) {
    const GameTree& tree = position.Tree;
    Long score = 100 * captures.MaterialSum() - 50 * Magnitude(position.Board[from]);
    if (tree.Ply > 0 && to == tree.PlyLastTo[tree.Ply - 1]) score += kRecaptureScore;
    return score + MemoryScore(position, from, to);
}

/// The slot `next` of the list, with the sort score of the move that goes there; `next` goes on by one if the move
/// counts.
inline MoveRecord& AppendSlot(Position& position, Long& next, Long sortScore, bool counts = true) {
    assert(next >= position.Tree.PlyFirstMove[position.Tree.Ply] && next < kMoveSlots);
    const Long slot = next;
    if (slot < kMoveSlots - 1) {
        next += counts;
    } else if (counts) {
        position.StopFlag = kStopCancel;
    }
    position.SortScores[slot] = sortScore;
    return position.Moves[slot];
}

/// Appends a quiet move of the current ply, if its square is free.
inline void RegisterMove(Position& position, Long& next, Long from, Long to, Long promotes = 0, bool free = true) {
    assert(from == kOffBoard || IsLivePiece(position.Board[from]));
    assert(free == (position.Board[to] == kEmpty));
    AppendSlot(position, next, MemoryScore(position, from, to), free) = {from, to, CapturePath(), promotes};
}

/// Appends a capture.
inline void RegisterCaptureMove(Position& position, Long from, Long to, const CapturePath& captures,
                                Long promotes = 0) {
    assert(captures.Count > 0 && captures.Count <= kMaxJumps && IsSquare(from) && IsSquare(to));
    AppendSlot(position, position.Tree.NextMoveSlot, CaptureScore(position, from, to, captures)) = {from, to, captures,
                                                                                                    promotes};
}

/// Appends a move that promotes, as a capture when `captures` is not empty.
inline void RegisterPromotion(Position& position, Long from, Long to, const CapturePath& captures) {
    if (captures.Count != 0) {
        RegisterCaptureMove(position, from, to, captures, kKing);
    } else {
        RegisterMove(position, position.Tree.NextMoveSlot, from, to, kKing);
    }
}

/// Hands out the moves of the current ply, the best first and the earliest among equals.
class MovePicker {
public:
    explicit MovePicker(Position& position)
        : Scores(position.SortScores), First(position.Tree.PlyFirstMove[position.Tree.Ply]),
          End(position.Tree.PlyFirstMove[position.Tree.Ply + 1]) {
        assert(First <= End && End <= kMoveSlots);
    }

    /// The slot of the best move that is left; -1 when none is.
    Long Next();

private:
    Long Take(Long slot);

    SortScores& Scores;
    const Long First;
    const Long End;
    Long Slot = -1; ///< handed out last
    Long Score = kUsedScore;
};

} // namespace tavlon12
