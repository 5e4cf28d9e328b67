#include "session/human_move.h"
#include "session/play_modes.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using Lines = std::vector<std::string>;

struct Shown {
    Lines Game;
    std::string FirstLegal;
    std::string FirstCandidate; ///< without its score
    Byte Notation;
};

void ExpectShown(SessionFixture& fixture, const Shown& expected) {
    EXPECT_EQ(fixture.Screen.List(ListId::List1).Lines, expected.Game);
    EXPECT_EQ(fixture.Screen.List(ListId::List2).Lines.at(0), expected.FirstLegal);
    const std::string candidate = fixture.Screen.List(ListId::List3).Lines.at(0);
    EXPECT_EQ(candidate.substr(0, candidate.find(' ')), expected.FirstCandidate);
    EXPECT_EQ(fixture.Game.Settings.Notation, expected.Notation);
    EXPECT_EQ(fixture.Screen.Checked[Command::mnu_Board_Notation_Chess], expected.Notation == kAlgebraic);
    EXPECT_EQ(fixture.Screen.Checked[Command::mnu_Board_Notation_Checkers], expected.Notation == kNumeric);
    EXPECT_EQ(fixture.Screen.Checked[Command::Nonotation], expected.Notation == kNoLabels);
    EXPECT_EQ(fixture.Screen.BoardCalls.back(), "paint 0");
}

TEST(NotationCommands, RewriteTheGameAndTheLists) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    support::LimitDepth(fixture, 1);
    // The computer's only move is a capture.
    support::StartGame(fixture, "", "W: c3 l2; B: a5 l8");
    fixture.Screen.Texts[Control::Text2] = "c3b4";
    SubmitTypedMove(game);
    const Shown letters{{"   1. c3-b4", "      a5xc3"}, "l2-k3", "a5c3", kAlgebraic};
    Shown numbers{{"   1. 56-49", "      43x56"}, "66-60", "4356", kNumeric};

    ShowNumericNotation(game);
    ExpectShown(fixture, numbers);
    ShowNoNotation(game);
    numbers.Notation = kNoLabels;
    ExpectShown(fixture, numbers);
    ShowAlgebraicNotation(game);
    ExpectShown(fixture, letters);
    ShowNoNotation(game);
    ExpectShown(fixture, numbers);
    ShowNumericNotation(game);
    numbers.Notation = kNumeric;
    ExpectShown(fixture, numbers);
}

TEST(NotationCommands, HaveNoNumbersOnABoardOfBothColours) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.PlayMode = kPlayerPlayer;
    support::StartGame(fixture, "WhiteManMovement=NW;N;NE N | BlackManMovement=NW;N;NE;W N", "W: c3; B: l8");
    ASSERT_EQ(fixture.Pos->Rules.PiecesOnBlack, 2);
    ShowNumericNotation(game);
    EXPECT_EQ(game.Settings.Notation, kAlgebraic);
    ShowNoNotation(game);
    EXPECT_EQ(fixture.Screen.List(ListId::List2).Lines, (Lines{"c3-b4", "c3-c4", "c3-d4"}));
}

TEST(NotationCommands, WaitForTheComputer) {
    SessionFixture fixture;
    support::StartGame(fixture, support::RulesWith(""));
    fixture.Game.Busy = true;
    ShowNumericNotation(fixture.Game);
    ShowNoNotation(fixture.Game);
    EXPECT_EQ(fixture.Game.Settings.Notation, kAlgebraic);
}

TEST(Calculation, TakesTheSearchLineWithIt) {
    SessionFixture fixture;
    support::StartGame(fixture, support::RulesWith(""));
    fixture.Screen.SearchLine = "Depth: 3";
    ToggleCalculation(fixture.Game);
    EXPECT_FALSE(fixture.Screen.Checked.at(Command::calculation));
    EXPECT_EQ(fixture.Screen.SearchLine, "no calculation");
    fixture.Screen.SearchLine = "Depth: 3";
    ToggleCalculation(fixture.Game);
    EXPECT_TRUE(fixture.Screen.Checked.at(Command::calculation));
    EXPECT_EQ(fixture.Screen.SearchLine, "Depth: 3");
}

} // namespace
} // namespace tavlon12
