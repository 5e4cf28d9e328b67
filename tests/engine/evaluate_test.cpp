#include "engine/evaluate.h"

#include "engine/engine_support.h"
#include "engine/fast_evaluate.h"

#include <gtest/gtest.h>

#include <ostream>
#include <set>

namespace tavlon12 {
namespace {

using namespace support;

// What a row leaves of the evaluation beside the terms that always apply, so that the numbers can be worked by hand.
enum Keep : unsigned { kTerms = 0, kValues = 1, kNear = 2, kBackRank = 4 };

struct TermRow {
    const char* Name;
    const char* Rules;
    const char* Placement;
    unsigned Kept;
    Long Expected; ///< with the material, for White, who is to move
    Long WhiteThreshold = 6;
    Long BlackThreshold = 6;
};

void PrintTo(const TermRow& row, std::ostream* out) {
    *out << row.Name;
}

class EvaluationTerm : public testing::TestWithParam<TermRow> {};

TEST_P(EvaluationTerm, HasItsWorth) {
    const TermRow& row = GetParam();
    Engine engine(row.Rules, row.Placement);
    SearchState& search = *engine.State;
    if ((row.Kept & kValues) == 0) {
        search.Tables.SquareValue = {};
        BuildPieceTerms(*engine.Pos, search.Tables);
        RecountPieces(*engine.Pos);
    }
    if ((row.Kept & kNear) == 0) search.Tables.ClosenessOn = false;
    search.BackRankOn = (row.Kept & kBackRank) != 0;
    search.WhiteMenThreshold = row.WhiteThreshold;
    search.BlackMenThreshold = row.BlackThreshold;
    EXPECT_EQ(Evaluate(*engine.Pos, search, -kWin, kWin, kWhite), row.Expected);
    EXPECT_EQ(Evaluate(*engine.Pos, search, -kWin, kWin, kBlack), 2 * engine.Pos->Tree.PlyValue[0] - row.Expected)
        << "only the positional part turns with the side";
}

// The man on j0 and its opposite c3 stand on no square of any term. d(c5, j0) = 12, d(c3, j0) = 14. With a white
// promotion square on bb and a black one on a1 White's square values are bb 30, aa and ca 20, b0 and d0 10, Black's
// only a1 -30, and the lines of the back rank lead from bb over aa or ca, then off the board, to b0 or d0.
INSTANTIATE_TEST_SUITE_P(
    Terms, EvaluationTerm,
    testing::Values(
        TermRow{"centre man", "", "W: d6; B: j0", kTerms, 20},
        TermRow{"the two middle columns are no centre", "PiecesOnBlack=2", "W: f6 g6; B: j0", kTerms, 100},
        TermRow{"short king", "LongKings=0", "W: Kc5; B: j0", kTerms, 100 + 25},
        TermRow{"king safe from men", "ManCapKing=0", "W: Kc5; B: j0", kTerms, 100 + 100},
        TermRow{"flying king on the main line", "", "W: Kc3; B: j0", kTerms, 100 + 125},
        TermRow{"flying king on a bad square", "", "W: Kg1; B: j0", kTerms, 100 + 50},
        TermRow{"home man in an even slot", "", "W: a1; B: j0", kTerms, 10},
        TermRow{"twelfth slot on all squares", "PiecesOnBlack=2 | PromoB=A1B1C1D1E1F1G1H1I1J1K1L1", "W: l1; B: j0",
                kTerms, 20},
        TermRow{"man past its cone", "PromoW=BB | PromoB=A1", "W: k9; B: j0", kTerms, -75},
        TermRow{"return of a king, way of a man", "WinAtPromo=1 | PromoW=BB | PromoB=A1", "W: Kc5; B: j0", kTerms,
                100 + 75 + 2 * (46 - 6) - (23 - 18)},
        // Every black man is 13 from a1, and 1.95 * 10 = 19.5 leaves a tie each time:
        // 22 -> 2.5, 2; -17.5, -18 + 10; -27.5, -28 + 20; -27.5, -28 + 30.
        TermRow{"uneven race with ties", "KingWin=1 | PromoW=BB | PromoB=", "W: a1; B: h7 g8 f9 e0", kTerms, -300 + 2},
        TermRow{"support multiplies", "", "W: b2 d2 c3; B: j0", kNear, 200 + 7 + 9 + 5 * 9 - 9},
        TermRow{"Black's last man is the target", "", "W: c5; B: h0 j0", kNear, -100 + 13 - 13 - 11},
        TermRow{"empty squares count half", "PromoW=BB | PromoB=A1", "W: c3; B: j0", kValues, 45 - 15},
        TermRow{"in White's opening", "PromoW=BB | PromoB=A1", "W: ca; B: j0", kValues, 90 - 20 + 40 - 15, 0, 6},
        TermRow{"open back rank", "PromoW=BB | PromoB=A1", "W: c3; B: j0", kBackRank, 30 + 30 + 30 + 20, 0, 6},
        TermRow{"a king on the square", "PromoW=BB | PromoB=A1", "W: c3; B: Kbb", kBackRank, -100 - 75, 0, 6}));

TEST(Evaluate, NoiseStaysWithinItsRange) {
    for (bool family : {false, true}) {
        Engine engine(StartPosition(RuleSet()));
        if (family) AdoptFamily(*engine.Pos, engine.State->Tables, Family::German);
        auto value = [&] {
            return family ? EvaluateFamily(Family::German, *engine.Pos, *engine.State, -kWin, kWin, kWhite)
                          : Evaluate(*engine.Pos, *engine.State, -kWin, kWin, kWhite);
        };
        const Long exact = value();
        EXPECT_EQ(value(), exact);
        engine.State->NoiseRange = 5;
        std::set<Long> seen;
        for (Long i = 0; i < 2000; ++i) seen.insert(value() - exact);
        EXPECT_EQ(seen, (std::set<Long>{-4, -3, -2, -1, 0, 1, 2, 3, 4}));
    }
}

TEST(Evaluate, MirroredPositionHasTheSameValue) {
    Random random(21);
    for (Long game = 0; game < 800; ++game) {
        RuleSet rules = RandomRules(random);
        rules.BlackManMovement = rules.WhiteManMovement;
        rules.BlackKingMovement = rules.WhiteKingMovement;
        rules.canContract = 0;
        for (std::size_t slot = 0; slot < rules.PromoB.size(); ++slot) {
            rules.PromoW[slot] = rules.PromoB[slot] == kUnusedSlot ? kUnusedSlot : kBoardCells - 1 - rules.PromoB[slot];
        }
        for (Byte* flag : {&rules.WinAtPromo, &rules.KingWin, &rules.AntiMode, &rules.NoLegalDraw}) {
            *flag = DrawOneIn(random, 4) ? 1 : 0;
        }
        rules.NumberPieces = Draw(random, 3);

        auto position = MakePosition(rules, "");
        PlacePiecesAtRandom(*position, random);
        position->Tree.TreeIndex = 0;
        auto mirrored = MakePosition(rules, "");
        for (Long index = 0; index < kBoardCells; ++index) {
            Long cell = position->Board[index];
            mirrored->Board[kBoardCells - 1 - index] = cell == kBorder ? kBorder : -cell;
        }
        RecountPieces(*mirrored);
        mirrored->Tree.SideToMove = -position->Tree.SideToMove;

        // Without a piece to aim at, closeness is measured from a corner of the array.
        auto counts = CountPieces(position->Board);
        if (counts.WhiteSum == 0 || counts.BlackSum == 0) continue;
        Engine one(std::move(position));
        Engine two(std::move(mirrored));
        one.State->WhiteMenThreshold = two.State->BlackMenThreshold = Draw(random, 12);
        one.State->BlackMenThreshold = two.State->WhiteMenThreshold = Draw(random, 12);
        Long side = one.Pos->Tree.SideToMove;
        Long alpha = DrawOneIn(random, 2) ? -kWin : 100;
        ASSERT_EQ(Evaluate(*one.Pos, *one.State, alpha, kWin, side), Evaluate(*two.Pos, *two.State, alpha, kWin, -side))
            << DescribePosition(*one.Pos);
        ASSERT_EQ(one.State->LostFlag, two.State->LostFlag);
        ASSERT_EQ(one.State->NoMovesDraw, two.State->NoMovesDraw);
    }
}

struct WinRow {
    const char* Name;
    const char* Rules;
    const char* Placement;
    Long Side;
    bool Wins;
    bool Lost;
};

TEST(Evaluate, WinsAndLosses) {
    for (const WinRow& row : {
             WinRow{"no piece of the opponent", "", "W: c3", kWhite, true, false},
             WinRow{"too few pieces", "NumberPieces=2", "W: c3 c5; B: j0 h0 f0", kWhite, false, true},
             WinRow{"both with too few pieces", "NumberPieces=2", "W: c3 c5; B: j0", kBlack, true, true},
             WinRow{"anti: no piece of its own", "AntiMode=1", "W: c3", kBlack, true, false},
             WinRow{"king home again", "WinAtPromo=1", "W: Kc1; B: j0", kWhite, true, false},
             WinRow{"man at home", "WinAtPromo=1", "W: c1; B: j0", kWhite, false, false},
             WinRow{"first king", "KingWin=1", "W: c3; B: Kc1", kBlack, true, false},
             WinRow{"return alone counts when both are on", "KingWin=1 | WinAtPromo=1", "W: Kbb; B: j0", kWhite, false,
                    false},
         }) {
        SCOPED_TRACE(row.Name);
        Engine engine(row.Rules, row.Placement, row.Side);
        engine.State->LostFlag = !row.Lost;
        Long value = Evaluate(*engine.Pos, *engine.State, -kWin, kWin, row.Side);
        EXPECT_EQ(value == kWin, row.Wins) << value;
        EXPECT_EQ(engine.State->LostFlag, row.Lost);
    }
    Engine deep("", "W: c3");
    deep.Pos->Tree.Ply = 7;
    EXPECT_EQ(Evaluate(*deep.Pos, *deep.State, -kWin, kWin, kWhite), kWin - 7);
}

TEST(Evaluate, DrawWithoutMoves) {
    const char* blocked = "W: a1; B: b2 c3 Kl9"; // the men stand behind each other, so a1 can neither step nor jump
    for (bool rule : {false, true}) {
        for (Long side : {kWhite, kBlack}) {
            Engine engine(rule ? "NoLegalDraw=1" : "", blocked, side);
            engine.State->NoMovesDraw = rule && side == kBlack; // cleared where moves exist
            Long value = Evaluate(*engine.Pos, *engine.State, -kWin, kWin, side);
            EXPECT_EQ(engine.State->NoMovesDraw, rule && side == kWhite);
            EXPECT_EQ(value == 0, rule && side == kWhite);
        }
    }
    Engine empty("NoLegalDraw=1", "B: b2", kWhite);
    EXPECT_NE(Evaluate(*empty.Pos, *empty.State, -kWin, kWin, kWhite), 0) << "a side without pieces has lost";
    EXPECT_TRUE(empty.State->LostFlag);
}

TEST(Evaluate, RepetitionIsADrawAndIsNotStored) {
    Engine engine("", "W: Kc5; B: Kj0 h0");
    Position& position = *engine.Pos;
    const PositionKey key = KeyOf(position.Board);
    struct Row {
        Long TreeIndex;
        Long KeyAt;
        bool Draw;
        bool Stored;
    };
    for (const Row& row : {Row{10, 0, true, false}, Row{10, 8, true, false}, Row{10, 9, false, true},
                           Row{1, 0, false, true}, Row{0, 0, false, false}}) {
        SCOPED_TRACE(testing::Message() << row.TreeIndex << " " << row.KeyAt);
        position.PositionKeys.Fill(KeyOf(BoardOf("W: Kc5; B: Kj0")));
        position.PositionKeys.Set(row.KeyAt, key);
        position.Tree.TreeIndex = row.TreeIndex;
        EXPECT_EQ(Evaluate(position, *engine.State, -kWin, kWin, kWhite) == 0, row.Draw);
        EXPECT_EQ(row.TreeIndex > 0 && position.PositionKeys[row.TreeIndex - 1] == key, row.Stored);
        EXPECT_EQ(Evaluate(position, *engine.State, 3000, 3001, kWhite), position.Tree.PlyValue[0])
            << "far from the window the material comes first";
    }
}

} // namespace
} // namespace tavlon12
