#include "rules/position.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

namespace tavlon12 {

namespace {

constexpr Long kClassicPieceSum = 40; // what the classic start counts as, although 60 men stand there

/// Material of Black minus that of White, in hundredths of a man, with the men and the sum counted on the way.
Long CountStart(Position& position) {
    RecountPieces(position);
    position.PieceSum = position.WhiteMen = position.BlackMen = 0;
    Long balance = 0;
    for (Long cell : position.Board) {
        if (!IsLivePiece(cell)) continue;
        position.PieceSum += Magnitude(cell);
        balance -= cell;
        if (cell == kMan) ++position.WhiteMen;
        if (cell == -kMan) ++position.BlackMen;
    }
    return balance * 100;
}

void SetRootBalance(Position& position, Long balance) {
    position.Tree.PlyValue[0] = position.Tree.GameValue[0] = balance;
}

} // namespace

Sums SumsOf(const BoardCells& board, const PieceTermTable& terms) {
    Sums sums;
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        const Long piece = board[square];
        if (!IsLivePiece(piece)) continue;
        const Long type = PieceType(piece);
        sums.Key.Flip(type, square);
        ++sums.PieceCount[type];
        sums.TermSum += terms[type][square];
    }
    return sums;
}

PromotionMarks MarkPromotions(const RuleSet& rules) {
    PromotionMarks marks;
    for (Long side : {kWhite, kBlack}) {
        const PromotionList& list = side == kWhite ? rules.PromoW : rules.PromoB;
        for (Long slot = kPromotionSlots - 1; slot >= 0; --slot) { // the first of equal entries counts
            if (IsSquare(list[slot])) marks.FirstSlot[SideIndex(side)][list[slot]] = static_cast<Byte>(slot + 1);
        }
    }
    return marks;
}

void AdoptMovements(Position& position) {
    position.DirTable = DirectionsOf(position.Rules);
    position.Promotions = MarkPromotions(position.Rules);
    RecognizeBoardKind(position);
    ClassifySteps(position);
}

void RecognizeBoardKind(Position& position) {
    for (const DirectionRow& row : position.DirTable) {
        for (Long step : row) {
            if (step == 1 || step == -1) position.Rules.PiecesOnBlack = 2;
        }
    }
    position.DedupCaptures = position.Rules.LongKings == 1 && position.Rules.PiecesOnBlack == 2;
}

void ClassifySteps(Position& position) {
    bool anySideways = false;
    position.SidewaysStepsOnly = true;
    for (const DirectionRow& row : position.DirTable) {
        for (Long step : row) {
            Long size = std::abs(step);
            if (size == 1) anySideways = true;
            if (size != 1 && size != -kEndOfSteps) position.SidewaysStepsOnly = false;
        }
    }
    if (!anySideways) {
        position.SidewaysManyMen = false;
    } else if (position.WhiteMen > 12 && position.BlackMen > 12) {
        position.SidewaysManyMen = true; // with fewer men it stays as it was
    }
}

void ShiftPieces(Position& position, bool back) {
    for (Long row = kFirstRow; row <= kLastRow; ++row) {
        for (Long column = 1; column < kLastColumn; column += 2) {
            Long odd = row * kBoardWidth + column;
            bool toEven = (row % 2 == 0) != back;
            Long from = toEven ? odd : odd + 1;
            Long to = toEven ? odd + 1 : odd;
            if (position.Board[from] == kEmpty) continue;
            position.Board[to] = std::exchange(position.Board[from], kEmpty);
        }
    }
    RecountPieces(position);
}

void ShiftPromotions(Position& position) {
    for (PromotionList* list : {&position.Rules.PromoW, &position.Rules.PromoB}) {
        for (Long& square : *list) {
            if (square != kUnusedSlot) square += SquareColourShift(square, position.Rules.PiecesOnBlack).Shift;
        }
    }
    position.Promotions = MarkPromotions(position.Rules);
}

void MatchPiecesToColour(Position& position) {
    for (Long index = kFirstSquare; index <= kLastSquare; ++index) {
        if (!IsLivePiece(position.Board[index])) continue;
        Long oddSquare = index + SquareColourShift(index, 1).Shift;
        bool onOdd = IsLivePiece(position.Board[oddSquare]);
        if (position.Rules.PiecesOnBlack == 0 && onOdd) ShiftPieces(position, false);
        if (position.Rules.PiecesOnBlack != 0 && !onOdd) ShiftPieces(position, true);
        return;
    }
}

void PlaceClassicStart(Position& position) {
    position.Board = position.InitialBoard = ClassicStart();
    RecountPieces(position);
    position.PieceSum = kClassicPieceSum;
    SetRootBalance(position, 0);
}

void PlaceSetup(Position& position, std::string_view digits) {
    position.Board = position.InitialBoard = ReadPositionString(digits);
    SetRootBalance(position, CountStart(position));
}

void FinishNewPosition(Position& position, Byte definedColour) {
    RecognizeBoardKind(position);
    ClassifySteps(position);
    const RuleSet& rules = position.Rules;
    // `InitialBoard` keeps the digits as they are written for the other colour.
    if (rules.PiecesOnBlack == 0) ShiftPieces(position, false);
    if (rules.PiecesOnBlack < 2 && rules.PiecesOnBlack != definedColour) {
        ShiftPromotions(position);
    }
    position.Tree.SideToMove = rules.BlackStarts == 1 ? kBlack : kWhite;
    StartTree(position);
}

void AdoptBoard(Position& position) {
    position.InitialBoard = position.Board;
    Long balance = CountStart(position);
    bool whiteToMove = position.Tree.SideToMove == kWhite;
    SetRootBalance(position, whiteToMove ? -balance : balance);
    position.Tree.PlyMaterial[0] = position.Tree.GameMaterial[0] = position.PieceSum * 100;
    position.Rules.BlackStarts = whiteToMove ? 0 : 1;
}

void InitGameTree(Position& position) {
    GameTree& tree = position.Tree;
    assert(tree.Ply <= 1);
    if (tree.Ply == 0) return;
    tree.PlyValue[0] = tree.PlyValue[1];
    tree.PlyMaterial[0] = tree.PlyMaterial[1];
    tree.Ply = 0;
}

Repetition FindRepetition(const Position& position, Long index) {
    assert(index >= -1 && index < kTreeSize);
    Long count = 0;
    for (Long i = 0; i <= index; ++i) {
        if (position.PositionKeys[i] == position.Sums.Key) ++count;
    }
    PieceCensus census = CountPieces(position.Board);
    return {count, census.WhiteSum == kKing && census.BlackSum == kKing && !census.AnyMan};
}

void StartTree(Position& position) {
    GameTree& tree = position.Tree;
    tree.Ply = tree.TreeIndex = tree.PlyFirstMove[0] = 0;
    tree.TreeTo.fill(0);
    tree.TreeLastMan.fill(0);
    tree.TreeKingMan.fill(0);
    tree.WhiteOffBoard = tree.BlackOffBoard = position.Rules.ContractNumber;
    tree.PlyMaterial[0] = tree.GameMaterial[0] = position.PieceSum * 100;
}

} // namespace tavlon12
