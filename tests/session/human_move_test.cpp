#include "session/computer_move.h"
#include "session/human_move.h"
#include "session/input_move.h"
#include "session/navigation.h"
#include "session/play_modes.h"
#include "session/players.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using namespace support;

void Type(SessionFixture& fixture, const std::string& text) {
    fixture.Screen.Texts[Control::Text2] = text;
    SubmitTypedMove(fixture.Game);
}

void Click(SessionFixture& fixture, ListId list, std::size_t line) {
    fixture.Screen.List(list).Selected = static_cast<Long>(line);
    if (list == ListId::List2)
        ClickLegalMove(fixture.Game);
    else
        ClickCandidateMove(fixture.Game);
}

struct TypedCase : NamedCase {
    std::string_view Rules;
    std::string_view Placement;
    Byte Notation;
    Byte ColonCapture;
    std::string_view Typed;
    std::string_view Cell; ///< of the record; empty for a refused move
};

class TypedMove : public testing::TestWithParam<TypedCase> {};

TEST_P(TypedMove, IsMadeOrRefused) {
    const TypedCase& test = GetParam();
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    game.Settings.Notation = test.Notation;
    game.Settings.ColonCapture = test.ColonCapture;
    StartGame(fixture, test.Rules, test.Placement);
    const std::string before = PlacementOf(fixture.Pos->Board);
    bool shut = false;
    fixture.Screen.OnMessage = [&](const RecordedMessage&) {
        shut = !fixture.Screen.ControlEnabled.at(Control::Text2);
    };
    Type(fixture, std::string(test.Typed));
    EXPECT_EQ(fixture.Screen.Texts[Control::Text2], "");
    if (test.Cell.empty()) {
        EXPECT_EQ(fixture.Screen.Messages,
                  (std::vector<RecordedMessage>{{"Illegal move", "Error", MessageKind::Exclamation}}));
        EXPECT_TRUE(shut);
        EXPECT_TRUE(fixture.Screen.ControlEnabled.at(Control::Text2));
        EXPECT_EQ(PlacementOf(fixture.Pos->Board), before);
        EXPECT_EQ(game.Record.LastMoveIndex, 0);
    } else {
        EXPECT_TRUE(fixture.Screen.Messages.empty()) << fixture.Screen.Messages[0].Text;
        EXPECT_EQ(game.Record.GameRows[1][0], test.Cell);
        EXPECT_EQ(game.Record.GameRows[1][2], kByPerson);
        EXPECT_EQ(game.Record.GameRows[1][kStrengthColumn], "2");
        const std::string shown(test.Cell.substr(test.Cell.size() < 8 ? 3 : 5));
        EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines, std::vector<std::string>{"   1. " + shown});
    }
}

constexpr std::string_view kQuiet = "W: c3 aa; B: l8 j8";
constexpr std::string_view kCapture = "W: c3; B: d4 l8";
// In numbers: bb is 1, jb 5, ca 8, ia 11, d0 14, c9 20, c1 68.
constexpr std::string_view kTop = "W: c9 l2; B: j2 l4";
constexpr std::string_view kPlacing =
    "canContract=1 | ContractNumber=3 | ContractW1=2 | ContractW2=4 | ContractB1=13 | "
    "ContractB2=11";

INSTANTIATE_TEST_SUITE_P(
    Table, TypedMove,
    testing::Values(TypedCase{"Hyphen", "", kQuiet, 0, 0, "c3-d4", "c3d4 c3-d4"},
                    TypedCase{"LettersBehindAreIgnored", "", kQuiet, 0, 0, "c3-d4K!?", "c3d4 c3-d4"},
                    TypedCase{"Promotion", "", kQuiet, 0, 0, "aa-bb", "aabb aa-bbK"},
                    TypedCase{"Illegal", "", kQuiet, 0, 0, "c3-c4", ""}, TypedCase{"Nothing", "", kQuiet, 0, 0, "", ""},
                    TypedCase{"Capture", "", kCapture, 0, 0, "c3xe5", "c3e5 c3xe5"},
                    TypedCase{"CaptureInCapitals", "", kCapture, 0, 0, "C3XE5", "c3e5 c3xe5"},
                    TypedCase{"CaptureWithAnotherMark", "", kCapture, 0, 0, "c3:e5", ""},
                    TypedCase{"CaptureWithColon", "", kCapture, 0, 1, "c3:e5", "c3e5 c3:e5"},
                    TypedCase{"NumberOfOneDigit", "", "W: ia l2; B: j2", 1, 0, "11-5", "11 5 11- 5K"},
                    TypedCase{"NumbersOfOneDigit", "", "W: ca l2; B: j2", 1, 0, "8-1", " 8 1  8- 1K"},
                    TypedCase{"NumbersOfTwoDigits", "", kTop, 1, 0, "20-14", "2014 20-14"},
                    TypedCase{"NumbersWithoutLabels", "", kTop, 2, 0, "20-14", "2014 20-14"},
                    TypedCase{"Placement", kPlacing, "W: aa; B: l8", 0, 0, "c1", "c1 c1"},
                    TypedCase{"PlacementInNumbers", kPlacing, "W: aa; B: l8", 1, 0, "68", "68 68"},
                    TypedCase{"PlacementWhereNoneIs", kPlacing, "W: aa; B: l8", 0, 0, "c5", ""}),
    kNameOfCase);

TEST(TypedMoves, AreRefusedInAFullGameWithItsOwnMessage) {
    SessionFixture fixture;
    StartGame(fixture, "", kQuiet);
    fixture.Pos->Tree.TreeIndex = kMaxHalfMoves;
    Type(fixture, "c3-d4");
    ASSERT_EQ(fixture.Screen.Messages.size(), 1u);
    EXPECT_NE(fixture.Screen.Messages[0].Text, "Illegal move");
    EXPECT_EQ(fixture.Pos->Tree.TreeIndex, kMaxHalfMoves);
}

