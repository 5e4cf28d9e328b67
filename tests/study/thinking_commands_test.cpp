#include "lab/lab_support.h"
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

#include <iterator>
#include <sstream>

namespace tavlon12 {
namespace {

using namespace support;

struct ThinkingCommand : NamedCase {
    void (*Run)(Session&);
};
class CommandsThatMakeNoMove : public testing::TestWithParam<ThinkingCommand> {};
INSTANTIATE_TEST_SUITE_P(Thinking, CommandsThatMakeNoMove,
                         testing::Values(ThinkingCommand{{"Analysis"}, AnalyzeCommand},
                                         ThinkingCommand{{"Hint"}, ShowHint},
                                         ThinkingCommand{{"PlyValueTable"}, ShowPlyValueTable},
                                         ThinkingCommand{{"Problems"}, FindProblems}),
                         kNameOfCase);

TEST_P(CommandsThatMakeNoMove, LeaveTheGameAsItWasAlsoAfterACancel) {
    for (std::string_view rules : {"", "PiecesOnBlack=2", "AntiMode=1"}) {
        for (Long cancelAt : {0, 1, 2, 40, 700}) {
            SCOPED_TRACE(testing::Message() << rules << ", cancel at " << cancelAt);
            SessionFixture fixture;
            Session& game = fixture.Game;
            game.Settings.PlayMode = kPlayerPlayer;
            LimitDepth(fixture, 3);
            game.Settings.PlyValueDepth = 3;
            Random random(5);
            StartGame(fixture, RulesWith(rules));
            for (Long i = 0; i < 8; ++i) ASSERT_TRUE(PlayRandomMove(game, random));
            GoToMove(game, 3, false, false);
            const auto position = std::make_unique<Position>(*fixture.Pos);
            const auto record = std::make_unique<GameRecord>(game.Record);
            game.Game.RateableGame = true;
            game.Game.TouchedCell = SquareOf("a5");
            const GameState state = game.Game;
            const auto lists = fixture.Screen.Lists;
            fixture.Screen.Messages.clear();

            Long yields = 0;
            fixture.Screen.OnYield = [&] {
                EXPECT_FALSE(fixture.Screen.ControlEnabled.at(Control::mnu_Board1));
                if (++yields == cancelAt) CancelCommand(game);
            };
            GetParam().Run(game);
            EXPECT_GT(yields, 0);
            const auto image = [](const Position& p) {
                const GameTree& tree = p.Tree;
                return std::tie(p.Board, p.Sums, tree.TreeIndex, tree.Ply, tree.SideToMove, tree.PlyValue[0]);
            };
            EXPECT_TRUE(image(*fixture.Pos) == image(*position));
            EXPECT_TRUE(game.Record == *record);
            const auto kept = [](const GameState& of) { return std::tie(of.LastScore, of.DrawReason, of.TouchedCell); };
            EXPECT_EQ(kept(game.Game), kept(state));
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
    StartGame(fixture, "", "W: a1 b2 c3 e3 g1 j2; B: e5 c5 c7 h8 k9");
    AnalyzeCommand(game);
    EXPECT_TRUE(WasShown(fixture.Screen, "Analyzing... (1)  " + fixture.Screen.List(ListId::List2).Lines[0]));
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

    AnalyzeCommand(game);
    Resign(game);
    const std::string end = fixture.Screen.Status[1];
    fixture.Screen.Status[1] = "";
    fixture.Screen.List(ListId::List3).Selected = 0;
    ClickCandidateMove(game);
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, 2) << "the game is over";
    EXPECT_EQ(fixture.Screen.Status[1], end);
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
        EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>(row.Box.empty() ? 0 : 1, row.Box.data()));
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
    const std::string expected = "Try " + NameOf(game.Thought.PredictedFrom) + "-" + NameOf(game.Thought.PredictedTo);
    ShowHint(game);
    ShowHint(game);
    EXPECT_EQ(Texts(fixture.Screen.Messages), (std::vector<std::string>{expected, expected}));
    EXPECT_EQ(fixture.Screen.Messages[0].Kind, MessageKind::Information);
    EXPECT_EQ(fixture.Screen.Status[1], "Think ahead and try not to leave your opponent with multiple jumps");

    StartGame(fixture, "", "W: g7 i5 j6 i1 k3 k1; B: ea l6 d0 j8 h6 ka");
    game.Search.SearchAborted = true; // left by an earlier search
    fixture.Screen.Messages.clear();
    ShowHint(game);
    EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{"Try k3-j4"})
        << "the first in the list is i1-h2";
    EXPECT_EQ(game.Thought.RootMoves, Thinking().RootMoves) << "a hint has candidates of its own";

