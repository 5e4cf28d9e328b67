#include "engine/evaluate.h"

#include "engine/evaluation_terms.h"
#include "rules/move_scan.h"

#include <array>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace tavlon12 {

namespace {

/// Whether a king of `side` stands where it wins.
bool StandsAtGoal(const Position& position, Long side) {
    const RuleSet& rules = position.Rules;
    if (rules.WinAtPromo != 1 && rules.KingWin != 1) return false;
    Long owner = rules.WinAtPromo == 1 ? -side : side;
    bool found = false;
    position.Sums.Key.Sets[PieceType(side * kKing)].ForEachUntil(
        [&](Long square) { return found = IsPromotionSquare(position, owner, square); });
    return found;
}

Long PieceTotal(const Position& position, Long side) {
    Long man = PieceType(side * kMan);
    return position.Sums.PieceCount[man] + position.Sums.PieceCount[man + 2];
}

/// Whether the side to move has lost all its moves where that is a draw.
bool IsDrawWithoutMoves(Position& position) {
    if (PieceTotal(position, kWhite) == 0 || PieceTotal(position, kBlack) == 0) return false;
    return !GenerateMoves1(position, 1) && !position.Fault.Passed();
}

Long KingTerm(const RuleSet& rules, Long square) {
    Long score = rules.ManCapKing == 0 ? 50 : 25;
    return score + (rules.LongKings == 1 ? LongKingTerm(square) : EdgeTerm(square));
}

/// Men on their way to promotion, kings on their way back.
Long ReturnTerm(const Position& position, Long side, Long square, bool king) {
    Long score = 0;
    for (Long goal : PromoSquares(position, king ? -side : side)) {
        if (!IsSquare(goal)) continue;
        Long distance = Distance(goal, square);
        score += king ? 2 * (2 * kNearness - distance) : kNearness - distance;
    }
    return score;
}

Long RaceToFirstKing(const Position& position, Long side, Long square) {
    Long score = 0;
    for (Long goal : PromoSquares(position, side)) {
        if (IsSquare(goal)) score += 2 * (kNearness - Distance(goal, square));
    }
    return score;
}

/// All that a piece adds by its square alone, but for the advancement.
Long OwnTerms(const Position& position, const EvaluationTables& tables, Long side, Long square, bool king) {
    const RuleSet& rules = position.Rules;
    Long score = CentreTerm(square, rules.PiecesOnBlack);
    if (king) {
        score += KingTerm(rules, square);
    } else {
        score += HomeManTerm(position, side, square, rules.PiecesOnBlack >= 2 ? 12 : 6);
        // A man that has gone past all its promotion squares
        if (tables.ConesMatter && tables.PromotionCone[SideIndex(side)][square] == 0) score -= 75;
    }
    if (rules.WinAtPromo == 1) score += ReturnTerm(position, side, square, king);
    if (rules.KingWin == 1) score += RaceToFirstKing(position, side, square);
    return score;
}

/// Where one side has fewer promotion squares, each that it lacks draws its pieces to the opponent and holds their rows
/// together. The score is rounded each time as a whole, so that the terms before it decide a tie: such rules need the
/// scan of the board in its order.
struct UnevenRace {
    const Position& Pos;
    const SearchState& Search;
    std::array<bool, 2> ManyMen;
    std::array<Long, 2> Target;     ///< by side, the square that the other side strives to
    std::array<Long, 2> FirstRow{}; ///< the row of the side's first piece met, from 1 on; 0 before that

    Long Scan() {
        Long score = 0;
        for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
            Long piece = Pos.Board[square];
            if (piece == kBorder) continue;
            for (Long side : {kWhite, kBlack}) score += Advancement(side, square, piece);
            if (piece != kEmpty) score = AddPiece(score, square, piece);
        }
        return score;
    }

    Long Advancement(Long side, Long square, Long piece) const {
        std::size_t s = SideIndex(side);
        Long value = Search.Tables.SquareValue[s][square];
        if (piece == kEmpty) return ManyMen[s] ? value : value / 2;
        if (piece * side < 0) return 0;
        return ManyMen[s] ? 2 * value : value;
    }

    Long AddPiece(Long score, Long square, Long piece) {
        Long side = piece > 0 ? kWhite : kBlack;
        score += side * OwnTerms(Pos, Search.Tables, side, square, Magnitude(piece) == kKing);
        Long nearness = kNearness - Distance(Target[SideIndex(-side)], square);
        double pull = (2 - (PieceTotal(Pos, kWhite) + PieceTotal(Pos, kBlack)) * 0.01) * nearness;
        Long row = RowOf(square) - 1;
        Long& firstRow = FirstRow[SideIndex(side)];
        for (Long slot = 0; slot <= Search.Tables.PromoCountMax; ++slot) {
            if (IsSquare(PromoSquares(Pos, side)[slot])) continue;
            score = RoundHalfEven(score + side * pull);
            if (firstRow == 0) firstRow = row;
            score -= side * 10 * std::abs(firstRow - row);
        }
        return score;
    }
};

