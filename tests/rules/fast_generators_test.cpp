#include "rules/fast_generators.h"

#include "rules/generate_moves.h"
#include "support/positions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tavlon12::support {
namespace {

std::vector<std::string> Moves(const Position& position) {
    std::vector<std::string> moves;
    const GameTree& tree = position.Tree;
    for (Long slot = tree.PlyFirstMove[tree.Ply]; slot < tree.NextMoveSlot; ++slot) {
        moves.push_back(MoveText(position.Moves[slot]));
    }
    return moves;
}

/// Of Italian captures by men and kings that take as many pieces and kings, the fast generator gives the kings' alone.
void DropMenBesideKings(Position& position) {
    GameTree& tree = position.Tree;
    auto first = position.Moves.begin() + tree.PlyFirstMove[tree.Ply];
    auto last = position.Moves.begin() + tree.NextMoveSlot;
    const auto captures = [&](Long piece) {
        return [&, piece](const MoveRecord& move) {
            return move.IsCapture() && Magnitude(position.Board[move.From]) == piece;
        };
    };
    if (std::any_of(first, last, captures(kKing)))
        tree.NextMoveSlot = static_cast<Long>(std::remove_if(first, last, captures(kMan)) - position.Moves.begin());
}

class FamilyGenerator : public testing::TestWithParam<Family> {};

TEST_P(FamilyGenerator, GivesTheMovesOfTheGeneralOne) {
    const Family family = GetParam();
    Random random(static_cast<std::uint64_t>(family));
    Long compared = 0;
    Long kings = 0;
    while (compared < Scaled(100000)) {
        auto position = StartPosition(RulesOfFamily(family));
        while (PlayAtRandom(*position, 1, random) == 1 && position->Tree.TreeIndex < 400) {
            for (Long mode : {0, 1}) {
                GenerateMoves(*position, mode);
                if (family == Family::Italian) DropMenBesideKings(*position);
                std::vector<std::string> expected = Moves(*position);
                GenerateFamilyMoves(family, *position, mode);
                std::vector<std::string> fast = Moves(*position);
                if (family == Family::American) { // square by square instead of captures last
                    auto begin = position->Moves.begin();
                    ASSERT_TRUE(
                        std::is_sorted(begin, begin + position->Tree.NextMoveSlot,
                                       [](const MoveRecord& a, const MoveRecord& b) { return a.From < b.From; }));
                    std::sort(expected.begin(), expected.end());
                    std::sort(fast.begin(), fast.end());
                }
                ASSERT_EQ(fast, expected) << "mode " << mode << "\n" << DescribePosition(*position);
            }
            ++compared;
            kings += position->Sums.PieceCount[2] + position->Sums.PieceCount[3] > 0;
        }
    }
    EXPECT_GT(kings, compared / 20);
}

INSTANTIATE_TEST_SUITE_P(All, FamilyGenerator, testing::ValuesIn(kFamilies));

TEST(RecognizeVariantFamily, KnowsTheFourSetsAndNoOther) {
    for (Family family : kFamilies) {
        EXPECT_EQ(RecognizeVariantFamily(RulesOfFamily(family), ClassicStart()), family);
        EXPECT_EQ(RecognizeVariantFamily(RulesOfFamily(family), EmptyBoard()), Family::None);
    }
    for (const char* changed :
         {"MulJumps=0", "CapRequired=0", "MaxCapMoveK=0", "AntiMode=1", "NumberMen=1", "NumberFriends=-1",
          "ContractB2=3", "BlackStarts=1", "PiecesOnBlack=0", "NumberKings=15", "ManCapKing=0", "PromoW=BbDbFbHbJb",
          "BlackKingMovement=NW;NE;SW;SE NW;NE;SE;SW", "MaxCapMove=2"}) {
        EXPECT_EQ(FamilyOfRules(RulesWith(changed)), Family::None) << changed;
    }
    EXPECT_EQ(FamilyOfRules(RulesWith("PromoW=BbDbFbHbJbLba1")), Family::German) << "only the first six squares count";
}

} // namespace
} // namespace tavlon12::support
