#include "session/analysis.h"
#include "session/game_end.h"
#include "session/hint.h"
#include "session/navigation.h"
#include "session/play_modes.h"
#include "session/players.h"
#include "study/ply_value_table.h"
#include "study/problem_search.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using support::LimitDepth;
using support::Play;
using support::StartGame;
using support::Texts;

/// A shot: c3-d4 gives a man, and b2 takes three.
constexpr std::string_view kShot = "W: a1 b2 c3 e3 g1 j2; B: e5 c5 c7 h8 k9";

struct ThinkingCommand {
    std::string_view Name;
    void (*Run)(Session&);
};
std::ostream& operator<<(std::ostream& stream, const ThinkingCommand& command) {
    return stream << command.Name;
}

class CommandsThatMakeNoMove : public testing::TestWithParam<ThinkingCommand> {};
INSTANTIATE_TEST_SUITE_P(Thinking, CommandsThatMakeNoMove,
                         testing::Values(ThinkingCommand{"Analysis", AnalyzeCommand}, ThinkingCommand{"Hint", ShowHint},
                                         ThinkingCommand{"PlyValueTable", ShowPlyValueTable},
                                         ThinkingCommand{"Problems", FindProblems}),
                         [](const auto& test) { return std::string(test.param.Name); });

TEST_P(CommandsThatMakeNoMove, LeaveTheGameAsItWasAlsoAfterACancel) {
    for (std::string_view rules : {"", "PiecesOnBlack=2", "AntiMode=1"}) {
        for (Long cancelAt : {0, 1, 2, 40, 700}) {
            SCOPED_TRACE(testing::Message() << rules << ", cancel at " << cancelAt);
            SessionFixture fixture;
            Session& game = fixture.Game;
            game.Settings.PlayMode = kPlayerPlayer;
            LimitDepth(fixture, 3);
            game.Settings.PlyValueDepth = 3;
            support::Random random(5);
            StartGame(fixture, support::RulesWith(rules));
            for (Long i = 0; i < 8; ++i) ASSERT_TRUE(support::PlayRandomMove(game, random));
            GoToMove(game, 3, false, false);
            const auto position = std::make_unique<Position>(*fixture.Pos);
            const auto record = std::make_unique<GameRecord>(game.Record);
            const GameState state = game.Game;
            const auto lists = fixture.Screen.Lists;
            fixture.Screen.Messages.clear();

            Long yields = 0;
            fixture.Screen.OnYield = [&] {
                if (++yields == cancelAt) CancelCommand(game);
            };
            GetParam().Run(game);
            EXPECT_GT(yields, 0);
            EXPECT_EQ(fixture.Pos->Board, position->Board);
            EXPECT_EQ(fixture.Pos->Sums, position->Sums);
            EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 5);
            EXPECT_EQ(fixture.Pos->Tree.Ply, 0);
            EXPECT_EQ(fixture.Pos->Tree.SideToMove, position->Tree.SideToMove);
            EXPECT_EQ(fixture.Pos->Tree.PlyValue[0], position->Tree.PlyValue[0]);
            EXPECT_TRUE(game.Record == *record);
            EXPECT_EQ(game.Game.LastScore, state.LastScore);
            EXPECT_EQ(game.Game.DrawReason, state.DrawReason);
            EXPECT_EQ(fixture.Screen.List(ListId::List1), lists[0]);
            EXPECT_EQ(fixture.Screen.List(ListId::List2), lists[1]);
            EXPECT_FALSE(game.Game.RateableGame);
            EXPECT_FALSE(game.Busy || game.Game.GameOver);
            EXPECT_EQ(game.Pos.StopFlag, 0);
            EXPECT_FALSE(game.Search.SearchAborted || game.Search.LostFlag || game.Search.NoMovesDraw);
            EXPECT_EQ(game.Search.RepeatCount, 0);
            EXPECT_FALSE(fixture.Screen.Enabled.at(Command::mnu_Play_Cancel));
            EXPECT_TRUE(fixture.Screen.Enabled.at(Command::MoveForward));
            EXPECT_TRUE(fixture.Screen.Enabled.at(Command::Compute));

            GoLast(game);
            EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 8);
            GoFirst(game);
            EXPECT_EQ(fixture.Pos->Board, fixture.Pos->InitialBoard);
            EXPECT_EQ(fixture.Pos->Tree.PlyValue[0], 0);
        }
    }
}

