#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "rules/move_scan.h"
#include "support/positions.h"

#include <gtest/gtest.h>

// Positions in which the number of routes explodes: a passed limit is told, the board is whole and nothing hangs.

namespace tavlon12 {

namespace {

using namespace support;

/// Black men between the nodes of a grid, two squares apart, from a1 on: every jump leads from node to node.
BoardCells GridOfMen(Long columns, Long rows) {
    BoardCells board = EmptyBoard();
    for (Long row = 0; row < 2 * rows - 1; ++row) {
        for (Long column = 0; column < 2 * columns - 1; ++column) {
            if ((row + column) % 2 == 1) board[kFirstSquare + kBoardWidth * row + column] = -kMan;
        }
    }
    return board;
}

constexpr const char* kStraight = "MaxCapMove=0 | LongKings=0 | WhiteManMovement=NW;NE W;N;E;S";

// 20 men in eight directions: over five million ways through the same few sets of pieces.
constexpr const char* kManyRoutes = "W: Ka1; B: b1 d1 b2 c2 d2 e2 d3 a4 b4 d4 e4 b5 d5 a6 b6 c6 d6 e6 b7 d7";
constexpr const char* kAllWays = "KingFirst=1 | PiecesOnBlack=2 | WhiteKingMovement=NW NW;NE;SE;SW;W;N;E;S";

void ExpectLimit(Position& position, GeneratorFault::Kind kind) {
    BoardCells board = position.Board;
    GenerateMoves(position, 0);
    EXPECT_EQ(position.Fault.Limit, kind);
    EXPECT_EQ(position.StopFlag, kStopCancel);
    EXPECT_EQ(MoveCount(position.Tree), 0);
    EXPECT_EQ(position.Tree.PlyFirstMove[position.Tree.Ply + 1], position.Tree.PlyFirstMove[position.Tree.Ply]);
    EXPECT_EQ(position.Board, board);
    GeneratorFault fault = position.Fault;

    position.Fault = {};
    position.StopFlag = 0;
    GenerateMoves1(position, -1);
    EXPECT_EQ(position.Fault.Limit, kind) << "the move scan";
    EXPECT_EQ(position.Fault.Depth, fault.Depth);
    EXPECT_EQ(position.Fault.Rows, fault.Rows);
    EXPECT_EQ(position.StopFlag, kStopCancel);
    EXPECT_EQ(position.Board, board);

    position.Fault = {};
    position.StopFlag = 0;
    EXPECT_EQ(GenerateLegalMoves(position), 0);
    EXPECT_TRUE(position.Fault.Passed());
}

TEST(Limits, TooManyJumps) {
    BoardCells board = GridOfMen(6, 6);
    board[kFirstSquare] = kMan;
    auto position = MakePosition(RulesWith(kStraight), board);
    ExpectLimit(*position, GeneratorFault::Kind::Jumps);
    EXPECT_EQ(position->Fault.Depth, kMaxJumps);
}

TEST(Limits, TooManyRows) {
    BoardCells board = GridOfMen(4, 4);
    board[kFirstSquare] = kMan;
    auto position = MakePosition(RulesWith(kStraight), board);
    ExpectLimit(*position, GeneratorFault::Kind::Rows);
    EXPECT_EQ(position->Fault.Rows, kCaptureRows);
}

TEST(Limits, TooManyRoutes) {
    auto position = MakePosition(RulesWith(kAllWays), kManyRoutes);
    ExpectLimit(*position, GeneratorFault::Kind::Work);
}

TEST(Limits, AFullListKeepsTheFirstMovesAndStops) {
    auto position = MakePosition(RuleSet(), "W: Ka1");
    GameTree& tree = position->Tree;
    tree.Ply = 1;
    tree.PlyFirstMove[1] = 996;
    GenerateMoves(*position, 1); // 11 moves, 4 of them fit before the last slot
    EXPECT_EQ(position->StopFlag, 1);
    EXPECT_EQ(tree.NextMoveSlot, 1000);
    EXPECT_EQ(tree.PlyFirstMove[2], 1000);
    EXPECT_EQ(MoveTexts(*position), "a1-b2 a1-c3 a1-d4 a1-e5");
    EXPECT_EQ(MoveText(position->Moves[1000]), "a1-lb");

    position->StopFlag = 0;
    tree.PlyFirstMove[1] = 989; // the 11 moves fit exactly
    GenerateMoves(*position, 1);
    EXPECT_EQ(position->StopFlag, 0);
    EXPECT_EQ(MoveCount(tree), 11);

    position = MakePosition(RuleSet(), "W: c3; B: d4 e5");
    position->Tree.PlyFirstMove[0] = 999;
    GenerateMoves(*position, 1); // its only step fits, and the blocked one asks for no room
    EXPECT_EQ(position->StopFlag, 0);
    EXPECT_EQ(MoveTexts(*position), "c3-b4");
}

TEST(Limits, WhatWasFoundBeforeIsForgotten) {
    auto position = MakePosition(RulesWith("LastCap=1 | MaxCapMove=0 | CapRequired=0"), "W: c3; B: d4 f6");
    GameTree& tree = position->Tree;
    tree.TreeTo[tree.TreeIndex] = kFirstSquare + 3 * kBoardWidth + 3;
    position->JumpLimit = 1;
    ExpectLimit(*position, GeneratorFault::Kind::Work);

    position->Fault = {};
    position->StopFlag = 0;
    position->JumpLimit = kRootJumps;
    tree.TreeTo[tree.TreeIndex] = 0;
    GenerateMoves(*position, 0);
    EXPECT_EQ(MoveTexts(*position), "c3-b4 c3xg7(d4,f6)");
}

} // namespace

} // namespace tavlon12
