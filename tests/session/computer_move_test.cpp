#include "session/computer_move.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using support::LimitDepth;
using support::StartGame;
using support::Texts;

void Think(Session& game) {
    game.Busy = true;
    ThinkComputerMove(game);
    game.Busy = false;
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

TEST(ComputerMove, IsEnteredShownAndHandsTheGameBack) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 3);
    StartGame(fixture, support::RulesWith(""));
    Think(game);

    const GameRecord& record = game.Record;
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 1);
    EXPECT_EQ(fixture.Pos->Tree.Ply, 0);
    EXPECT_EQ(record.LastMoveIndex, 1);
    EXPECT_EQ(record.MoveChoices[1], 11);
    EXPECT_EQ(record.MoveScores[1], game.Game.LastScore);
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
    for (std::size_t i = 1; i < 11; ++i)
        EXPECT_GE(game.Thought.RootMoves[i - 1].Score, game.Thought.RootMoves[i].Score);
    EXPECT_EQ(game.Thought.RootMoves[0].Score, game.Game.LastScore);
    const std::string best = "Depth: 3   Best: " + cell.substr(5) + "   Score:" + Str(game.Game.LastScore);
    EXPECT_EQ(fixture.Screen.SearchLine, best + "   Time: 00:00.00\nMain: " + game.Thought.MainLineText);
    EXPECT_TRUE(game.Thought.MainLineText.starts_with(cell.substr(5) + " "));
    EXPECT_TRUE(support::WasShown(fixture.Screen, "Thinking..."));
    EXPECT_TRUE(support::WasShown(fixture.Screen, "Thinking... (1)  a5-b6"));
    EXPECT_EQ(fixture.Screen.Status[1], "Black moves");
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 10   Depth: 3 ply");

    EXPECT_EQ(fixture.Screen.Progress, 0);
    EXPECT_EQ(fixture.Screen.ProgressMaximum, 33);
}

TEST(ComputerMove, DoesNotThinkInAFullGame) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    StartGame(fixture, "", "W: c3; B: h8");
    fixture.Pos->Tree.TreeIndex = kMaxHalfMoves;
    game.Settings.PlayMode = kComputerComputer;
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
    EXPECT_EQ(game.Game.GameOver, !test.Text.empty());
    EXPECT_EQ(Texts(fixture.Screen.Messages),
              std::vector<std::string>(test.Text.empty() ? 0 : 1, std::string(test.Text)));
    EXPECT_EQ(fixture.Screen.Status[1], test.Status.empty() ? test.Text : test.Status);
    EXPECT_EQ(game.Game.ResultText, test.Result);
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
        EndCase{"FewPieces", "NumberPieces=1", "W: c3; B: h8 j8", kWhite, false, "Ada wins!", "", "0-1"},
        EndCase{"GoalReachedByUser", "KingWin=1", "W: c5; B: Ka1 j8", kWhite, false, "Ada wins!", "", "0-1"},
        EndCase{"AntiNoMoves", "AntiMode=1", "W: a3; B: b4 c5", kWhite, false, "Computer wins!", "", "1-0"},
        EndCase{"AntiNoPieces", "AntiMode=1", "B: h8", kWhite, false, "Computer wins!", "", "1-0"},
        EndCase{"AlreadyWon", "", "W: c3", kWhite, false, "Computer wins!", "", "1-0"},
        EndCase{"BlockedDraw", "NoLegalDraw=1", "W: a3; B: b4 c5", kWhite, false, "It's a draw!", "", "1/2-1/2"},
        // The move ends the game
        EndCase{"TakesTheLast", "", "W: c3; B: d4", kWhite, true, "Computer wins!", "", "1-0"},
        EndCase{"BlackTakesTheLast", "", "W: d4; B: e5", kBlack, true, "Computer wins!", "", "1-0"},
        EndCase{"Blocks", "", "W: b2 c1 d4; B: a3 c9", kWhite, true, "", "Black moves", ""},
        EndCase{"FirstKing", "KingWin=1", "W: aa c1; B: h8 h6", kWhite, true, "Computer wins!", "", "1-0"},
        EndCase{"KingComesHome", "WinAtPromo=1", "W: Kb2 d2; B: j8 h6", kWhite, true, "Computer wins!", "", "1-0"},
        EndCase{"AntiGivesTheLast", "AntiMode=1", "W: c3; B: d4", kWhite, true, "Ada wins!", "", "0-1"},
        EndCase{"KingsDraw", "LongKings=0", "W: Ka1; B: Klb", kWhite, true, "It's a draw! King versus King", "",
                "1/2-1/2"},
        // A forced end is announced
        EndCase{"Winning", "", "W: c3 d2; B: a5", kWhite, true, "", "Computer is winning in 2 moves! ", ""},
        EndCase{"Losing", "", "W: a3 l4; B: c5 j6 f0", kWhite, true, "", "Computer is losing in 2 moves! ", ""}),
    [](const auto& test) { return std::string(test.param.Name); });

TEST(DrawQuestion, IsAskedWhenTheGameStandsStill) {
    struct Row {
        std::string_view Name;
        Byte AskForDraw;
        Long LastDrawAsk;
        bool MateAnnounced;
        std::string_view Placement;
        bool Asked;
    };
    constexpr std::string_view kEven = "W: Ka1 Kd2; B: Kbb Kl8";
    const Row rows[] = {
        {"it stands still", 1, 0, false, kEven, true},
        {"the option is off", 0, 0, false, kEven, false},
        {"asked 40 half-moves ago", 1, 60, false, kEven, false},
        {"asked 41 half-moves ago", 1, 59, false, kEven, true},
        {"after a mate", 1, 0, true, kEven, false},
        {"uneven", 1, 0, false, "W: Ka1 Kd2; B: Kbb", false},
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
            game.Game.Stagnation = 2;
            game.Game.MateAnnounced = row.MateAnnounced;
            fixture.Screen.Answers = {answer};
            Think(game);
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