    StartGame(fixture, "", "W: a3; B: b4 c5");
    fixture.Screen.Messages.clear();
    ShowHint(game);
    EXPECT_EQ(Texts(fixture.Screen.Messages).at(0), "You have already won!");
}

TEST(PlayModes, TheUserHasTheSideToMove) {
    for (const auto& [side, blackStarts, white, black] : {std::tuple(kBlack, 1, "Computer", "U"),
                                                          {kBlack, 0, "U", "Computer"},
                                                          {kWhite, 1, "U", "Computer"},
                                                          {kWhite, 0, "Computer", "U"}}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.UserName = "U";
        StartGame(fixture, "", "W: c3 d4; B: j8 ib", side);
        game.Pos.Rules.BlackStarts = static_cast<Byte>(blackStarts);
        PlayPlayerPlayer(game);
        EXPECT_EQ(game.Players, (PlayerNames{"U", "U"}));
        EXPECT_EQ(fixture.Screen.Status[1], "Player-Player mode");
        EXPECT_FALSE(fixture.Screen.Enabled.at(Command::Resign));
        PlayComputerPlayer(game);
        EXPECT_EQ(game.Players, (PlayerNames{black, white}));
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
            const bool playsItself = game.Settings.PlayMode == kComputerComputer;
            EXPECT_EQ(game.Players == PlayerNames({"Computer", "Computer"}), playsItself);
            if (cancelAfter != 0 && game.Record.LastMoveIndex >= cancelAfter) CancelCommand(game);
        };
        bool opened = false;
        fixture.Screen.OnYield = [&] { opened |= fixture.Screen.Enabled.at(Command::New1); };
        PlayComputerComputer(game);
        EXPECT_EQ(game.Game.GameOver, cancelAfter == 0);
        EXPECT_TRUE(cancelAfter == 0 || game.Record.LastMoveIndex == cancelAfter);
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

TEST(ComputerComputer, GoesOnAfterATimeOut) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.Limits = {0, 1, 0, 1};
    StartGame(fixture, RulesWith(""));
    fixture.Screen.TickPerReading = 0.02;
    game.Port.Time.Wait = [&](double) {
        if (game.Record.LastMoveIndex >= 3) CancelCommand(game);
    };
    PlayComputerComputer(game);
    EXPECT_GE(game.Record.LastMoveIndex, 3);
    for (Long row : {1, 2})
        EXPECT_GE(std::stol(game.Record.GameRows[row][kStrengthColumn]), 1) << "it has been searched";
}

/// The rows of a table's text as words.
std::vector<std::vector<std::string>> RowsOf(const std::string& table) {
    std::istringstream lines(table);
    std::string line;
    std::vector<std::vector<std::string>> rows;
    for (Long number = 0; std::getline(lines, line); ++number) {
        if (number < 2) continue; // the head and its rule
        std::istringstream words(line);
        rows.emplace_back(std::istream_iterator<std::string>(words), std::istream_iterator<std::string>());
    }
    return rows;
}

TEST(StudyTools, FindTheShotThatGivesTwoMenFirst) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlyValueDepth = 4;
    StartGame(fixture, "", "W: g7 i5 j6 i1 k3 k1; B: ea l6 d0 j8 h6 ka");
    ShowPlyValueTable(game);
    const RecordedStudy& study = fixture.Screen.Study;
    ASSERT_TRUE(study.Table);
    EXPECT_EQ(study.Label, "Done!");
    EXPECT_EQ(study.Progress, 40);
    EXPECT_EQ(study.ProgressMaximum, 40);

    EXPECT_TRUE(study.SearchLine.starts_with("Score:") && study.SearchLine.find("   iniScore:") != std::string::npos &&
                study.SearchLine.find("   Depth: 4\nMain: ") != std::string::npos &&
                study.SearchLine.size() > study.SearchLine.find("Main: ") + 6)
        << study.SearchLine;
    const std::string text = study.Table(0);
    EXPECT_TRUE(text.starts_with("  No      MOVE   PLY 1    PLY 2    PLY 3    PLY 4     Diff     Time   \n" +
                                 std::string(107, '-') + "\n"));
    const auto rows = RowsOf(text);
    ASSERT_EQ(rows.size(), 10u);
    EXPECT_EQ(rows[0][1], "k3-j4");
    EXPECT_GE(std::stol(rows[0][6]), 180) << "the value rises with the depth";
    EXPECT_EQ(std::stol(rows[0][6]), std::stol(rows[0][5]) - std::stol(rows[0][3]));
    EXPECT_TRUE(text.find("h6xf8 j6-i7 j8xh6 i5xca ") != std::string::npos);

