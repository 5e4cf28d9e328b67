#include "engine/evaluate.h"

#include "engine/evaluation_terms.h"
#include "rules/move_scan.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>

namespace tavlon12 {

namespace {

/// Whether the side to move has lost all its moves where that is a draw.
bool IsDrawWithoutMoves(Position& position, const Census& census) {
    return census.Pieces[0] > 0 && census.Pieces[1] > 0 && !GenerateMoves1(position, 1);
}

/// The positional part of the score while the scan goes over the board: whole hundredths of a man, seen from White.
struct PositionalScan {
    const Position& Pos;
    const SearchState& Search;
    const Census& Men;
    std::array<bool, 2> ManyMen;    ///< the side is still in the opening
    std::array<Long, 2> FirstRow{}; ///< the row of the side's first piece met, from 1 on; 0 before that
    Long Score = 0;

    PositionalScan(const Position& position, const SearchState& search, const Census& census)
        : Pos(position), Search(search),
          Men(census), ManyMen{census.Men[0] > search.WhiteMenThreshold, census.Men[1] > search.BlackMenThreshold} {}

    const RuleSet& Rules() const { return Pos.Rules; }
    const EvaluationTables& Tables() const { return Search.Tables; }

    void AddEmptySquare(Long square);
    template <Long side> void AddPiece(Long square, Long piece);

    template <Long side> Long Advancement(Long square) const;
    template <Long side> Long Closeness(Long square, bool king) const;
    Long Centre(Long square) const;
    Long King(Long square) const;
    Long LongKing(Long square) const;
    template <Long side> Long HomeMan(Long square) const;
    template <Long side> Long OutsideCones(Long square) const;
    template <Long side> Long Return(Long square, bool king) const;
    template <Long side> Long RaceToFirstKing(Long square) const;
    template <Long side> void AddUnevenRace(Long square);

