#include "engine/evaluation_tables.h"

#include "engine/evaluate.h"
#include "engine/evaluation_terms.h"
#include "engine/fast_evaluate.h"
#include "rules/fast_generators.h"
#include <algorithm>

namespace tavlon12 {

namespace {

Long UsedSlots(const PromotionList& list) {
    return static_cast<Long>(kPromotionSlots - std::count(list.begin(), list.end(), kUnusedSlot));
}

/// Marks what lies before one promotion square: a triangle that widens by a column on either side with each row towards
/// the start rows of the side (`rowStep` -1 for White), cut off at the edges of the board.
void MarkCone(std::array<Long, kBoardCells>& cone, Long promoSquare, Long rowStep) {
    Long left = ColumnOf(promoSquare);
    Long right = left;
    for (Long row = RowOf(promoSquare); row >= kFirstRow && row <= kLastRow; row += rowStep) {
        for (Long column = left; column <= right; ++column) cone[row * kBoardWidth + column] = 1;
        left = std::max(left - 1, 1);
        right = std::min(right + 1, kLastColumn);
    }
}

/// Calls `visit` for each step that leads off a promotion square of `side` in the way its opponent's men go. A step off
/// the board ends the list, also where later steps would stay on it.
template <typename Visit> void ForStepsFromPromotion(const DirectionRow& manSteps, Long promoSquare, Visit visit) {
    for (Long step : manSteps) {
        if (step == kEndOfSteps || !IsSquare(promoSquare + step)) return;
        visit(step);
    }
}

} // namespace

void BuildPromotionCones(const Position& position, EvaluationTables& tables) {
    tables.PromotionCone = {};
    for (Long side : {kWhite, kBlack}) {
        for (Long square : PromoSquares(position, side)) {
            if (IsSquare(square)) MarkCone(tables.PromotionCone[SideIndex(side)], square, -side);
        }
    }
    tables.ConesMatter = false;
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        if (!IsSquare(square) || (RowOf(square) + ColumnOf(square)) % 2 == 0) continue;
        if (tables.PromotionCone[0][square] == 0 || tables.PromotionCone[1][square] == 0) tables.ConesMatter = true;
    }
}

void BuildSquareValues(const Position& position, EvaluationTables& tables) {
    tables.SquareValue = {};
    for (Long side : {kWhite, kBlack}) {
        auto& values = tables.SquareValue[SideIndex(side)];
        const DirectionRow& manSteps = position.DirTable[PieceType(-side * kMan)];
        auto raise = [&](Long square, Long value) {
            if (values[square] == 0) values[square] = value * side;
        };

        // Three rings, each over all squares before the next, so that an inner ring is never overwritten.
        const PromotionList& promoSquares = PromoSquares(position, side);
        for (Long square : promoSquares) {
            if (IsSquare(square)) values[square] = 30 * side;
        }
        for (Long square : promoSquares) {
            if (!IsSquare(square)) continue;
            ForStepsFromPromotion(manSteps, square, [&](Long step) { raise(square + step, 20); });
        }
        for (Long square : promoSquares) {
            if (!IsSquare(square)) continue;
            ForStepsFromPromotion(manSteps, square, [&](Long first) {
                for (Long second : manSteps) {
                    if (second == kEndOfSteps) return;
                    if (first + second != 0) raise(square + first + second, 10);
                }
            });
        }
    }
}

void CountPromoSquares(const Position& position, EvaluationTables& tables) {
    Long white = UsedSlots(position.Rules.PromoW);
    Long black = UsedSlots(position.Rules.PromoB);
    tables.PromoCountMax = std::max(white, black) - 1;
    tables.PromoEven = white == black;
    if (!tables.PromoEven) tables.ConesMatter = false;
}

void BuildEvaluationTables(Position& position, EvaluationTables& tables) {
    position.Promotions = MarkPromotions(position.Rules); // the rules may have changed since the steps were adopted
    tables.ClosenessOn = position.Rules.KingWin == 0 && position.Rules.WinAtPromo == 0;
    BuildPromotionCones(position, tables);
    BuildSquareValues(position, tables);
    CountPromoSquares(position, tables);
    AdoptFamily(position, tables, RecognizeVariantFamily(position.Rules, position.InitialBoard));
}

void AdoptFamily(Position& position, EvaluationTables& tables, Family family) {
    tables.VariantFamily = family;
    tables.Closeness.Clear();
    if (family != Family::None) {
        BuildFastSquareValues(position, tables);
        BuildFamilyTerms(family, position, tables);
    }
    BuildPieceTerms(position, tables);
    RecountPieces(position);
}

void SetManThresholds(const Position& position, SearchState& search) {
    search.WhiteMenThreshold = std::max(position.WhiteMen - 6, 6);
    search.BlackMenThreshold = std::max(position.BlackMen - 6, 6);
}

} // namespace tavlon12
