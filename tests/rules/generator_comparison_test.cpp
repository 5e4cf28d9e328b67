#include "rules/generate_moves.h"
#include "rules/move_scan.h"
#include "support/positions.h"
#include "support/reference_generator.h"

#include <gtest/gtest.h>

#include <limits>

namespace tavlon12 {

namespace {

using namespace support;

enum class Comparison {
    Compared,
    Limit,  ///< both generators agree that a limit of the walk was passed
    Skipped ///< too many routes for the reference, or more moves than the list holds
};

std::vector<ReferenceMove> MovesOfList(const Position& position) {
    std::vector<ReferenceMove> moves;
    for (Long slot = position.Tree.PlyFirstMove[position.Tree.Ply]; slot < position.Tree.NextMoveSlot; ++slot) {
        moves.push_back(AsReference(position.Moves[slot]));
    }
    return moves;
}

void CompareScan(Position& position, const ReferenceMoves& reference, Long mode) {
    BoardCells board = position.Board;
    GameTree tree = position.Tree;
    position.Fault = {};
    bool found = GenerateMoves1(position, mode);
    EXPECT_EQ(found, reference.AnyQuiet || reference.AnyCaptureLeft) << mode << "\n" << DescribePosition(position);
    EXPECT_FALSE(position.Fault.Passed());
    EXPECT_EQ(position.Board, board);
    EXPECT_EQ(position.Tree.NextMoveSlot, tree.NextMoveSlot);
    EXPECT_EQ(position.Tree.PlyFirstMove, tree.PlyFirstMove);
}

/// Generates the moves of the current ply under `mode` with the program's generator, its move scan and the reference,
/// and reports every difference as a failure of the running test.
Comparison CompareGenerators(Position& position, Long mode) {
    ReferenceMoves reference = GenerateReferenceMoves(StateOf(position), mode);
    Long first = position.Tree.PlyFirstMove[position.Tree.Ply];
    if (reference.GaveUp || first + static_cast<Long>(reference.Moves.size()) >= kMoveSlots - 1)
        return Comparison::Skipped;

    BoardCells board = position.Board;
    position.Fault = {};
    position.StopFlag = 0;
    GenerateMoves(position, mode);
    EXPECT_EQ(position.Board, board) << "the generator changed the board\n" << DescribePosition(position);
    position.Board = board;
    EXPECT_EQ(position.Tree.PlyFirstMove[position.Tree.Ply + 1], position.Tree.NextMoveSlot);

    if (reference.LongestWalk > kMaxJumps || reference.Rows > kCaptureRows) {
        EXPECT_TRUE(position.Fault.Passed()) << DescribePosition(position);
        EXPECT_EQ(MoveCount(position.Tree), 0);
        position.Fault = {};
        position.StopFlag = 0;
        return Comparison::Limit;
    }
    EXPECT_FALSE(position.Fault.Passed()) << DescribePosition(position);
    EXPECT_EQ(position.StopFlag, 0);

    std::vector<ReferenceMove> moves = MovesOfList(position);
    EXPECT_TRUE(moves == reference.Moves) << "mode " << mode << "\n"
                                          << DescribePosition(position) << "\ngenerated: " << MoveTexts(moves)
                                          << "\nreference: " << MoveTexts(reference.Moves);
    CompareScan(position, reference, mode);
    return Comparison::Compared;
}

struct Tally {
    Long Compared = 0;
    Long Limit = 0;
    Long Skipped = 0;

    void Count(Comparison comparison) {
        ++(comparison == Comparison::Compared ? Compared : comparison == Comparison::Limit ? Limit : Skipped);
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

// Rows of a broken definition: no placement, and no index outside the board.
TEST(GeneratorComparison, RowsThatAreNoRows) {
    constexpr Long least = std::numeric_limits<Long>::min();
    constexpr Long most = std::numeric_limits<Long>::max();
    for (Long first : {least, -5, 0, 1, 2, 7, 13, 14, 200, most}) {
        for (Long last : {least, -5, 0, 2, 13, 15, 16, 200, most}) {
            RuleSet rules;
            rules.canContract = 1;
            rules.ContractNumber = 2;
            rules.ContractW1 = rules.ContractB1 = first;
            rules.ContractW2 = rules.ContractB2 = last;
            for (Long side : {kWhite, kBlack}) {
                auto position = MakePosition(rules, "W: c3; B: d0", side);
                EXPECT_EQ(CompareGenerators(*position, 1), Comparison::Compared);
            }
        }
    }
}

} // namespace

} // namespace tavlon12
