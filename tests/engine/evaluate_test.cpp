#include "engine/evaluate.h"

#include "engine/engine_support.h"
#include "engine/reference_evaluate.h"
#include "rules/make_move.h"

#include <gtest/gtest.h>

#include <ostream>

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

// The man on j0 and its opposite c3 stand on no square of any term.
INSTANTIATE_TEST_SUITE_P(
    Pieces, EvaluationTerm,
    testing::Values(TermRow{"two men in the open", "", "W: c3; B: j0", kTerms, 0},
                    TermRow{"centre man", "", "W: d6; B: j0", kTerms, 20},
                    TermRow{"centre man of Black", "", "W: c3; B: d6", kTerms, -20},
                    TermRow{"centre king", "", "W: Kd6; B: j0", kTerms, 100 + 75 + 20},
                    TermRow{"centre on the other colour", "PiecesOnBlack=0", "W: c6; B: j0", kTerms, 20},
                    TermRow{"a centre square of the other colour", "", "W: c6; B: j0", kTerms, 0},
                    TermRow{"centre on all squares", "PiecesOnBlack=2", "W: l6; B: j0", kTerms, 20},
                    TermRow{"the two middle columns are no centre", "PiecesOnBlack=2", "W: f6 g6; B: j0", kTerms, 100},
                    TermRow{"flying king", "", "W: Kc5; B: j0", kTerms, 100 + 75},
                    TermRow{"short king", "LongKings=0", "W: Kc5; B: j0", kTerms, 100 + 25},
                    TermRow{"short king at the edge", "LongKings=0", "W: Ka3; B: j0", kTerms, 100 + 15},
                    TermRow{"short king in the corner", "LongKings=0", "W: Ka1; B: j0", kTerms, 100 + 5},
                    TermRow{"short king in the top corner", "LongKings=0", "W: Klb; B: j0", kTerms, 100 + 5},
                    TermRow{"king safe from men", "ManCapKing=0", "W: Kc5; B: j0", kTerms, 100 + 100},
                    TermRow{"flying king on the main line", "", "W: Kc3; B: j0", kTerms, 100 + 125},
                    TermRow{"short king on the main line", "LongKings=0", "W: Kc3; B: j0", kTerms, 100 + 25},
                    TermRow{"man on the main line", "", "W: b2; B: j0", kTerms, 0},
                    TermRow{"flying king on a bad square", "", "W: Kg1; B: j0", kTerms, 100 + 50},
                    TermRow{"flying king of Black on a bad square", "", "W: c3; B: Kl6", kTerms, -100 - 50},
                    TermRow{"home man in an even slot", "", "W: a1; B: j0", kTerms, 10},
                    TermRow{"home man in an odd slot", "", "W: c1; B: j0", kTerms, 20},
                    TermRow{"home man in the sixth slot", "", "W: k1; B: j0", kTerms, 20},
                    TermRow{"home men of Black", "", "W: c3; B: bb db", kTerms, -100 - 10 - 20},
                    TermRow{"home king", "", "W: Kc1; B: j0", kTerms, 100 + 75},
                    TermRow{"home man in the seventh slot", "PromoB=A1C1E1G1I1K1B2", "W: b2; B: j0", kTerms, 0},
                    TermRow{"seventh slot on all squares", "PiecesOnBlack=2 | PromoB=A1B1C1D1E1F1G1H1I1J1K1L1",
                            "W: g1; B: j0", kTerms, 10},
                    TermRow{"twelfth slot on all squares", "PiecesOnBlack=2 | PromoB=A1B1C1D1E1F1G1H1I1J1K1L1",
                            "W: l1; B: j0", kTerms, 20},
                    TermRow{"man past its cone", "PromoW=BB | PromoB=A1", "W: k9; B: j0", kTerms, -75},
                    TermRow{"man in its cone", "PromoW=BB | PromoB=A1", "W: e9; B: j0", kTerms, 0},
                    TermRow{"king outside the cone", "PromoW=BB | PromoB=A1", "W: Kk9; B: j0", kTerms, 100 + 75},
                    TermRow{"cones do not matter with uneven promotion", "PromoW=BBDB | PromoB=A1", "W: k9; B: j0",
                            kTerms, 0}));

