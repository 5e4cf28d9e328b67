#include "engine/fast_evaluate.h"

#include "engine/evaluate.h"
#include "engine/evaluation_terms.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace tavlon12 {

namespace {

constexpr Long kFamilyLazyMargin = 150;
constexpr Long kFamilyPromotionSlots = 6;

constexpr bool FliesIn(Family family) {
    return family == Family::German || family == Family::Russian;
}

Long OwnTerms(Family family, const Position& position, const EvaluationTables& tables, Long side, Long square,
              bool king) {
    Long score = CentreTerm(square, position.Rules.PiecesOnBlack);
    if (king) return score + 25 + (FliesIn(family) ? LongKingTerm(square) : EdgeTerm(square));
    return score + tables.SquareValue[SideIndex(side)][square] +
           HomeManTerm(position, side, square, kFamilyPromotionSlots);
}

/// Nearness, less a little for each piece on its own.
Long Closeness(const Position& position, ClosenessMemory& memory, Long side) {
    ClosenessSum sum = SumCloseness(position, memory, side, TargetOf(position, -side), 3);
    return sum.Weighted - 10 * sum.Lonely;
}

} // namespace

void BuildFamilyTerms(Family family, Position& position, EvaluationTables& tables) {
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        if (!IsSquare(square)) continue;
        for (Long side : {kWhite, kBlack}) {
            for (Long piece : {kMan, kKing}) {
                Long own = side * OwnTerms(family, position, tables, side, square, piece == kKing);
                position.TermsOfPieces[PieceType(side * piece)][square].OfFamily = own;
            }
        }
    }
    tables.FamilyBackRankLines = BuildBackRankLines(position, kFamilyPromotionSlots, false);
}

template <Family F>
Long EvaluateFamily(Position& position, SearchState& search, Long alpha, Long beta, Long side, bool wholeScore) {
    const GameTree& tree = position.Tree;
    const auto& count = position.Sums.PieceCount;
    Long man = PieceType(side * kMan);
    assert(search.Tables.VariantFamily == F && (side == kWhite || side == kBlack));
    assert(SumsMatchBoard(position));
    search.LostFlag = count[man] + count[man + 2] <= position.Rules.NumberPieces;
    if (count[man ^ 1] + count[man ^ 3] <= position.Rules.NumberPieces) return kWin - tree.Ply;

    Long material = tree.PlyValue[tree.Ply];
    if (material < alpha - kFamilyLazyMargin || material > beta + kFamilyLazyMargin) return material;
    if (search.RepeatCount > 0 || RepeatsElseStore(position)) return 0;
    if (!wholeScore) return 0;

    ClosenessMemory& memory = search.Tables.Closeness;
    Long score = static_cast<Long>(position.Sums.TermSum.OfFamily) + Closeness(position, memory, kWhite) -
                 Closeness(position, memory, kBlack);
    BackRanks& lines = search.Tables.FamilyBackRankLines;
    if (count[0] > search.WhiteMenThreshold) score += BackRankScore(position, lines[0], kWhite, true);
    if (count[1] > search.BlackMenThreshold) score += BackRankScore(position, lines[1], kBlack, true);
    return material + side * score + Noise(search);
}

template Long EvaluateFamily<Family::American>(Position&, SearchState&, Long, Long, Long, bool);
template Long EvaluateFamily<Family::Italian>(Position&, SearchState&, Long, Long, Long, bool);
template Long EvaluateFamily<Family::German>(Position&, SearchState&, Long, Long, Long, bool);
template Long EvaluateFamily<Family::Russian>(Position&, SearchState&, Long, Long, Long, bool);

Long EvaluateFamily(Family family, Position& position, SearchState& search, Long alpha, Long beta, Long side) {
    return VisitFamily(family, [&]<Family F>() { return EvaluateFamily<F>(position, search, alpha, beta, side); });
}

void BuildFastSquareValues(const Position& position, EvaluationTables& tables) {
    for (Long side : {kWhite, kBlack}) {
        auto& values = tables.SquareValue[SideIndex(side)];
        values.fill(0);
        for (Long cell = kFirstSquare; cell <= kLastSquare; ++cell) {
            Long nearest = std::numeric_limits<Long>::max();
            for (Long promoSquare : PromoSquares(position, side)) {
                if (IsSquare(promoSquare)) nearest = std::min(nearest, Distance(cell, promoSquare));
            }
            values[cell] = 50 - 6 * nearest;
        }
    }
}

} // namespace tavlon12
