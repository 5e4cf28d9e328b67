#include "session/reset_game.h"

#include "session/new_game.h"
#include "session/start_up.h"
#include "support/session_play.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>

namespace tavlon12 {
namespace {

const RecordedMessage kFatal = {"Error found! Tavlon12 will exit", "Error", MessageKind::Exclamation};

TEST(StartUp, ShowsTheFirstPosition) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    ASSERT_TRUE(StartUp(game));
    EXPECT_EQ(fixture.Screen.WindowTitle, " Tavlon12 1.13");
    EXPECT_EQ(fixture.Screen.Texts[Control::Label8], "Canadian Checkers");
    EXPECT_EQ(fixture.Screen.Texts[Control::Label1], "Player");
    EXPECT_EQ(fixture.Screen.Texts[Control::Label2], "Computer");
    EXPECT_EQ(fixture.Screen.Texts[Control::Label5], "30");
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 9   Time: 2 sec");
    EXPECT_EQ(fixture.Screen.SearchLine, "no calculation");
    EXPECT_EQ(fixture.Screen.Status[1], "White moves");
    EXPECT_TRUE(fixture.Screen.Label1ToMove);
    EXPECT_EQ(fixture.Screen.List(ListId::List2).Lines.size(), 11u);
    EXPECT_EQ(fixture.Screen.BoardCalls, (std::vector<std::string>{"skin", "layout", "paint 0"}));
    EXPECT_TRUE(fixture.Screen.Checked[Command::Cplayer]);
    EXPECT_FALSE(fixture.Screen.Checked[Command::Pplayer]);
    EXPECT_TRUE(fixture.Screen.Checked[Command::mnu_Board_Notation_Chess]);
    EXPECT_TRUE(fixture.Screen.Checked[Command::calculation]);
    const std::map<Command, bool> enabled = {
        {Command::Compute, true},   {Command::Analyze, true},         {Command::mnu_Play_Ccomputer, true},
        {Command::Offerdraw, true}, {Command::Resign, true},          {Command::Hint, true},
        {Command::First, false},    {Command::Moveback, false},       {Command::MoveForward, false},
        {Command::Last, false},     {Command::mnu_Play_Cancel, false}};
    EXPECT_EQ(fixture.Screen.Enabled, enabled);
    EXPECT_FALSE(fixture.Screen.List(ListId::List3).Enabled);
    EXPECT_TRUE(fixture.Screen.List(ListId::List2).Enabled);
    EXPECT_TRUE(game.RateableGame);
    EXPECT_EQ(game.Search.Tables.VariantFamily, Family::German);
    EXPECT_TRUE(game.Search.Tables.PromoEven);
}

TEST(StartUp, PutsTheSettingsIntoForce) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kComputerComputer;
    game.Settings.Limits.DepthLimit = 0;
    game.Settings.Notation = kNumeric;
    game.Settings.CalculationOn = 0;
    game.Settings.ColonCapture = 1;
    game.Settings.Search.Plys = 5;
    game.Search.LazyMargin = 400;
    ASSERT_TRUE(StartUp(game));
    EXPECT_EQ(game.PlayMode, kPlayerComputer);
    EXPECT_EQ(game.Settings.Limits.DepthLimit, 2);
    EXPECT_EQ(game.Search.Options.Plys, 5);
    EXPECT_EQ(game.Search.LazyMargin, 150);
    EXPECT_EQ(game.CaptureChar, ":");
    EXPECT_TRUE(fixture.Screen.Checked[Command::mnu_Board_Notation_Checkers]);
    EXPECT_FALSE(fixture.Screen.Checked[Command::mnu_Board_Notation_Chess]);
    EXPECT_FALSE(fixture.Screen.Checked[Command::calculation]);
    EXPECT_EQ(fixture.Screen.List(ListId::List2).Lines.front(), "43-37");

    SessionFixture two;
    two.Game.Settings.PlayMode = kPlayerPlayer;
    ASSERT_TRUE(StartUp(two.Game));
    EXPECT_TRUE(two.Screen.Checked[Command::Pplayer]);
    EXPECT_FALSE(two.Screen.Enabled[Command::Offerdraw]);
    EXPECT_FALSE(two.Screen.Enabled[Command::Resign]);
    EXPECT_EQ(two.Game.WhitePlayerName, "Player");
}