// d(c5, j0) = 12, d(c3, j0) = 14.
INSTANTIATE_TEST_SUITE_P(
    Goals, EvaluationTerm,
    testing::Values(
        TermRow{"return of a king, way of a man", "WinAtPromo=1 | PromoW=BB | PromoB=A1", "W: Kc5; B: j0", kTerms,
                100 + 75 + 2 * (46 - 6) - (23 - 18)},
        TermRow{"race to the first king", "KingWin=1 | PromoW=BB | PromoB=A1", "W: c5; B: j0", kTerms,
                2 * (23 - 8) - 2 * (23 - 18)},
        TermRow{"winning at home goes before the first king", "KingWin=1 | WinAtPromo=1 | PromoW=BB | PromoB=A1",
                "W: c5; B: j0", kTerms, (23 - 8) - (23 - 18) + 2 * (23 - 8) - 2 * (23 - 18)},
        // 30 + 30 for White; Black's empty slot takes 1.98 * 11 = 21.78 from 60 - 10.
        TermRow{"uneven race", "KingWin=1 | PromoW=BBDB | PromoB=A1", "W: c5; B: j0", kTerms, 28},
        // 60; h8: - 18 - 1.97 * 15 = 12.45, row 8 is the first; j0: 12 - 10 - 1.97 * 11 = -19.67, two rows off: + 20.
        TermRow{"uneven race in two rows", "KingWin=1 | PromoW=BBDB | PromoB=A1", "W: c5; B: h8 j0", kTerms, -100},
        // White lacks the slot: c5: 30 + 1.98 * 11 = 51.78; Black: 52 - 10 - 14 (l1 is d 10 + 2 off).
        TermRow{"uneven race of White", "KingWin=1 | PromoW=BB | PromoB=A1L1", "W: c5; B: j0", kTerms,
                52 - 10 - 2 * (23 - 11)},
        // Every black man is 13 from a1, and 1.95 * 10 = 19.5 leaves a tie each time: 22 -> 2.5, 2; -17.5, -18 + 10;
        // -27.5, -28 + 20; -27.5, -28 + 30.
        TermRow{"uneven race with ties", "KingWin=1 | PromoW=BB | PromoB=", "W: a1; B: h7 g8 f9 e0", kTerms,
                -300 + 2}));

INSTANTIATE_TEST_SUITE_P(
    Nearness, EvaluationTerm,
    testing::Values(TermRow{"support multiplies", "", "W: b2 d2 c3; B: j0", kNear, 200 + 7 + 9 + 5 * 9 - 9},
                    TermRow{"kings count a third", "", "W: Kc5; B: j0", kNear, 100 + 75 + 3 - 11},
                    TermRow{"a king is the target", "", "W: c5; B: Kl4 j0", kNear, -200 + 13 - 4 - 75 - 11},
                    TermRow{"Black's last man is the target", "", "W: c5; B: h0 j0", kNear, -100 + 13 - 13 - 11},
                    TermRow{"White's first man is the target", "", "W: c5 e5; B: j0", kNear, 100 + 11 + 13 - 13},
                    // Without promotion squares every man is past its cone.
                    TermRow{"not where squares win", "WinAtPromo=1 | PromoW= | PromoB=", "W: c5 e5; B: j0", kNear,
                            100 - 75 - 75 + 75}));

// With these rules White's values are bb 30, aa and ca 20, b0 and d0 10, Black's only a1 -30.
INSTANTIATE_TEST_SUITE_P(
    SquareValues, EvaluationTerm,
    testing::Values(
        TermRow{"empty squares count half", "PromoW=BB | PromoB=A1", "W: c3; B: j0", kValues, 45 - 15},
        TermRow{"a piece doubles its square", "PromoW=BB | PromoB=A1", "W: ca; B: j0", kValues, 45 - 15 - 10 + 20},
        TermRow{"in White's opening", "PromoW=BB | PromoB=A1", "W: ca; B: j0", kValues, 90 - 20 + 40 - 15, 0, 6},
        TermRow{"in Black's opening", "PromoW=BB | PromoB=A1", "W: ca; B: j0", kValues, 45 - 10 + 20 - 30, 6, 0},
        TermRow{"Black's man on its goal", "PromoW=BB | PromoB=A1", "W: c3; B: a1", kValues, 45 - 30},
        TermRow{"Black's piece on White's goal", "PromoW=BB | PromoB=A1", "W: c3; B: Kbb", kValues,
                -100 - 75 + 45 - 15 - 15}));

