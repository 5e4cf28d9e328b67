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
    const std::string plain = "Canadian Checkers";
    const std::string marked = "Canadian Checkers (M)";
    struct Row {
        void (*Change)(VariantState& variant, RuleSet& rules);
        std::string Name;
    };
    const Row rows[] = {
        {[](VariantState&, RuleSet&) {}, plain},
        {[](VariantState&, RuleSet& r) { r.MulJumps = 0; }, marked},
        {[](VariantState& v, RuleSet&) { v.DefinedRules.ContractB2 = 5; }, marked},
        {[](VariantState&, RuleSet& r) { r.BlackStarts = 1; }, marked},
        {[](VariantState&, RuleSet& r) { r.NumberFriends = -1; }, plain},
        {[](VariantState&, RuleSet& r) { r.Setup = "1"; }, plain},
        {[](VariantState& v, RuleSet&) { v.CustomSetup = true; }, marked},
        {[](VariantState& v, RuleSet& r) { v.CustomSetup = true, r.RemoveMen = v.DefinedRules.RemoveMen = 1; }, plain},
        {[](VariantState& v, RuleSet& r) { v.CustomSetup = true, r.DoMoves = v.DefinedRules.DoMoves = 1; }, plain},
        {[](VariantState& v, RuleSet&) { v.VariantName = "Go 12X12"; }, "Go"},
        {[](VariantState& v, RuleSet&) { v.VariantName = "Go12x12"; }, "Go12x12"},
        {[](VariantState& v, RuleSet& r) { v.VariantName = "Go 12x12", r.MulJumps = 0; }, "Go 12x12 (M)"},
    };
    for (const Row& row : rows) {
        VariantState variant;
        RuleSet rules;
        row.Change(variant, rules);
        EXPECT_EQ(ShownVariantName(variant, rules), row.Name) << &row - rows;
    }
}

TEST(AskYesNo, TheTimeOfABoxIsNoneOfThinking) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Port.Dialogs.AskYesNo = [&](const std::string&, const std::string&) { return (fixture.Screen.Now += 9) > 0; };
    for (bool busy : {false, true}) {
        game.Busy = busy;
        EXPECT_TRUE(AskYesNo(game, "", ""));
        EXPECT_EQ(game.BoxSeconds, busy ? 9 : 0);
    }
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
