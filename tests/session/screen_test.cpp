#include "session/screen.h"

#include "rules/generate_moves.h"
#include "session/reset_game.h"
#include "support/session_play.h"

#include <gtest/gtest.h>

#include <set>

namespace tavlon12 {
namespace {

TEST(Views, CoverTheBoardOnceInBothDirections) {
    for (Long turned : {0, 1}) {
        std::set<Long> cells;
        for (Long view = 0; view < 144; ++view) {
            Long cell = CellOfView(view, turned);
            ASSERT_TRUE(IsSquare(cell));
            EXPECT_EQ(ViewOfCell(cell, turned), view);
            EXPECT_EQ(CellOfView(143 - view, 1 - turned), cell);
            cells.insert(cell);
        }
        EXPECT_EQ(cells.size(), 144u);
    }
    EXPECT_EQ(CellOfView(132, 0), 29) << "not turned, a1 is bottom left";
    EXPECT_EQ(CellOfView(11, 1), 29);
}

TEST(DrawBoard, CountsThePieces) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    struct Row {
        PlacedPieces Pieces;
        Long SideToMove; ///< the one that begins
        const char* Label5;
        const char* Label6;
        bool EqualKings;
    };
    const Row rows[] = {
        {{{"A1", "C1"}, {"E1"}, {"K0"}, {}}, kWhite, "4", "1", false},
        {{{"A1", "C1"}, {"E1"}, {"K0"}, {}}, kBlack, "1", "4", false},
        {{{}, {"E1"}, {}, {"K9"}}, kWhite, "2", "2", true},
        {{{"A1", "C1"}, {}, {}, {"K9"}}, kWhite, "2", "2", false},
    };
    for (const Row& row : rows) {
        StartFrom(game, row.Pieces, row.SideToMove);
        EXPECT_EQ(fixture.Screen.Texts[Control::Label5], row.Label5);
        EXPECT_EQ(fixture.Screen.Texts[Control::Label6], row.Label6);
        EXPECT_EQ(game.EqualKingsOnly, row.EqualKings);
        EXPECT_EQ(fixture.Screen.Texts[Control::Label3], row.SideToMove == kBlack ? "Black" : "White");
        EXPECT_EQ(fixture.Screen.Texts[Control::Label4], row.SideToMove == kBlack ? "White" : "Black");
    }
    EXPECT_FALSE(fixture.Screen.Texts.contains(Control::Label12));
    game.Pos.Rules.canContract = 1;
    game.Pos.Tree.WhiteOffBoard = 3;
    game.Pos.Tree.BlackOffBoard = 2;
    DrawBoard(game, 1);
    EXPECT_EQ(fixture.Screen.Texts[Control::Label12], "2");
    EXPECT_EQ(fixture.Screen.Texts[Control::Label14], "3");
    EXPECT_EQ(fixture.Screen.BoardCalls.back(), "paint 1");
}

TEST(UpdatePlayerLabels, MarksThePlayerToMove) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.BlackPlayerName = "Ann";
    game.WhitePlayerName = "Bob";
    for (bool blackStarts : {false, true}) {
        for (bool first : {true, false}) {
            game.Pos.Rules.BlackStarts = blackStarts;
            game.Pos.Tree.SideToMove = blackStarts == first ? kBlack : kWhite;
            UpdatePlayerLabels(game);
            EXPECT_EQ(fixture.Screen.Label1ToMove, first);
            EXPECT_EQ(fixture.Screen.Texts[Control::Label1], "Ann");
            EXPECT_EQ(fixture.Screen.Texts[Control::Label2], "Bob");
        }
    }
}

TEST(UpdatePlayerLabels, LeavesAnnouncementsReadable) {
    SessionFixture fixture;
    const std::pair<const char*, const char*> rows[] = {
        {"", "Black moves"},
        {"White moves", "Black moves"},
        {"Black moves", "Black moves"},
        {"White wins!", "White wins!"},
        {"Thinking...", "Thinking..."},
    };
    fixture.Pos->Tree.SideToMove = kBlack;
    for (const auto& [before, after] : rows) {
        fixture.Screen.Status[1] = before;
        DrawBoard(fixture.Game, 0);
        EXPECT_EQ(fixture.Screen.Status[1], after);
    }
}

TEST(RedrawFromSquares, DrawsTheSquaresOfTheMovesAlone) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.BoardTurned = 0;
    StartFrom(game, {{"C3", "K1"}, {}, {"K0"}, {}});
    fixture.Screen.BoardCalls.clear();
    RedrawFromSquares(game);
    std::set<std::string> drawn(fixture.Screen.BoardCalls.begin(), fixture.Screen.BoardCalls.end());
    EXPECT_EQ(drawn, (std::set<std::string>{"square " + std::to_string(9 * 12 + 2),
                                            "square " + std::to_string(11 * 12 + 10)}));
}