    void AddBackRank(Long side);
    void AddBackRankOf(Long promoSquare, Long sign, const DirectionRow& manSteps);
};

void PositionalScan::AddEmptySquare(Long square) {
    for (std::size_t s : {0, 1}) {
        Long value = Tables().SquareValue[s][square];
        Score += ManyMen[s] ? value : value / 2;
    }
}

/// The square values carry the sign of their side.
template <Long side> Long PositionalScan::Advancement(Long square) const {
    constexpr std::size_t s = SideIndex(side);
    Long value = Tables().SquareValue[s][square];
    return ManyMen[s] ? 2 * value : value;
}

/// Pieces with support seek the opponent.
template <Long side> Long PositionalScan::Closeness(Long square, bool king) const {
    Long nearness = kNearness - Distance(Men.Target[SideIndex(-side)], square);
    return Isamulti(Pos, square, side) * (nearness / (king ? 3 : 1));
}

Long PositionalScan::Centre(Long square) const {
    return kCentre[std::min<Long>(Rules().PiecesOnBlack, 2)][square] ? 20 : 0;
}

Long PositionalScan::King(Long square) const {
    Long score = Rules().ManCapKing == 0 ? 50 : 25;
    return score + (Rules().LongKings == 1 ? LongKing(square) : KingAtEdge(square));
}

Long PositionalScan::LongKing(Long square) const {
    if (kMainLine[square]) return 100;
    return kBadKingSquares[square] ? 25 : 50;
}

/// A man that guards a square on which the opponent promotes; every other slot of the list counts double.
template <Long side> Long PositionalScan::HomeMan(Long square) const {
    const PromotionList& guarded = PromoSquares(Pos, -side);
    Long slots = Rules().PiecesOnBlack >= 2 ? 12 : 6;
    bool guards = false;
    for (Long slot = 0; slot < slots; ++slot) {
        if (guarded[slot] != square) continue;
        if (slot % 2 != 0) return 20;
        guards = true;
    }
    return guards ? 10 : 0;
}

/// A man that has gone past all its promotion squares.
template <Long side> Long PositionalScan::OutsideCones(Long square) const {
    return Tables().PromotionCone[SideIndex(side)][square] == 0 ? -75 : 0;
}

/// Men on their way to promotion, kings on their way back.
template <Long side> Long PositionalScan::Return(Long square, bool king) const {
    Long score = 0;
    for (Long goal : PromoSquares(Pos, king ? -side : side)) {
        if (!IsSquare(goal)) continue;
        Long distance = Distance(goal, square);
        score += king ? 2 * (2 * kNearness - distance) : kNearness - distance;
    }
    return score;
}

template <Long side> Long PositionalScan::RaceToFirstKing(Long square) const {
    Long score = 0;
    for (Long goal : PromoSquares(Pos, side)) {
        if (IsSquare(goal)) score += 2 * (kNearness - Distance(goal, square));
    }
    return score;
}

/// Where one side has fewer promotion squares, each that it lacks draws its pieces to the opponent and holds their rows
/// together. The score is rounded each time as a whole, so that the terms before it decide a tie.
template <Long side> void PositionalScan::AddUnevenRace(Long square) {
    Long nearness = kNearness - Distance(Men.Target[SideIndex(-side)], square);
    double pull = (2 - Men.AllPieces() * 0.01) * nearness;
    Long row = RowOf(square) - 1;
    Long& firstRow = FirstRow[SideIndex(side)];
    for (Long slot = 0; slot <= Tables().PromoCountMax; ++slot) {
        if (IsSquare(PromoSquares(Pos, side)[slot])) continue;
        Score = RoundHalfEven(Score + side * pull);
        if (firstRow == 0) firstRow = row;
        Score -= side * 10 * std::abs(firstRow - row);
    }
}

template <Long side> void PositionalScan::AddPiece(Long square, Long piece) {
    bool king = Magnitude(piece) == kKing;
    Score += Advancement<side>(square);
    Long own = Centre(square);
    if (Tables().ClosenessOn) own += Closeness<side>(square, king);
    if (king) {
        own += King(square);
    } else {
        own += HomeMan<side>(square);
        if (Tables().ConesMatter) own += OutsideCones<side>(square);
    }
    if (Rules().WinAtPromo == 1) own += Return<side>(square, king);
    if (Rules().KingWin == 1) own += RaceToFirstKing<side>(square);
    Score += side * own;
    if (Rules().KingWin == 1 && !Tables().PromoEven) AddUnevenRace<side>(square);
}

/// While there are many men, the squares before `side`'s promotion, where the other colour's men stand at home.
void PositionalScan::AddBackRank(Long side) {
    const DirectionRow& manSteps = Pos.DirTable[PieceType(-side * kMan)];
    for (Long square : PromoSquares(Pos, side)) {
        if (IsSquare(square)) AddBackRankOf(square, side, manSteps);
    }
}

/// Lines of three squares from a promotion square on: open lines are good for the side (`sign`) that promotes there. A
/// full straight line is good for its owner.
void PositionalScan::AddBackRankOf(Long promoSquare, Long sign, const DirectionRow& manSteps) {
    const BoardCells& board = Pos.Board;
    Long first = board[promoSquare];
    for (Long step : manSteps) {
        if (step == kEndOfSteps || std::abs(step) == 1) return;
        Long second = board[promoSquare + step];
        if (second == kBorder) return;
        for (Long next : manSteps) {
            if (next == kEndOfSteps) break;
            if (next == -step) continue;
            Long third = board[promoSquare + step + next];
            if (first == kEmpty && second == kEmpty && third == kEmpty) {
                Score += 30 * sign;
            } else if (first == kEmpty && (second == kEmpty || third == kEmpty)) {
                Score += 20 * sign;
            }
            if (next == step && Magnitude(first) == kMan && first == second && first == third) Score += 30 * first;
        }
    }
}

/// All positional terms of the board, seen from White.
Long PositionalScore(const Position& position, const SearchState& search, const Census& census) {
    PositionalScan scan(position, search, census);
    for (Long row = kFirstRow; row <= kLastRow; ++row) {
        for (Long square = row * kBoardWidth + 1; square <= row * kBoardWidth + kLastColumn; ++square) {
            Long piece = position.Board[square];
            if (piece == kEmpty) {
                scan.AddEmptySquare(square);
            } else if (piece > 0) {
                scan.AddPiece<kWhite>(square, piece);
            } else {
                scan.AddPiece<kBlack>(square, piece);
            }
        }
    }
    if (search.BackRankOn) {
        if (scan.ManyMen[0]) scan.AddBackRank(kWhite);
        if (scan.ManyMen[1]) scan.AddBackRank(kBlack);
    }
    return scan.Score;
}

} // namespace

Long Evaluate(Position& position, SearchState& search, Long alpha, Long beta, Long side) {
    const GameTree& tree = position.Tree;
    const RuleSet& rules = position.Rules;
    bool anti = rules.AntiMode == 1;
    assert(tree.Ply <= kMaxPly && (side == kWhite || side == kBlack));

    search.LostFlag = false;
    Census census = TakeCensus(position);

    if (rules.NoLegalDraw == 1) {
        search.NoMovesDraw = IsDrawWithoutMoves(position, census);
        if (search.NoMovesDraw) return 0;
    }

    // In anti mode each side plays for what the other has.
    std::size_t own = SideIndex(anti ? -side : side);
    std::size_t other = 1 - own;
    if (census.Pieces[own] <= rules.NumberPieces || census.AtGoal[other]) search.LostFlag = true;
    if (census.Pieces[other] <= rules.NumberPieces || census.AtGoal[own]) return kWin - tree.Ply;

    Long material = tree.PlyValue[tree.Ply];
    Long value = material;
    bool faraway = material < alpha - search.LazyMargin || material > beta + search.LazyMargin;
    if (tree.PlyMaterial[tree.Ply] <= 0 || !faraway) {
        if (search.RepeatCount > 0 || RepeatsElseStore(position)) return 0;
        value += side * PositionalScore(position, search, census) + Noise(search);
    }
    return anti ? -value : value;
}

} // namespace tavlon12
