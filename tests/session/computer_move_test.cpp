#include "session/computer_move.h"
#include "session/human_move.h"
#include "session/input_move.h"
#include "session/navigation.h"
#include "session/new_game.h"
#include "session/play_modes.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using support::LimitDepth;
using support::PlacementOf;
using support::StartGame;
using support::Texts;

void Think(Session& game) {
    game.Busy = true;
    ThinkComputerMove(game);
    game.Busy = false;
}

TEST(TimeText, HasHoursMinutesAndSeconds) {
    EXPECT_EQ(TimeString(0), "00:00.00");
    EXPECT_EQ(TimeString(65), "00:01.05");
    EXPECT_EQ(TimeString(3599), "00:59.59");
    EXPECT_EQ(TimeString(86399), "23:59.59");
    EXPECT_EQ(TimeString(363661), "101:01.01");
}

TEST(ForcedEnd, IsCountedInMovesOfItsSide) {
    struct Row {
        Long Score;
        Byte AntiMode;
        std::string_view Text;
    };
    for (const Row& row :
         {Row{31999, 0, "Computer is winning in 1 move! "}, Row{31998, 0, "Computer is winning in 1 move! "},
          Row{31997, 0, "Computer is winning in 2 moves! "}, Row{31980, 0, "Computer is winning in 10 moves! "},
          Row{-31999, 0, "Computer is losing in 0 move! "}, Row{-31998, 0, "Computer is losing in 1 move! "},
          Row{-31990, 0, "Computer is losing in 5 moves! "}, Row{-31990, 1, "Computer is losing in 5 moves! "},
          Row{-31991, 1, "Computer is losing in 5 moves! "}, Row{-31991, 0, "Computer is losing in 4 moves! "}}) {
        SessionFixture fixture;
        fixture.Pos->Rules.AntiMode = row.AntiMode;
        EXPECT_EQ(ForcedEndText(fixture.Game, row.Score), row.Text) << row.Score;
    }
}

TEST(MainLine, ShowsUpToTwentyMovesAndThePredictedReply) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    StartGame(fixture, "", "W: c3; B: h8");
    auto& line = fixture.Pos->BestLine[0];
    const Long c3 = support::SquareOf("c3"), d4 = support::SquareOf("d4"), bb = support::SquareOf("bb");
    line[0] = {c3, d4, 0};
    line[1] = {d4, c3, 1};
    line[2] = {kOffBoard, d4, 0};
    line[3] = {c3, bb, 10};
    line[4] = {d4, bb, 11};
    line[5].From = 0;
    fixture.Screen.SearchLine = "Depth: 3";
    DisplayMainVariant(game);
    EXPECT_EQ(game.MainLineText, "c3-d4 d4xc3 d4 c3-bbK d4xbbK ");
    EXPECT_EQ(fixture.Screen.SearchLine, "Depth: 3\nMain: c3-d4 d4xc3 d4 c3-bbK d4xbbK ");
    EXPECT_EQ(game.PredictedFrom, d4);
    EXPECT_EQ(game.PredictedTo, c3);

    for (Long k = 0; k < 25; ++k) line[k] = {c3, d4, 0};
    line[25].From = 0;
    DisplayMainVariant(game);
    EXPECT_EQ(game.MainLineText.size(), 20u * 6);

    game.Settings.CalculationOn = 0;
    fixture.Screen.SearchLine = "no calculation";
    DisplayMainVariant(game);
    EXPECT_EQ(game.MainLineText, "");
    EXPECT_EQ(fixture.Screen.SearchLine, "no calculation");
}

