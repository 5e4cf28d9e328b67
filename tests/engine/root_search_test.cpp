#include "engine/root_search.h"

#include "engine/engine_support.h"
#include "engine/evaluate.h"
#include "rules/make_move.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace tavlon12 {
namespace {

using namespace support;

/// One root search with a listener that notes what it is told.
struct Thinking : Engine {
    RootSearchInput Input;
    RootSearchHooks Hooks;
    std::unique_ptr<RootMoveTable> Scores = std::make_unique<RootMoveTable>();
    RootSearchResult Result;

    Long Now = 0;
    std::vector<Long> Started; ///< iterations
    std::vector<Long> Finished;
    std::vector<Long> Seconds;
    std::vector<SquarePair> Tried;
    std::vector<SquarePair> Bests;
    std::vector<Long> BestScores;
    Long MovesFinished = 0;
    Long Deepenings = 0;

    explicit Thinking(Engine engine) : Engine(std::move(engine)) {
        Hooks.Seconds = [this] { return Now; };
        Hooks.IterationStarted = [this](Long iteration) { Started.push_back(iteration); };
        Hooks.IterationFinished = [this](Long iteration) { Finished.push_back(iteration); };
        Hooks.MoveStarted = [this](Long, Long slot) { Tried.push_back(MoveAt(slot)); };
        Hooks.DeepeningStarted = [this](Long, Long) { ++Deepenings; };
        Hooks.MoveFinished = [this] { ++MovesFinished; };
        Hooks.TimePassed = [this](Long seconds) { Seconds.push_back(seconds); };
        Hooks.BestFound = [this](Long, Long slot, Long score) {
            Bests.push_back(MoveAt(slot));
            BestScores.push_back(score);
            EXPECT_EQ(Pos->BestLine[0][0].From, Pos->Moves[slot].From) << "the line begins with the new best";
            EXPECT_EQ(Pos->BestLine[0][0].To, Pos->Moves[slot].To);
            EXPECT_EQ(Pos->Tree.Ply, 0);
        };
    }

    Thinking(const char* rules, const char* placement, Long side = kWhite) : Thinking(Engine(rules, placement, side)) {}

    SquarePair MoveAt(Long slot) const { return {Pos->Moves[slot].From, Pos->Moves[slot].To}; }

    Long Think(Long depth) {
        Input.Member = SearchMemberOf(*Pos, *State);
        Input.DepthLimit = depth;
        GenerateLegalMoves(*Pos);
        return ThinkAgain();
    }

    /// With the root moves in the order in which they stand.
    Long ThinkAgain() {
        Result = SearchRoot(*Pos, *State, Input, Hooks, *Scores);
        return Result.LastScore;
    }

