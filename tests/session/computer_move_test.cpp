#include "session/computer_move.h"
#include "session/navigation.h"
#include "session/play_modes.h"
#include "session/thinking.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tavlon12 {
namespace {

using namespace support;

TEST(ForcedEnd, IsCountedInMovesOfItsSide) {
    const std::tuple<Long, Byte, std::string_view> rows[] = {
        {31999, 0, "Computer is winning in 1 move! "},   {31997, 0, "Computer is winning in 2 moves! "},
        {31980, 0, "Computer is winning in 10 moves! "}, {-31999, 0, "Computer is losing in 0 move! "},
        {-31998, 0, "Computer is losing in 1 move! "},   {-31990, 0, "Computer is losing in 5 moves! "},
        {-31990, 1, "Computer is losing in 5 moves! "},  {-31991, 1, "Computer is losing in 5 moves! "},
        {-31991, 0, "Computer is losing in 4 moves! "}};
    for (const auto& [score, antiMode, text] : rows) {
        SessionFixture fixture;
        fixture.Pos->Rules.AntiMode = antiMode;
        EXPECT_EQ(ForcedEndText(fixture.Game, score), text) << score;
    }
}

TEST(ComputerMove, IsEnteredShownAndHandsTheGameBack) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 3);
    StartGame(fixture, RulesWith(""));
    LetComputerReply(game);

    const GameRecord& record = game.Record;
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 1);
    EXPECT_EQ(record.LastMoveIndex, 1);
    EXPECT_EQ(record.MoveChoices[1], 11);
    EXPECT_EQ(record.MoveScores[1], game.Game.LastScore);
    EXPECT_EQ(record.GameRows[1][2], kByComputer);
    EXPECT_EQ(record.GameRows[1][kStrengthColumn], "3");
    const std::string cell = record.GameRows[1][0];
    ASSERT_EQ(cell.size(), 10u);
    EXPECT_EQ(cell.substr(0, 2) + cell.substr(2, 2), cell.substr(5, 2) + cell.substr(8, 2));
    ASSERT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), 1u);
    EXPECT_TRUE(fixture.Screen.List(ListId::List1).Lines[0].starts_with("   1. " + cell.substr(5)))
        << "with or without a mark";
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Selected, 0);

    // The candidates, best first; the search line with the best move; the time of the whole call.
    ASSERT_EQ(fixture.Screen.List(ListId::List3).Lines.size(), 11u);
    for (std::size_t i = 1; i < 11; ++i)
        EXPECT_GE(game.Thought.RootMoves[i - 1].Score, game.Thought.RootMoves[i].Score);
    EXPECT_EQ(game.Thought.RootMoves[0].Score, game.Game.LastScore);
    const std::string best = "Depth: 3   Best: " + cell.substr(5) + "   Score:" + Str(game.Game.LastScore);
    EXPECT_EQ(fixture.Screen.SearchLine, best + "   Time: 00:00.00\nMain: " + game.Thought.MainLineText);
    EXPECT_TRUE(game.Thought.MainLineText.starts_with(cell.substr(5) + " "));
    EXPECT_TRUE(WasShown(fixture.Screen, "Thinking... (1)  a5-b6"));
    EXPECT_EQ(fixture.Screen.Status[1], "Black moves");
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 10   Depth: 3 ply");

    EXPECT_EQ(std::pair(fixture.Screen.Progress, fixture.Screen.ProgressMaximum), std::pair(0, 33));

    fixture.Screen.List(ListId::List3).Selected = 1;
    ClickCandidateMove(game);
    EXPECT_EQ(record.LastMoveIndex, 1);
    EXPECT_NE(record.GameRows[1][0], cell);
    EXPECT_NE(game.Thought.RootMoves[0].From, kNotFilled) << "another one can be clicked";
}

TEST(ComputerMove, AnnouncesAForcedEnd) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"W: b2 c1 d4; B: a3 c9", "Black moves"},
        {"W: c3 d2; B: a5", "Computer is winning in 2 moves! "},
        {"W: a3 l4; B: c5 j6 f0", "Computer is losing in 2 moves! "},
    };
    for (const auto& [placement, text] : rows) {
        SessionFixture fixture;
        LimitDepth(fixture, 4);
        StartGame(fixture, "", placement);
        LetComputerReply(fixture.Game);
        EXPECT_EQ(fixture.Screen.Status[1], text);
        EXPECT_EQ(fixture.Game.Game.MateAnnounced, text != "Black moves");
        GoBack(fixture.Game);
        EXPECT_EQ(fixture.Game.Thought.RootMoves[0].From, kNotFilled) << "the candidates were those of the move";
    }
}

TEST(ComputerMove, KeepsWhatWasAheadUntilItsMoveIsEntered) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    LimitDepth(fixture, 2);
    Random random(6);
    StartGame(fixture, RulesWith(""));
    for (Long halfMove = 1; halfMove <= 6; ++halfMove) {
        ASSERT_TRUE(PlayRandomMove(game, random));
        game.Record.MoveComments[halfMove] = "comment";
        game.Record.MoveScores[halfMove] = 1000 + halfMove;
    }
    GoToMove(game, 4, false, false);
    Long looks = 0;
    fixture.Screen.OnYield = [&] {
        ++looks;
        ASSERT_EQ(game.Record.LastMoveIndex, 6);
        for (Long halfMove : {3, 6}) {
            ASSERT_EQ(game.Record.MoveComments[halfMove], "comment");
            ASSERT_EQ(game.Record.MoveScores[halfMove], 1000 + halfMove);
            ASSERT_NE(game.Record.MoveHistory[halfMove].From, 0);
            ASSERT_NE(game.Record.GameRows[RowOfHalfMove(halfMove)][TextColumn(halfMove)], "");
        }
    };
    LetComputerReply(game);
    EXPECT_GT(looks, 0);
    EXPECT_EQ(game.Record.LastMoveIndex, 3);
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), 3u);
    for (Long halfMove : {3, 4, 5, 6}) EXPECT_EQ(game.Record.MoveComments[halfMove], "");
    EXPECT_EQ(game.Record.MoveHistory[4].From, 0);
}

