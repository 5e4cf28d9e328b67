#include "session/load_variant.h"
#include "session/program_files.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

TEST(LoadVariant, TakesRulesTextsAndStartOverOrNothing) {
    ProgramFolder folder;
    SessionFixture fixture(folder.Path);
    Position& position = *fixture.Pos;
    PlaceClassicStart(position);
    fixture.Game.Variant.VariantFile = "Test";
    fixture.Game.Variant.VariantName = "before";
    const std::filesystem::path variants = folder.Path / "variants";
    const BoardCells before = position.Board;
    WriteFile(variants / "TEST.ini", "Title\r\nMulJumps=0\r\nSetup=3001\r\nHelp=x\r\n");
    const auto failure = LoadVariant(fixture.Game, VariantPath(fixture.Game));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Message(), (variants / "TEST.ini").string() + ": ends too early: no line \"END\"");
    EXPECT_EQ(position.Board, before);
    EXPECT_EQ(fixture.Game.Variant.DefinedRules, RuleSet());
    EXPECT_EQ(fixture.Game.Variant.VariantName, "before");
    EXPECT_EQ(fixture.Game.Variant.Texts.VariantHelp, "");

    WriteFile(variants / "TEST.ini", "Title\r\nMulJumps=0\r\nSetup=3001\r\nBlackStarts=0\r\nHelp=x\r\nEND\r\n");
    ASSERT_FALSE(LoadVariant(fixture.Game, VariantPath(fixture.Game)));
    EXPECT_EQ(PositionString(position.Board), "3001" + std::string(140, '0'));
    EXPECT_EQ(position.InitialBoard, position.Board);
    EXPECT_EQ(position.WhiteMen, 1);
    EXPECT_EQ(position.PieceSum, 3);
    EXPECT_EQ(position.Tree.PlyValue[0], 300) << "White to move, three men ahead";
    EXPECT_EQ(position.Tree.GameValue[0], 300);
    EXPECT_EQ(position.Rules.MulJumps, 1) << "the rules in force are not the file's business";
    EXPECT_EQ(fixture.Game.Variant.DefinedRules.MulJumps, 0);
    EXPECT_EQ(fixture.Game.Variant.VariantName, "Test");
    EXPECT_EQ(fixture.Game.Variant.Texts.VariantHelp, "x");
}

} // namespace
} // namespace tavlon12