TEST(Analysis, ShowsCandidatesThatCanBePlayed) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 4);
    StartGame(fixture, "", kShot);
    AnalyzeCommand(game);
    EXPECT_TRUE(support::WasShown(fixture.Screen, "Analyzing... (1)  " + fixture.Screen.List(ListId::List2).Lines[0]));
    const auto& candidates = fixture.Screen.List(ListId::List3);
    ASSERT_EQ(candidates.Lines.size(), fixture.Screen.List(ListId::List2).Lines.size());
    EXPECT_TRUE(candidates.Enabled);
    EXPECT_EQ(game.Game.LastScore, 0) << "that of the computer's last move";
    EXPECT_EQ(game.Thought.PredictedFrom, 0);

    const std::string best = candidates.Lines[0].substr(0, 2) + "-" + candidates.Lines[0].substr(2, 2);
    fixture.Screen.List(ListId::List3).Selected = 0;
    ClickCandidateMove(game);
    ASSERT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), 2u) << "the move, and the computer's answer";
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines[0], "   1. " + best);
}

TEST(Analysis, SaysHowTheGameStands) {
    struct Row {
        std::string_view Rules;
        std::string_view Placement;
        std::string_view Status;
        std::string_view Box;
    };
    for (const Row& row : {Row{"", "W: c3 d2; B: a5", "Computer is winning in 2 moves! ", ""},
                           Row{"", "W: a3 l4; B: c5 j6 f0", "Computer is losing in 2 moves! ", ""},
                           Row{"", "W: a3; B: b4 c5", "You wins!", "You wins!"},
                           Row{"AntiMode=1", "W: a3; B: b4 c5", "Computer wins!", "Computer wins!"},
                           Row{"KingWin=1", "W: ca; B: j8", "Computer is winning in 1 move! ", ""}}) {
        SCOPED_TRACE(testing::Message() << row.Rules << " " << row.Placement);
        SessionFixture fixture;
        LimitDepth(fixture, 4);
        fixture.Game.Settings.UserName = "You";
        StartGame(fixture, row.Rules, row.Placement);
        AnalyzeCommand(fixture.Game);
        EXPECT_EQ(fixture.Screen.Status[1], row.Status);
        std::vector<std::string> boxes;
        if (!row.Box.empty()) boxes.emplace_back(row.Box);
        EXPECT_EQ(Texts(fixture.Screen.Messages), boxes);
        EXPECT_FALSE(fixture.Game.Game.GameOver || fixture.Game.Game.MateAnnounced);
    }
}

TEST(Hint, GivesTheExpectedReplyElseTheBestMove) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 4);
    StartGame(fixture, "", "W: c3 e3; B: d8 f8");
    LetComputerReply(game);
    ASSERT_NE(game.Thought.PredictedFrom, 0);
    const std::string expected =
        "Try " + support::NameOf(game.Thought.PredictedFrom) + "-" + support::NameOf(game.Thought.PredictedTo);
    ShowHint(game);
    ShowHint(game);
    EXPECT_EQ(Texts(fixture.Screen.Messages), (std::vector<std::string>{expected, expected}));
    EXPECT_EQ(fixture.Screen.Messages[0].Kind, MessageKind::Information);
    EXPECT_EQ(fixture.Screen.Status[1], "Think ahead and try not to leave your opponent with multiple jumps");

    StartGame(fixture, "", "W: c3 a1; B: d4 f6 k9"); // a capture of two
    game.Search.SearchAborted = true;                // left by an earlier search
    fixture.Screen.Messages.clear();
    ShowHint(game);
    EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{"Try c3xg7"});
    EXPECT_EQ(game.Thought.RootMoves, Thinking().RootMoves) << "a hint has candidates of its own";

    StartGame(fixture, "", "W: a3; B: b4 c5");
    fixture.Screen.Messages.clear();
    ShowHint(game);
    ASSERT_FALSE(fixture.Screen.Messages.empty());
    EXPECT_EQ(fixture.Screen.Messages[0].Text, "You have already won!");
    EXPECT_EQ(fixture.Screen.Messages[0].Title, "Congratulations");
}

