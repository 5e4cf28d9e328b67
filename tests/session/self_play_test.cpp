#include "session/computer_move.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using namespace support;

constexpr Long kLongestGame = 300;
constexpr Byte kDepth = Scaled(10) == 10 ? 3 : 2;

/// The computer plays both sides from the start position, as long as the game lasts.
void PlayToTheEnd(SessionFixture& fixture, const RuleSet& rules, Byte depth) {
    LimitDepth(fixture, depth);
    fixture.Game.Settings.PlayMode = kComputerComputer;
    StartGame(fixture, rules);
    if (fixture.Pos->DirTable[PieceType(kMan)][0] == kEndOfSteps) {
        // Where every move is a capture the search follows all of them down.
        LimitDepth(fixture, 1);
        fixture.Game.Settings.Search.ExtendedSearch = 0;
    }
    while (!fixture.Game.Game.GameOver && fixture.Pos->Tree.TreeIndex < kLongestGame && !testing::Test::HasFailure()) {
        const Long before = fixture.Pos->Tree.TreeIndex;
        fixture.Game.Busy = true;
        ThinkComputerMove(fixture.Game);
        fixture.Game.Busy = false;
        ASSERT_TRUE(fixture.Game.Game.GameOver || fixture.Pos->Tree.TreeIndex == before + 1);
        ASSERT_EQ(fixture.Pos->Tree.Ply, 0);
    }
}

class SelfPlaySlow : public testing::TestWithParam<NamedRules> {};

TEST_P(SelfPlaySlow, AGameEndsWithAVerdict) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.KingVersusKing = 1;
    const RuleSet rules = GetParam().Rules;
    PlayToTheEnd(fixture, rules, kDepth);
    const Long length = fixture.Pos->Tree.TreeIndex;
    ASSERT_GT(length, 0);
    RecordProperty("HalfMoves", length);
    EXPECT_EQ(game.Record.LastMoveIndex, length);
    EXPECT_EQ(fixture.Screen.Ended, 0);

    EXPECT_EQ(fixture.Screen.Messages.size(), game.Game.GameOver ? 1u : 0u);
    for (const RecordedMessage& box : fixture.Screen.Messages) {
        EXPECT_EQ(box.Title, "Congratulations");
        const bool draw = game.Game.ResultText == "1/2-1/2";
        EXPECT_TRUE(draw ? box.Text.starts_with("It's a draw!") : box.Text == "Computer wins!") << box.Text;
    }

    // Every half-move has a line, a cell of its kind and at least one move to choose from.
    ASSERT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), static_cast<std::size_t>(length));
    for (Long halfMove = 1; halfMove <= length; ++halfMove) {
        const auto& row = game.Record.GameRows[RowOfHalfMove(halfMove)];
        ASSERT_EQ(row[KindColumn(halfMove)], kByComputer) << halfMove;
        ASSERT_GE(game.Record.MoveChoices[halfMove], 1) << halfMove;
        const std::string& cell = row[TextColumn(halfMove)];
        const std::string shown = cell.substr(cell.find(' ') + 1);
        const std::string& line = fixture.Screen.List(ListId::List1).Lines[static_cast<std::size_t>(halfMove - 1)];
        ASSERT_TRUE(line.ends_with(shown) || line.ends_with(shown + "b")) << line; // "b": on a line of the book
    }
}

INSTANTIATE_TEST_SUITE_P(RuleSets, SelfPlaySlow, testing::ValuesIn(ShippedRules()), kNameOfCase);

} // namespace
} // namespace tavlon12
