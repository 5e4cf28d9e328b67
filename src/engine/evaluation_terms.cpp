#include "engine/evaluation_terms.h"

#include "rules/move_scan.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <initializer_list>

namespace tavlon12 {

namespace {

using SquareFlags = std::array<bool, kBoardCells>;

constexpr SquareFlags FlagsOf(std::initializer_list<Long> squares) {
    SquareFlags flags{};
    for (Long square : squares) flags[square] = true;
    return flags;
}

/// The centre by `PiecesOnBlack`, 2 standing for all that is above it too.
constexpr std::array<SquareFlags, 3> kCentre = {
    FlagsOf({101, 103, 105, 107, 116, 118, 120, 122}), FlagsOf({102, 104, 106, 108, 115, 117, 119, 121}),
    FlagsOf({99, 100, 101, 102, 103, 106, 107, 108, 109, 110, 113, 114, 115, 116, 117, 120, 121, 122, 123, 124})};

constexpr SquareFlags kMainLine = FlagsOf({29, 44, 59, 74, 89, 104, 119, 134, 149, 164, 179, 194});
constexpr SquareFlags kBadKingSquares = FlagsOf({35, 110, 113, 188});

/// The squares and the border cells between them, rounded up to whole vectors of 16 bytes.
constexpr Long kSpan = 176;
using SpanBytes = std::array<std::int8_t, kSpan>;

/// Nearness to each target, divided by 1 and by 3, for all cells of the span.
struct NearnessTable {
    std::array<std::array<SpanBytes, kLastSquare + 1>, 2> ByDivisor;

