#pragma once

#include "rules/board.h"

#include <array>
#include <cassert>

namespace tavlon12 {

inline constexpr Long kMaxJumps = 21;
inline constexpr Long kMoveSlots = 1001;
inline constexpr Long kMaxPly = 100;
inline constexpr Long kUsedScore = -32000; ///< sort score of a move that has been handed out

/// The jumped pieces of a capture in the order of the walk. Entries at and above `Count` are 0, so that equal paths are
/// equal bit by bit.
struct CapturePath {
    std::uint32_t Kings = 0; ///< bit i: the i-th jumped piece is a king
    Byte Count = 0;
    std::array<Byte, kMaxJumps> Squares{};

    bool operator==(const CapturePath&) const = default;

    /// The path must have room: Count below kMaxJumps.
    void Add(Long square, Long magnitude) {
        assert(Count < kMaxJumps && IsSquare(square) && (magnitude == kMan || magnitude == kKing));
        Squares[Count] = static_cast<Byte>(square);
        if (magnitude == kKing) Kings |= 1u << Count;
        ++Count;
    }

    void RemoveLast() {
        assert(Count > 0);
        --Count;
        Squares[Count] = 0;
        Kings &= ~(1u << Count);
    }

    Long MagnitudeAt(Long i) const { return (Kings >> i & 1u) != 0 ? kKing : kMan; }
    Long KingCount() const { return __builtin_popcount(Kings); }
    Long MaterialSum() const { return Count + KingCount(); }

    /// Whether this path is the beginning of `other`, which it also is when they are equal or when it is empty.
    bool IsBeginningOf(const CapturePath& other) const;

    /// The same pieces in ascending order of square.
    CapturePath Sorted() const;
};

/// A move. `From` is 999 for a piece placed from off the board; `To` may equal `From` when a capture ends where it
/// began.
struct MoveRecord {
    Long From = 0;
    Long To = 0;
    CapturePath Captures;
    Long Promotes = 0; ///< 0, or 2 when the moving piece ends the move as a king by promotion

    bool IsCapture() const { return Captures.Count != 0; }
    bool operator==(const MoveRecord&) const = default;
};

/// The shared list of all plies: ply p owns the slots `PlyFirstMove[p]` to `PlyFirstMove[p + 1]` - 1 of the game tree.
using MoveList = std::array<MoveRecord, kMoveSlots>;

/// By slot, what tells the order in which the search tries the moves.
using SortScores = std::array<Long, kMoveSlots>;

struct SquarePair {
    Long From = 0;
    Long To = 0;

    bool operator==(const SquarePair&) const = default;
};

/// The last two moves of each ply that cut off a search, the newer first.
using KillerMoves = std::array<std::array<SquarePair, 2>, kMaxPly + 1>;

struct BestLineCell {
    Long From = 0; ///< 0 ends the line
    Long To = 0;
    Long Kind = 0; ///< 1 for a capture, plus 10 for a promotion
};

/// Row p holds the best line found at ply p, its moves in the columns p, p + 1 and so on. Row 0 is the main line.
using BestLineTable = std::array<std::array<BestLineCell, kMaxPly + 1>, kMaxPly + 1>;

} // namespace tavlon12