// Lines from bb: aa or ca, then off the board, b0 or d0. From a1 the first step leaves the board.
INSTANTIATE_TEST_SUITE_P(
    BackRank, EvaluationTerm,
    testing::Values(
        TermRow{"open", "PromoW=BB | PromoB=A1", "W: c3; B: j0", kBackRank, 30 + 30 + 30 + 20, 0, 6},
        TermRow{"open for Black only with many black men", "PromoW=BB | PromoB=A1", "W: c3; B: j0", kBackRank, 0, 6, 0},
        TermRow{"a guard", "PromoW=BB | PromoB=A1", "W: c3; B: ca", kBackRank, 20 + 20 + 30 + 20, 0, 6},
        TermRow{"a king on the square", "PromoW=BB | PromoB=A1", "W: c3; B: Kbb", kBackRank, -100 - 75, 0, 6},
        TermRow{"White's line", "PromoW=BB | PromoB=A1", "W: bb ca d0; B: j0", kBackRank, 200 + 30, 0, 6},
        TermRow{"Black's line, its goal guarded", "PromoW=BB | PromoB=A1", "W: c3; B: bb ca d0", kBackRank,
                -200 - 10 - 30, 0, 6},
        TermRow{"Black's back rank", "PromoW=BB | PromoB=C1", "W: c3; B: j0", kBackRank, -30 - 20 - 20 - 30, 6, 0},
        TermRow{"no line from a sideways step on", "PiecesOnBlack=2 | PromoW=BB | PromoB=A1 | BlackManMovement=W;NW W",
                "W: c3; B: j0", kBackRank, 0, 0, 6},
        TermRow{"no line turns back on itself", "PromoW=E5 | PromoB=A1 | BlackManMovement=NW;SE NW", "W: c3; B: j0",
                kBackRank, 30 + 30, 0, 6},
        TermRow{"off", "PromoW=BB | PromoB=A1", "W: c3; B: j0", kTerms, 0, 0, 6}));

