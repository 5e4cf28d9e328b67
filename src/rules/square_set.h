#pragma once

#include "rules/board.h"

#include <array>
#include <bit>
#include <cassert>
#include <cstdint>

namespace tavlon12 {

/// A set of squares as bits, bit 0 the first square of the mailbox. Border cells between the squares have bits too, so
/// that a step in any direction is a shift by that step; what runs onto a border cell is cleared by the set of empty
/// squares.
struct SquareSet {
    std::array<std::uint64_t, 3> Words{};

    /// Word by word: the comparison of arrays would call the library.
    constexpr bool operator==(const SquareSet& other) const {
        return ((Words[0] ^ other.Words[0]) | (Words[1] ^ other.Words[1]) | (Words[2] ^ other.Words[2])) == 0;
    }

    constexpr void Flip(Long square) {
        assert(IsSquare(square));
        auto bit = static_cast<std::uint32_t>(square - kFirstSquare);
        Words[bit / 64] ^= std::uint64_t{1} << (bit % 64);
    }

    constexpr bool Has(Long square) const {
        assert(square >= kFirstSquare && square <= kLastSquare);
        auto bit = static_cast<std::uint32_t>(square - kFirstSquare);
        return (Words[bit / 64] >> (bit % 64) & 1u) != 0;
    }

    constexpr bool Any() const { return (Words[0] | Words[1] | Words[2]) != 0; }
    constexpr Long Count() const { return std::popcount(Words[0]) + std::popcount(Words[1]) + std::popcount(Words[2]); }

    /// The lowest and the highest square; the set must not be empty.
    constexpr Long First() const {
        assert(Any());
        Long word = Words[0] != 0 ? 0 : Words[1] != 0 ? 1 : 2;
        return kFirstSquare + 64 * word + std::countr_zero(Words[word]);
    }

    constexpr Long Last() const {
        assert(Any());
        Long word = Words[2] != 0 ? 2 : Words[1] != 0 ? 1 : 0;
        return kFirstSquare + 64 * word + 63 - std::countl_zero(Words[word]);
    }

    /// The lowest column of the highest row that has a square, and the highest column of the lowest row; not for an
    /// empty set.
    constexpr Long FirstOfLastRow() const {
        const Long start = RowOf(Last()) * kBoardWidth + 1 - kFirstSquare;
        const auto word = static_cast<std::size_t>(start / 64);
        const std::uint64_t row = Words[word] >> start % 64;
        if (row != 0) return kFirstSquare + start + std::countr_zero(row);
        return kFirstSquare + 64 * (start / 64 + 1) + std::countr_zero(Words[word + 1]);
    }

    constexpr Long LastOfFirstRow() const {
        const Long end = RowOf(First()) * kBoardWidth + kLastColumn - kFirstSquare;
        const auto word = static_cast<std::size_t>(end / 64);
        const std::uint64_t row = Words[word] << (63 - end % 64);
        if (row != 0) return kFirstSquare + end - std::countl_zero(row);
        return kFirstSquare + 64 * (end / 64) - 1 - std::countl_zero(Words[word - 1]);
    }

    /// Calls `visit(square)` in ascending order until that returns true.
    template <typename Visit> constexpr void ForEachUntil(Visit visit) const {
        Long base = kFirstSquare;
        for (std::uint64_t word : Words) {
            for (; word != 0; word &= word - 1) {
                if (visit(base + std::countr_zero(word))) return;
            }
            base += 64;
        }
    }

    template <typename Visit> constexpr void ForEach(Visit visit) const {
        ForEachUntil([&](Long square) {
            visit(square);
            return false;
        });
    }

    /// Every square moved by a step of -63 to 63, not 0; what leaves the bits is dropped.
    constexpr SquareSet Shifted(Long step) const {
        assert(step != 0 && step > -64 && step < 64);
        if (step > 0) {
            auto up = static_cast<unsigned>(step);
            return {{Words[0] << up, Words[1] << up | Words[0] >> (64 - up), Words[2] << up | Words[1] >> (64 - up)}};
        }
        auto down = static_cast<unsigned>(-step);
        return {
            {Words[0] >> down | Words[1] << (64 - down), Words[1] >> down | Words[2] << (64 - down), Words[2] >> down}};
    }

    /// 64 squares in one word, from the bit `base` on, 0 to 127.
    constexpr std::uint64_t Window(Long base) const {
        assert(base >= 0 && base < 128);
        const auto word = static_cast<std::size_t>(base / 64);
        const auto bits = static_cast<unsigned>(base % 64);
        return Words[word] >> bits | (bits == 0 ? 0 : Words[word + 1] << (64 - bits));
    }

    friend constexpr SquareSet operator&(const SquareSet& a, const SquareSet& b) {
        return {{a.Words[0] & b.Words[0], a.Words[1] & b.Words[1], a.Words[2] & b.Words[2]}};
    }
    friend constexpr SquareSet operator|(const SquareSet& a, const SquareSet& b) {
        return {{a.Words[0] | b.Words[0], a.Words[1] | b.Words[1], a.Words[2] | b.Words[2]}};
    }
    friend constexpr SquareSet operator^(const SquareSet& a, const SquareSet& b) {
        return {{a.Words[0] ^ b.Words[0], a.Words[1] ^ b.Words[1], a.Words[2] ^ b.Words[2]}};
    }
    /// What `a` has and `b` has not.
    friend constexpr SquareSet operator-(const SquareSet& a, const SquareSet& b) {
        return {{a.Words[0] & ~b.Words[0], a.Words[1] & ~b.Words[1], a.Words[2] & ~b.Words[2]}};
    }
    constexpr SquareSet& operator|=(const SquareSet& other) { return *this = *this | other; }
};

constexpr SquareSet AllSquares() {
    SquareSet set;
    for (Long index = kFirstSquare; index <= kLastSquare; ++index) {
        if (IsSquare(index)) set.Flip(index);
    }
    return set;
}
inline constexpr SquareSet kAllSquares = AllSquares();

constexpr auto MakeSingleSquares() {
    std::array<SquareSet, kBoardCells> sets{};
    kAllSquares.ForEach([&](Long square) { sets[static_cast<std::size_t>(square)].Flip(square); });
    return sets;
}
/// By square, the set of that square alone.
inline constexpr auto kSingleSquare = MakeSingleSquares();

} // namespace tavlon12
