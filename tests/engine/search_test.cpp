#include "engine/search.h"

#include "engine/engine_support.h"
#include "engine/evaluate.h"
#include "rules/make_move.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavlon12 {
namespace {

using namespace support;

/// The value of the position by plain minimax, without any window: what a search member must find when nothing is cut
/// off. Only the extension for a lost side is on.
Long Minimax(Engine& engine, SearchMember member, Long depth) {
    Position& position = *engine.Pos;
    const GameTree& tree = position.Tree;
    Long ply = tree.Ply;
    Long value = Evaluate(position, *engine.State, -kWin, kWin, tree.SideToMove);
    if (engine.State->LostFlag && ply + depth <= engine.State->ExtensionLimit) ++depth;
    if (value == kWin - ply || depth < -4) return value;

    if (depth > 0) {
        GenerateLegalMoves(position);
    } else {
        GenerateMoves(position, depth);
    }
    Long best = depth > 0 ? -kWin : value;
    if (depth > 0 && MoveCount(tree) == 0) {
        if (member == SearchMember::SearchAnti) best = kWin - 1 - ply;
        if (member == SearchMember::SearchGoal) best = 1 + ply - kWin;
    }
    Long end = tree.PlyFirstMove[ply + 1];
    for (Long slot = tree.PlyFirstMove[ply]; slot < end; ++slot) {
        PerformMove(position, slot);
        best = std::max(best, -Minimax(engine, member, depth - 1));
        TakeBackMove(position, slot);
    }
    return best == kWin ? kWin - 1 - ply : best;
}

TEST(Search, WithoutCutOffsItIsPlainMinimax) {
    Random random(31);
    Long compared = 0;
    Long decided = 0;
    for (Long game = 0; game < 250; ++game) {
        RuleSet rules = RandomRules(random);
        for (Byte* flag : {&rules.WinAtPromo, &rules.KingWin, &rules.AntiMode, &rules.NoLegalDraw}) {
            *flag = DrawOneIn(random, 3) ? 1 : 0;
        }
        rules.NumberPieces = Draw(random, 3);
        Engine engine(MakePosition(rules, ""));
        PlacePiecesAtRandom(*engine.Pos, random);
        engine.Pos->Tree.TreeIndex = 0;
        engine.State->Options = {.ExtendedSearch = 0, .BruteForce = 1};
        engine.State->LazyMargin = 1000000;
        SearchMember member = SearchMemberOf(*engine.Pos, *engine.State);
        Long depth = Draw(random, 3);
        engine.State->ExtensionLimit = depth + Draw(random, 3);

        engine.State->Yield = [&engine] {
            if (engine.State->NodeCount > 2000) engine.Pos->StopFlag = kStopCancel;
        };
        Long value = RunSearch(member, *engine.Pos, *engine.State, -kWin, kWin, depth);
        if (engine.State->SearchAborted) continue; // too large a tree for a test
        ++compared;
        engine.Pos->StopFlag = 0;
        ASSERT_EQ(value, Minimax(engine, member, depth)) << "depth " << depth << "\n" << DescribePosition(*engine.Pos);
        if (std::abs(value) > 31000) ++decided;
    }
    EXPECT_GT(compared, 80);
    EXPECT_GT(decided, 20) << "wins must be among the positions";
}

TEST(Search, APassedLimitOfTheGeneratorUnwindsAtOnce) {
    for (SearchMember member : {SearchMember::SearchGeneral, SearchMember::ScoreGeneral}) {
        Engine engine(WalkTooLongInLookahead());
        RootImage before = ImageOf(*engine.Pos);
        RunSearch(member, *engine.Pos, *engine.State, -kWin, kWin, 3);
        EXPECT_TRUE(engine.Pos->Fault.Passed());
        EXPECT_TRUE(engine.State->SearchAborted);
        EXPECT_EQ(ImageOf(*engine.Pos), before);
        EXPECT_LT(engine.State->NodeCount, 60u) << "no node goes on generating";
    }
}

} // namespace
} // namespace tavlon12
