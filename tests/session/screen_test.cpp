#include "session/screen.h"

#include "support/session_fixture.h"

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
}

TEST(ShowStrengthLine, TellsTheLimit) {
    SessionFixture fixture;
    ShowStrengthLine(fixture.Game);
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 9   Time: 2 sec");
    fixture.Game.Settings.Limits = {9, 20, 1, 180};
    ShowStrengthLine(fixture.Game);
    EXPECT_EQ(fixture.Screen.StrengthLine, "Strength: 1   Depth: 20 ply");
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
        game.Pos.Fault = {GeneratorFault::Kind::Jumps, false, 20, 7};
        EXPECT_TRUE(EndOnGeneratorFault(game));
        EXPECT_TRUE(EndOnGeneratorFault(game)) << "told once, true always";
        ASSERT_EQ(fixture.Screen.Messages.size(), 1u);
        RecordedMessage expected = {removePieces == 1 ? text : text + advice, "Error", MessageKind::Exclamation};
        EXPECT_EQ(fixture.Screen.Messages[0], expected);
        EXPECT_EQ(fixture.Screen.Ended, 1);
        EXPECT_TRUE(game.Quitting);
    }
}

} // namespace
} // namespace tavlon12