TEST(ComputerMove, IsEnteredShownAndHandsTheGameBack) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 3);
    StartGame(fixture, support::RulesWith(""));
    fixture.Screen.OnYield = [&] {
        EXPECT_TRUE(fixture.Screen.Enabled.at(Command::mnu_Play_Cancel));
        for (Command command :
             {Command::New1, Command::Open1, Command::Compute, Command::First, Command::Turn, Command::Options,
              Command::Details, Command::Analyze, Command::Resign, Command::CreateHtml})
            ASSERT_FALSE(fixture.Screen.Enabled.at(command)) << static_cast<int>(command);
        for (Command command : {Command::Exit, Command::calculation, Command::rating, Command::Rules})
            ASSERT_FALSE(fixture.Screen.Enabled.contains(command)) << static_cast<int>(command);
        for (ListId list : {ListId::List1, ListId::List2, ListId::List3})
            ASSERT_FALSE(fixture.Screen.List(list).Enabled);
    };
    Think(game);

    const GameRecord& record = game.Record;
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 1);
    EXPECT_EQ(fixture.Pos->Tree.Ply, 0);
    EXPECT_EQ(record.LastMoveIndex, 1);
    EXPECT_EQ(record.MoveChoices[1], 11);
    EXPECT_EQ(record.MoveScores[1], game.LastScore);
    EXPECT_EQ(record.GameRows[1][2], kByComputer);
    EXPECT_EQ(record.GameRows[1][kStrengthColumn], "3");
    const std::string cell = record.GameRows[1][0];
    ASSERT_EQ(cell.size(), 10u);
    EXPECT_EQ(cell.substr(0, 2) + cell.substr(2, 2), cell.substr(5, 2) + cell.substr(8, 2));
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines, std::vector<std::string>{"   1. " + cell.substr(5)});
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Selected, 0);
    EXPECT_EQ(fixture.Pos->Tree.TreeTo[1], record.MoveHistory[1].To);

    // The candidates, best first; the search line with the best move; the time of the whole call.
    ASSERT_EQ(fixture.Screen.List(ListId::List3).Lines.size(), 11u);
    for (std::size_t i = 1; i < 11; ++i) EXPECT_GE(game.RootMoves[i - 1].Score, game.RootMoves[i].Score);
    EXPECT_EQ(game.RootMoves[0].Score, game.LastScore);
    const std::string best = "Depth: 3   Best: " + cell.substr(5) + "   Score:" + Str(game.LastScore);
    EXPECT_EQ(fixture.Screen.SearchLine, best + "   Time: 00:00.00\nMain: " + game.MainLineText);
    EXPECT_TRUE(game.MainLineText.starts_with(cell.substr(5) + " "));
    EXPECT_TRUE(support::WasShown(fixture.Screen, "Thinking..."));
    EXPECT_TRUE(support::WasShown(fixture.Screen, "Thinking... (1)  a5-b6"));
    EXPECT_EQ(fixture.Screen.Status[1], "Black moves");
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 10   Depth: 3 ply");

    for (ListId list : {ListId::List1, ListId::List2, ListId::List3}) EXPECT_TRUE(fixture.Screen.List(list).Enabled);
    EXPECT_EQ(fixture.Screen.List(ListId::List2).Lines.size(), 11u);
    for (Command command : {Command::New1, Command::Compute, Command::First, Command::Moveback, Command::Offerdraw,
                            Command::Resign, Command::Hint, Command::Turn, Command::plyvaluetable})
        EXPECT_TRUE(fixture.Screen.Enabled.at(command)) << static_cast<int>(command);
    for (Command command : {Command::mnu_Play_Cancel, Command::MoveForward, Command::Last})
        EXPECT_FALSE(fixture.Screen.Enabled.at(command)) << static_cast<int>(command);
    EXPECT_TRUE(fixture.Screen.ControlEnabled.at(Control::mnu_Board1));
    EXPECT_EQ(fixture.Screen.Progress, 0);
    EXPECT_EQ(fixture.Screen.ProgressMaximum, 33);
}

TEST(ComputerMove, WritesNoSearchTextsWithoutCalculation) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 2);
    game.Settings.CalculationOn = 0;
    StartGame(fixture, support::RulesWith(""));
    Think(game);
    EXPECT_EQ(fixture.Screen.SearchLine, "no calculation");
    EXPECT_FALSE(support::WasShown(fixture.Screen, "Thinking... (1)  a5-b6"));
    EXPECT_NE(game.PredictedFrom, 0);
}

