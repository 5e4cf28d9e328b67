#include "engine/search.h"

#include "engine/engine_support.h"
#include "engine/evaluate.h"
#include "rules/make_move.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavlon12 {
namespace {

using namespace support;

constexpr std::array kAllMembers = {SearchMember::SearchGeneral,
                                    SearchMember::SearchAnti,
                                    SearchMember::SearchGoal,
                                    SearchMember::ScoreGeneral,
                                    SearchMember::ScoreGeneralAllSquares,
                                    SearchMember::ScoreAnti,
                                    SearchMember::ScoreAntiAllSquares};

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

struct DistanceRow {
    const char* Name;
    const char* Rules;
    const char* Placement;
    Long Depth;
    Long Expected;
};

TEST(Search, CountsTheDistanceToTheEnd) {
    for (const DistanceRow& row : {
             DistanceRow{"no move", "", "W: a1; B: b2 c3 Kl9", 1, -32000},
             DistanceRow{"the last piece is taken", "", "W: c3; B: d4", 1, 31999},
             DistanceRow{"the last piece will be taken", "", "W: c3; B: a5 e5", 2, -31998},
             DistanceRow{"three half-moves", "", "W: c3 e1; B: a5", 3, 31997},
             DistanceRow{"anti: no move", "AntiMode=1", "W: a1; B: b2 c3 Kl9", 1, 31999},
             DistanceRow{"anti: every move loses at once", "AntiMode=1", "W: c3; B: d4", 2, -31999},
             DistanceRow{"goal: no move", "KingWin=1", "W: a1; B: b2 c3 Kl9", 1, -31999},
             // The win on the board is seen when the winner is to move again.
             DistanceRow{"goal: the first king", "KingWin=1", "W: aa; B: j0", 2, 31998},
             DistanceRow{"too few pieces after the capture", "NumberPieces=1", "W: c3 e3; B: d4 j0", 2, 31998},
         }) {
        SCOPED_TRACE(row.Name);
        for (Byte bruteForce : {Byte{0}, Byte{1}}) {
            Engine engine(row.Rules, row.Placement);
            engine.State->Options.BruteForce = bruteForce;
            engine.State->ExtensionLimit = row.Depth + 3;
            SearchMember member = SearchMemberOf(*engine.Pos, *engine.State);
            EXPECT_EQ(RunSearch(member, *engine.Pos, *engine.State, -kWin, kWin, row.Depth), row.Expected)
                << "brute force " << int{bruteForce};
        }
    }
}

TEST(Search, MissingMovesAreNotSeenBelowDepthOne) {
    Engine engine("", "W: a1; B: b2 c3 Kl9");
    EXPECT_GT(RunSearch(SearchMember::SearchGeneral, *engine.Pos, *engine.State, -kWin, kWin, 0), -1000);
}

TEST(Search, MembersByTheRules) {
    struct Row {
        const char* Rules;
        SearchMember Search;
        SearchMember Score;
    };
    for (const Row& row :
         {Row{"", SearchMember::SearchGeneral, SearchMember::ScoreGeneral},
          Row{"PiecesOnBlack=2", SearchMember::SearchGeneral, SearchMember::ScoreGeneralAllSquares},
          Row{"KingWin=1", SearchMember::SearchGoal, SearchMember::ScoreGeneral},
          Row{"WinAtPromo=1", SearchMember::SearchGoal, SearchMember::ScoreGeneral},
          Row{"AntiMode=1 | KingWin=1", SearchMember::SearchAnti, SearchMember::ScoreAnti},
          Row{"AntiMode=1 | PiecesOnBlack=2", SearchMember::SearchAnti, SearchMember::ScoreAntiAllSquares}}) {
        Engine engine(row.Rules, "W: c3; B: j0");
        EXPECT_EQ(SearchMemberOf(*engine.Pos, *engine.State), row.Search) << row.Rules;
        EXPECT_EQ(ScoreMemberOf(*engine.Pos, *engine.State), row.Score) << row.Rules;
    }
}

TEST(Search, StandsPatBelowDepthOneAndInTheCaptureSearch) {
    // White is a man up and on move; its value lies above the window.
    auto nodes = [](Byte bruteForce, Long depth) {
        Engine engine("", "W: c3 e3 g3; B: j0 h0");
        engine.State->Options.BruteForce = bruteForce;
        RunSearch(SearchMember::SearchGeneral, *engine.Pos, *engine.State, -100, 0, depth);
        return engine.State->NodeCount;
    };
    EXPECT_EQ(nodes(0, 1), 1u);
    EXPECT_GT(nodes(0, 2), 1u);
    EXPECT_GT(nodes(1, 1), 1u);
    EXPECT_GT(nodes(1, 2), nodes(0, 2));
}

TEST(Search, ExtendsCapturesNearTheWindowAlone) {
    // After the exchange on e5 both sides go on at depth 0, unless the captures are extended.
    auto nodes = [](SearchOptions options) {
        Engine engine("", "W: c3 e3 d4 g3; B: f6 h8 j0 e7");
        engine.State->Options = options;
        engine.State->ExtensionLimit = 3 + options.Plys;
        RunSearch(SearchMember::SearchGeneral, *engine.Pos, *engine.State, -kWin, kWin, 3);
        return engine.State->NodeCount;
    };
    auto plain = nodes({.Plys = 6, .ExtendedSearch = 0});
    EXPECT_GT(nodes({.Balance = 750, .Plys = 6}), plain);
    EXPECT_GE(nodes({.Balance = 750, .Plys = 6}), nodes({.Balance = 750, .Plys = 1}));
    EXPECT_EQ(nodes({.Plys = 0, .ExtendedSearch = 0}), plain) << "nobody is lost, so nothing else is extended";
}

TEST(Search, LeavesThePositionWhole) {
    Random random(32);
    for (const NamedRules& named : NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        Engine engine(StartPosition(RulesWith(named.Changed)));
        PlayAtRandom(*engine.Pos, 10 + Draw(random, 30), random);
        engine.State->ExtensionLimit = 5;
        RootImage before = ImageOf(*engine.Pos);
        for (SearchMember member : kAllMembers) {
            RunSearch(member, *engine.Pos, *engine.State, -kWin, kWin, 2);
            ASSERT_EQ(ImageOf(*engine.Pos), before);
        }
        ScoreUserMove(*engine.Pos, *engine.State);
        ASSERT_EQ(ImageOf(*engine.Pos), before);
        ASSERT_EQ(engine.Pos->StopFlag, 0);
        ASSERT_FALSE(engine.State->SearchAborted);
    }
}

TEST(Search, AStopAtAnyNodeLeavesThePositionWhole) {
    Engine engine("", "W: c3 e3 g3 d4 Kb6; B: f6 h8 j0 e7 g7");
    engine.State->ExtensionLimit = 5;
    RootImage before = ImageOf(*engine.Pos);
    for (SearchMember member : {SearchMember::SearchGeneral, SearchMember::ScoreGeneral}) {
        std::uint64_t stopAt = 0; // never
        engine.State->Yield = [&] {
            if (engine.State->NodeCount == stopAt) engine.Pos->StopFlag = kStopCancel;
        };
        auto run = [&] {
            engine.State->NodeCount = 0;
            engine.State->SearchAborted = false;
            engine.Pos->StopFlag = 0;
            engine.Pos->Killers = {};
            engine.Pos->BestLine = {};
            return RunSearch(member, *engine.Pos, *engine.State, -kWin, kWin, 2);
        };
        run();
        const std::uint64_t total = engine.State->NodeCount;
        ASSERT_GT(total, 50u);
        Long aborted = 0;
        for (stopAt = 1; stopAt <= total; ++stopAt) {
            Long value = run();
            ASSERT_EQ(ImageOf(*engine.Pos), before) << "stopped at node " << stopAt;
            ASSERT_TRUE(engine.State->SearchAborted != (engine.Pos->StopFlag == kStopCancel))
                << "the stop is either taken or still pending, at node " << stopAt;
            if (!engine.State->SearchAborted) continue;
            ++aborted;
            ASSERT_TRUE(stopAt > 1 || value == 0);
        }
        EXPECT_GT(aborted, 10);
    }
}

TEST(Search, ScoresIgnoreAnEarlierAbortAndTheTimeOut) {
    Engine engine("", "W: c3 e3 g3; B: f6 h8 j0");
    Long value = ScoreUserMove(*engine.Pos, *engine.State);
    engine.State->SearchAborted = true;
    EXPECT_EQ(ScoreUserMove(*engine.Pos, *engine.State), value);
    engine.State->SearchAborted = false;
    engine.Pos->StopFlag = kStopTime;
    EXPECT_EQ(ScoreUserMove(*engine.Pos, *engine.State), value);
    EXPECT_EQ(engine.Pos->StopFlag, kStopTime);
    RunSearch(SearchMember::SearchGeneral, *engine.Pos, *engine.State, -kWin, kWin, 2);
    EXPECT_TRUE(engine.State->SearchAborted) << "the others stop on the time too";
    EXPECT_EQ(engine.Pos->StopFlag, 0);
}

TEST(Search, AFullMoveListStopsIt) {
    Engine engine("", "W: c3 e3; B: f6 h8");
    engine.Pos->Tree.PlyFirstMove[0] = kMoveSlots - 3;
    RootImage before = ImageOf(*engine.Pos);
    RunSearch(SearchMember::SearchGeneral, *engine.Pos, *engine.State, -kWin, kWin, 3);
    EXPECT_TRUE(engine.State->SearchAborted);
    EXPECT_EQ(ImageOf(*engine.Pos), before);
}

TEST(Search, APassedLimitOfTheGeneratorUnwindsAtOnce) {
    // The king can jump nearly all of these men in one walk, more than a move holds, once Black has made room for it.
    std::string placement = "W: Kb1 e1; B:";
    for (char column : {'b', 'd', 'f', 'h', 'j'}) {
        for (char rank : {'2', '4', '6', '8', '0'}) placement.append(" ").append({column, rank});
    }
    for (SearchMember member : {SearchMember::SearchGeneral, SearchMember::ScoreGeneral}) {
        Engine engine("LongKings=0 | MaxCapMove=0", placement);
        engine.Pos->Board[SquareOf("a1")] = std::exchange(engine.Pos->Board[SquareOf("b1")], kEmpty);
        RecountPieces(*engine.Pos);
        engine.Pos->Tree.SideToMove = kBlack;
        RootImage before = ImageOf(*engine.Pos);
        RunSearch(member, *engine.Pos, *engine.State, -kWin, kWin, 3);
        EXPECT_TRUE(engine.Pos->Fault.Passed());
        EXPECT_TRUE(engine.State->SearchAborted);
        EXPECT_EQ(ImageOf(*engine.Pos), before);
        EXPECT_LT(engine.State->NodeCount, 60u) << "no node goes on generating";
    }
}

TEST(Search, ScoresAreSeenFromTheSideThatHasMoved) {
    for (const char* rules : {"", "PiecesOnBlack=2"}) {
        Engine engine(rules, "W: c3 d4; B: j0 l8 h8 f8");
        EXPECT_GT(ScoreUserMove(*engine.Pos, *engine.State), 100) << "Black has moved and is two men up";
        Long depth = engine.Pos->Rules.PiecesOnBlack == 2 ? 2 : 3;
        Long value =
            RunSearch(ScoreMemberOf(*engine.Pos, *engine.State), *engine.Pos, *engine.State, -kWin, kWin, depth);
        EXPECT_EQ(ScoreUserMove(*engine.Pos, *engine.State), -value);
        EXPECT_EQ(ScoreAtDepth(*engine.Pos, *engine.State, 3), -value);
    }
}

} // namespace
} // namespace tavlon12
