#include "engine/reference_evaluate.h"

#include "rules/move_scan.h"

#include <algorithm>
#include <cstdlib>

namespace tavlon12::support {

namespace {

bool IsOneOf(Long square, std::initializer_list<Long> squares) {
    return std::find(squares.begin(), squares.end(), square) != squares.end();
}

bool IsCentre(Long square, Long piecesOnBlack) {
    if (piecesOnBlack == 0) return IsOneOf(square, {101, 103, 105, 107, 116, 118, 120, 122});
    if (piecesOnBlack == 1) return IsOneOf(square, {102, 104, 106, 108, 115, 117, 119, 121});
    Long column = ColumnOf(square);
    return (RowOf(square) == 7 || RowOf(square) == 8) && column != 6 && column != 7;
}

Long KingWorth(const RuleSet& rules, Long square) {
    Long score = 25;
    if (rules.ManCapKing == 0) score += 25;
    if (rules.LongKings == 1) {
        score += 50;
        bool mainLine = square % 15 == 14; // 29, 44 and so on
        if (mainLine) score += 50;
        if (!mainLine && IsOneOf(square, {35, 110, 113, 188})) score -= 25;
        return score;
    }
    if (ColumnOf(square) == 1 || ColumnOf(square) == 12) score -= 10;
    if (RowOf(square) == 2 || RowOf(square) == 13) score -= 10;
    return score;
}

Long HomeManWorth(const RuleSet& rules, const PromotionList& guarded, Long square) {
    std::size_t slots = rules.PiecesOnBlack >= 2 ? 12 : 6;
    for (std::size_t slot = 1; slot < slots; slot += 2) {
        if (guarded[slot] == square) return 20;
    }
    for (std::size_t slot = 0; slot < slots; slot += 2) {
        if (guarded[slot] == square) return 10;
    }
    return 0;
}

/// Of Black's men the last with columns counted down, of White's the first; a king before any man.
Long Target(const BoardCells& board, Long side) {
    Long target = 0;
    Long best = 0;
    for (Long row = 2; row <= 13; ++row) {
        for (Long column = 12; column >= 1; --column) {
            Long square = row * 14 + column;
            Long worth = board[square] * side;
            if (worth <= 0 || worth < best || (worth == best && side == kWhite)) continue;
            best = worth;
            target = square;
        }
    }
    return target;
}

Long BackRank(const Position& position, Long side) {
    Long score = 0;
    const DirectionRow& steps = position.DirTable[side == kWhite ? 1 : 0];
    for (Long goal : PromoSquares(position, side)) {
        if (goal == kUnusedSlot) continue;
        Long a = position.Board[goal];
        for (Long e : steps) {
            if (e == kEndOfSteps || e == 1 || e == -1) break;
            Long b = position.Board[goal + e];
            if (b == kBorder) break;
            for (Long f : steps) {
                if (f == kEndOfSteps) break;
                if (e + f == 0) continue;
                Long g = position.Board[goal + e + f];
                bool open = a == 0 && b == 0 && g == 0;
                if (open) score += 30 * side;
                if (!open && a == 0 && (b == 0 || g == 0)) score += 20 * side;
                if (f == e && a == 1 && b == 1 && g == 1) score += 30;
                if (f == e && a == -1 && b == -1 && g == -1) score -= 30;
            }
        }
    }
    return score;
}

} // namespace

Long ReferenceEvaluate(const Position& position, const SearchState& search, Long side) {
    const BoardCells& board = position.Board;
    const RuleSet& rules = position.Rules;
    const EvaluationTables& tables = search.Tables;
    Long pieces = 0;
    Long men[2] = {0, 0};
    for (Long cell : board) {
        if (IsLivePiece(cell)) ++pieces;
        if (cell == kMan) ++men[0];
        if (cell == -kMan) ++men[1];
    }
    const bool many[2] = {men[0] > search.WhiteMenThreshold, men[1] > search.BlackMenThreshold};
    const Long target[2] = {Target(board, kWhite), Target(board, kBlack)};
    Long firstRow[2] = {0, 0};

    Long p = 0;
    for (Long square = 29; square <= 194; ++square) {
        Long piece = board[square];
        if (piece == kBorder) continue;
        if (piece == kEmpty) {
            for (std::size_t s : {0, 1})
                p += many[s] ? tables.SquareValue[s][square] : tables.SquareValue[s][square] / 2;
            continue;
        }
        Long colour = piece > 0 ? kWhite : kBlack;
        std::size_t s = SideIndex(colour);
        bool king = Magnitude(piece) == kKing;
        const PromotionList& goals = PromoSquares(position, colour);
        const PromotionList& home = PromoSquares(position, -colour);
        Long nearness = 23 - Distance(target[1 - s], square);

        p += (many[s] ? 2 : 1) * tables.SquareValue[s][square];
        if (tables.ClosenessOn) p += colour * Isamulti(position, square, colour) * (nearness / (king ? 3 : 1));
        if (IsCentre(square, rules.PiecesOnBlack)) p += colour * 20;
        p += colour * (king ? KingWorth(rules, square) : HomeManWorth(rules, home, square));
        if (!king && tables.ConesMatter && tables.PromotionCone[s][square] == 0) p -= colour * 75;
        for (std::size_t slot = 0; slot < goals.size(); ++slot) {
            if (rules.WinAtPromo == 1 && king && home[slot] != kUnusedSlot) {
                p += colour * 2 * (46 - Distance(home[slot], square));
            }
            if (rules.WinAtPromo == 1 && !king && goals[slot] != kUnusedSlot) {
                p += colour * (23 - Distance(goals[slot], square));
            }
            if (rules.KingWin == 1 && goals[slot] != kUnusedSlot)
                p += colour * 2 * (23 - Distance(goals[slot], square));
        }
        for (Long slot = 0; slot <= tables.PromoCountMax; ++slot) {
            if (rules.KingWin != 1 || tables.PromoEven || goals[static_cast<std::size_t>(slot)] != kUnusedSlot)
                continue;
            double pull = (2 - pieces * 0.01) * nearness;
            p = RoundHalfEven(colour == kWhite ? p + pull : p - pull);
            Long row = RowOf(square) - 1;
            if (firstRow[s] == 0) firstRow[s] = row;
            p -= colour * 10 * std::abs(firstRow[s] - row);
        }
    }
    if (many[0] && search.BackRankOn) p += BackRank(position, kWhite);
    if (many[1] && search.BackRankOn) p += BackRank(position, kBlack);
    Long value = position.Tree.PlyValue[position.Tree.Ply] + side * p;
    return rules.AntiMode == 1 ? -value : value;
}

} // namespace tavlon12::support