TEST(ComputerMove, OfOneLegalMoveIsSearchedOnce) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 5);
    StartGame(fixture, "", "W: a1; B: h8 j8");
    Think(game);
    EXPECT_EQ(game.Record.GameRows[1][kStrengthColumn], "1");
    EXPECT_EQ(game.Record.MoveChoices[1], 1);
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 10   Depth: 5 ply");
}

TEST(ComputerMove, StopsWhenItsTimeIsUp) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.Limits = {0, 2, 0, 3};
    fixture.Screen.TickPerReading = 0.25;
    StartGame(fixture, support::RulesWith(""));
    fixture.Screen.Now = 86398.0; // midnight passes meanwhile
    fixture.Screen.OnYield = [&] {
        if (fixture.Screen.Now >= 86400.0) fixture.Screen.Now -= 86400.0;
    };
    Think(game);
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 1);
    EXPECT_FALSE(fixture.Search->SearchAborted) << "a time-out is no cancel";
    EXPECT_EQ(fixture.Pos->StopFlag, 0);
    EXPECT_EQ(fixture.Screen.ProgressMaximum, 3);
    EXPECT_EQ(game.Settings.Limits.DepthLimit, 2);
    const std::string::size_type time = fixture.Screen.SearchLine.find("Time: 00:00.0");
    EXPECT_NE(time, std::string::npos) << fixture.Screen.SearchLine;
}

TEST(ComputerMove, CancelledAtOncePlaysTheFirstGeneratedMove) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 8);
    StartGame(fixture, support::RulesWith(""));
    Long nodes = 0;
    fixture.Screen.OnYield = [&] {
        if (nodes++ == 0) CancelCommand(game);
    };
    Think(game);
    EXPECT_EQ(game.Record.GameRows[1][0], "a5b6 a5-b6");
    EXPECT_LT(nodes, 5);
    EXPECT_TRUE(fixture.Search->SearchAborted);
    EXPECT_EQ(fixture.Pos->StopFlag, 0);
    EXPECT_EQ(fixture.Screen.List(ListId::List3).Lines[3].substr(4), "  n/a");
    EXPECT_EQ(fixture.Screen.List(ListId::List3).Lines.size(), 11u);
}

TEST(ComputerMove, CancelBeforeTheFirstSearchOfTheProgramDoesNothing) {
    SessionFixture fixture;
    StartGame(fixture, support::RulesWith(""));
    CancelCommand(fixture.Game);
    EXPECT_EQ(fixture.Pos->StopFlag, 0);
    fixture.Game.SearchStarted = true;
    CancelCommand(fixture.Game);
    EXPECT_EQ(fixture.Pos->StopFlag, kStopCancel);
    EXPECT_FALSE(fixture.Screen.Enabled.at(Command::mnu_Play_Cancel));
}

TEST(ComputerMove, ACancelThatComesTooLateDoesNotStopTheNextMove) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 2);
    StartGame(fixture, support::RulesWith(""));
    game.Settings.AskForDraw = 1;
    Long waits = 0;
    fixture.Screen.OnWait = [&] {
        if (++waits == 2) CancelCommand(game);
    };
    game.Stagnation = 5;
    game.Pos.Tree.TreeIndex = 0;
    game.LastDrawAsk = -100; // a question is due
    fixture.Screen.Answers = {false};
    Think(game);
    ASSERT_EQ(waits, 2);
    ASSERT_EQ(fixture.Screen.Questions.size(), 1u);
    EXPECT_EQ(fixture.Pos->StopFlag, 0);
}