TEST(ShownVariantName, MarksModifiedRules) {
    auto name = [&](auto change) {
        auto changed = std::make_unique<Position>();
        change(*changed);
        return ShownVariantName(*changed);
    };
    const std::string plain = "Canadian Checkers";
    const std::string marked = "Canadian Checkers (M)";
    EXPECT_EQ(name([](Position&) {}), plain);
    EXPECT_EQ(name([](Position& p) { p.Rules.MulJumps = 0; }), marked);
    EXPECT_EQ(name([](Position& p) { p.DefinedRules.ContractB2 = 5; }), marked);
    EXPECT_EQ(name([](Position& p) { p.Rules.BlackStarts = 1; }), marked);
    EXPECT_EQ(name([](Position& p) { p.Rules.PromoB[19] = 41; }), marked);
    EXPECT_EQ(name([](Position& p) { p.Rules.BlackKingMovement = "NW NW"; }), marked);
    EXPECT_EQ(name([](Position& p) { p.Rules.NumberFriends = -1; }), plain);
    EXPECT_EQ(name([](Position& p) { p.Rules.Setup = "1"; }), plain);
    EXPECT_EQ(name([](Position& p) { p.CustomSetup = true; }), marked);
    for (Byte RuleSet::*rule : {&RuleSet::RemoveMen, &RuleSet::DoMoves}) {
        EXPECT_EQ(name([&](Position& p) {
                      p.CustomSetup = true;
                      p.Rules.*rule = p.DefinedRules.*rule = 1;
                  }),
                  plain);
    }
    EXPECT_EQ(name([](Position& p) { p.VariantName = "Go 12X12"; }), "Go");
    EXPECT_EQ(name([](Position& p) { p.VariantName = "Go12x12"; }), "Go12x12");
    EXPECT_EQ(name([](Position& p) {
                  p.VariantName = "Go 12x12";
                  p.Rules.MulJumps = 0;
              }),
              "Go 12x12 (M)");
    EXPECT_EQ(name([](Position& p) { p.VariantName = "12x12"; }), "12x12");
}

TEST(ShowStrengthLine, TellsTheLimit) {
    SessionFixture fixture;
    ShowStrengthLine(fixture.Game);
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 9   Time: 2 sec");
    fixture.Game.Settings.Limits = {9, 20, 1, 180};
    ShowStrengthLine(fixture.Game);
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 1   Depth: 20 ply");
}

TEST(Messages, AreSilentWhenTheUserHasClosedTheProgram) {
    SessionFixture fixture;
    fixture.Game.Quitting = true;
    ShowMessage(fixture.Game, "text", "title", MessageKind::Plain);
    WaitSeconds(fixture.Game, 0.5);
    EXPECT_TRUE(fixture.Screen.Messages.empty());
    EXPECT_EQ(fixture.Screen.Waited, 0.0);
}

TEST(EndOnGeneratorFault, ShowsTheLimitAndEndsTheProgram) {
    const std::string text = "X= 20   K= 7\n\nFatal Error! Tavlon12 will exit.\n";
    const std::string advice = "\nTry to check 'Remove captured pieces after move'\nin the Variants dialog box.\n";
    for (Byte removePieces : {Byte{0}, Byte{1}}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        EXPECT_FALSE(EndOnGeneratorFault(game));
        EXPECT_EQ(fixture.Screen.Ended, 0);
        game.Pos.Rules.RemovePieces = removePieces;
        game.Pos.Fault = {GeneratorFault::Kind::Jumps, 20, 7};
        EXPECT_TRUE(EndOnGeneratorFault(game));
        EXPECT_TRUE(EndOnGeneratorFault(game)) << "told once, true always";
        ASSERT_EQ(fixture.Screen.Messages.size(), 1u);
        RecordedMessage expected = {removePieces == 1 ? text : text + advice, "Error", MessageKind::Exclamation};
        EXPECT_EQ(fixture.Screen.Messages[0], expected);
        EXPECT_EQ(fixture.Screen.Ended, 1);
        EXPECT_TRUE(game.Quitting);
        EXPECT_EQ(game.Settings.AskExit, 0);
    }
}

TEST(EndOnGeneratorFault, AGeneratorThatPassesItsLimitEndsTheGameWithItsMessage) {
    // Kings with jumped pieces passable: the number of routes passes every limit.
    SessionFixture fixture;
    Session& game = fixture.Game;
    UseRules(game.Pos, {"endless", {{"RemovePieces", "0"}, {"CapReverse", "1"}, {"MaxCapMove", "0"}}});
    game.Pos.Board = EmptyBoard();
    game.Pos.Board[29] = kKing;
    for (Long row = 3; row <= 12; row += 2) {
        for (Long column = 2; column <= 11; column += 2)
            game.Pos.Board[row * kBoardWidth + column + (row % 2 == 0)] = -kMan;
    }
    game.Pos.Tree.SideToMove = kWhite;
    const BoardCells before = game.Pos.Board;
    AdoptBoard(game.Pos);
    game.Pos.CustomSetup = true;
    EXPECT_FALSE(ResetGame(game));
    EXPECT_EQ(fixture.Screen.Messages.size(), 1u);
    EXPECT_EQ(fixture.Screen.Ended, 1);
    EXPECT_EQ(game.Pos.Board, before);
}

} // namespace
} // namespace tavlon12
