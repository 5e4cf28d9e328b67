#include "rules/board.h"

#include "rules/position.h"
#include "support/positions.h"

#include <gtest/gtest.h>

namespace tavlon12 {

namespace {

using namespace support;

constexpr std::string_view kClassic =
    "101010101010010101010101101010101010010101010101101010101010000000000000000000000000"
    "020202020202202020202020020202020202202020202020020202020202";

TEST(PositionString, RoundTripOfRandomBoards) {
    Random random(5);
    for (Long i = 0; i < 200; ++i) {
        std::string digits;
        for (std::size_t cell = 0; cell < kSquareCount; ++cell) digits += static_cast<char>('0' + Draw(random, 5));
        BoardCells board = ReadPositionString(digits);
        EXPECT_EQ(PositionString(board), digits);
        EXPECT_EQ(ReadPositionString(PositionString(board)), board);
        for (Long index = 0; index < kBoardCells; ++index) {
            EXPECT_EQ(board[index] == kBorder, !IsSquare(index)) << index;
        }
    }
}

TEST(PositionString, ShortLongAndForeignTexts) {
    EXPECT_EQ(PlacementOf(ReadPositionString("1304")), "W: a1 Kb1; B: Kd1");
    EXPECT_EQ(PlacementOf(ReadPositionString("15x2")), "W: a1; B: d1");
    EXPECT_EQ(ReadPositionString(""), EmptyBoard());
    EXPECT_EQ(ReadPositionString(std::string(kClassic) + "111111"), ClassicStart());
}

TEST(ShiftPieces, BetweenTheColoursAndBack) {
    auto position = MakePosition(RuleSet(), "W: a1 b2 Kc3 lb; B: ka");
    ShiftPieces(*position, false);
    EXPECT_EQ(PlacementOf(position->Board), "W: b1 a2 Kd3 kb; B: la");
    ShiftPieces(*position, true);
    EXPECT_EQ(PlacementOf(position->Board), "W: a1 b2 Kc3 lb; B: ka");
    position->Board = ClassicStart();
    ShiftPieces(*position, false);
    EXPECT_EQ(position->Board[kFirstSquare], kEmpty);
    EXPECT_EQ(PositionString(position->Board).substr(0, 24), "010101010101101010101010");
    ShiftPieces(*position, true);
    EXPECT_EQ(position->Board, ClassicStart());
}

TEST(MatchPiecesToColour, ByTheFirstPiece) {
    struct Row {
        const char* Changed;
        const char* Placement;
        const char* Result;
    };
    const Row rows[] = {
        {"PiecesOnBlack=0", "W: c3 e5", "W: d3 f5; B:"},
        {"PiecesOnBlack=0", "W: d3 f5", "W: d3 f5; B:"},
        {"", "W: d3 f5", "W: c3 e5; B:"},
        {"", "W: c3 e5", "W: c3 e5; B:"},
        {"PiecesOnBlack=2", "W: d3 f5", "W: c3 e5; B:"},
        {"PiecesOnBlack=0", "B: h2 Ki1", "W:; B: Kj1 g2"},
        {"", "", "W:; B:"},
    };
    for (const Row& row : rows) {
        auto position = MakePosition(RulesWith(row.Changed), row.Placement);
        MatchPiecesToColour(*position);
        EXPECT_EQ(PlacementOf(position->Board), row.Result) << row.Changed << ", " << row.Placement;
    }
}

TEST(NewPosition, OfASetup) {
    std::string setup(kSquareCount, '0');
    setup.replace(0, 3, "103");
    setup.replace(140, 4, "2024");
    for (std::string blackStarts : {"0", "1"}) {
        auto position = StartPosition(
            RulesWith("canContract=1 | ContractNumber=4 | BlackStarts=" + blackStarts + " | Setup=" + setup));
        EXPECT_EQ(PlacementOf(position->Board), "W: a1 Kc1; B: ib kb Klb") << "nothing is shifted";
        EXPECT_EQ(position->InitialBoard, position->Board);
        EXPECT_EQ(position->WhiteMen, 1);
        EXPECT_EQ(position->BlackMen, 2);
        EXPECT_EQ(position->PieceSum, 7);
        EXPECT_EQ(position->Tree.PlyMaterial[0], 700);
        EXPECT_EQ(position->Tree.SideToMove, blackStarts == "1" ? kBlack : kWhite);
        EXPECT_EQ(position->Tree.WhiteOffBoard, 4);
        EXPECT_EQ(position->Tree.BlackOffBoard, 4);
    }
}

} // namespace

} // namespace tavlon12