TEST(ComputerMove, ClosingTheProgramMeanwhilePlaysNothing) {
    for (bool inSearch : {true, false}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        LimitDepth(fixture, 6);
        StartGame(fixture, support::RulesWith(""));
        const std::string before = PlacementOf(fixture.Pos->Board);
        auto close = [&] { EXPECT_TRUE(CloseRequested(game)); };
        (inSearch ? fixture.Screen.OnYield : fixture.Screen.OnWait) = close;
        ComputeCommand(game);
        EXPECT_TRUE(game.Quitting);
        EXPECT_EQ(PlacementOf(fixture.Pos->Board), before);
        EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 0);
        EXPECT_EQ(game.Record.LastMoveIndex, 0);
        EXPECT_TRUE(fixture.Screen.Messages.empty());
        EXPECT_TRUE(fixture.Screen.List(ListId::List1).Lines.empty());
        EXPECT_EQ(fixture.Screen.Questions.size(), 1u);
    }
}

TEST(ComputerMove, ForgetsTheHalfMovesThatLieAhead) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 1);
    StartGame(fixture, support::RulesWith(""));
    for (int i = 0; i < 4; ++i) Think(game);
    game.Record.MoveComments[2] = "two";
    game.Record.MoveComments[3] = "three";
    GoBack(game);
    GoBack(game);
    GoBack(game);
    Think(game);
    EXPECT_EQ(game.Record.LastMoveIndex, 2);
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), 2u);
    EXPECT_EQ(game.Record.MoveComments[2], "");
    EXPECT_EQ(game.Record.MoveComments[3], "");
    EXPECT_EQ(game.Record.MoveHistory[3].From, 0);
    EXPECT_FALSE(fixture.Screen.Enabled.at(Command::MoveForward));
}

TEST(ComputerMove, DoesNotThinkInAFullGame) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    StartGame(fixture, "", "W: c3; B: h8");
    fixture.Pos->Tree.TreeIndex = kMaxHalfMoves;
    game.PlayMode = kComputerComputer;
    Think(game);
    EXPECT_EQ(fixture.Screen.Messages.size(), 1u);
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, kMaxHalfMoves);
    EXPECT_TRUE(fixture.Search->SearchAborted) << "ends a game of the computer against itself";
    EXPECT_FALSE(fixture.Screen.Enabled.at(Command::mnu_Play_Cancel));
}

struct EndCase {
    std::string_view Name;
    std::string_view Rules;
    std::string_view Placement;
    Long SideToMove;
    bool MoveIsMade;
    std::string_view Text;   ///< of the message; empty when the game goes on
    std::string_view Status; ///< when it differs from the text
    std::string_view Result;
};

void PrintTo(const EndCase& test, std::ostream* stream) {
    *stream << test.Name;
}

class EndByComputer : public testing::TestWithParam<EndCase> {};

