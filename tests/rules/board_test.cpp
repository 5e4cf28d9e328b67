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

TEST(PositionString, ClassicStart) {
    EXPECT_EQ(PositionString(ClassicStart()), kClassic);
    EXPECT_EQ(ReadPositionString(kClassic), ClassicStart());
}

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

TEST(BoardOf, ReadsListsAndPrintsThem) {
    BoardCells board = BoardOf("W: c3 Ke5; B: d4 Klb");
    EXPECT_EQ(board[59], 1);
    EXPECT_EQ(board[89], 2);
    EXPECT_EQ(board[74], -1);
    EXPECT_EQ(board[194], -2);
    EXPECT_EQ(PlacementOf(board), "W: c3 Ke5; B: d4 Klb");
    EXPECT_THROW(BoardOf("W: m3"), std::invalid_argument);
    EXPECT_THROW(RulesWith("NoSuchKey=1"), std::invalid_argument);
}

TEST(SquareColourShift, EverySquareLeadsToItsNeighbourInTheColumnPair) {
    for (Long piecesOnBlack : {0, 1, 2}) {
        for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
            if (!IsSquare(square)) continue;
            bool odd = (square / 14 + square % 14) % 2 == 1;
            ColourShift shift = SquareColourShift(square, piecesOnBlack);
            EXPECT_EQ(shift.SquareIsDark, odd == (piecesOnBlack != 0)) << NameOf(square);
            EXPECT_EQ(shift.Shift == 0, shift.SquareIsDark);
            Long shifted = square + shift.Shift;
            EXPECT_TRUE(SquareColourShift(shifted, piecesOnBlack).SquareIsDark) << NameOf(square);
            EXPECT_EQ((shifted % 14 - 1) / 2, (square % 14 - 1) / 2) << "another column pair: " << NameOf(square);
        }
    }
    EXPECT_EQ(SquareColourShift(2 * 14 + 2, 1).Shift, -1);
    EXPECT_FALSE(SquareColourShift(2 * 14 + 2, 2).SquareIsDark);
}

TEST(BoardKind, FollowsTheMovements) {
    struct Row {
        const char* Changed;
        Byte PiecesOnBlack;
        bool DedupCaptures;
    };
    const Row rows[] = {
        {"", 1, false},
        {"PiecesOnBlack=0", 0, false},
        {"PiecesOnBlack=2", 2, true},
        {"PiecesOnBlack=2 | LongKings=0", 2, false},
        {"BlackManMovement=NW NW;E", 2, true},
        {"PiecesOnBlack=0 | WhiteKingMovement=NE;W NE", 2, true},
        {"WhiteManMovement=NN;EE WW;N;S", 1, false},
        {"WhiteManMovement=XX;W NE", 1, false},
    };
    for (const Row& row : rows) {
        auto position = MakePosition(RulesWith(row.Changed), "");
        EXPECT_EQ(position->Rules.PiecesOnBlack, row.PiecesOnBlack) << row.Changed;
        EXPECT_EQ(position->DedupCaptures, row.DedupCaptures) << row.Changed;
    }
    auto position = MakePosition(RulesWith("PiecesOnBlack=2"), "");
    position->Rules.PiecesOnBlack = 1;
    AdoptMovements(*position);
    EXPECT_FALSE(position->DedupCaptures) << "taken back when the board is of one colour again";
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

TEST(ShiftPromotions, OntoThePlayingColour) {
    auto position = MakePosition(RulesWith("PiecesOnBlack=0"), "");
    ShiftPromotions(*position);
    const PromotionList& white = position->Rules.PromoW;
    const PromotionList& black = position->Rules.PromoB;
    EXPECT_EQ(white[0], 183);
    EXPECT_EQ(white[5], 193);
    EXPECT_EQ(black[0], 30);
    EXPECT_EQ(black[5], 40);
    EXPECT_EQ(white[6], kUnusedSlot);
    PromotionList once = white;
    ShiftPromotions(*position);
    EXPECT_EQ(position->Rules.PromoW, once) << "squares of the colour stay";
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

TEST(NewPosition, OfTheDefaultRules) {
    auto position = StartPosition(RuleSet());
    EXPECT_EQ(position->Board, ClassicStart());
    EXPECT_EQ(position->InitialBoard, ClassicStart());
    EXPECT_EQ(position->Tree.SideToMove, kWhite);
    EXPECT_EQ(position->Tree.PlyValue[0], 0);
    EXPECT_EQ(position->PieceSum, 40);
    EXPECT_EQ(position->Tree.PlyMaterial[0], 4000);
    EXPECT_EQ(position->Tree.GameMaterial[0], 4000);
    EXPECT_EQ(position->Tree.PlyFirstMove[0], 0);
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

TEST(NewPosition, OnTheOtherColour) {
    auto position = std::make_unique<Position>();
    position->Rules.PiecesOnBlack = 0;
    AdoptMovements(*position);
    PlaceClassicStart(*position);
    FinishNewPosition(*position);
    EXPECT_EQ(position->Board[30], kMan);
    EXPECT_EQ(position->Board[29], kEmpty);
    EXPECT_EQ(position->Rules.PromoW[0], 183) << "the definition was written for the other colour";
    EXPECT_EQ(position->Rules.PromoB[0], 30);

    auto asDefined = StartPosition(RulesWith("PiecesOnBlack=0 | PromoW=AbCb | PromoB=B1D1"));
    EXPECT_EQ(asDefined->Rules.PromoW[0], 183) << "written for this colour";
    EXPECT_EQ(asDefined->Board, position->Board);
}

} // namespace

} // namespace tavlon12
