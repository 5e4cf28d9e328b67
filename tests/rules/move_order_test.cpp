#include "rules/generate_moves.h"
#include "rules/move_scan.h"
#include "support/positions.h"

#include <gtest/gtest.h>

// One row per rule: the moves in the order of the list. Moves are written as `MoveText` has them.

namespace tavlon12 {

namespace {

using namespace support;

constexpr Long kLegal = 99; ///< the legal moves: mode 0, and mode 1 when nothing came

struct MoveRow {
    const char* Name;
    const char* Changed; ///< rule keys
    const char* Placement;
    const char* Moves;
    Long Side = kWhite;
    Long Mode = kLegal;
    const char* LastMove = ""; ///< square of the piece moved last
};

const MoveRow kRows[] = {
    // Order and modes
    {"BlackMovesDownWithItsOwnLeftFirst", "", "B: e5 g7", "e5-f4 e5-d4 g7-h6 g7-f6", kBlack},
    {"QuietMovesBeforeCaptures", "MaxCapMove=0 | CapRequired=0", "W: a1 e3; B: d4", "a1-b2 e3-f4 e3xc5(d4)"},
    {"ModeOneGivesAllThoughCapturesAreRequired", "", "W: c3 i3; B: d4", "c3-b4 i3-h4 i3-j4 c3xe5(d4)", kWhite, 1},
    {"ModeZeroGivesCaptures", "", "W: c3 i3; B: d4", "c3xe5(d4)", kWhite, 0},

    // Men
    {"AnUnknownWordEndsTheList", "WhiteManMovement=NE;XX;NW NE", "W: c3", "c3-d4"},
    {"MenThatMustNotTakeKings", "ManCapKing=0", "W: c3; B: Kd4", "c3-b4"},
    {"NoStepAroundTheEdge", "WhiteManMovement=NW;NE EE;NE", "W: j3 l5; B: l3", "j3-i4 j3-k4 l5-k6"},
    {"AManWalksInACircle", "", "W: e5; B: d6 d8 f8 f6", "e5xe5(d6,d8,f8,f6) e5xe5(f6,f8,d8,d6)"},

    // Flying kings
    {"JumpedPiecesBlock", "KingFirst=1", "W: Ke5; B: d6 d8 f8 f6 b8",
     "e5xe5(d6,d8,f8,f6) e5xa9(f6,f8,d8,b8) e5xe5(f6,f8,d8,d6)"},
    {"NoLandingOnAJumpedPiece", "KingFirst=1 | CapReverse=1 | RemovePieces=0 | MaxCapMove=0 | MaxCapMoveK=0",
     "W: Kc3; B: d4 f6", "c3xg7(d4,f6)"},
    // Promotion
    {"CrownedOnTheWayItFlies", "ManContJumpCrowned=1", "W: d0 k7; B: ea h0", "d0xi9(ea,h0)=K d0xj8(ea,h0)=K"},
    {"TheNextWalkStartsFromTheManAgain", "ManContJumpCrowned=1 | MaxCapMove=0", "W: d0; B: ea e9 h6",
     "d0xfb(ea)=K d0xf8(e9)"},
    // Men that capture along lines
    {"WithoutLongKingsTheFirstLandingStandsForAll", "ManCapMoveKing=1 | LongKings=0", "W: a1 g7; B: d4",
     "a1xe5(d4) g7xc3(d4)"},

    // Which captures stay
    {"MostKingsAsksForMostPieces", "MaxCapMove=0 | MaxCapMoveKings=1", "W: c3 i3; B: d4 Kj4", "c3xe5(d4) i3xk5(Kj4)"},
    {"TheManKeepsItsCaptureBesideTheKings", "KingFirst=1 | KingCapMove=1 | MaxCapMoveKings=1", "W: c3 Kk1; B: d4 j2",
     "k1xi3(j2) c3xe5(d4)"},
    {"TheSameStageCrownedOnTheWayOrNot",
     "MulJumps=0 | MaxCapMove=0 | ManCapMoveKing=1 | ManContJumpCrowned=1 | PromoW=C3", "W: a1; B: b2 e5 g7 h8",
     "a1xf6(b2,e5)=K a1xc3(b2)=K a1xf6(b2,e5) a1xd4(b2)"},
    {"ShorterAfterTheLongerIsDropped", "MaxCapMove=0", "W: Ka1 g7; B: c3 e3", "a1xf2(c3,e3) a1xg1(c3,e3)"},
    {"RoutesCountOnceWhereAllSquaresArePlayed", "KingFirst=1 | PiecesOnBlack=2", "W: Ke5; B: d6 d8 f8 f6",
     "e5xe5(d6,f6,d8,f8)"},

    // The piece moved last
    {"OnlyTheFirstWayOnStays", "LastCap=1", "W: c3; B: d4 d6 f6", "c3xc7(d4,d6)", kWhite, kLegal, "d4"},
    {"ItTakesTheQuietMovesAway", "LastCap=1 | MaxCapMove=0 | CapRequired=0", "W: a1 c3; B: d4", "c3xe5(d4)", kWhite, 0,
     "d4"},
    {"TheShorterCaptureOfItMakesNothingLegal", "LastCap=1", "W: a1 i1; B: b2 d4 j2", "i1-h2", kWhite, kLegal, "j2"},

    // Leaps over friends
    {"OverExactlyTwo", "JumpFriend=1 | NumberFriends=2", "W: a1 b2 c3", "a1-d4 b2-a3 c3-b4 c3-d4"},
    {"FlyingKingsDoNotLeap", "JumpFriend=1 | NumberFriends=-1", "W: Ka1 Kb2 d4 a3", "b2-c3 b2-c1 a3-b4 d4-c5 d4-e5"},
    {"LeapingOntoAPromotionSquare", "JumpFriend=1 | NumberFriends=1", "W: h0 ia", "h0-ga h0-jb=K ia-hb=K ia-jb=K"},
    {"ALeapKnowsTwelvePromotionSquares", "JumpFriend=1 | NumberFriends=1 | PromoW=A1B1C1D1E1F1G1H1I1J1K1L1Jb",
     "W: h0 ia", "h0-ga h0-jb ia-hb ia-jb=K"},
    // Pieces off the board
    {"WhitePlacesWhereTheColumnIsFree",
     "canContract=1 | ContractNumber=1 | ContractW1=2 | ContractW2=4 | ContractB1=13 | ContractB2=11",
     "W: a1 h2; B: e3", "a1-b2 @c1 @g1 @i1 @k1 h2-g3 h2-i3"},
};

class MoveOrder : public ::testing::TestWithParam<MoveRow> {};

void PrintTo(const MoveRow& row, std::ostream* stream) {
    *stream << row.Name;
}

TEST_P(MoveOrder, MatchesTheRow) {
    const MoveRow& row = GetParam();
    auto position = MakePosition(RulesWith(row.Changed), row.Placement, row.Side);
    if (*row.LastMove != '\0') SetLastMove(*position, row.LastMove);
    BoardCells board = position->Board;
    if (row.Mode == kLegal) {
        GenerateLegalMoves(*position);
    } else {
        GenerateMoves(*position, row.Mode);
    }
    EXPECT_EQ(MoveTexts(*position), row.Moves) << DescribePosition(*position);
    EXPECT_EQ(position->Board, board);
    EXPECT_EQ(position->StopFlag, 0);
    bool anyMove = *row.Moves != '\0';
    EXPECT_EQ(GenerateMoves1(*position, row.Mode == kLegal ? 1 : row.Mode), anyMove);
}

INSTANTIATE_TEST_SUITE_P(Rows, MoveOrder, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.Name); });

// The rule on the piece moved last holds at the root, and below it only where the user's replies are wanted.
TEST(LastCap, BelowTheRoot) {
    auto position = MakePosition(RulesWith("LastCap=1"), "W: c3 i3; B: d4 j4");
    SetLastMove(*position, "j4");
    position->Tree.Ply = 1;
    GenerateMoves(*position, 0);
    EXPECT_EQ(MoveTexts(*position), "c3xe5(d4) i3xk5(j4)");
    position->LastCapAnyPly = true;
    GenerateMoves(*position, 0);
    EXPECT_EQ(MoveTexts(*position), "i3xk5(j4)");
}

// A capture that takes the quiet moves away may itself be dropped; the scan has stopped at the quiet move by then.
TEST(MoveScan, StopsAtTheQuietMove) {
    auto position = MakePosition(RulesWith("LastCap=1 | CapRequired=0"), "W: a1 i1; B: b2 d4 j2");
    SetLastMove(*position, "j2");
    GenerateMoves(*position, 0);
    EXPECT_EQ(MoveTexts(*position), "");
    EXPECT_TRUE(GenerateMoves1(*position, 0));
    EXPECT_FALSE(GenerateMoves1(*position, -1));
}

} // namespace

} // namespace tavlon12