TEST_P(EndByComputer, IsToldOnceWithItsResult) {
    const EndCase& test = GetParam();
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.UserName = "Ada";
    game.Settings.KingVersusKing = 1;
    LimitDepth(fixture, 4);
    StartGame(fixture, test.Rules, test.Placement, test.SideToMove);
    Think(game);
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, test.MoveIsMade ? 1 : 0);
    EXPECT_EQ(game.GameOver, !test.Text.empty());
    EXPECT_EQ(Texts(fixture.Screen.Messages),
              std::vector<std::string>(test.Text.empty() ? 0 : 1, std::string(test.Text)));
    EXPECT_EQ(fixture.Screen.Status[1], test.Status.empty() ? test.Text : test.Status);
    EXPECT_EQ(game.ResultText, test.Result);
    EXPECT_EQ(fixture.Screen.Enabled.at(Command::Compute), test.Text.empty());
    EXPECT_TRUE(fixture.Screen.Enabled.at(Command::New1));
    EXPECT_EQ(fixture.Screen.List(ListId::List2).Enabled, test.Text.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Table, EndByComputer,
    testing::Values(
        // Nothing to think about
        EndCase{"NoMoves", "", "W: a3; B: b4 c5", kWhite, false, "Ada wins!", "", "0-1"},
        EndCase{"NoMovesForBlackWhoBegan", "", "W: ka j0; B: lb", kBlack, false, "Ada wins!", "", "0-1"},
        EndCase{"NoPieces", "", "B: h8", kWhite, false, "Ada wins!", "", "0-1"},
        EndCase{"FewPieces", "NumberPieces=1", "W: c3; B: h8 j8", kWhite, false, "Ada wins!", "", ""},
        EndCase{"GoalReachedByUser", "KingWin=1", "W: c5; B: Ka1 j8", kWhite, false, "Ada wins!", "", ""},
        EndCase{"AntiNoMoves", "AntiMode=1", "W: a3; B: b4 c5", kWhite, false, "Computer wins!", "", "1-0"},
        EndCase{"AntiNoPieces", "AntiMode=1", "B: h8", kWhite, false, "Computer wins!", "", "1-0"},
        EndCase{"AlreadyWon", "", "W: c3", kWhite, false, "Computer wins!", "", "1-0"},
        EndCase{"BlockedDraw", "NoLegalDraw=1", "W: a3; B: b4 c5", kWhite, false, "It's a draw!", "", "1/2-1/2"},
        // The move ends the game
        EndCase{"TakesTheLast", "", "W: c3; B: d4", kWhite, true, "Computer wins!", "", "1-0"},
        EndCase{"BlackTakesTheLast", "", "W: d4; B: e5", kBlack, true, "Computer wins!", "", "1-0"},
        EndCase{"Blocks", "", "W: b2 c1 d4; B: a3 c9", kWhite, true, "", "Black moves", ""},
        EndCase{"FirstKing", "KingWin=1", "W: aa c1; B: h8 h6", kWhite, true, "Computer wins!", "", ""},
        EndCase{"KingComesHome", "WinAtPromo=1", "W: Kb2 d2; B: j8 h6", kWhite, true, "Computer wins!", "", ""},
        EndCase{"AntiGivesTheLast", "AntiMode=1", "W: c3; B: d4", kWhite, true, "Ada wins!", "", "0-1"},
        EndCase{"KingsDraw", "LongKings=0", "W: Ka1; B: Klb", kWhite, true, "It's a draw! King versus King", "",
                "1/2-1/2"},
        // A forced end is announced
        EndCase{"Winning", "", "W: c3 d2; B: a5", kWhite, true, "", "Computer is winning in 2 moves! ", ""},
        EndCase{"Losing", "", "W: a3 l4; B: c5 j6 f0", kWhite, true, "", "Computer is losing in 2 moves! ", ""}),
    [](const auto& test) { return std::string(test.param.Name); });

struct QuestionCase {
    std::string_view Name;
    Byte AskForDraw = 1;
    Long TreeIndex = 100;
    Long LastDrawAsk = 0;
    Long Stagnation = 2;
    bool MateAnnounced = false;
    std::string_view Placement = "W: Ka1 Kd2; B: Kbb Kl8";
    bool LowChance = false;
    bool Asked = true;
};

void PrintTo(const QuestionCase& test, std::ostream* stream) {
    *stream << test.Name;
}

/// A seed whose first draw lies below a tenth, or above it.
std::uint32_t SeedOf(bool low) {
    for (std::uint32_t seed = 1;; ++seed)
        if ((static_cast<double>(std::mt19937(seed)()) / 4294967296.0 < 0.1) == low) return seed;
}

class DrawQuestion : public testing::TestWithParam<QuestionCase> {};

