#include "session/position_setup.h"

#include "session/board_input.h"
#include "session/human_move.h"
#include "session/load_game.h"
#include "session/navigation.h"
#include "session/save_game.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tavlon12 {
namespace {

using namespace support;

/// A right click on a square whose menu answers with an entry.
void Choose(SessionFixture& fixture, std::string_view square, std::optional<SetupEntry> entry) {
    fixture.Screen.Setup = entry;
    const Long view = ViewOfCell(SquareOf(square), fixture.Game.Settings.BoardTurned);
    SquareMouseDown(fixture.Game, view, MouseButton::Right);
    SquareMouseUp(fixture.Game, view, MouseButton::Right, 20, 20);
}

TEST(PositionSetup, AnyPlacementBecomesAGame) {
    for (Byte turned : {Byte(0), Byte(1)}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.BoardTurned = turned;
        game.Settings.PlayMode = kPlayerPlayer;
        StartGame(fixture, RulesWith(""));
        game.Game.RateableGame = true;
        Play(game, "c5d6");
        game.Variant.VariantName = "Canadian Checkers 12x12";
        Choose(fixture, "e5", SetupEntry::ClearBoard);
        EXPECT_EQ(game.Record.LastMoveIndex, 0);
        EXPECT_EQ(std::count_if(game.Pos.Board.begin(), game.Pos.Board.end(), IsLivePiece), 0);
        const std::pair<const char*, SetupEntry> edits[] = {
            {"c3", SetupEntry::WhiteMan},  {"g1", SetupEntry::WhiteKing}, {"d4", SetupEntry::BlackMan},
            {"l8", SetupEntry::BlackKing}, {"a1", SetupEntry::BlackMan},  {"a1", SetupEntry::Empty},
            {"c3", SetupEntry::WhiteMoves}};
        for (const auto& [square, entry] : edits) Choose(fixture, square, entry);
        EXPECT_EQ(fixture.Screen.SetupMarks.back(), std::pair(SetupEntry::WhiteMan, SetupEntry::BlackMoves));
        EXPECT_EQ(fixture.Screen.Status[1], "White moves");
        EXPECT_EQ(fixture.Screen.Texts[Control::Label8], "Canadian Checkers (M)");
        EXPECT_EQ(game.Pos.Rules.BlackStarts, 0);
        EXPECT_EQ(game.Pos.Tree.PlyValue[0], 0);
        EXPECT_EQ(game.Pos.PieceSum, 6);
        EXPECT_FALSE(game.Game.RateableGame || game.Game.BookOpen || game.Variant.CustomSetup);
        EXPECT_EQ(fixture.Screen.LastFocus, static_cast<int>(ListId::List3));

        Play(game, "c3e5");
        const BoardCells board = game.Pos.Board;
        const auto file = fixture.Folder.Path / "setup.tvl";
        fixture.Screen.File = file;
        SaveCommand(game);
        StartGame(fixture, RulesWith(""));
        OpenCommand(game);
        EXPECT_EQ(game.Pos.Board, board);
        GoFirst(game);
        EXPECT_EQ(game.Pos.Board[SquareOf("l8")], -kKing);
        EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>());
    }
}

constexpr std::string_view kStraight = "WhiteManMovement=W;E W;E | BlackManMovement=W;E W;E | "
                                       "WhiteKingMovement=W;E W;E | BlackKingMovement=W;E W;E";

TEST(PositionSetup, OpensWhereAPieceMayStand) {
    const std::tuple<std::string_view, std::string_view, bool> rows[] = {{"", "c3", true},
                                                                         {"", "e5", true},
                                                                         {"", "c4", false},
                                                                         {"PiecesOnBlack=2", "c4", false},
                                                                         {"PiecesOnBlack=2", "e5", true},
                                                                         {kStraight, "c4", true}};
    for (const auto& [rules, square, opens] : rows) {
        SCOPED_TRACE(testing::Message() << rules << " " << square);
        SessionFixture fixture;
        StartGame(fixture, rules, "W: c3; B: j8");
        fixture.Game.Variant.CustomSetup = true;
        Choose(fixture, square, std::nullopt);
        EXPECT_NE(fixture.Game.Variant.CustomSetup, opens);
        EXPECT_EQ(!fixture.Screen.SetupMarks.empty(), opens);
    }
    SessionFixture fixture;
    Session& game = fixture.Game;
    StartGame(fixture, "", "W: c3; B: j8");
    const Long view = ViewOfCell(SquareOf("c3"), 0);
    for (Long outside : {-1, 40}) SquareMouseUp(game, view, MouseButton::Right, outside, 5);
    game.Busy = true;
    SquareMouseUp(game, view, MouseButton::Right, 5, 5);
    game.Busy = false;
    game.Input.DragSource = view;
    SquareMouseUp(game, view, MouseButton::Right, 5, 5);
    EXPECT_TRUE(fixture.Screen.SetupMarks.empty());
    EXPECT_EQ(game.Pos.Board[SquareOf("c3")], kMan);
}

} // namespace
} // namespace tavlon12