    NearnessTable() {
        for (Long divisor : {1, 3}) {
            for (Long target = 0; target <= kLastSquare; ++target) {
                for (Long i = 0; i < kSpan; ++i) {
                    Long nearness = kNearness - Distance(target, kFirstSquare + i);
                    ByDivisor[divisor == 3][target][i] = static_cast<std::int8_t>(nearness / divisor);
                }
            }
        }
    }
};

const NearnessTable kNearnessTable;

// 16 cells at once, by the vector extension that GCC and Clang share. A comparison gives -1 where it holds.
using Vector = std::int8_t __attribute__((vector_size(16)));
using Words = std::int16_t __attribute__((vector_size(16)));

Vector Load(const std::int8_t* from) {
    Vector vector;
    std::memcpy(&vector, from, sizeof vector);
    return vector;
}

/// The products of all bytes, those of a pair added. The words keep room for the sum over a board.
Words MultiplyPairs(Vector a, Vector b) {
    auto even = [](Vector v) { return (reinterpret_cast<Words>(v) << 8) >> 8; };
    auto odd = [](Vector v) { return reinterpret_cast<Words>(v) >> 8; };
    return even(a) * even(b) + odd(a) * odd(b);
}

Long SumOfWords(Words words) {
    Long sum = 0;
    for (int i = 0; i < 8; ++i) sum += words[i];
    return sum;
}

/// The same sum piece by piece.
[[maybe_unused]] bool IsClosenessOf(const Position& position, Long side, Long target, Long manDivisor,
                                    const ClosenessSum& sum) {
    Long weighted = 0;
    Long lonely = 0;
    PiecesOf(position, side).ForEach([&](Long square) {
        Long support = Isamulti(position, square, side);
        Long nearness = kNearness - Distance(target, square);
        weighted += support * (nearness / (Magnitude(position.Board[square]) == kKing ? 3 : manDivisor));
        lonely += support == 1 ? 1 : 0;
    });
    return weighted == sum.Weighted && lonely == sum.Lonely;
}

} // namespace

Long TargetOf(const Position& position, Long side) {
    Long man = PieceType(side * kMan);
    Long type = position.Sums.PieceCount[man + 2] > 0 ? man + 2 : man;
    if (position.Sums.PieceCount[type] == 0) return 0;
    const SquareSet& pieces = position.Sums.Key.Sets[type];
    return side == kWhite ? pieces.LastOfFirstRow() : pieces.FirstOfLastRow();
}

ClosenessSum SumCloseness(const Position& position, Long side, Long target, Long manDivisor) {
    const std::int8_t* cells = position.Sums.Bytes.data() + kByteMargin + kFirstSquare;
    const auto man = static_cast<std::int8_t>(side * kMan);
    const auto king = static_cast<std::int8_t>(side * kKing);
    const Long type = PieceType(man);

    const SpanBytes& ofMen = kNearnessTable.ByDivisor[manDivisor == 3][target];
    const SpanBytes& ofKings = kNearnessTable.ByDivisor[1][target];
    const bool anyKings = position.Sums.PieceCount[type + 2] > 0;

    Words weighted{};
    Words lonely{};
    for (Long i = 0; i < kSpan; i += 16) {
        const std::int8_t* block = cells + i;
        const Vector here = Load(block);
        const Vector isMan = here == man;
        const Vector isKing = here == king;
        Vector neighbours{}; // less 1 for each piece that could step here
        for (Long step : position.DirTable[type]) {
            if (step == kEndOfSteps) break;
            neighbours += Load(block - step) == man;
        }
        if (anyKings) {
            for (Long step : position.DirTable[type + 2]) {
                if (step == kEndOfSteps) break;
                neighbours += Load(block - step) == king;
            }
        }
        const Vector nearness = (isMan & Load(&ofMen[i])) | (isKing & Load(&ofKings[i]));
        weighted += MultiplyPairs(1 - 2 * neighbours, nearness);
        lonely += MultiplyPairs((isMan | isKing) & (neighbours == 0), isMan | isKing);
    }
    const ClosenessSum sum{SumOfWords(weighted), SumOfWords(lonely)};
    assert(IsClosenessOf(position, side, target, manDivisor, sum));
    return sum;
}

Long BackRankScore(const Position& position, const BackRankLines& lines, Long side, bool openCountsTwice) {
    const SquareSet empty = EmptySquares(position);
    Long score = 0;
    for (const BackRankLine& line : lines[SideIndex(side)]) {
        SquareSet open = line.From & empty;
        if (open.Any()) {
            SquareSet second = empty.Shifted(-line.Second);
            SquareSet third = empty.Shifted(-line.Third);
            Long full = (open & second & third).Count();
            Long gaps = (open & (second | third)).Count();
            score += side * (30 * full + 20 * (openCountsTwice ? gaps : gaps - full));
        }
        if (line.Third != 2 * line.Second) continue;
        for (Long colour : {kWhite, kBlack}) {
            const SquareSet& men = position.Sums.Key.Sets[PieceType(colour * kMan)];
            SquareSet first = line.From & men;
            if (!first.Any()) continue;
            score += colour * 30 * (first & men.Shifted(-line.Second) & men.Shifted(-line.Third)).Count();
        }
    }
    return score;
}

BackRankLines BuildBackRankLines(const Position& position, Long slots, bool stopsAtSideways) {
    BackRankLines result;
    for (Long side : {kWhite, kBlack}) {
        auto& lines = result[SideIndex(side)];
        const DirectionRow& manSteps = position.DirTable[PieceType(-side * kMan)];
        // A square that stands in the list twice, and a direction too, counts twice: each set of lines holds a square
        // once.
        auto add = [&](Long square, Long second, Long third) {
            auto line = std::find_if(lines.begin(), lines.end(), [&](const BackRankLine& l) {
                return l.Second == second && l.Third == third && !l.From.Has(square);
            });
            if (line == lines.end()) line = lines.insert(line, {{}, second, third});
            line->From.Flip(square);
        };
        for (Long slot = 0; slot < slots; ++slot) {
            Long square = PromoSquares(position, side)[slot];
            if (!IsSquare(square)) continue;
            for (Long step : manSteps) {
                if (step == kEndOfSteps || (stopsAtSideways && std::abs(step) == 1) || !IsSquare(square + step)) break;
                for (Long next : manSteps) {
                    if (next == kEndOfSteps) break;
                    if (next != -step) add(square, step, step + next);
                }
            }
        }
    }
    return result;
}

Long CentreTerm(Long square, Long piecesOnBlack) {
    return kCentre[std::min<Long>(piecesOnBlack, 2)][square] ? 20 : 0;
}

Long LongKingTerm(Long square) {
    if (kMainLine[square]) return 100;
    return kBadKingSquares[square] ? 25 : 50;
}

Long EdgeTerm(Long square) {
    Long score = 0;
    if (ColumnOf(square) == 1 || ColumnOf(square) == kLastColumn) score -= 10;
    if (RowOf(square) == kFirstRow || RowOf(square) == kLastRow) score -= 10;
    return score;
}

/// A man that guards a square on which the opponent promotes; every other slot of the list counts double.
Long HomeManTerm(const Position& position, Long side, Long square, Long slots) {
    const PromotionList& guarded = PromoSquares(position, -side);
    Long score = 0;
    for (Long slot = 0; slot < slots; ++slot) {
        if (guarded[slot] == square) score = std::max(score, slot % 2 != 0 ? 20 : 10);
    }
    return score;
}

bool RepeatsElseStore(Position& position) {
    Long index = position.Tree.TreeIndex;
    auto keys = position.PositionKeys.begin();
    if (index > 1 && std::find(keys, keys + (index - 1), position.Sums.Key) != keys + (index - 1)) return true;
    if (index > 0) position.PositionKeys[index - 1] = position.Sums.Key;
    return false;
}

Long Noise(SearchState& search) {
    if (search.NoiseRange == 0) return 0;
    std::uniform_real_distribution<double> unit(0, 1);
    auto draw = [&] { return static_cast<Long>(std::floor(unit(search.Random) * search.NoiseRange)); };
    Long plus = draw();
    return plus - draw();
}

} // namespace tavlon12
