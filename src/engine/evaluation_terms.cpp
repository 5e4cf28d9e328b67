#include "engine/evaluation_terms.h"

#include "rules/move_scan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cmath>
#include <cstdlib>
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

/// The nearness of all squares to a target in binary: set i has the squares whose nearness has bit i.
struct NearnessBits {
    static constexpr Long kBits = 5; ///< nearness lies between 1 and 23
    std::array<SquareSet, kBits> Bits{};

    /// Sum of the nearness over a set of squares; `bits` is how many of the bits are ever used.
    template <Long bits> Long SumOver(const SquareSet& squares) const {
        Long sum = 0;
        for (Long i = 0; i < bits; ++i) sum += (squares & Bits[i]).Count() << i;
        return sum;
    }
};

/// By divisor, 1 or 3, and target.
struct NearnessTable {
    std::array<std::array<NearnessBits, kLastSquare + 1>, 2> ByDivisor{};

    NearnessTable() {
        for (Long divisor : {1, 3}) {
            for (Long target = kFirstSquare; target <= kLastSquare; ++target) {
                kAllSquares.ForEach([&](Long square) { Add(divisor, target, square); });
            }
        }
    }

    void Add(Long divisor, Long target, Long square) {
        const Long nearness = (kNearness - Distance(target, square)) / divisor;
        for (Long i = 0; i < NearnessBits::kBits; ++i) {
            if ((nearness >> i & 1) != 0) ByDivisor[divisor == 3][target].Bits[i].Flip(square);
        }
    }
};

const NearnessTable kNearnessTable;

/// The sum piece by piece.
ClosenessSum CountCloseness(const Position& position, Long side, Long target, Long manDivisor) {
    Long weighted = 0;
    Long lonely = 0;
    PiecesOf(position, side).ForEach([&](Long square) {
        Long support = Isamulti(position, square, side);
        Long nearness = kNearness - Distance(target, square);
        weighted += support * (nearness / (Magnitude(position.Board[square]) == kKing ? 3 : manDivisor));
        lonely += support == 1 ? 1 : 0;
    });
    return {weighted, lonely};
}

/// The same sum from sets of squares.
ClosenessSum WorkOutCloseness(const Position& position, Long side, Long target, Long manDivisor) {
    if (target == 0) return CountCloseness(position, side, target, manDivisor); // off the board: not in the table
    constexpr Long kBitsOfThird = 3;
    const Long man = PieceType(side * kMan);
    const auto& sets = position.Sums.Key.Sets;
    const SquareSet own = sets[man] | sets[man + 2];
    const bool anyKings = position.Sums.PieceCount[man + 2] > 0;
    const NearnessBits& third = kNearnessTable.ByDivisor[1][target];
    const NearnessBits& whole = kNearnessTable.ByDivisor[0][target];
    const auto nearness = [&](const SquareSet& squares) {
        if (manDivisor == 3) return third.SumOver<kBitsOfThird>(squares);
        if (!anyKings) return whole.SumOver<NearnessBits::kBits>(squares);
        return whole.SumOver<NearnessBits::kBits>(squares & sets[man]) +
               third.SumOver<kBitsOfThird>(squares & sets[man + 2]);
    };

    // Each piece that could step to the square of another counts 2 for that.
    SquareSet supported;
    Long support = 0;
    for (Long type : {man, man + 2}) {
        if (position.Sums.PieceCount[type] == 0) continue;
        for (Long step : position.DirTable[type]) {
            if (step == kEndOfSteps) break;
            const SquareSet reached = sets[type].Shifted(step) & own;
            supported |= reached;
            support += nearness(reached);
        }
    }
    return {nearness(own) + 2 * support, (own - supported).Count()};
}

/// A window with every square moved by a step; what leaves the window is dropped.
std::uint64_t Stepped(std::uint64_t window, Long step) {
    return step > 0 ? window << step : window >> -step;
}

/// Adds a line from a square. One that stands in the list twice, and a direction too, counts twice: each set of lines
/// holds a square once.
void AddLine(std::vector<BackRankLine>& lines, Long square, Long second, Long third) {
    constexpr Long kLastBit = kLastSquare - kFirstSquare;
    const Long bit = square - kFirstSquare;
    // What lies off the board is never empty and has no man, in the window or outside.
    const Long first = std::max(bit + std::min({0, second, third}), 0);
    const Long last = std::min(bit + std::max({0, second, third}), kLastBit);
    auto line = std::ranges::find_if(lines, [&](const BackRankLine& l) {
        const bool fits = l.Base <= first && last < l.Base + 64;
        return fits && l.Second == second && l.Third == third && (l.From >> (bit - l.Base) & 1u) == 0;
    });
    if (line == lines.end()) line = lines.insert(line, {std::min(first, kLastBit - 63), 0, second, third});
    line->From |= std::uint64_t{1} << (bit - line->Base);
}

