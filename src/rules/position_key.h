#pragma once

#include "rules/board.h"
#include "rules/square_set.h"

#include <array>

namespace tavlon12 {

/// Identifies a placement exactly: where the pieces of each type stand. A hash is the exclusive or of one random number
/// a piece and makes a comparison quick; equal keys have equal sets. The side to move is no part of it. The key of an
/// empty board equals that of an entry never written.
struct PositionKey {
    std::array<std::uint64_t, 2> Hash{}; ///< of each side's pieces
    std::array<SquareSet, 4> Sets{};     ///< by piece type

    bool operator==(const PositionKey& other) const {
        return Hash[0] == other.Hash[0] && Hash[1] == other.Hash[1] && Sets == other.Sets;
    }

    /// Adds a piece to the key, or takes it out again.
    void Flip(Long pieceType, Long square);

    /// Moves a piece to an empty square.
    void Move(Long pieceType, Long from, Long to);
};

namespace key_detail {

/// The mixing step of the splitmix64 generator (Steele, Lea, Flood 2014).
constexpr std::uint64_t Mix(std::uint64_t x) {
    x += 0x9E3779B97F4A7C15u;
    x = (x ^ x >> 30) * 0xBF58476D1CE4E5B9u;
    x = (x ^ x >> 27) * 0x94D049BB133111EBu;
    return x ^ x >> 31;
}

constexpr auto MakeNumbers() {
    std::array<std::array<std::uint64_t, kBoardCells>, 4> numbers{};
    std::uint64_t n = 0;
    for (auto& row : numbers) {
        for (std::uint64_t& number : row) number = Mix(++n);
    }
    return numbers;
}

inline constexpr auto kNumbers = MakeNumbers();

} // namespace key_detail

// A set is written as a whole, word by word or not as it is read next: a processor hands a value on from its last writing
// only when that covers what is read.

inline void PositionKey::Flip(Long pieceType, Long square) {
    Sets[pieceType] = Sets[pieceType] ^ kSingleSquare[square];
    Hash[pieceType % 2] ^= key_detail::kNumbers[pieceType][square];
}

inline void PositionKey::Move(Long pieceType, Long from, Long to) {
    const auto& numbers = key_detail::kNumbers[pieceType];
    Sets[pieceType] = Sets[pieceType] ^ (kSingleSquare[from] ^ kSingleSquare[to]);
    Hash[pieceType % 2] ^= numbers[from] ^ numbers[to];
}

/// The key of a board, made from its cells.
PositionKey KeyOf(const BoardCells& board);

/// What the board's pieces are, as the draw rules ask it.
struct PieceCensus {
    Long WhiteSum = 0; ///< magnitudes
    Long BlackSum = 0;
    bool AnyMan = false;
};
PieceCensus CountPieces(const BoardCells& board);

} // namespace tavlon12