TEST(StartUp, EndsWithItsMessageWhereTheDefinitionCannotBeRead) {
    const std::pair<const char*, const char*> rows[] = {{"missing", nullptr},
                                                        {"empty", ""},
                                                        {"no end", "Title\r\nMulJumps=1\r\n"},
                                                        {"range", "Title\r\nMulJumps=999\r\nEND\r\n"}};
    for (const auto& [name, text] : rows) {
        SCOPED_TRACE(name);
        ProgramFolder folder;
        std::filesystem::remove(folder.DefaultVariant());
        if (text != nullptr) WriteFile(folder.DefaultVariant(), text);
        SessionFixture fixture(folder.Path);
        EXPECT_FALSE(StartUp(fixture.Game));
        EXPECT_EQ(fixture.Screen.Messages, std::vector<RecordedMessage>{kFatal});
        EXPECT_EQ(fixture.Screen.Ended, 1);
        EXPECT_TRUE(fixture.Screen.Questions.empty());
        EXPECT_TRUE(CloseRequested(fixture.Game)) << "the window closes without a question";
        EXPECT_TRUE(fixture.Screen.Questions.empty());
    }
}

TEST(StartUp, StopsWhenTheSkinEndsTheProgram) {
    SessionFixture fixture;
    fixture.Game.Port.LoadSkin = [&] { fixture.Game.Quitting = true; };
    EXPECT_FALSE(StartUp(fixture.Game));
    EXPECT_TRUE(fixture.Screen.BoardCalls.empty());
}

TEST(ResetGame, LeavesNothingOfTheGameBefore) {
    SessionFixture fresh;
    ASSERT_TRUE(StartUp(fresh.Game));
    SessionFixture used;
    Session& game = used.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    ASSERT_TRUE(StartUp(game));
    std::mt19937 random(9);
    for (int i = 0; i < 12; ++i) ASSERT_TRUE(Play(game, RandomMoveText(game, random)));
    used.Screen.Texts[Control::Text1] = "comment";
    game.Record.MoveComments[3] = "comment";
    game.Input.DragSource = 5;
    game.Input.RightPressed = 7;
    game.Input.MovablesBoxed = true;
    game.DrawReason = 4;
    game.ThreeKingsFrom = 9;
    game.GameOver = true;
    game.ResultText = "1-0";
    game.LastScore = 77;
    game.Stagnation = game.LastDrawAsk = 3;
    game.MateAnnounced = true;
    game.PredictedFrom = game.PredictedTo = 59;
    game.Pos.StopFlag = kStopCancel;
    game.Pos.LastCapAnyPly = true;
    game.PlayMode = kPlayerComputer;
    ASSERT_TRUE(ResetGame(game));

    EXPECT_EQ(game.Pos.Board, fresh.Pos->Board);
    EXPECT_TRUE(game.Pos.PositionKeys == fresh.Pos->PositionKeys);
    EXPECT_EQ(game.Pos.Tree.TreeTo, fresh.Pos->Tree.TreeTo);
    EXPECT_EQ(game.Pos.Tree.TreeIndex, 0);
    EXPECT_EQ(game.Pos.Tree.Ply, 0);
    EXPECT_EQ(game.Pos.Tree.PlyValue[0], 0);
    EXPECT_EQ(game.Pos.Tree.PlyMaterial[0], 4000);
    EXPECT_EQ(game.Pos.StopFlag, 0);
    EXPECT_FALSE(game.Pos.LastCapAnyPly);
    EXPECT_EQ(game.Record.LastMoveIndex, 0);
    EXPECT_EQ(game.Record.MoveComments, fresh.Game.Record.MoveComments);
    EXPECT_EQ(game.Record.MoveScores, fresh.Game.Record.MoveScores);
    EXPECT_EQ(game.Record.MoveChoices, fresh.Game.Record.MoveChoices);
    for (const MoveRecord& move : game.Record.MoveHistory) EXPECT_EQ(move.From, 0);
    EXPECT_EQ(game.Input.DragSource, -1);
    EXPECT_EQ(game.Input.RightPressed, -1);
    EXPECT_FALSE(game.Input.MovablesBoxed);
    EXPECT_FALSE(game.GameOver || game.GameTouched || game.MateAnnounced || game.Busy);
    EXPECT_EQ(game.DrawReason + game.ThreeKingsFrom + game.LastScore + game.Stagnation + game.LastDrawAsk, 0);
    EXPECT_EQ(game.PredictedFrom, 0);
    EXPECT_EQ(game.ResultText, "");
    EXPECT_TRUE(used.Screen.Lists == fresh.Screen.Lists);
    EXPECT_EQ(used.Screen.Texts[Control::Text1], "");
    EXPECT_EQ(used.Screen.Status, fresh.Screen.Status);
    EXPECT_EQ(used.Screen.Enabled, fresh.Screen.Enabled);
    EXPECT_EQ(game.WhitePlayerName, kComputerName);
}