    std::map<std::pair<Long, Long>, Long> ScoreByMove() const {
        std::map<std::pair<Long, Long>, Long> scores;
        for (Long i = 0; i < MoveCount(Pos->Tree); ++i) {
            const RootMove& move = (*Scores)[static_cast<std::size_t>(i)];
            scores[{move.From, move.To}] = move.Score;
        }
        return scores;
    }
};

SquarePair Pair(std::string_view from, std::string_view to) {
    return {SquareOf(from), SquareOf(to)};
}

TEST(RootSearch, FindsTheForcedWin) {
    Thinking thinking("", "W: c3 e1; B: a5");
    EXPECT_EQ(thinking.Think(4), 31997);
    EXPECT_EQ(thinking.Result.BestDepth, 4);
    EXPECT_EQ(thinking.MoveAt(0).From, SquareOf("e1"));
    EXPECT_EQ((*thinking.Scores)[0].Score, 31997);
}

TEST(RootSearch, KeepsListAndScoresTogether) {
    Random random(41);
    for (const NamedRules& named : NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        Thinking thinking{Engine(StartPosition(RulesWith(named.Changed)))};
        PlayAtRandom(*thinking.Pos, 6 + Draw(random, 30), random);
        SetManThresholds(*thinking.Pos, *thinking.State);
        GenerateLegalMoves(*thinking.Pos);
        Long moves = MoveCount(thinking.Pos->Tree);
        auto texts = [&] {
            std::vector<std::string> list;
            for (Long i = 0; i < moves; ++i) list.push_back(MoveText(thinking.Pos->Moves[i]));
            std::sort(list.begin(), list.end());
            return list;
        };
        const auto before = texts();
        const RootImage image = ImageOf(*thinking.Pos);
        Long score = thinking.Think(3);
        if (moves == 0) continue;

        ASSERT_EQ(ImageOf(*thinking.Pos), image);
        ASSERT_EQ(MoveCount(thinking.Pos->Tree), moves);
        ASSERT_EQ(texts(), before);
        for (Long i = 0; i < moves; ++i) {
            ASSERT_EQ((*thinking.Scores)[i].From, thinking.Pos->Moves[i].From);
            ASSERT_EQ((*thinking.Scores)[i].To, thinking.Pos->Moves[i].To);
            ASSERT_NE((*thinking.Scores)[i].Score, kNotFilled);
        }
        ASSERT_EQ((*thinking.Scores)[moves].From, kNotFilled);
        ASSERT_EQ(thinking.Bests.back(), thinking.MoveAt(0));
        ASSERT_EQ(thinking.BestScores.back(), score);
        ASSERT_EQ(thinking.State->RepeatCount, 0);
        ASSERT_EQ(thinking.MovesFinished, 3 * moves);
        ASSERT_EQ(thinking.Finished, (std::vector<Long>{1, 2, 3}));
    }
}

TEST(RootSearch, FirstIterationScoresAreThoseOfTheMovesAlone) {
    // Depth 1 with every first score exact: the best score must be the greatest of the moves searched with a full
    // window.
    Random random(42);
    for (Long game = 0; game < 60; ++game) {
        Thinking thinking{Engine(StartPosition(RulesWith("KingFirst=1")))}; // no family: theirs is a margin of its own
        PlayAtRandom(*thinking.Pos, 20 + Draw(random, 60), random);
        Position& position = *thinking.Pos;
        Long moves = GenerateLegalMoves(position);
        if (moves == 0) continue;
        thinking.State->LazyMargin = 100000;
        thinking.State->Options.ExtendedSearch = 0;
        thinking.State->ExtensionLimit = 1 + thinking.State->Options.Plys;
        Long best = -kWin;
        for (Long slot = 0; slot < moves; ++slot) {
            PerformMove(position, slot);
            best = std::max(best, -RunSearch(SearchMember::SearchGeneral, position, *thinking.State, -kWin, kWin, 0));
            TakeBackMove(position, slot);
        }
        ASSERT_EQ(thinking.Think(1), best) << DescribePosition(position);
    }
}

TEST(RootSearch, TheBestMoveComesFirstInTheNextIteration) {
    Thinking thinking("", "W: c3 e3 g3 d2 f2; B: f6 h8 j0 e7 g7");
    thinking.Think(3);
    Long moves = MoveCount(thinking.Pos->Tree);
    ASSERT_EQ(thinking.Tried.size(), static_cast<std::size_t>(3 * moves));
    // The others keep their order: what was tried in an iteration differs from the one before by moves to the front
    // alone.
    for (Long iteration = 1; iteration < 3; ++iteration) {
        auto begin = thinking.Tried.begin() + iteration * moves;
        ASSERT_TRUE(std::is_permutation(begin, begin + moves, thinking.Tried.begin()));
    }
    EXPECT_EQ(thinking.Started, (std::vector<Long>{1, 2, 3}));
}

TEST(RootSearch, IsTheSameEachTime) {
    auto run = [] {
        Thinking thinking("", "W: c3 e3 g3 d2 f2 Kb8; B: f6 h8 j0 e7 g7 k5");
        Long score = thinking.Think(4);
        return std::make_tuple(score, thinking.State->NodeCount, thinking.Bests, thinking.ScoreByMove());
    };
    auto first = run();
    EXPECT_EQ(first, run());
    EXPECT_GT(std::get<1>(first), 500u);
}

TEST(RootSearch, ARepeatedPositionIsWorthADraw) {
    // White is far ahead; its king's move back repeats the position before Black's last move.
    Thinking thinking("", "W: Kc5 c3 e3 g3; B: Kj0");
    Position& position = *thinking.Pos;
    BoardCells repeated = position.Board;
    repeated[SquareOf("c5")] = kEmpty;
    repeated[SquareOf("d6")] = kKing;
    position.Tree.TreeIndex = 4;
    position.PositionKeys[1] = KeyOf(repeated);
    for (Long depth = 1; depth <= 3; ++depth) {
        EXPECT_GT(thinking.Think(depth), 100);
        auto scores = thinking.ScoreByMove();
        EXPECT_EQ((scores[{SquareOf("c5"), SquareOf("d6")}]), 0) << depth;
        EXPECT_NE(thinking.MoveAt(0), Pair("c5", "d6"));
        EXPECT_EQ(thinking.State->RepeatCount, 0);
    }
    // With the key behind the root it is no repetition of the game.
    position.PositionKeys[4] = std::exchange(position.PositionKeys[1], PositionKey());
    thinking.Think(1);
    EXPECT_NE((thinking.ScoreByMove()[{SquareOf("c5"), SquareOf("d6")}]), 0);
}

TEST(RootSearch, TheRepeatedMoveIsChosenWhenAllElseIsWorse) {
    Thinking thinking("", "W: Kc5; B: Kj0 Kl8 b0 d0 f0");
    Position& position = *thinking.Pos;
    BoardCells repeated = position.Board;
    repeated[SquareOf("c5")] = kEmpty;
    repeated[SquareOf("d4")] = kKing;
    position.Tree.TreeIndex = 4;
    position.PositionKeys[1] = KeyOf(repeated);
    EXPECT_EQ(thinking.Think(4), 0) << "in the iterations that deepen short lines too";
    EXPECT_EQ(thinking.MoveAt(0), Pair("c5", "d4"));
}

TEST(RootSearch, PastTheMoveLimitEveryMoveIsADraw) {
    Thinking thinking("", "W: Kc5 c3 e3 g3; B: Kj0");
    thinking.Input.MoveLimitHit = true;
    EXPECT_EQ(thinking.Think(3), 0);
    for (const auto& [move, score] : thinking.ScoreByMove()) EXPECT_EQ(score, 0);
    EXPECT_EQ(thinking.State->RepeatCount, 0);
}

TEST(RootSearch, StopsOnTimeBetweenRootMoves) {
    Thinking thinking("", "W: c3 e3 g3 d2 f2; B: f6 h8 j0 e7 g7");
    thinking.Input.StopsByTime = true;
    thinking.Input.TimeLimit = 5;
    thinking.Input.StartTime = 86390; // the clock passes midnight on the way
    thinking.Now = 86390;
    thinking.State->Yield = [&] {
        if (thinking.State->NodeCount % 40 == 0) thinking.Now = (thinking.Now + 1) % 86400;
    };
    thinking.Think(20);
    EXPECT_EQ(thinking.Pos->StopFlag, kStopTime);
    EXPECT_TRUE(thinking.State->SearchAborted);
    EXPECT_EQ(thinking.MovesFinished, 0);
    EXPECT_TRUE(std::is_sorted(thinking.Seconds.begin(), thinking.Seconds.end()));
    EXPECT_EQ(thinking.Seconds.front(), 0);
    EXPECT_EQ(thinking.Seconds.back(), 5);
    EXPECT_LT(thinking.Finished.size(), thinking.Started.size()) << "the iteration under way is not finished";
    EXPECT_EQ(thinking.Tried.size(), thinking.Seconds.size());
}

TEST(RootSearch, OutOfTimeAtTheFirstMoveStillGivesAMove) {
    Thinking thinking("", "W: c3 e3 g3; B: f6 h8 j0");
    thinking.Input.StopsByTime = true;
    thinking.Input.TimeLimit = 1;
    thinking.Input.LastScore = 777;
    thinking.Now = 50;
    Long score = thinking.Think(20);
    EXPECT_EQ(thinking.Tried.size(), 1u);
    EXPECT_EQ(thinking.Bests.size(), 1u);
    EXPECT_EQ(score, thinking.BestScores[0]);
    EXPECT_NE(score, 777);
    EXPECT_EQ(thinking.Result.BestDepth, 1);
    EXPECT_EQ((*thinking.Scores)[1].Score, kNotFilled);
}

TEST(RootSearch, AFallingScoreEarnsTheRestOfTheIteration) {
    for (Long fall : {0, 150}) {
        // White is three men up. In iteration 2, when the time is over, the balance is changed behind the search's
        // back.
        Thinking thinking("", "W: c3 e3 g3 i3; B: j0");
        thinking.Input.StopsByTime = true;
        thinking.Input.TimeLimit = 1;
        thinking.Hooks.IterationFinished = [&](Long iteration) {
            thinking.Finished.push_back(iteration);
            thinking.Now = 1;
            thinking.Pos->Tree.PlyValue[0] -= fall;
        };
        EXPECT_GT(thinking.Think(20), 100) << "even the lower score lies above 0";
        auto moves = static_cast<std::size_t>(MoveCount(thinking.Pos->Tree));
        EXPECT_EQ(thinking.Tried.size(), fall == 0 ? moves + 1 : 2 * moves);
        EXPECT_EQ(thinking.Finished, (std::vector<Long>{1})) << "no iteration begins after the time";
        EXPECT_EQ(thinking.Pos->StopFlag, kStopTime);
    }
}

TEST(RootSearch, CancelKeepsTheBestSoFar) {
    const char* placement = "W: c3 e3 g3 d2 f2; B: f6 h8 j0 e7 g7";
    Thinking whole("", placement);
    whole.Think(3);
    const std::uint64_t total = whole.State->NodeCount;
    for (std::uint64_t stopAt = 1; stopAt < total; stopAt += 7) {
        Thinking thinking("", placement);
        RootImage image = ImageOf(*thinking.Pos);
        thinking.State->Yield = [&] {
            if (thinking.State->NodeCount == stopAt) thinking.Pos->StopFlag = kStopCancel;
        };
        Long score = thinking.Think(3);
        ASSERT_EQ(ImageOf(*thinking.Pos), image) << stopAt;
        ASSERT_TRUE(thinking.State->SearchAborted || thinking.Pos->StopFlag == kStopCancel) << stopAt;
        if (!thinking.State->SearchAborted) continue;
        ASSERT_EQ(thinking.Pos->StopFlag, 0);
        ASSERT_EQ(thinking.State->RepeatCount, 0);
        ASSERT_FALSE(thinking.Bests.empty()) << "even a stop in the very first search leaves a move";
        ASSERT_EQ(thinking.MoveAt(0), thinking.Bests.back()) << stopAt;
        ASSERT_EQ(score, thinking.BestScores.back()) << stopAt;
        // What was found before the stop is what the whole search has found until then.
        ASSERT_LE(thinking.Bests.size(), whole.Bests.size());
        for (std::size_t i = 1; i < thinking.Bests.size(); ++i) ASSERT_EQ(thinking.Bests[i], whole.Bests[i]) << stopAt;
    }
}

TEST(RootSearch, AShortLineIsDeepened) {
    // The winning capture leaves no reply, so its line is one move long from iteration 3 on.
    Thinking thinking("", "W: c3; B: d4");
    Long margin = thinking.State->LazyMargin;
    EXPECT_EQ(thinking.Think(2), 32000) << "the root is no node of its own that counts a ply";
    EXPECT_EQ(thinking.Deepenings, 0);
    EXPECT_EQ(thinking.Think(4), 32000);
    EXPECT_GT(thinking.Deepenings, 0);
    EXPECT_EQ(thinking.State->LazyMargin, margin + 10 * thinking.Deepenings) << "the move has left the balance uneven";
    EXPECT_EQ(thinking.Started, (std::vector<Long>{1, 2, 1, 2, 3, 4}))
        << "deepening leaves the count of iterations alone";
    EXPECT_TRUE(thinking.State->BackRankOn);

    Thinking sideways("", "W: c3; B: d4");
    sideways.Pos->SidewaysManyMen = true;
    sideways.Think(3);
    EXPECT_FALSE(sideways.State->BackRankOn);

    Thinking analysis("", "W: c3; B: d4");
    analysis.Input.DeepensShortLines = false;
    analysis.Think(4);
    EXPECT_EQ(analysis.Deepenings, 0);
    EXPECT_EQ(analysis.State->LazyMargin, margin);
}

TEST(RootSearch, WithoutMovesNothingStands) {
    Thinking thinking("", "W: a1; B: b2 c3");
    thinking.Input.LastScore = 55;
    EXPECT_EQ(thinking.Think(3), 55);
    EXPECT_EQ(thinking.Result.BestDepth, 0);
    EXPECT_TRUE(thinking.Bests.empty());
}

TEST(RootSearch, PlaysWholeGamesUnderManyRules) {
    Random random(43);
    for (const NamedRules& named : NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        Thinking thinking{Engine(StartPosition(RulesWith(named.Changed)))};
        thinking.State->NoiseRange = 70;
        for (Long halfMove = 0; halfMove < 40 && GenerateLegalMoves(*thinking.Pos) > 0; ++halfMove) {
            RootImage image = ImageOf(*thinking.Pos);
            Long score = thinking.Think(2);
            ASSERT_EQ(ImageOf(*thinking.Pos), image) << DescribePosition(*thinking.Pos);
            ASSERT_LE(std::abs(score), kWin);
            ASSERT_FALSE(thinking.Pos->Fault.Passed());
            PlayMove(*thinking.Pos, 0);
        }
    }
}

TEST(RootSearch, ElapsedSecondsPassMidnight) {
    EXPECT_EQ(ElapsedSeconds(100, 100), 0);
    EXPECT_EQ(ElapsedSeconds(100, 160), 60);
    EXPECT_EQ(ElapsedSeconds(86390, 5), 15);
}

} // namespace
} // namespace tavlon12
