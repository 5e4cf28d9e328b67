#include "rules/board.h"

#include "rules/position.h"
#include "rules/position_key.h"
#include "support/positions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

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
    EXPECT_EQ(ReadPositionString(std::string(kClassic) + "111111"), ClassicStart());
}

TEST(ShiftPieces, BetweenTheColoursAndBack) {
    auto position = MakePosition(RuleSet(), "W: a1 b2 Kc3 lb; B: ka");
    ShiftPieces(*position, false);
    EXPECT_EQ(PlacementOf(position->Board), "W: b1 a2 Kd3 kb; B: la");
    ShiftPieces(*position, true);
    EXPECT_EQ(PlacementOf(position->Board), "W: a1 b2 Kc3 lb; B: ka");
}

TEST(MatchPiecesToColour, ByTheFirstPiece) {
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"PiecesOnBlack=0", "W: c3 e5", "W: d3 f5; B:"},
        {"PiecesOnBlack=0", "W: d3 f5", "W: d3 f5; B:"},
        {"", "W: d3 f5", "W: c3 e5; B:"},
        {"", "W: c3 e5", "W: c3 e5; B:"},
        {"PiecesOnBlack=2", "W: d3 f5", "W: c3 e5; B:"},
        {"PiecesOnBlack=0", "B: h2 Ki1", "W:; B: Kj1 g2"},
        {"", "", "W:; B:"},
    };
    for (const auto& [changed, placement, result] : rows) {
        auto position = MakePosition(RulesWith(changed), placement);
        MatchPiecesToColour(*position);
        EXPECT_EQ(PlacementOf(position->Board), result) << changed << ", " << placement;
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
        EXPECT_EQ(position->WhiteMen, 1);
        EXPECT_EQ(position->BlackMen, 2);
        EXPECT_EQ(position->Tree.PlyMaterial[0], 700);
        EXPECT_EQ(position->Tree.SideToMove, blackStarts == "1" ? kBlack : kWhite);
        EXPECT_EQ(position->Tree.WhiteOffBoard, 4);
        EXPECT_EQ(position->Tree.BlackOffBoard, 4);
    }
}

TEST(PositionKey, IdentifiesThePlacementExactly) {
    EXPECT_EQ(KeyOf(EmptyBoard()), PositionKey());
    std::vector<PositionKey> keys = {KeyOf(EmptyBoard())};
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        for (Long piece : {1, 2, -1, -2}) {
            BoardCells board = EmptyBoard();
            if (!IsSquare(square)) continue;
            board[square] = piece;
            keys.push_back(KeyOf(board));
            ASSERT_EQ(std::count(keys.begin(), keys.end(), keys.back()), 1) << NameOf(square) << piece;
        }
    }
}

TEST(FindRepetition, CountsTheKeysUpToTheIndex) {
    auto position = MakePosition(RuleSet(), "W: c3; B: d8", kWhite);
    PositionKey here = KeyOf(position->Board);
    PositionKey other = KeyOf(BoardOf("W: c3; B: e7"));
    const PositionKey keys[] = {here, other, here, other, here};
    for (Long i = 0; i < 5; ++i) position->PositionKeys.Set(i, keys[i]);
    const Long counts[] = {0, 1, 1, 2, 2, 3}; // for the index -1 and on
    for (Long index = -1; index < 5; ++index) {
        EXPECT_EQ(FindRepetition(*position, index).RepeatCount, counts[index + 1]) << index;
    }
    position->Tree.SideToMove = kBlack;
    EXPECT_EQ(FindRepetition(*position, 4).RepeatCount, 3) << "the side to move is no part of the key";
}

TEST(FindRepetition, OneKingEach) {
    const std::pair<const char*, bool> rows[] = {
        {"W: Kc3; B: Kd8", true}, {"W: a1 c3; B: Kd8", false}, {"W: Ka1 Kc3; B: Kd8", false}, {"", false}};
    for (const auto& [placement, found] : rows)
        EXPECT_EQ(FindRepetition(*MakePosition(RuleSet(), placement), -1).KingsOnlyFound, found) << placement;
}

} // namespace

} // namespace tavlon12