    const auto combinations = RowsOf(study.Table(static_cast<Long>(PlyValueOrder::Combinations)));
    ASSERT_FALSE(combinations.empty());
    EXPECT_EQ(combinations[0][1], "k3-j4");
    for (std::size_t i = 0; i < combinations.size(); ++i) EXPECT_EQ(combinations[i][0], std::to_string(i + 1) + ".");

    FindProblems(game);
    EXPECT_TRUE(study.Problems.find("k3-j4  Score:") != std::string::npos) << study.Problems;
    EXPECT_TRUE(fixture.Screen.SearchLine.ends_with(" Problems/Combinations found"));
    game.Thought.PredictedFrom = SquareOf("a3");
    game.Thought.PredictedTo = SquareOf("b4");
    fixture.Screen.Messages.clear();
    FindProblems(game);
    EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{"Try a3-b4"}) << "once, in place of the first";

    // A cancel at once leaves nothing of the last search.
    fixture.Screen.OnYield = [&] { CancelCommand(game); };
    FindProblems(game);
    EXPECT_EQ(study.Problems, "");
    EXPECT_EQ(fixture.Screen.SearchLine, "no Problems/Combinations found");
}

/// Deeper the two part: the tool asks with narrow windows, in which the lazy evaluation may estimate.
TEST(StudyTools, ShallowValuesAreThoseOfTheTool) {
    SessionFixture fixture;
    fixture.Game.Settings.PlyValueDepth = 3;
    StartGame(fixture, RulesWith(""));
    ShowPlyValueTable(fixture.Game);
    const auto rows = RowsOf(fixture.Screen.Study.Table(0));
    ASSERT_EQ(rows.size(), 11u);
    for (const auto& row : rows) {
        const std::string key = row[1].substr(0, 2) + row[1].substr(3, 2);
        const auto depths = lab::LinesOf(lab::OutputOf("search --depth 3 --play " + key));
        for (std::size_t d = 0; d < 3; ++d) {
            const std::string score = "score " + std::to_string(-std::stol(row[2 + d])) + " ";
            EXPECT_TRUE(depths[d].find(score) != std::string::npos) << key << ": " << depths[d] << ", not " << score;
        }
    }
}

TEST(StudyTools, SortByEachKey) {
    PlyValueTable table{2, {}};
    table.Rows = {{"a", {1, 5}, 10, 3, "", false}, {"b", {2, 9}, -40, 1, "x", true}, {"c", {3}, 20, 2, "x", true}};
    const std::pair<PlyValueOrder, std::string> orders[] = {{PlyValueOrder::BestDifference, "cab"},
                                                            {PlyValueOrder::BothDifference, "bca"},
                                                            {PlyValueOrder::BestValue, "bac"},
                                                            {PlyValueOrder::MostTime, "acb"},
                                                            {PlyValueOrder::Combinations, "bc"}};
    for (const auto& [order, moves] : orders) {
        std::string found;
        for (const auto& row : RowsOf(PlyValueText(table, order))) found += row[1];
        EXPECT_EQ(found, moves);
    }
    const std::string text = PlyValueText(table, PlyValueOrder::Combinations);
    EXPECT_TRUE(text.ends_with("   1.    b    2        9         -40      1       x\n"
                               "   2.    c    3                  20       2       x\n"))
        << text;
}

TEST(StudyTools, AMoveThatEndsTheGameHasNoValues) {
    SessionFixture fixture;
    fixture.Game.Settings.PlyValueDepth = 3;
    StartGame(fixture, "CapRequired=0", "W: c3; B: d4");
    ShowPlyValueTable(fixture.Game);
    for (const auto& row : RowsOf(fixture.Screen.Study.Table(0)))
        EXPECT_EQ(row.size() < 6, row[1] == "c3xe5") << row[1];
    StartGame(fixture, "", "W: a3; B: b4 c5");
    ShowPlyValueTable(fixture.Game);
    EXPECT_TRUE(RowsOf(fixture.Screen.Study.Table(0)).empty());
    FindProblems(fixture.Game);
    EXPECT_EQ(fixture.Screen.SearchLine, "no Problems/Combinations found");
}

} // namespace
} // namespace tavlon12
