#include "engine/fast_evaluate.h"

#include "engine/evaluate.h"
#include "engine/evaluation_terms.h"
#include "rules/move_scan.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace tavlon12 {

namespace {

constexpr Long kFamilyLazyMargin = 150;
constexpr Long kFamilyPromotionSlots = 6;

/// The positional terms of a family, seen from White.
template <Family F>
struct FamilyScan {
    static constexpr bool kFlying = F == Family::German || F == Family::Russian;
    static constexpr std::size_t kCentreOf = F == Family::Italian ? 0 : 1;

    const Position& Pos;
    const EvaluationTables& Tables;
    const Census& Pieces;

    Long Closeness(Long square, Long side) const {
        Long support = Isamulti(Pos, square, side);
        Long nearness = kNearness - Distance(Pieces.Target[SideIndex(-side)], square);
        return support * (nearness / 3) - (support == 1 ? 10 : 0);
    }

    static Long King(Long square) {
        if constexpr (kFlying) {
            if (kMainLine[square]) return 125;
            return kBadKingSquares[square] ? 50 : 75;
        }
        return 25 + KingAtEdge(square);
    }

    Long Man(Long square, Long side) const {
        Long score = Tables.SquareValue[SideIndex(side)][square];
        const PromotionList& guarded = PromoSquares(Pos, -side);
        for (Long slot : {1, 3, 5}) {
            if (guarded[slot] == square) return score + 20;
        }
        for (Long slot : {0, 2, 4}) {
            if (guarded[slot] == square) return score + 10;
        }
        return score;
    }

    Long Piece(Long square, Long piece) const {
        Long side = piece > 0 ? kWhite : kBlack;
        Long score = Closeness(square, side) + (kCentre[kCentreOf][square] ? 20 : 0);
        return side * (score + (Magnitude(piece) == kKing ? King(square) : Man(square, side)));
    }

    /// Lines of three squares from the promotion squares of `side` on, where the other colour's men stand at home.
    Long BackRank(Long side) const {
        const DirectionRow& manSteps = Pos.DirTable[PieceType(-side * kMan)];
        const PromotionList& list = PromoSquares(Pos, side);
        Long score = 0;
        for (Long slot = 0; slot < kFamilyPromotionSlots; ++slot) score += BackRankOf(list[slot], side, manSteps);
        return score;
    }

    Long BackRankOf(Long promoSquare, Long side, const DirectionRow& manSteps) const {
        const BoardCells& board = Pos.Board;
        Long first = board[promoSquare];
        Long score = 0;
        for (Long step : manSteps) {
            if (step == kEndOfSteps) break;
            Long second = board[promoSquare + step];
            if (second == kBorder) break;
            for (Long next : manSteps) {
                if (next == kEndOfSteps) break;
                if (next == -step) continue;
                Long third = board[promoSquare + step + next];
                // An open line counts by both cases.
                if (first == kEmpty && second == kEmpty && third == kEmpty) score += 30 * side;
                if (first == kEmpty && (second == kEmpty || third == kEmpty)) score += 20 * side;
                if (next == step && Magnitude(first) == kMan && first == second && first == third) score += 30 * first;
            }
        }
        return score;
    }
};

} // namespace

template <Family F>
Long EvaluateFamily(Position& position, SearchState& search, Long alpha, Long beta, Long side) {
    const GameTree& tree = position.Tree;
    search.LostFlag = false;
    const Census census = TakeCensus(position);
    std::size_t own = SideIndex(side);
    if (census.Pieces[own] <= position.Rules.NumberPieces) search.LostFlag = true;
    if (census.Pieces[1 - own] <= position.Rules.NumberPieces) return kWin - tree.Ply;

    Long material = tree.PlyValue[tree.Ply];
    if (material < alpha - kFamilyLazyMargin || material > beta + kFamilyLazyMargin) return material;
    if (search.RepeatCount > 0) return 0;

    const FamilyScan<F> scan{position, search.Tables, census};
    Long score = 0;
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        if (IsLivePiece(position.Board[square])) score += scan.Piece(square, position.Board[square]);
    }
    if (RepeatsElseStore(position)) return 0;
    if (census.Men[0] > search.WhiteMenThreshold) score += scan.BackRank(kWhite);
    if (census.Men[1] > search.BlackMenThreshold) score += scan.BackRank(kBlack);
    return material + side * score + Noise(search);
}

template Long EvaluateFamily<Family::American>(Position&, SearchState&, Long, Long, Long);
template Long EvaluateFamily<Family::Italian>(Position&, SearchState&, Long, Long, Long);
template Long EvaluateFamily<Family::German>(Position&, SearchState&, Long, Long, Long);
template Long EvaluateFamily<Family::Russian>(Position&, SearchState&, Long, Long, Long);

Long EvaluateFamily(Family family, Position& position, SearchState& search, Long alpha, Long beta, Long side) {
    assert(family != Family::None);
    switch (family) {
    case Family::American: return EvaluateFamily<Family::American>(position, search, alpha, beta, side);
    case Family::Italian: return EvaluateFamily<Family::Italian>(position, search, alpha, beta, side);
    case Family::German: return EvaluateFamily<Family::German>(position, search, alpha, beta, side);
    case Family::Russian: return EvaluateFamily<Family::Russian>(position, search, alpha, beta, side);
    case Family::None: break;
    }
    return 0;
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
