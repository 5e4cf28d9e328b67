#include "support/comparison.h"

#include "rules/generate_moves.h"
#include "rules/move_scan.h"
#include "support/positions.h"
#include "support/reference_generator.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tavlon12::support {

namespace {

std::vector<ReferenceMove> MovesOfList(const Position& position) {
    std::vector<ReferenceMove> moves;
    for (Long slot = position.Tree.PlyFirstMove[position.Tree.Ply]; slot < position.Tree.NextMoveSlot; ++slot) {
        moves.push_back(AsReference(position.Moves[slot]));
    }
    return moves;
}

bool SameMultiset(std::vector<ReferenceMove> a, std::vector<ReferenceMove> b) {
    std::sort(a.begin(), a.end());
    std::sort(b.begin(), b.end());
    return a == b;
}

void CompareScan(Position& position, const ReferenceMoves& reference, Long mode) {
    BoardCells board = position.Board;
    GameTree tree = position.Tree;
    position.Fault = {};
    bool found = GenerateMoves1(position, mode);
    EXPECT_EQ(found, reference.AnyQuiet || reference.AnyCaptureLeft) << "the move scan disagrees, mode " << mode << "\n"
                                                                     << DescribePosition(position);
    EXPECT_FALSE(position.Fault.Passed());
    EXPECT_EQ(position.Board, board) << "the move scan changed the board\n" << DescribePosition(position);
    EXPECT_EQ(position.Tree.NextMoveSlot, tree.NextMoveSlot);
    EXPECT_EQ(position.Tree.PlyFirstMove, tree.PlyFirstMove);
}

} // namespace

Comparison CompareGenerators(Position& position, Long mode) {
    ReferenceMoves reference = GenerateReferenceMoves(StateOf(position), mode);
    Long first = position.Tree.PlyFirstMove[position.Tree.Ply];
    if (reference.GaveUp || first + static_cast<Long>(reference.Moves.size()) >= kMoveSlots - 1)
        return Comparison::Skipped;

    BoardCells board = position.Board;
    position.Fault = {};
    position.StopFlag = 0;
    GenerateMoves(position, mode);
    EXPECT_EQ(position.Board, board) << "the generator changed the board\n" << DescribePosition(position);
    position.Board = board;
    EXPECT_EQ(position.Tree.PlyFirstMove[position.Tree.Ply + 1], position.Tree.NextMoveSlot);

    if (reference.LongestWalk > kMaxJumps || reference.Rows > kCaptureRows) {
        EXPECT_TRUE(position.Fault.Passed()) << DescribePosition(position);
        EXPECT_EQ(MoveCount(position.Tree), 0);
        position.Fault = {};
        position.StopFlag = 0;
        return Comparison::Limit;
    }
    EXPECT_FALSE(position.Fault.Passed()) << DescribePosition(position);
    EXPECT_EQ(position.StopFlag, 0);

    std::vector<ReferenceMove> moves = MovesOfList(position);
    bool same = moves == reference.Moves;
    EXPECT_TRUE(same) << (SameMultiset(moves, reference.Moves) ? "the order differs" : "the moves differ") << ", mode "
                      << mode << "\n"
                      << DescribePosition(position) << "\ngenerated: " << MoveTexts(moves)
                      << "\nreference: " << MoveTexts(reference.Moves);
    CompareScan(position, reference, mode);
    return Comparison::Compared;
}

} // namespace tavlon12::support
