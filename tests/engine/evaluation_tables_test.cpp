#include "engine/evaluation_tables.h"

#include "engine/engine_support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tavlon12 {
namespace {

using namespace support;

/// A cone from its meaning: every square from which so many diagonal or straight steps forward reach a promotion
/// square.
bool CanStillPromote(const Position& position, Long side, Long square) {
    for (Long goal : PromoSquares(position, side)) {
        if (goal == kUnusedSlot) continue;
        Long rows = (RowOf(goal) - RowOf(square)) * side;
        Long columns = std::abs(ColumnOf(goal) - ColumnOf(square));
        if (rows >= 0 && columns <= rows) return true;
    }
    return false;
}

TEST(EvaluationTables, ConesHoldTheSquaresFromWhichAManCanStillPromote) {
    Random random(11);
    for (Long game = 0; game < 300; ++game) {
        auto position = MakePosition(RandomRules(random), "");
        EvaluationTables tables;
        tables.ConesMatter = game % 2 == 0; // what an earlier rule set has left
        BuildPromotionCones(*position, tables);
        bool anyOutside = false;
        for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
            if (!IsSquare(square)) continue;
            for (Long side : {kWhite, kBlack}) {
                bool inside = CanStillPromote(*position, side, square);
                ASSERT_EQ(tables.PromotionCone[SideIndex(side)][square] == 1, inside)
                    << NameOf(square) << " for " << side << "\n"
                    << DescribePosition(*position);
                if (!inside && (RowOf(square) + ColumnOf(square)) % 2 != 0) anyOutside = true;
            }
        }
        ASSERT_EQ(tables.ConesMatter, anyOutside) << DescribePosition(*position);
    }
}

/// The squares that `steps` steps of the opponent's men reach from a promotion square, with the stop at the first step
/// that leaves the board.
std::set<Long> Ring(const Position& position, Long side, Long steps) {
    const DirectionRow& row = position.DirTable[side == kWhite ? 1 : 0];
    auto end = std::find(row.begin(), row.end(), kEndOfSteps);
    std::set<Long> ring;
    for (Long goal : PromoSquares(position, side)) {
        if (goal == kUnusedSlot) continue;
        if (steps == 0) ring.insert(goal);
        auto firstOff = std::find_if(row.begin(), end, [goal](Long step) { return !IsSquare(goal + step); });
        for (auto first = row.begin(); first != firstOff && steps > 0; ++first) {
            if (steps == 1) ring.insert(goal + *first);
            for (auto second = row.begin(); second != end && steps == 2; ++second) {
                if (*first != -*second) ring.insert(goal + *first + *second);
            }
        }
    }
    return ring;
}

TEST(EvaluationTables, SquareValuesFallByTenWithEachStepFromPromotion) {
    Random random(12);
    for (Long game = 0; game < 300; ++game) {
        auto position = MakePosition(RandomRules(random), "");
        EvaluationTables tables;
        tables.SquareValue[0].fill(77);
        BuildSquareValues(*position, tables);
        for (Long side : {kWhite, kBlack}) {
            std::array<std::set<Long>, 3> rings = {Ring(*position, side, 0), Ring(*position, side, 1),
                                                   Ring(*position, side, 2)};
            for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
                Long expected = 0;
                for (Long steps = 2; steps >= 0; --steps) {
                    if (rings[static_cast<std::size_t>(steps)].count(square) != 0) expected = (30 - 10 * steps) * side;
                }
                ASSERT_EQ(tables.SquareValue[SideIndex(side)][square], expected) << NameOf(square) << "\n"
                                                                                 << DescribePosition(*position);
            }
        }
    }
}

TEST(EvaluationTables, CornerStopsTheStepsOfASquare) {
    // From a1 the first word of White's men leads off the board, so b2 gets nothing although the second word reaches
    // it.
    Engine engine("PromoW=BB | PromoB=A1", "");
    const auto& tables = engine.State->Tables;
    EXPECT_EQ(tables.SquareValue[1][SquareOf("a1")], -30);
    EXPECT_EQ(tables.SquareValue[1][SquareOf("b2")], 0);
    EXPECT_EQ(tables.SquareValue[0][SquareOf("bb")], 30);
    EXPECT_EQ(tables.SquareValue[0][SquareOf("ca")], 20);
    EXPECT_EQ(tables.SquareValue[0][SquareOf("b0")], 10);
}

TEST(EvaluationTables, PromotionCounts) {
    struct Row {
        const char* Rules;
        Long CountMax;
        bool Even;
        bool ConesMatter;
    };
    for (const Row& row : {Row{"", 5, true, false}, Row{"PromoW=BB | PromoB=A1", 0, true, true},
                           Row{"PromoW=BBDB | PromoB=A1", 1, false, false}, Row{"PromoW= | PromoB=", -1, true, true}}) {
        SCOPED_TRACE(row.Rules);
        Engine engine(row.Rules, "");
        EXPECT_EQ(engine.State->Tables.PromoCountMax, row.CountMax);
        EXPECT_EQ(engine.State->Tables.PromoEven, row.Even);
        EXPECT_EQ(engine.State->Tables.ConesMatter, row.ConesMatter);
    }
}

TEST(EvaluationTables, ManThresholds) {
    Engine engine("", "");
    for (auto [men, threshold] : {std::pair<Long, Long>{0, 6}, {5, 6}, {12, 6}, {13, 7}, {30, 24}}) {
        engine.Pos->WhiteMen = men;
        engine.Pos->BlackMen = 20;
        SetManThresholds(*engine.Pos, *engine.State);
        EXPECT_EQ(engine.State->WhiteMenThreshold, threshold) << men;
        EXPECT_EQ(engine.State->BlackMenThreshold, 14);
    }
}

TEST(SearchOptions, NoiseByStrength) {
    constexpr std::array<Long, 10> expected = {0, 5, 70, 140, 210, 280, 350, 420, 490, 560};
    for (std::size_t step = 0; step < expected.size(); ++step) {
        EXPECT_EQ(NoiseRangeOf(static_cast<Byte>(step)), expected[step]) << step;
    }
}

} // namespace
} // namespace tavlon12