TEST(ComputerMove, RunsOutOfTimeWithoutACancelAndACancelStays) {
    for (Long mode : {kPlayerComputer, kComputerComputer}) {
        for (bool cancels : {false, true}) {
            SCOPED_TRACE(testing::Message() << "mode " << mode << (cancels ? ", cancel" : ""));
            SessionFixture fixture;
            Session& game = fixture.Game;
            game.Settings.PlayMode = mode;
            game.Settings.Limits = {0, 1, 0, 20};
            StartGame(fixture, RulesWith(""));
            fixture.Screen.TickPerReading = cancels ? 0.0 : 1.0;
            Long looks = 0;
            fixture.Screen.OnYield = [&] {
                if (cancels && ++looks == 1) CancelCommand(game);
            };
            ThinkComputerMove(game);
            EXPECT_EQ(game.Record.LastMoveIndex, 1);
            EXPECT_EQ(game.Search.SearchAborted, cancels);
            EXPECT_EQ(game.Pos.StopFlag, 0);
            EXPECT_EQ(fixture.Screen.ProgressMaximum, 20);
            EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 10   Time: 20 sec");
        }
    }
}

TEST(ComputerMove, IsAsStrongAsTheSettings) {
    constexpr Long kNoise[] = {0, 5, 70, 140, 210, 280, 350, 420, 490, 560};
    for (Byte step = 0; step < 10; ++step) {
        SessionFixture fixture;
        LimitDepth(fixture, 1);
        fixture.Game.Settings.Limits.StrengthStep = step;
        StartGame(fixture, "", "W: c3; B: j8");
        LetComputerReply(fixture.Game);
        EXPECT_EQ(fixture.Search->NoiseRange, kNoise[step]);
    }
}

TEST(ComputerMove, DoesNotThinkInAFullGame) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    StartGame(fixture, "", "W: c3; B: h8");
    fixture.Pos->Tree.TreeIndex = kMaxHalfMoves;
    game.Settings.PlayMode = kComputerComputer;
    LetComputerReply(game);
    EXPECT_EQ(fixture.Screen.Messages.size(), 1u);
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, kMaxHalfMoves);
    EXPECT_TRUE(fixture.Search->SearchAborted) << "ends a game of the computer against itself";
    EXPECT_FALSE(fixture.Screen.Enabled.at(Command::mnu_Play_Cancel));
}

TEST(DrawQuestion, IsAskedWhenTheGameStandsStill) {
    struct Row {
        std::string_view Name;
        Byte AskForDraw;
        Long LastDrawAsk;
        bool MateAnnounced;
        std::string_view Placement;
        bool Asked;
        Long Earlier = 0; ///< score 78 half-moves earlier
        Long Stagnation = 2;
    };
    constexpr std::string_view kEven = "W: Ka1 Kd2; B: Kbb Kl8";
    const Row rows[] = {
        {"it stands still", 1, 0, false, kEven, true},
        {"the option is off", 0, 0, false, kEven, false},
        {"asked 40 half-moves ago", 1, 60, false, kEven, false},
        {"asked 41 half-moves ago", 1, 59, false, kEven, true},
        {"after a mate", 1, 0, true, kEven, false},
        {"uneven", 1, 0, false, "W: Ka1 Kd2; B: Kbb", false},
        {"the score is another", 1, 0, false, kEven, false, 9999},
        {"the score is the same", 1, 0, false, kEven, true, 1, 1},
    };
    constexpr Long kHalfMove = 100;
    for (const Row& row : rows) {
        for (bool answer : {true, false}) {
            SCOPED_TRACE(row.Name);
            SessionFixture fixture;
            Session& game = fixture.Game;
            LimitDepth(fixture, 1);
            StartGame(fixture, "CapRequired=0", row.Placement);
            game.Settings.ChessDraws = 0;
            game.Settings.AskForDraw = row.AskForDraw;
            fixture.Pos->Tree.TreeIndex = game.Record.LastMoveIndex = kHalfMove - 1;
            fixture.Screen.List(ListId::List1).Lines.resize(kHalfMove - 1);
            game.Game.LastDrawAsk = row.LastDrawAsk;
            game.Game.Stagnation = row.Stagnation;
            game.Record.MoveScores[kHalfMove - 78] = row.Earlier;
            game.Game.MateAnnounced = row.MateAnnounced;
            fixture.Screen.Answers = {answer};
            LetComputerReply(game);
            const std::vector<RecordedQuestion> expected(row.Asked ? 1 : 0, {"How about a draw?", "Question"});
            EXPECT_EQ(fixture.Screen.Questions, expected);
            EXPECT_EQ(game.Game.LastDrawAsk, row.Asked ? kHalfMove : row.LastDrawAsk);
            const bool drawn = row.Asked && answer;
            EXPECT_EQ(game.Game.GameOver, drawn);
            EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>(drawn ? 1 : 0, "It's a draw!"));
            EXPECT_EQ(game.Game.ResultText, drawn ? "1/2-1/2" : "");
        }
    }
}

} // namespace
} // namespace tavlon12