/// The squares that all lines look at, where they lie in one window.
void FindCommonWindow(BackRankLines& lines) {
    for (const BackRankLine& line : lines.Lines) {
        if (line.Base != lines.Lines[0].Base) return;
        lines.Squares |= line.From | Stepped(line.From, line.Second) | Stepped(line.From, line.Third);
    }
    if (!lines.Lines.empty()) lines.Base = lines.Lines[0].Base;
}

/// The squares of a window that count, from the whole board.
BackRankView ViewOf(const Position& position, Long base) {
    const auto& sets = position.Sums.Key.Sets;
    return {EmptySquares(position).Window(base), sets[0].Window(base), sets[1].Window(base)};
}

Long ScoreLine(const BackRankLine& line, const BackRankView& view, Long side, bool openCountsTwice) {
    Long score = 0;
    const std::uint64_t open = line.From & view.Empty;
    if (open != 0) {
        const std::uint64_t second = Stepped(view.Empty, -line.Second);
        const std::uint64_t third = Stepped(view.Empty, -line.Third);
        const Long full = std::popcount(open & second & third);
        const Long gaps = std::popcount(open & (second | third));
        score += side * (30 * full + 20 * (openCountsTwice ? gaps : gaps - full));
    }
    if (open == line.From || line.Third != 2 * line.Second) return score;
    const auto ranks = [&](std::uint64_t men) {
        return std::popcount(line.From & men & Stepped(men, -line.Second) & Stepped(men, -line.Third));
    };
    return score + 30 * (ranks(view.WhiteMen) - ranks(view.BlackMen));
}

Long ScoreLines(const Position& position, const BackRankLines& lines, Long side, bool openCountsTwice) {
    Long score = 0;
    for (const BackRankLine& line : lines.Lines)
        score += ScoreLine(line, ViewOf(position, line.Base), side, openCountsTwice);
    return score;
}

/// An index into the memory: the top bits of a product mix all bits (multiplicative hashing, Knuth 6.4).
std::size_t MemoryIndex(const BackRankView& view) {
    constexpr int kTopBits = 64 - std::countr_zero(BackRankLines::kKnown);
    const std::uint64_t mixed = view.Empty ^ std::rotl(view.WhiteMen, 20) ^ std::rotl(view.BlackMen, 41);
    return mixed * 0x9E3779B97F4A7C15u >> kTopBits;
}

} // namespace

Long TargetOf(const Position& position, Long side) {
    Long man = PieceType(side * kMan);
    Long type = position.Sums.PieceCount[man + 2] > 0 ? man + 2 : man;
    if (position.Sums.PieceCount[type] == 0) return 0;
    const SquareSet& pieces = position.Sums.Key.Sets[type];
    return side == kWhite ? pieces.LastOfFirstRow() : pieces.FirstOfLastRow();
}

ClosenessSum SumCloseness(const Position& position, ClosenessMemory& memory, Long side, Long target, Long manDivisor) {
    const PositionKey& key = position.Sums.Key;
    const Long man = PieceType(side * kMan);
    ClosenessMemory::Entry& entry = memory.At(SideIndex(side), key.Hash[SideIndex(side)]);
    if (entry.Target != target || entry.ManDivisor != manDivisor || entry.Men != key.Sets[man] ||
        entry.Kings != key.Sets[man + 2]) {
        entry = {key.Sets[man], key.Sets[man + 2], target, manDivisor,
                 WorkOutCloseness(position, side, target, manDivisor)};
    }
    assert(entry.Sum == CountCloseness(position, side, target, manDivisor));
    return entry.Sum;
}

Long BackRankScore(const Position& position, BackRankLines& lines, Long side, bool openCountsTwice) {
    if (lines.Base < 0) return ScoreLines(position, lines, side, openCountsTwice);
    BackRankView view = ViewOf(position, lines.Base);
    view = {view.Empty & lines.Squares, view.WhiteMen & lines.Squares, view.BlackMen & lines.Squares};
    BackRankLines::Known& known = lines.Memory[MemoryIndex(view)];
    if (known.View != view) known = {view, ScoreLines(position, lines, side, openCountsTwice)};
    assert(known.Score == ScoreLines(position, lines, side, openCountsTwice));
    return known.Score;
}

BackRanks BuildBackRankLines(const Position& position, Long slots, bool stopsAtSideways) {
    BackRanks result;
    for (Long side : {kWhite, kBlack}) {
        auto& lines = result[SideIndex(side)];
        const DirectionRow& manSteps = position.DirTable[PieceType(-side * kMan)];
        for (Long slot = 0; slot < slots; ++slot) {
            Long square = PromoSquares(position, side)[slot];
            if (!IsSquare(square)) continue;
            for (Long step : manSteps) {
                if (step == kEndOfSteps || (stopsAtSideways && std::abs(step) == 1) || !IsSquare(square + step)) break;
                for (Long next : manSteps) {
                    if (next == kEndOfSteps) break;
                    if (next != -step) AddLine(lines.Lines, square, step, step + next);
                }
            }
        }
        FindCommonWindow(lines);
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
    if (position.PositionKeys.Has(position.Sums.Key, index - 1)) return true;
    if (index > 0) position.PositionKeys.Set(index - 1, position.Sums.Key);
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
