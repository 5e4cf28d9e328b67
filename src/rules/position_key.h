#pragma once

#include "rules/board.h"

#include <array>

namespace tavlon12 {

/// Identifies a placement exactly: three bits a square. The side to move is no part of it. The key of an empty board equals
/// that of an entry never written.
struct PositionKey {
    std::array<std::uint64_t, 7> Words{};

    bool operator==(const PositionKey&) const = default;
};

struct Position;

PositionKey KeyOf(const BoardCells& board);

/// What the board's pieces are, as the draw rules ask it.
struct PieceCensus {
    Long WhiteSum = 0; ///< magnitudes
    Long BlackSum = 0;
    bool AnyMan = false;
};
PieceCensus CountPieces(const BoardCells& board);

struct Repetition {
    Long RepeatCount;    ///< how many of the keys 0 to `index` equal the key of the board
    bool KingsOnlyFound; ///< one king each and nothing else
};

/// Compares the board with `PositionKeys[0..index]`; an index of -1 compares with none.
Repetition FindRepetition(const Position& position, Long index);

} // namespace tavlon12
