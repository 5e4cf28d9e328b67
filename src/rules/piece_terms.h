#pragma once

#include "rules/board.h"

#include <array>
#include <cstdint>

namespace tavlon12 {

/// Three numbers of a piece on its square that the evaluation wants added up over the board, packed into one so that
/// making a move keeps all sums by one addition. Each sum must stay within plus or minus 2^20.
using PackedTerms = std::int64_t;

inline constexpr int kTermBits = 21;

constexpr PackedTerms PackTerms(Long first, Long second, Long third) {
    return first + (PackedTerms{second} * (PackedTerms{1} << kTermBits)) +
           (PackedTerms{third} * (PackedTerms{1} << 2 * kTermBits));
}

struct TermSums {
    Long First;
    Long Second;
    Long Third;
};

constexpr TermSums UnpackTerms(PackedTerms packed) {
    auto low = [](PackedTerms terms) { // the lowest term, with its sign
        return static_cast<Long>(static_cast<PackedTerms>(static_cast<std::uint64_t>(terms) << (64 - kTermBits)) >>
                                 (64 - kTermBits));
    };
    Long first = low(packed);
    packed = (packed - first) >> kTermBits;
    Long second = low(packed);
    return {first, second, static_cast<Long>((packed - second) >> kTermBits)};
}

/// What a piece on a square adds to the sums of the general evaluation and to that of a family.
struct PieceTerms {
    PackedTerms General = 0;
    std::int64_t OfFamily = 0;

    bool operator==(const PieceTerms&) const = default;

    PieceTerms& operator+=(const PieceTerms& other) {
        General += other.General;
        OfFamily += other.OfFamily;
        return *this;
    }
    PieceTerms& operator-=(const PieceTerms& other) {
        General -= other.General;
        OfFamily -= other.OfFamily;
        return *this;
    }
};

/// By piece type and square.
using PieceTermTable = std::array<std::array<PieceTerms, kBoardCells>, 4>;

} // namespace tavlon12