TEST(ResetGame, ReadsTheDefinitionAnewAndPlaysItsStart) {
    ProgramFolder folder;
    SessionFixture fixture(folder.Path);
    Session& game = fixture.Game;
    std::string digits(144, '0');
    digits[0] = '1';
    digits[142] = '4';
    digits[140] = '2';
    folder.WriteVariant("Canadian Checkers", "Setup=" + digits + "\r\nBlackStarts=0\r\nRndColor=1\r\n");
    ASSERT_TRUE(ResetGame(game));
    EXPECT_EQ(PositionString(game.Pos.InitialBoard), digits);
    EXPECT_EQ(game.Pos.Tree.PlyMaterial[0], 400);
    EXPECT_EQ(game.Pos.Tree.GameMaterial[0], 400);
    EXPECT_EQ(game.Pos.DefinedRules.RndColor, 1);
    EXPECT_EQ(fixture.Screen.Texts[Control::Label8], "Canadian Checkers (M)");
    EXPECT_FALSE(game.Texts.VariantHelp.empty());

    folder.WriteVariant("Other 12x12", "");
    game.Pos.VariantFile = "Other 12x12";
    game.Pos.DefinedRules.MaxCapMove = 0;
    ASSERT_TRUE(ResetGame(game));
    EXPECT_EQ(game.Pos.VariantName, "Other 12x12");
    EXPECT_EQ(game.Pos.Board, ClassicStart());
}

TEST(ResetGame, ADefinitionWithoutAKeyFallsBackOnTheDefaultsOfTheNamedTen) {
    ProgramFolder folder;
    WriteFile(folder.DefaultVariant(), "Title\r\nEND\r\n");
    SessionFixture fixture(folder.Path);
    RuleSet& defined = fixture.Pos->DefinedRules;
    defined.MulJumps = defined.KingWin = defined.LongKings = 5;
    defined.PromoW = defined.PromoB;
    ASSERT_TRUE(ResetGame(fixture.Game));
    EXPECT_EQ(defined.MulJumps, 1);
    EXPECT_EQ(defined.KingWin, 0);
    EXPECT_EQ(defined.PromoW, RuleSet().PromoW);
    EXPECT_EQ(defined.LongKings, 5) << "no default is told for this one";
}

TEST(ResetGame, DrawsTheBeginnerUnlessThePositionIsKept) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Pos.Rules.RndColor = 1;
    int blackBegan = 0;
    const int games = 200;
    for (int i = 0; i < games; ++i) {
        fixture.Screen.Now += 3.7;
        ASSERT_TRUE(ResetGame(game));
        Byte starts = game.Pos.Rules.BlackStarts;
        EXPECT_EQ(game.Pos.DefinedRules.BlackStarts, starts);
        EXPECT_EQ(game.Pos.Tree.SideToMove, starts == 1 ? kBlack : kWhite);
        EXPECT_EQ(fixture.Screen.Status[1], starts == 1 ? "Black moves" : "White moves");
        blackBegan += starts;
    }
    EXPECT_GT(blackBegan, games / 4);
    EXPECT_LT(blackBegan, games * 3 / 4);

    StartFrom(game, {{"C3"}, {}, {"K0"}, {}}, kBlack);
    EXPECT_EQ(game.Pos.Rules.BlackStarts, 1);
    EXPECT_EQ(game.Pos.Tree.SideToMove, kBlack);
}