TEST(HumanMove, IsAnsweredAndLeavesTheNamesAsTheyStood) {
    for (MovePath path : {MovePath::Board, MovePath::Typed, MovePath::LegalList}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        LimitDepth(fixture, 1);
        game.Settings.UseSound = 1;
        StartGame(fixture, RulesWith(""));
        fixture.Screen.List(ListId::List3).Enabled = true;
        if (path == MovePath::LegalList) {
            Click(fixture, ListId::List2, 3);
            EXPECT_EQ(fixture.Screen.LastFocus, static_cast<int>(ListId::List2));
        } else {
            CommitHumanMove(game, std::get<MadeMove>(InputMove(game, "C5D6")), path);
        }
        EXPECT_EQ(game.Players, (PlayerNames{"Player", "Computer"}));
        EXPECT_EQ(fixture.Screen.Texts[Control::Label1], "Player");
        EXPECT_EQ(fixture.Screen.Mark, PlayerMark::Label1);

        const auto& row = game.Record.GameRows[1];
        EXPECT_EQ(row[2] + row[3] + row[kStrengthColumn], std::string(kByPerson) + kByComputer + "1");
        EXPECT_EQ(game.Record.MoveChoices[1], 11);
        EXPECT_EQ(game.Record.MoveScores[1], 0) << "scores of persons are kept in games of two persons alone";
        EXPECT_EQ(game.Record.MoveScores[2], game.Game.LastScore);
        EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), 2u);
        EXPECT_EQ(fixture.Screen.List(ListId::List1).Selected, 1);
        EXPECT_TRUE(fixture.Screen.List(ListId::List1).Lines[1].starts_with("      "));
        EXPECT_TRUE(game.Game.GameTouched && !game.Busy);
        EXPECT_EQ(fixture.Screen.List(ListId::List2).Lines.size(),
                  static_cast<std::size_t>(GenerateLegalMoves(*fixture.Pos)));
        EXPECT_EQ(fixture.Screen.Sounds,
                  (std::vector<std::filesystem::path>(2, game.InstalledFolder / "sounds" / "click.wav")));
    }
}

TEST(HumanMove, IsScoredUnderTheSettingsOfTheSearch) {
    for (Byte extends : {Byte(0), Byte(1)}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.PlayMode = kPlayerPlayer;
        game.Settings.Search = {750, 6, extends, 0};
        StartGame(fixture, "", "W: c3 e3 g3 d2 f2; B: e7 g7 f8 h8 d8");
        Play(game, "e3f4");
        EXPECT_EQ(game.Search.Options.ExtendedSearch, extends);
        EXPECT_EQ(game.Search.Options.Plys, 6);
    }
}

TEST(ComputeCommands, GiveTheComputerTheSideToMove) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 1);
    StartGame(fixture, RulesWith(""));
    ComputeCommand(game); // the user's move
    EXPECT_EQ(game.Players.BlackPlayerName, "Computer");
    ComputeCommand(game); // and again
    EXPECT_EQ(game.Players.BlackPlayerName, "Player");
    EXPECT_EQ(game.Record.GameRows[1][3], kByComputer);

    // Where it is the computer's turn already nothing is exchanged.
    SwapPlayerNames(game);
    ComputeCommand(game);
    EXPECT_EQ(game.Players.BlackPlayerName, "Computer");

    game.Game.GameOver = true;
    ComputeCommand(game);
    EXPECT_EQ(game.Record.LastMoveIndex, 3);
}

class EveryListLine : public testing::TestWithParam<NamedRules> {};

TEST_P(EveryListLine, PlaysItsMoveInEachNotation) {
    const RuleSet rules = GetParam().Rules;
    Random random(20261122);
    for (Byte notation : {kAlgebraic, kNumeric}) {
        for (Byte colon : {Byte(0), Byte(1)}) {
            SessionFixture fixture;
            Session& game = fixture.Game;
            game.Settings.PlayMode = kPlayerPlayer;
            game.Settings.Notation = notation;
            game.Settings.ColonCapture = colon;
            StartGame(fixture, rules, random);
            // The list is that of the new game; a record of its moves outlives the clicks.
            const Long count = GenerateLegalMoves(*fixture.Pos);
            const std::vector<MoveRecord> moves(fixture.Pos->Moves.begin(), fixture.Pos->Moves.begin() + count);
            ASSERT_EQ(fixture.Screen.List(ListId::List2).Lines.size(), moves.size());
            for (std::size_t i = 0; i < moves.size() && i < 30; ++i) {
                const std::string line = fixture.Screen.List(ListId::List2).Lines[i];
                Click(fixture, ListId::List2, i);
                if (fixture.Pos->Fault.Passed()) break; // so many routes that the game cannot go on
                ASSERT_EQ(fixture.Pos->Tree.TreeIndex, 1) << line << "\n" << DescribePosition(*fixture.Pos);
                // Where two captures share their squares the text stands for the first of them.
                EXPECT_EQ(game.Record.MoveHistory[1].From, moves[i].From) << line;
                EXPECT_EQ(game.Record.MoveHistory[1].To, moves[i].To) << line;
                EXPECT_TRUE(fixture.Screen.List(ListId::List1).Lines[0].ends_with(line)) << line;
                GoBack(game);
                ASSERT_EQ(fixture.Screen.List(ListId::List2).Lines.size(), moves.size());
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(RuleSets, EveryListLine, testing::ValuesIn(NamedRuleSets()), kNameOfCase);

} // namespace
} // namespace tavlon12
