#include "support/comparison.h"
#include "support/positions.h"
#include "support/reference_generator.h"

#include <gtest/gtest.h>

namespace tavlon12 {

namespace {

using namespace support;

struct Tally {
    Long Compared = 0;
    Long Limit = 0;
    Long Skipped = 0;

    void Count(Comparison comparison) {
        if (comparison == Comparison::Compared) ++Compared;
        if (comparison == Comparison::Limit) ++Limit;
        if (comparison == Comparison::Skipped) ++Skipped;
    }
};

void CompareAllModes(Position& position, Tally& tally) {
    for (Long mode : {-1, 0, 1}) {
        tally.Count(CompareGenerators(position, mode));
        if (::testing::Test::HasFailure()) return;
    }
}

/// Half of the positions stand below the root, where the rule on the piece moved last asks for `LastCapAnyPly`.
void CompareRandomPositions(const RuleSet& rules, Long count, Random& random, Tally& tally) {
    auto position = MakePosition(rules, EmptyBoard());
    for (Long i = 0; i < count && !::testing::Test::HasFailure(); ++i) {
        position->Tree.Ply = DrawOneIn(random, 2) ? 0 : 5;
        position->Tree.PlyFirstMove[5] = 40;
        position->LastCapAnyPly = DrawOneIn(random, 2);
        PlacePiecesAtRandom(*position, random);
        CompareAllModes(*position, tally);
    }
}

void CompareRandomGame(const RuleSet& rules, Long halfMoves, Random& random, Tally& tally) {
    auto position = StartPosition(rules);
    for (Long i = 0; i < halfMoves; ++i) {
        CompareAllModes(*position, tally);
        if (::testing::Test::HasFailure() || PlayAtRandom(*position, 1, random) == 0) return;
    }
}

TEST(GeneratorComparison, RandomRulesOnRandomPositions) {
    Tally tally;
    for (Long seed = 1; seed <= Scaled(900) && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Random random(static_cast<std::uint64_t>(seed));
        RuleSet rules = RandomRules(random);
        CompareRandomPositions(rules, 12, random, tally);
    }
    RecordProperty("Limit", tally.Limit);
    RecordProperty("Skipped", tally.Skipped);
    EXPECT_GT(tally.Compared, Scaled(27000));
}

class NamedRulesTest : public ::testing::TestWithParam<NamedRules> {};

TEST_P(NamedRulesTest, PositionsAndGames) {
    RuleSet rules = GetParam().Rules;
    Random random(12);
    Tally tally;
    CompareRandomPositions(rules, Scaled(150), random, tally);
    EXPECT_GT(tally.Compared, Scaled(400));
    Tally games;
    for (Long game = 0; game < Scaled(3) && !HasFailure(); ++game) CompareRandomGame(rules, 150, random, games);
    EXPECT_GT(games.Compared, 10);
    EXPECT_EQ(games.Limit, 0) << "a real game should stay far from the limits";
}

INSTANTIATE_TEST_SUITE_P(Games, NamedRulesTest, ::testing::ValuesIn(NamedRuleSets().begin(), NamedRuleSets().end()),
                         [](const auto& row) { return TestName(row.param.Name); });

} // namespace

} // namespace tavlon12