TEST_P(DrawQuestion, IsAskedWhenTheGameStandsStill) {
    const QuestionCase& test = GetParam();
    for (bool answer : {true, false}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        LimitDepth(fixture, 1);
        StartGame(fixture, "CapRequired=0", test.Placement);
        game.Settings.ChessDraws = 0;
        game.Settings.AskForDraw = test.AskForDraw;
        fixture.Pos->Tree.TreeIndex = game.Record.LastMoveIndex = test.TreeIndex - 1;
        for (Long i = 1; i < test.TreeIndex; ++i) fixture.Screen.List(ListId::List1).Lines.push_back("");
        game.LastDrawAsk = test.LastDrawAsk;
        game.Stagnation = test.Stagnation;
        game.MateAnnounced = test.MateAnnounced;
        fixture.Search->Random.seed(SeedOf(test.LowChance));
        // The noise of the search draws from the same source: it must stand as seeded when the question comes.
        fixture.Screen.OnYield = [&] { fixture.Search->Random.seed(SeedOf(test.LowChance)); };
        auto redraw = game.Port.PaintBoard;
        game.Port.PaintBoard = [&](int overlay) {
            fixture.Search->Random.seed(SeedOf(test.LowChance));
            redraw(overlay);
        };
        fixture.Screen.Answers = {answer};
        Think(game);
        const std::vector<RecordedQuestion> expected(test.Asked ? 1 : 0, {"How about a draw?", "Question"});
        EXPECT_EQ(fixture.Screen.Questions, expected);
        EXPECT_EQ(game.LastDrawAsk, test.Asked ? test.TreeIndex : test.LastDrawAsk);
        const bool drawn = test.Asked && answer;
        EXPECT_EQ(game.GameOver, drawn);
        EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>(drawn ? 1 : 0, "It's a draw!"));
        EXPECT_EQ(game.ResultText, drawn ? "1/2-1/2" : "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, DrawQuestion,
    testing::Values(QuestionCase{.Name = "StandsStill"},
                    QuestionCase{.Name = "OptionOff", .AskForDraw = 0, .Asked = false},
                    QuestionCase{.Name = "AskedFortyAgo", .LastDrawAsk = 60, .Asked = false},
                    QuestionCase{.Name = "AskedFortyOneAgo", .LastDrawAsk = 59},
                    QuestionCase{.Name = "AskedBeyondAByte", .TreeIndex = 400, .LastDrawAsk = 380, .Asked = false},
                    QuestionCase{.Name = "AfterAMate", .MateAnnounced = true, .Asked = false},
                    QuestionCase{.Name = "EqualKingsByChance", .Stagnation = 0, .LowChance = true},
                    QuestionCase{.Name = "EqualKingsMostly", .Stagnation = 0, .Asked = false},
                    QuestionCase{.Name = "MenByChance",
                                 .Stagnation = 0,
                                 .Placement = "W: Ka1 d2; B: Kbb l8",
                                 .LowChance = true,
                                 .Asked = false},
                    QuestionCase{.Name = "MenThatStandStill", .Placement = "W: Ka1 d2; B: Kbb l8"},
                    QuestionCase{.Name = "Uneven", .Placement = "W: Ka1 Kd2; B: Kbb", .Asked = false}),
    [](const auto& test) { return std::string(test.param.Name); });

TEST(Stagnation, CountsMovesWithTheScoreOfSeventyEightHalfMovesBefore) {
    struct Row {
        Long TreeIndex;
        Long Difference; ///< of the earlier score from the new one; 0 with `EarlierZero` for a score of 0
        bool EarlierZero;
        Long Expected;
    };
    for (const Row& row : {Row{79, 99, false, 4}, Row{79, -99, false, 4}, Row{79, 100, false, 0}, Row{79, 0, true, 3},
                           Row{78, 5, false, 3}}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        LimitDepth(fixture, 1);
        StartGame(fixture, "CapRequired=0", "W: Ka1 Kd2; B: Kbb");
        game.Settings.ChessDraws = 0;
        fixture.Pos->Tree.TreeIndex = game.Record.LastMoveIndex = row.TreeIndex - 1;
        for (Long i = 1; i < row.TreeIndex; ++i) fixture.Screen.List(ListId::List1).Lines.push_back("");
        game.Stagnation = 3;
        // The new score is known when the move's line is added, and the count is taken after that.
        auto add = game.Port.ListAdd;
        game.Port.ListAdd = [&](ListId list, const std::string& line) {
            const Long earlier = row.TreeIndex - 78;
            if (list == ListId::List1 && earlier > 0)
                game.Record.MoveScores[earlier] = row.EarlierZero ? 0 : game.LastScore + row.Difference;
            add(list, line);
        };
        Think(game);
        ASSERT_GT(std::abs(game.LastScore), 100);
        EXPECT_EQ(game.Stagnation, row.Expected) << row.TreeIndex << " " << row.Difference;
    }
}

} // namespace
} // namespace tavlon12
