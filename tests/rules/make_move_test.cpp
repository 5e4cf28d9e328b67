#include "rules/make_move.h"

#include "rules/generate_moves.h"
#include "support/positions.h"
#include "support/reference_generator.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tavlon12 {

namespace {

using namespace support;

/// All that a move and its taking back must leave in order: the present state and everything below it on the stacks.
struct Snapshot {
    BoardCells Board;
    BoardCells InitialBoard;
    tavlon12::Sums Sums;
    GameTree Tree;
    RuleSet Rules;

    explicit Snapshot(const Position& position)
        : Board(position.Board), InitialBoard(position.InitialBoard), Sums(position.Sums), Tree(position.Tree),
          Rules(position.Rules) {}
};

void ExpectSame(const Position& position, const Snapshot& before) {
    const GameTree& now = position.Tree;
    const GameTree& was = before.Tree;
    EXPECT_EQ(position.Board, before.Board) << PlacementOf(position.Board) << " was " << PlacementOf(before.Board);
    EXPECT_EQ(position.InitialBoard, before.InitialBoard);
    EXPECT_TRUE(position.Sums == before.Sums);
    EXPECT_EQ(position.Rules, before.Rules);
    const auto numbers = [](const GameTree& tree) {
        return std::tie(tree.Ply, tree.TreeIndex, tree.SideToMove, tree.WhiteOffBoard, tree.BlackOffBoard);
    };
    EXPECT_EQ(numbers(now), numbers(was));
    // Entries above the current ply and half-move are stale and play no part.
    const auto expectSame = [&](auto stack, Long last) {
        EXPECT_TRUE(std::equal((was.*stack).begin(), (was.*stack).begin() + last + 1, (now.*stack).begin()));
    };
    for (auto stack : {&GameTree::PlyFirstMove, &GameTree::PlyValue, &GameTree::PlyMaterial, &GameTree::PlyLastTo,
                       &GameTree::PlyForcing})
        expectSame(stack, was.Ply);
    for (auto stack : {&GameTree::TreeTo, &GameTree::TreeLastMan, &GameTree::TreeKingMan})
        expectSame(stack, was.TreeIndex);
}

/// Worth of the pieces on the board: White's with this factor, Black's with that.
Long WorthOf(const BoardCells& board, Long white, Long black) {
    Long sum = 0;
    for (Long cell : board)
        if (IsLivePiece(cell)) sum += Magnitude(cell) * (cell > 0 ? white : black);
    return 100 * sum;
}

/// These rules change the kept balance by fixed amounts instead of by what happens on the board.
bool BalanceEqualsTheBoard(const RuleSet& rules) {
    return rules.KingMan != 1 && rules.ChangeSide != 1 && rules.canContract != 1;
}

/// Makes the move and checks the board and counts against the reference.
void MakeAndCheck(Position& position, Long slot) {
    ReferenceState expected = AfterMove(StateOf(position), AsReference(position.Moves[slot]), position.LastCapAnyPly);
    std::string text = MoveText(position.Moves[slot]);
    PerformMove(position, slot);
    const GameTree& tree = position.Tree;
    EXPECT_EQ(PlacementOf(position.Board), PlacementOf(expected.Board)) << "after " << text;
    EXPECT_TRUE(SumsMatchBoard(position)) << "after " << text;
    EXPECT_EQ(tree.SideToMove, expected.SideToMove);
    EXPECT_EQ(tree.WhiteOffBoard, expected.OffBoard[0]);
    EXPECT_EQ(tree.BlackOffBoard, expected.OffBoard[1]);
    EXPECT_EQ(tree.TreeTo[tree.TreeIndex], expected.LastTo);
    EXPECT_EQ(tree.PlyLastTo[tree.Ply], expected.LastTo);
    bool forcing = position.Moves[slot].IsCapture() || position.Moves[slot].Promotes != 0;
    EXPECT_EQ(tree.PlyForcing[tree.Ply], forcing ? 1 : 0);
    if (BalanceEqualsTheBoard(position.Rules)) {
        EXPECT_EQ(tree.PlyValue[tree.Ply], WorthOf(position.Board, tree.SideToMove, -tree.SideToMove))
            << "after " << text;
        EXPECT_EQ(tree.PlyMaterial[tree.Ply], WorthOf(position.Board, 1, 1)) << "after " << text;
    }
}

/// Gives every piece on every square a worth of its own.
void DrawTerms(Position& position, Random& random) {
    for (auto& squares : position.TermsOfPieces) {
        for (PieceTerms& terms : squares) terms = {Draw(random, 1000), Draw(random, 1000)};
    }
    RecountPieces(position);
}

/// Counts the board for the root, as a set-up of the classic start leaves a sum that is not the board's.
void CountRoot(Position& position) {
    position.Tree.PlyValue[0] = WorthOf(position.Board, position.Tree.SideToMove, -position.Tree.SideToMove);
    position.Tree.PlyMaterial[0] = WorthOf(position.Board, 1, 1);
}

/// One line of random moves without accepting any, and all the way back.
void DownAndUp(Position& position, Long depth, Random& random) {
    struct Made {
        Long Slot;
        Snapshot Before;
    };
    std::vector<Made> line;
    while (static_cast<Long>(line.size()) < depth && position.Tree.NextMoveSlot < 800) {
        // Captures may also be played where they are not the only legal moves.
        GenerateMoves(position, DrawOneIn(random, 4) ? 1 : 0);
        if (MoveCount(position.Tree) == 0) GenerateMoves(position, 1);
        Long count = MoveCount(position.Tree);
        if (count == 0 || position.Fault.Passed()) break;
        Long slot = position.Tree.PlyFirstMove[position.Tree.Ply] + Draw(random, count);
        line.push_back({slot, Snapshot(position)});
        MakeAndCheck(position, slot);
        if (::testing::Test::HasFailure()) return;
    }
    for (; !line.empty(); line.pop_back()) {
        TakeBackMove(position, line.back().Slot);
        ExpectSame(position, line.back().Before);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(MakeMove, RandomGamesUnderRandomRules) {
    for (Long seed = 1; seed <= Scaled(2500) && !HasFailure(); ++seed) {
        Random random(static_cast<std::uint64_t>(seed));
        RuleSet rules = RandomRules(random);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", " + ChangedKeys(rules));
        auto position = StartPosition(rules);
        if (DrawOneIn(random, 2)) PlacePiecesAtRandom(*position, random);
        PlayAtRandom(*position, Draw(random, 40), random);
        if (position->Fault.Passed()) continue;
        CountRoot(*position);
        DrawTerms(*position, random);
        DownAndUp(*position, 40, random);
    }
}

struct AfterRow {
    const char* Changed;
    const char* Placement;
    const char* Move; ///< as `MoveText` has it
    Long Value;       ///< change of the balance, seen from the opponent of the mover
    Long Material;    ///< change of the sum
};

TEST(MakeMove, FixedAmountsOfTheBalance) {
    const AfterRow rows[] = {
        {"", "W: ga; B: h8", "ga-fb=K", -100, 100},
        {"KingMan=1", "W: Ka1; B: h8", "a1-b2", 0, 0},
        {"KingMan=1 | KingFirst=1", "W: Ke5; B: d6 d8 f8 f6 l2", "e5xe5(d6,d8,f8,f6)", -400, -400},
        {"ChangeSide=1", "W: ga; B: h8", "ga-fb=K", 100, 100},
        {"ManKing=1", "W: a1; B: h8", "a1-b2", 100, 100},
        {"canContract=1 | ContractNumber=3 | ContractW1=2 | ContractW2=2", "W:; B: h8", "@c1", 0, 0},
    };
    for (const AfterRow& row : rows) {
        SCOPED_TRACE(std::string(row.Changed) + " " + row.Move);
        auto position = MakePosition(RulesWith(row.Changed), row.Placement);
        position->Tree.PlyValue[0] = 1000;
        position->Tree.PlyMaterial[0] = 5000;
        GenerateMoves(*position, 1);
        Long slot = 0;
        while (slot < position->Tree.NextMoveSlot && MoveText(position->Moves[slot]) != row.Move) ++slot;
        ASSERT_LT(slot, position->Tree.NextMoveSlot) << "among " << MoveTexts(*position);
        PerformMove(*position, slot);
        EXPECT_EQ(position->Tree.PlyValue[1], -1000 + row.Value);
        EXPECT_EQ(position->Tree.PlyMaterial[1], 5000 + row.Material);
    }
}

// A game may run to its 1000th half-move and the search still looks ahead from there.
TEST(MakeMove, AtTheEndOfAFullGame) {
    auto position = MakePosition(RuleSet(), "W: Ka1; B: Kb0 d0");
    position->Tree.TreeIndex = kMaxHalfMoves;
    Random random(3);
    CountRoot(*position);
    DownAndUp(*position, kMaxPly - 1, random);
    EXPECT_EQ(position->Tree.TreeIndex, kMaxHalfMoves);
}

} // namespace

} // namespace tavlon12