TEST(PlayModes, TheUserHasTheSideToMove) {
    struct Row {
        Long Side;
        Byte BlackStarts;
        std::string_view White, Black;
    };
    for (const Row& row :
         {Row{kBlack, 1, "C", "U"}, Row{kBlack, 0, "U", "C"}, Row{kWhite, 1, "U", "C"}, Row{kWhite, 0, "C", "U"}}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.UserName = "U";
        StartGame(fixture, "", "W: c3 d4; B: j8 ib", row.Side);
        game.Pos.Rules.BlackStarts = row.BlackStarts;
        PlayPlayerPlayer(game);
        EXPECT_EQ(game.Players, (PlayerNames{"U", "U"}));
        EXPECT_EQ(fixture.Screen.Status[1], "Player-Player mode");
        EXPECT_FALSE(fixture.Screen.Enabled.at(Command::Resign));
        PlayComputerPlayer(game);
        EXPECT_EQ(game.Players.WhitePlayerName, row.White == "C" ? "Computer" : "U");
        EXPECT_EQ(game.Players.BlackPlayerName, row.Black == "C" ? "Computer" : "U");
        EXPECT_EQ(fixture.Screen.Status[1], "Computer-Player mode");
        EXPECT_TRUE(fixture.Screen.Enabled.at(Command::Resign));

        Resign(game);
        PlayPlayerPlayer(game);
        PlayComputerPlayer(game);
        for (Command command : {Command::Resign, Command::Offerdraw, Command::Hint, Command::Compute})
            EXPECT_FALSE(fixture.Screen.Enabled.at(command)) << "the game is over";
    }
}

TEST(ComputerComputer, PlaysUntilTheEndOrACancel) {
    for (Long cancelAfter : {0, 1, 3}) {
        SCOPED_TRACE(cancelAfter);
        SessionFixture fixture;
        Session& game = fixture.Game;
        LimitDepth(fixture, 2);
        StartGame(fixture, "", "W: c3 e3 a1; B: d8 j8");
        // The pause after a move, or the moment in which one is searched.
        game.Port.Time.Wait = [&](double) {
            if (cancelAfter != 0 && game.Record.LastMoveIndex >= cancelAfter) CancelCommand(game);
        };
        bool opened = false;
        fixture.Screen.OnYield = [&] { opened |= fixture.Screen.Enabled.at(Command::New1); };
        PlayComputerComputer(game);
        if (cancelAfter != 0) {
            EXPECT_EQ(game.Record.LastMoveIndex, cancelAfter);
        } else {
            EXPECT_TRUE(game.Game.GameOver);
            EXPECT_EQ(Texts(fixture.Screen.Messages).size(), 1u);
        }
        EXPECT_FALSE(opened) << "between two moves nothing is opened";
        EXPECT_EQ(game.Settings.PlayMode, kPlayerComputer);
        EXPECT_EQ(NameToMove(game), game.Settings.UserName);
        EXPECT_FALSE(game.Busy || game.Game.RateableGame);
        EXPECT_TRUE(fixture.Screen.Enabled.at(Command::New1));
        EXPECT_FALSE(fixture.Screen.Enabled.at(Command::mnu_Play_Cancel));

        const Long played = game.Record.LastMoveIndex;
        if (!game.Game.GameOver) ComputeCommand(game);
        EXPECT_EQ(game.Record.LastMoveIndex, played + (game.Game.GameOver && cancelAfter == 0 ? 0 : 1))
            << "the click on Cancel is forgotten";
    }
}

TEST(PlyValueTable, ShowsTheShotThatTheLineHides) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlyValueDepth = 4;
    StartGame(fixture, "", kShot);
    ShowPlyValueTable(game);
    const RecordedStudy& study = fixture.Screen.Study;
    ASSERT_TRUE(study.Table);
    EXPECT_EQ(study.Label, "Done!");
    EXPECT_EQ(study.Progress, study.ProgressMaximum);
    ADD_FAILURE() << study.Table(0) << study.Table(4);
    FindProblems(game);
    ADD_FAILURE() << fixture.Screen.SearchLine << "\n" << study.Problems;
}

} // namespace
} // namespace tavlon12
