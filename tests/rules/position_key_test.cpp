#include "rules/position_key.h"

#include "rules/position.h"
#include "support/positions.h"

#include <gtest/gtest.h>
#include <vector>

namespace tavlon12 {

namespace {

using namespace support;

TEST(PositionKey, IdentifiesThePlacementExactly) {
    EXPECT_EQ(KeyOf(EmptyBoard()), PositionKey());
    std::vector<PositionKey> keys = {KeyOf(EmptyBoard())};
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        if (!IsSquare(square)) continue;
        for (Long piece : {1, 2, -1, -2}) {
            BoardCells board = EmptyBoard();
            board[square] = piece;
            keys.push_back(KeyOf(board));
        }
    }
    for (std::size_t a = 0; a < keys.size(); ++a) {
        for (std::size_t b = a + 1; b < keys.size(); ++b) ASSERT_FALSE(keys[a] == keys[b]) << a << " and " << b;
    }
}

TEST(FindRepetition, CountsTheKeysUpToTheIndex) {
    auto position = MakePosition(RuleSet(), "W: c3; B: d8", kWhite);
    PositionKey here = KeyOf(position->Board);
    PositionKey other = KeyOf(BoardOf("W: c3; B: e7"));
    const PositionKey keys[] = {here, other, here, other, here};
    for (Long i = 0; i < 5; ++i) position->PositionKeys[i] = keys[i];
    const Long counts[] = {0, 1, 1, 2, 2, 3}; // for the index -1 and on
    for (Long index = -1; index < 5; ++index) {
        EXPECT_EQ(FindRepetition(*position, index).RepeatCount, counts[index + 1]) << index;
    }
    position->Tree.SideToMove = kBlack;
    EXPECT_EQ(FindRepetition(*position, 4).RepeatCount, 3) << "the side to move is no part of the key";
}

TEST(FindRepetition, OneKingEach) {
    struct Row {
        const char* Placement;
        bool Found;
    };
    const Row rows[] = {
        {"W: Kc3; B: Kd8", true},
        {"W: a1 c3; B: Kd8", false},
        {"W: Ka1 Kc3; B: Kd8", false},
        {"", false},
    };
    for (const Row& row : rows) {
        auto position = MakePosition(RuleSet(), row.Placement);
        EXPECT_EQ(FindRepetition(*position, -1).KingsOnlyFound, row.Found) << row.Placement;
    }
}

} // namespace

} // namespace tavlon12