TEST(Evaluate, AgreesWithAScanTermByTermAfterAnyMoves) {
    Random random(22);
    Long compared = 0;
    for (Long game = 0; game < 400; ++game) {
        RuleSet rules = RandomRules(random);
        for (Byte* flag : {&rules.WinAtPromo, &rules.KingWin, &rules.AntiMode}) *flag = DrawOneIn(random, 3) ? 1 : 0;
        Engine engine(MakePosition(rules, ""));
        SearchState& search = *engine.State;
        PlacePiecesAtRandom(*engine.Pos, random);
        search.WhiteMenThreshold = Draw(random, 12);
        search.BlackMenThreshold = Draw(random, 12);
        search.BackRankOn = DrawOneIn(random, 2);
        search.LazyMargin = 1000000;
        for (Long halfMove = 0; halfMove < 12; ++halfMove) {
            Position& position = *engine.Pos;
            position.PositionKeys.fill(PositionKey());
            Long side = position.Tree.SideToMove;
            Long value = Evaluate(position, search, -kWin, kWin, side);
            if (CountPieces(position.Board).WhiteSum > 0 && CountPieces(position.Board).BlackSum > 0 &&
                value != kWin - position.Tree.Ply) {
                ++compared;
                ASSERT_EQ(value, ReferenceEvaluate(position, search, side)) << DescribePosition(position);
            }
            if (PlayAtRandom(position, 1, random) == 0) break;
        }
    }
    EXPECT_GT(compared, 1000);
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
             WinRow{"no piece of its own", "", "W: c3", kBlack, false, true},
             WinRow{"both have pieces", "", "W: c3; B: j0", kWhite, false, false},
             WinRow{"too few pieces", "NumberPieces=2", "W: c3 c5; B: j0 h0 f0", kWhite, false, true},
             WinRow{"opponent with too few pieces", "NumberPieces=2", "W: c3 c5; B: j0 h0 f0", kBlack, true, false},
             WinRow{"both with too few pieces", "NumberPieces=2", "W: c3 c5; B: j0", kBlack, true, true},
             WinRow{"anti: no piece of its own", "AntiMode=1", "W: c3", kBlack, true, false},
             WinRow{"anti: no piece of the opponent", "AntiMode=1", "W: c3", kWhite, false, true},
             WinRow{"king home again", "WinAtPromo=1", "W: Kc1; B: j0", kWhite, true, false},
             WinRow{"opponent's king home again", "WinAtPromo=1", "W: Kc1; B: j0", kBlack, false, true},
             WinRow{"man at home", "WinAtPromo=1", "W: c1; B: j0", kWhite, false, false},
             WinRow{"king on its own promotion square", "WinAtPromo=1", "W: Kbb; B: j0", kWhite, false, false},
             WinRow{"first king", "KingWin=1", "W: c3; B: Kc1", kBlack, true, false},
             WinRow{"king at home is no first king", "KingWin=1", "W: Kc1; B: j0", kWhite, false, false},
             WinRow{"return alone counts when both are on", "KingWin=1 | WinAtPromo=1", "W: Kbb; B: j0", kWhite, false,
                    false},
             WinRow{"anti: king home again", "WinAtPromo=1 | AntiMode=1", "W: Kc1; B: j0", kBlack, true, false},
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

TEST(Evaluate, AntiModeTurnsTheValue) {
    const char* placement = "W: c3 d6 Kf8; B: j0 h0";
    Engine plain("", placement);
    Engine anti("AntiMode=1", placement);
    EXPECT_EQ(Evaluate(*anti.Pos, *anti.State, -kWin, kWin, kWhite),
              -Evaluate(*plain.Pos, *plain.State, -kWin, kWin, kWhite));
    EXPECT_EQ(Evaluate(*anti.Pos, *anti.State, 3000, 3001, kWhite), -anti.Pos->Tree.PlyValue[0]) << "lazy exit";
}

TEST(Evaluate, LazyExitGivesTheMaterialAndStoresNoKey) {
    Engine engine("", "W: c3 d6 f6; B: j0");
    engine.Pos->Tree.TreeIndex = 3;
    SearchState& search = *engine.State;
    const PositionKey unwritten;
    auto evaluate = [&](Long alpha, Long beta) { return Evaluate(*engine.Pos, search, alpha, beta, kWhite); };

    search.RepeatCount = 1;
    EXPECT_EQ(evaluate(351, 400), 200) << "the material comes before the repeated root move";
    EXPECT_EQ(evaluate(-400, 49), 200);
    EXPECT_EQ(engine.Pos->PositionKeys[2], unwritten);
    EXPECT_EQ(evaluate(350, 400), 0) << "exactly at the margin the evaluation goes on";
    EXPECT_EQ(evaluate(-400, 50), 0);
    EXPECT_EQ(engine.Pos->PositionKeys[2], unwritten);
    search.LazyMargin = 160;
    EXPECT_EQ(evaluate(351, 400), 0);
    search.RepeatCount = 0;
    EXPECT_NE(evaluate(351, 400), 200);
    EXPECT_EQ(engine.Pos->PositionKeys[2], KeyOf(engine.Pos->Board));
    engine.Pos->Tree.PlyMaterial[0] = 0;
    search.RepeatCount = 1;
    EXPECT_EQ(evaluate(3000, 3001), 0) << "no lazy exit without material";
}

TEST(Evaluate, RepetitionIsADrawAndIsNotStored) {
    Engine engine("", "W: Kc5; B: Kj0 h0");
    Position& position = *engine.Pos;
    const PositionKey key = KeyOf(position.Board);
    const PositionKey other = KeyOf(BoardOf("W: Kc5; B: Kj0"));
    struct Row {
        Long TreeIndex;
        Long KeyAt;
        bool Draw;
        bool Stored;
    };
    for (const Row& row : {Row{10, 0, true, false}, Row{10, 8, true, false}, Row{10, 9, false, true},
                           Row{10, 11, false, true}, Row{1, 0, false, true}, Row{0, 0, false, false}}) {
        SCOPED_TRACE(testing::Message() << row.TreeIndex << " " << row.KeyAt);
        position.PositionKeys.fill(other);
        position.PositionKeys[row.KeyAt] = key;
        position.Tree.TreeIndex = row.TreeIndex;
        EXPECT_EQ(Evaluate(position, *engine.State, -kWin, kWin, kWhite) == 0, row.Draw);
        if (row.TreeIndex > 0) {
            EXPECT_EQ(position.PositionKeys[row.TreeIndex - 1] == key, row.Stored);
        }
        EXPECT_EQ(Evaluate(position, *engine.State, 3000, 3001, kWhite), position.Tree.PlyValue[0])
            << "far from the window the material comes first";
    }
}

TEST(Evaluate, NoiseStaysBelowItsRange) {
    Engine engine("", "W: c3; B: j0");
    SearchState& search = *engine.State;
    Long quiet = Evaluate(*engine.Pos, search, -kWin, kWin, kWhite);
    search.NoiseRange = 70;
    Long least = 0;
    Long most = 0;
    for (Long i = 0; i < 4000; ++i) {
        Long noise = Evaluate(*engine.Pos, search, -kWin, kWin, kWhite) - quiet;
        least = std::min(least, noise);
        most = std::max(most, noise);
    }
    EXPECT_GE(least, -69);
    EXPECT_LE(most, 69);
    EXPECT_LT(least, -60);
    EXPECT_GT(most, 60);
}

} // namespace
} // namespace tavlon12