TEST(ResetGame, KeepsABoardThatWasSetUp) {
    SessionFixture fixture;
    StartFrom(fixture.Game, {{"C3"}, {"E3"}, {"K0"}, {}});
    EXPECT_EQ(fixture.Pos->Tree.PlyValue[0], 200);
    EXPECT_EQ(fixture.Pos->Tree.PlyMaterial[0], 400);
    EXPECT_FALSE(fixture.Game.RateableGame);
    EXPECT_EQ(fixture.Screen.Texts[Control::Label8], "Canadian Checkers (M)");
}

TEST(ResetGame, ABoardOnAllSquaresIsWrittenInLetters) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.Notation = kNumeric;
    UseRules(game.Pos, VariedRules().back());
    ASSERT_TRUE(ResetGame(game));
    EXPECT_EQ(game.Settings.Notation, kAlgebraic);
    EXPECT_TRUE(fixture.Screen.Checked[Command::mnu_Board_Notation_Chess]);
    EXPECT_FALSE(fixture.Screen.Checked[Command::mnu_Board_Notation_Checkers]);
    for (const std::string& line : fixture.Screen.List(ListId::List2).Lines) EXPECT_TRUE(std::isalpha(line[0])) << line;
}

TEST(NewGame, AsksOnlyWhenAGameIsRunning) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    ASSERT_TRUE(StartUp(game));
    NewGame(game);
    EXPECT_TRUE(fixture.Screen.Questions.empty());

    ASSERT_TRUE(Play(game, "A5B6"));
    const BoardCells board = game.Pos.Board;
    game.ResultShown = "1-0";
    game.TouchedCell = 59;
    game.RootMoves[0].From = 59;
    fixture.Screen.List(ListId::List3).Lines = {"c3d4  1"};
    fixture.Screen.Answers = {false, true};
    NewGame(game);
    EXPECT_EQ(fixture.Screen.Questions, std::vector<RecordedQuestion>({{"Quit current game?", "Confirmation"}}));
    EXPECT_EQ(game.Pos.Board, board);
    EXPECT_EQ(game.Record.LastMoveIndex, 1);

    fixture.Screen.Status[1] = "White wins!";
    NewGame(game);
    EXPECT_EQ(game.Pos.Board, ClassicStart());
    EXPECT_EQ(game.Record.LastMoveIndex, 0);
    EXPECT_EQ(game.ResultShown, "");
    EXPECT_EQ(game.TouchedCell, 0);
    EXPECT_EQ(game.RootMoves[0].From, kNotFilled);
    EXPECT_TRUE(fixture.Screen.List(ListId::List3).Lines.empty());
    EXPECT_EQ(fixture.Screen.Status[1], "White moves");
    EXPECT_TRUE(fixture.Screen.Sounds.empty());

    game.Settings.UseSound = 1;
    NewGame(game);
    EXPECT_EQ(fixture.Screen.Questions.size(), 2u);
    EXPECT_EQ(fixture.Screen.Sounds, std::vector<std::filesystem::path>{game.ProgramFolder / "sounds" / "roll.wav"});
}

TEST(CloseRequested, AsksAndStopsTheSearch) {
    struct Row {
        Byte AskExit;
        bool Answer;
        bool Busy;
        bool Closes;
        std::size_t Questions;
    };
    const Row rows[] = {
        {1, true, false, true, 1}, {1, false, false, false, 1}, {0, false, false, true, 0},
        {1, true, true, true, 1},  {1, false, true, false, 1},
    };
    for (const Row& row : rows) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.AskExit = row.AskExit;
        game.Busy = row.Busy;
        fixture.Screen.Answers = {row.Answer};
        EXPECT_EQ(CloseRequested(game), row.Closes);
        EXPECT_EQ(game.Quitting, row.Closes);
        EXPECT_EQ(game.Pos.StopFlag, row.Closes && row.Busy ? kStopCancel : 0);
        ASSERT_EQ(fixture.Screen.Questions.size(), row.Questions);
        if (row.Questions == 1) {
            EXPECT_EQ(fixture.Screen.Questions[0],
                      (RecordedQuestion{"Are you sure you want to exit?", "Confirmation"}));
        }
    }
}

} // namespace
} // namespace tavlon12