/// All positional terms of the board, seen from White.
Long PositionalScore(const Position& position, SearchState& search) {
    EvaluationTables& tables = search.Tables;
    const std::array<bool, 2> manyMen = {position.Sums.PieceCount[0] > search.WhiteMenThreshold,
                                         position.Sums.PieceCount[1] > search.BlackMenThreshold};
    const std::array<Long, 2> target = {TargetOf(position, kWhite), TargetOf(position, kBlack)};
    Long score = 0;
    if (position.Rules.KingWin == 1 && !tables.PromoEven) {
        score = UnevenRace{position, search, manyMen, target}.Scan();
    } else {
        TermSums sums = UnpackTerms(position.Sums.TermSum.General);
        // With many men the squares before promotion count double.
        score = sums.First + (tables.EmptyAdvancement[0] + sums.Second) * (manyMen[0] ? 2 : 1) +
                (tables.EmptyAdvancement[1] + sums.Third) * (manyMen[1] ? 2 : 1);
    }
    if (tables.ClosenessOn) {
        score += SumCloseness(position, search.Tables.Closeness, kWhite, target[1], 1).Weighted;
        score -= SumCloseness(position, search.Tables.Closeness, kBlack, target[0], 1).Weighted;
    }
    if (search.BackRankOn) {
        if (manyMen[0]) score += BackRankScore(position, tables.BackRankLines[0], kWhite, false);
        if (manyMen[1]) score += BackRankScore(position, tables.BackRankLines[1], kBlack, false);
    }
    return score;
}

} // namespace

void BuildPieceTerms(Position& position, EvaluationTables& tables) {
    tables.EmptyAdvancement = {};
    tables.BackRankLines = BuildBackRankLines(position, kPromotionSlots, true);
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        if (!IsSquare(square)) continue;
        // An empty square counts half its value for each side, a piece the whole of its own side's: all values are
        // even.
        const Long half[2] = {tables.SquareValue[0][square] / 2, tables.SquareValue[1][square] / 2};
        for (std::size_t s : {0, 1}) tables.EmptyAdvancement[s] += half[s];
        for (Long side : {kWhite, kBlack}) {
            for (Long piece : {kMan, kKing}) {
                Long own = side * OwnTerms(position, tables, side, square, piece == kKing);
                PieceTerms& terms = position.TermsOfPieces[PieceType(side * piece)][square];
                terms.General = PackTerms(own, side * half[0], -side * half[1]);
            }
        }
    }
}

Long Evaluate(Position& position, SearchState& search, Long alpha, Long beta, Long side, bool wholeScore) {
    const GameTree& tree = position.Tree;
    const RuleSet& rules = position.Rules;
    bool anti = rules.AntiMode == 1;
    assert(tree.Ply >= 0 && tree.Ply <= kMaxPly && (side == kWhite || side == kBlack));
    assert(alpha <= beta || search.Options.BruteForce != 0);
    assert(SumsMatchBoard(position));

    search.LostFlag = false;
    if (rules.NoLegalDraw == 1) {
        search.NoMovesDraw = IsDrawWithoutMoves(position);
        if (search.NoMovesDraw) return 0;
    }

    // In anti mode each side plays for what the other has.
    Long own = anti ? -side : side;
    if (PieceTotal(position, own) <= rules.NumberPieces || StandsAtGoal(position, -own)) search.LostFlag = true;
    if (PieceTotal(position, -own) <= rules.NumberPieces || StandsAtGoal(position, own)) return kWin - tree.Ply;

    Long material = tree.PlyValue[tree.Ply];
    Long value = material;
    bool faraway = material < alpha - search.LazyMargin || material > beta + search.LazyMargin;
    if (tree.PlyMaterial[tree.Ply] <= 0 || !faraway) {
        if (search.RepeatCount > 0 || RepeatsElseStore(position)) return 0;
        if (!wholeScore) return 0;
        value += side * PositionalScore(position, search) + Noise(search);
    }
    return anti ? -value : value;
}

RootValue EvaluateRoot(Position& position, SearchState& search, Long side) {
    const GeneratorFault fault = position.Fault;
    const Long stopFlag = position.StopFlag;
    RootValue root;
    root.Value = Evaluate(position, search, -kWin, kWin, side);
    root.Lost = search.LostFlag;
    root.NoMovesDraw = std::exchange(search.NoMovesDraw, false);
    position.Fault = fault;
    position.StopFlag = stopFlag;
    return root;
}

} // namespace tavlon12
