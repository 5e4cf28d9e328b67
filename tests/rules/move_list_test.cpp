#include "rules/move_list.h"
#include "rules/register_moves.h"

#include "rules/generate_moves.h"
#include "support/positions.h"

#include <gtest/gtest.h>

namespace tavlon12 {

namespace {

using namespace support;

CapturePath PathOf(std::initializer_list<std::pair<const char*, Long>> pieces) {
    CapturePath path;
    for (const auto& [square, magnitude] : pieces) path.Add(SquareOf(square), magnitude);
    return path;
}

SquarePair PairOf(const char* from, const char* to) {
    return {SquareOf(from), SquareOf(to)};
}

// Two captures and two quiet moves at ply 3, scored under what the search remembers there.
TEST(SortScore, Rows) {
    struct Row {
        const char* Name;
        const char* From;
        const char* To;
        CapturePath Captures;
        Long Score;
    };
    const CapturePath man = PathOf({{"d4", kMan}});
    const Row rows[] = {
        {"quiet", "a1", "b2", {}, 0},
        {"quiet, on the best line", "c1", "d2", {}, 500},
        {"quiet, first killer", "e1", "f2", {}, 250},
        {"quiet, second killer", "g1", "h2", {}, 150},
        {"a man takes a man", "a1", "b4", man, 50},
        {"a man takes a king", "a1", "b4", PathOf({{"d4", kKing}}), 150},
        {"a king takes a man", "l2", "b4", man, 0},
        {"a king takes three men and a king", "l2", "b4", PathOf({{"d4", 1}, {"d6", 1}, {"f6", 2}, {"f8", 1}}), 400},
        {"a man comes back to where the own last move ended", "a1", "l6", man, 350},
        {"a quiet move to there", "a1", "l6", {}, 0},
        {"on the best line", "c1", "d2", man, 550},
        {"first killer", "e1", "f2", man, 300},
        {"second killer", "g1", "h2", man, 200},
        {"first killer, to where the last move ended", "i1", "l6", man, 600},
        {"the best line goes before the killer", "k1", "l8", man, 550},
    };
    for (const Row& row : rows) {
        auto position = MakePosition(RuleSet(), "W: a1 c1 e1 g1 i1 k1 Kl2");
        GameTree& tree = position->Tree;
        tree.Ply = 3;
        tree.PlyFirstMove[3] = 10;
        tree.NextMoveSlot = 10;
        tree.PlyLastTo[2] = SquareOf("l6");
        tree.PlyLastTo[3] = SquareOf("b4"); // the opponent's move into this ply plays no part
        bool takeBack = std::string_view(row.From) == "i1";
        bool both = std::string_view(row.From) == "k1";
        SquarePair first = takeBack ? PairOf("i1", "l6") : both ? PairOf("k1", "l8") : PairOf("e1", "f2");
        SquarePair best = both ? PairOf("k1", "l8") : PairOf("c1", "d2");
        position->Killers[3] = {first, PairOf("g1", "h2")};
        position->Killers[2] = {PairOf("a1", "b2"), PairOf("a1", "b4")};
        position->BestLine[0][3] = {best.From, best.To, 0};
        position->BestLine[3][3] = {SquareOf("a1"), SquareOf("b2"), 0};
        if (row.Captures.Count == 0) {
            RegisterMove(*position, SquareOf(row.From), SquareOf(row.To));
        } else {
            RegisterCaptureMove(*position, SquareOf(row.From), SquareOf(row.To), row.Captures);
        }
        const MoveRecord& move = position->Moves[10];
        EXPECT_EQ(move.SortScore, row.Score) << row.Name;
        EXPECT_EQ(move.From, SquareOf(row.From));
        EXPECT_EQ(move.To, SquareOf(row.To));
        EXPECT_EQ(move.Captures, row.Captures);
        EXPECT_EQ(move.Promotes, 0);
        EXPECT_EQ(tree.NextMoveSlot, 11);
        RegisterPromotion(*position, SquareOf(row.From), SquareOf(row.To), row.Captures);
        EXPECT_EQ(position->Moves[11].SortScore, row.Score) << row.Name << ", promoting";
        EXPECT_EQ(position->Moves[11].Captures, row.Captures);
        EXPECT_EQ(position->Moves[11].Promotes, 2);
    }
}

TEST(SortScore, NoLastMoveAtTheRoot) {
    auto position = MakePosition(RuleSet(), "W: c3; B: d4");
    position->Tree.PlyLastTo[0] = SquareOf("e5");
    GenerateMoves(*position, 0);
    EXPECT_EQ(position->Moves[0].SortScore, 50);
}

// A slot is written anew: nothing of an older, longer record shines through.
TEST(MoveList, OldRecordsDoNotShineThrough) {
    auto position = MakePosition(RuleSet(), "W: a1");
    RegisterPromotion(*position, SquareOf("a1"), SquareOf("c3"), PathOf({{"b2", kKing}, {"d4", kKing}}));
    position->Tree.NextMoveSlot = 0;
    RegisterMove(*position, SquareOf("a1"), SquareOf("b2"));
    EXPECT_FALSE(position->Moves[0].IsCapture());
    EXPECT_EQ(position->Moves[0].Captures, CapturePath());
    EXPECT_EQ(position->Moves[0].Promotes, 0);
}

TEST(MoveList, AFullListKeepsTheFirstMovesAndStops) {
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
}

TEST(MoveList, GenerationDropsWhatThePlyHeld) {
    auto position = MakePosition(RuleSet(), "W: a1 c1");
    GenerateMoves(*position, 1);
    GenerateMoves(*position, 1);
    EXPECT_EQ(MoveCount(position->Tree), 3);
}

TEST(NextBestMove, BestFirstAndTheEarlierAmongEquals) {
    auto position = MakePosition(RuleSet(), "W: a1");
    GameTree& tree = position->Tree;
    tree.Ply = 2;
    tree.PlyFirstMove[2] = 5;
    tree.PlyFirstMove[3] = 10;
    tree.NextMoveSlot = 10;
    const Long scores[] = {0, 250, -31999, 250, 0};
    for (Long i = 0; i < 5; ++i) position->Moves[5 + i].SortScore = scores[i];
    position->Moves[4].SortScore = 999; // of the ply before
    position->Moves[10].SortScore = 999;
    for (Long slot : {6, 8, 5, 9, 7}) {
        EXPECT_EQ(NextBestMove(*position), slot);
        EXPECT_EQ(position->Moves[slot].SortScore, kUsedScore);
    }
    EXPECT_EQ(NextBestMove(*position), -1);
    EXPECT_EQ(NextBestMove(*position), -1);
}

// A deeper generation has moved the end of the list; the ply's own moves end where they did.
TEST(NextBestMove, AfterADeeperGeneration) {
    auto position = MakePosition(RuleSet(), "W: a1; B: c5 g5");
    GenerateMoves(*position, 1);
    position->Tree.Ply = 1;
    position->Tree.SideToMove = kBlack;
    GenerateMoves(*position, 1);
    position->Tree.Ply = 0;
    position->Tree.SideToMove = kWhite;
    EXPECT_EQ(NextBestMove(*position), 0);
    EXPECT_EQ(NextBestMove(*position), -1);
}

TEST(CapturePath, BeginningsAndOrder) {
    CapturePath shorter = PathOf({{"d4", kMan}, {"b2", kKing}});
    CapturePath longer = PathOf({{"d4", kMan}, {"b2", kKing}, {"a1", kMan}});
    CapturePath otherOrder = PathOf({{"b2", kKing}, {"d4", kMan}});
    EXPECT_TRUE(CapturePath().IsBeginningOf(shorter));
    EXPECT_TRUE(shorter.IsBeginningOf(shorter));
    EXPECT_TRUE(shorter.IsBeginningOf(longer));
    EXPECT_FALSE(longer.IsBeginningOf(shorter));
    EXPECT_FALSE(otherOrder.IsBeginningOf(longer));
    EXPECT_EQ(longer.Sorted(), PathOf({{"a1", kMan}, {"b2", kKing}, {"d4", kMan}}));
    EXPECT_EQ(longer.KingCount(), 1);
    EXPECT_EQ(longer.MaterialSum(), 4);
    longer.RemoveLast();
    EXPECT_EQ(longer, shorter);
    longer.RemoveLast();
    EXPECT_EQ(longer, PathOf({{"d4", kMan}})) << "a king taken out leaves no trace";
}

} // namespace

} // namespace tavlon12
