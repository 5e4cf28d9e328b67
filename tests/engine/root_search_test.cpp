#include "engine/root_search.h"

#include "engine/engine_support.h"
#include "engine/evaluate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
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

    explicit Thinking(Engine engine) : Engine(std::move(engine)) {
        Hooks.Seconds = [this] { return Now; };
        Hooks.IterationStarted = [this](Long iteration) { Started.push_back(iteration); };
        Hooks.IterationFinished = [this](Long iteration) { Finished.push_back(iteration); };
        Hooks.MoveStarted = [this](Long, Long slot) { Tried.push_back(MoveAt(slot)); };
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
        Result = SearchRoot(*Pos, *State, Input, Hooks, *Scores);
        return Result.LastScore;
    }

    /// The scores of the list's moves, by their texts.
    std::map<std::string, Long> ScoreByMove() const {
        std::map<std::string, Long> scores;
        for (Long i = 0; i < MoveCount(Pos->Tree); ++i) scores[MoveText(Pos->Moves[i])] = (*Scores)[i].Score;
        return scores;
    }
};

TEST(RootSearch, KeepsListAndScoresTogether) {
    Random random(41);
    for (const NamedRules& named : NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        Thinking thinking{Engine(StartPosition(named.Rules))};
        PlayAtRandom(*thinking.Pos, 6 + Draw(random, 30), random);
        SetManThresholds(*thinking.Pos, *thinking.State);
        GenerateLegalMoves(*thinking.Pos);
        Long moves = MoveCount(thinking.Pos->Tree);
        auto texts = [&] {
            std::multiset<std::string> list;
            for (Long i = 0; i < moves; ++i) list.insert(MoveText(thinking.Pos->Moves[i]));
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

TEST(RootSearch, ARepeatedPositionIsWorthADraw) {
    // White is far ahead; its king's move back repeats the position before Black's last move.
    Thinking thinking("", "W: Kc5 c3 e3 g3; B: Kj0");
    Position& position = *thinking.Pos;
    BoardCells repeated = position.Board;
    repeated[SquareOf("c5")] = kEmpty;
    repeated[SquareOf("d6")] = kKing;
    position.Tree.TreeIndex = 4;
    position.PositionKeys.Set(1, KeyOf(repeated));
    for (Long depth = 1; depth <= 3; ++depth) {
        EXPECT_GT(thinking.Think(depth), 100);
        EXPECT_EQ(thinking.ScoreByMove().at("c5-d6"), 0) << depth;
        EXPECT_EQ(thinking.State->RepeatCount, 0);
    }
    // With the key behind the root it is no repetition of the game.
    position.PositionKeys.Set(4, KeyOf(repeated));
    position.PositionKeys.Set(1, PositionKey());
    thinking.Think(1);
    EXPECT_NE(thinking.ScoreByMove().at("c5-d6"), 0);
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

TEST(RootSearch, OutOfTimeOnlyAFallenScoreLetsItGoOn) {
    Random random(43);
    Long fallen = 0;
    for (Long i = 0; i < 60; ++i) {
        Thinking thinking{Engine(StartPosition(RuleSet()))};
        PlayAtRandom(*thinking.Pos, 20, random);
        SetManThresholds(*thinking.Pos, *thinking.State);
        thinking.Input.StopsByTime = true;
        thinking.Input.TimeLimit = 1;
        std::size_t bests = 0;
        thinking.Hooks.IterationStarted = [&](Long iteration) {
            thinking.Now = iteration == 3;
            bests = thinking.Bests.size();
            thinking.Tried.clear();
        };
        thinking.Think(3);
        const bool falls = thinking.BestScores.at(bests) < thinking.BestScores.at(bests - 1) - 50;
        EXPECT_EQ(thinking.Tried.size() > 1, falls && MoveCount(thinking.Pos->Tree) > 1);
        fallen += falls;
    }
    EXPECT_GT(fallen, 2);
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
        ASSERT_TRUE(thinking.State->SearchAborted) << stopAt;
        ASSERT_EQ(thinking.Pos->StopFlag, 0);
        ASSERT_EQ(thinking.State->RepeatCount, 0);
        ASSERT_GE(thinking.Finished.size(), 1u) << "a cancel waits for the first iteration";
        ASSERT_EQ(thinking.MoveAt(0), thinking.Bests.back()) << stopAt;
        ASSERT_EQ(score, thinking.BestScores.back()) << stopAt;
        // What was found before the stop is what the whole search has found until then.
        ASSERT_LE(thinking.Bests.size(), whole.Bests.size());
        for (std::size_t i = 1; i < thinking.Bests.size(); ++i) ASSERT_EQ(thinking.Bests[i], whole.Bests[i]) << stopAt;
    }
}

TEST(RootSearch, TheEndOfTheProgramWaitsForNothing) {
    Thinking thinking("", "W: c3 e3 g3 d2 f2; B: f6 h8 j0 e7 g7");
    thinking.State->Yield = [&] { thinking.Pos->StopFlag = kStopQuit; };
    thinking.Think(3);
    EXPECT_TRUE(thinking.State->SearchAborted);
    EXPECT_TRUE(thinking.Finished.empty());
    EXPECT_EQ(thinking.State->NodeCount, 1u);
}

TEST(RootSearch, ALimitPassedInLookaheadEndsTheSearchAlone) {
    Thinking thinking{Engine(WalkTooLongInLookahead())};
    const RootImage before = ImageOf(*thinking.Pos);
    thinking.Input.LastScore = 77;
    thinking.State->Yield = [&] { EXPECT_EQ(thinking.Pos->JumpLimit, kLookaheadJumps); };
    EXPECT_EQ(thinking.Think(5), 77) << "no score comes from a search that was given up";
    EXPECT_TRUE(thinking.Bests.empty());
    EXPECT_FALSE(thinking.Pos->Fault.Passed());
    EXPECT_FALSE(thinking.State->SearchAborted) << "it is no cancel";
    EXPECT_EQ(thinking.Pos->StopFlag, 0);
    EXPECT_EQ(thinking.Pos->JumpLimit, kRootJumps);
    EXPECT_EQ(ImageOf(*thinking.Pos), before);
    EXPECT_LT(thinking.Finished.size(), 5u);
    EXPECT_GT(GenerateLegalMoves(*thinking.Pos), 0);
}

TEST(RootSearch, ACancelStaysACancelWhateverEndsTheSearch) {
    Thinking late("", "W: c3 e3 g3 d2 f2; B: f6 h8 j0 e7 g7");
    late.Input.StopsByTime = true;
    late.Input.TimeLimit = 1;
    Thinking limited{Engine(WalkTooLongInLookahead())};
    for (Thinking* thinking : {&late, &limited}) {
        thinking->State->Yield = [thinking] {
            if (thinking->State->NodeCount == 1) thinking->Pos->StopFlag = kStopCancel;
            thinking->Now = 1;
        };
        thinking->Think(5);
        EXPECT_TRUE(thinking->Finished.empty());
        EXPECT_TRUE(thinking->State->SearchAborted);
        EXPECT_EQ(thinking->Pos->StopFlag, 0) << "nothing is left for the next search";
    }
}

TEST(ScoreUserMove, LooksAsDeepAsTheRulesSay) {
    struct Row {
        const char* Changed;
        SearchMember Member;
        Long Depth;
    };
    for (const Row& row : {Row{"", SearchMember::ScoreGerman, 1}, Row{"MaxCapMove=0", SearchMember::ScoreGeneral, 3},
                           Row{"PiecesOnBlack=2", SearchMember::ScoreGeneralAllSquares, 2}}) {
        Engine engine(StartPosition(RulesWith(row.Changed)));
        const Family family = RecognizeVariantFamily(engine.Pos->Rules, engine.Pos->InitialBoard);
        AdoptFamily(*engine.Pos, engine.State->Tables, family);
        const Long score = ScoreUserMove(*engine.Pos, *engine.State).Score;
        const std::uint64_t nodes = std::exchange(engine.State->NodeCount, 0);
        EXPECT_EQ(score, -RunSearch(row.Member, *engine.Pos, *engine.State, -kWin, kWin, row.Depth)) << row.Changed;
        EXPECT_EQ(nodes, engine.State->NodeCount) << row.Changed;
    }
}

TEST(ScoreUserMove, AStopGivesTheStaticScore) {
    Engine stopped("", "W: c3 e3 g3 d2 f2; B: f6 h8 j0 e7 g7");
    stopped.State->Yield = [&] { stopped.State->SearchAborted = stopped.State->Unwind = true; };
    Engine limited(WalkTooLongInLookahead());
    for (Engine* engine : {&stopped, &limited}) {
        SetManThresholds(*engine->Pos, *engine->State);
        const RootImage before = ImageOf(*engine->Pos);
        EXPECT_EQ(ScoreUserMove(*engine->Pos, *engine->State).Score,
                  -EvaluateRoot(*engine->Pos, *engine->State, engine->Pos->Tree.SideToMove).Value);
        EXPECT_FALSE(engine->State->SearchAborted || engine->State->Unwind || engine->Pos->Fault.Passed());
        EXPECT_EQ(ImageOf(*engine->Pos), before);
    }
}

} // namespace
} // namespace tavlon12
