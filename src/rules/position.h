#pragma once

#include "rules/board.h"
#include "rules/capture_table.h"
#include "rules/directions.h"
#include "rules/game_tree.h"
#include "rules/key_history.h"
#include "rules/move_list.h"
#include "rules/piece_terms.h"
#include "rules/position_key.h"
#include "rules/rule_set.h"

#include <array>
#include <cassert>
#include <string>

namespace tavlon12 {

/// A limit that a generator has passed. The board is whole again; the search unwinds as on a stop.
struct GeneratorFault {
    enum class Kind { None, Jumps, Rows, Work } Limit = Kind::None;
    bool OfFamily = false; ///< it was a family's generator
    Long Depth = 0;        ///< jumps of the walk when the limit was passed
    Long Rows = 0;         ///< captures recorded until then

    bool Passed() const { return Limit != Kind::None; }
};

// Values of `StopFlag`.
inline constexpr Long kStopCancel = 1; ///< the user cancelled, or the move list is full
inline constexpr Long kStopTime = 2;
inline constexpr Long kStopQuit = 3; ///< the program ends: nothing is worth finishing

// Jumps that all walks of one call of a generator may make together before the call counts as running away: a few
// seconds' worth for the position on the board, a tenth of a second's in lookahead.
inline constexpr Long kRootJumps = 4'000'000;
inline constexpr Long kLookaheadJumps = 200'000;

/// Which squares promote, by the slots of the two lists: men in general ask all slots, friend jumps the first 12, the
/// families the first 6.
struct PromotionMarks {
    std::array<std::array<Byte, kBoardCells>, 2> FirstSlot{}; ///< by side, the slot of the square from 1 on; 0 for none

    bool Has(Long side, Long square, Long slots) const {
        Byte slot = FirstSlot[SideIndex(side)][square];
        return slot != 0 && slot <= slots;
    }
};

PromotionMarks MarkPromotions(const RuleSet& rules);

/// What follows from the pieces on a board. Putting and lifting a piece keep it up to date.
struct Sums {
    PositionKey Key;                  ///< the pieces as sets of squares
    std::array<Long, 4> PieceCount{}; ///< by piece type
    PieceTerms TermSum;               ///< over the pieces on the board

    bool operator==(const Sums&) const = default;
};

/// The sums counted anew. Marked pieces count as empty squares.
Sums SumsOf(const BoardCells& board, const PieceTermTable& terms);

/// The rules in force and everything that moves change. It is large: keep it on the heap or static.
struct Position {
    RuleSet Rules; ///< as they are played
    DirectionTable DirTable = DirectionsOf(RuleSet());
    PromotionMarks Promotions = MarkPromotions(RuleSet());

    // Follow from the rules and the start position
    bool DedupCaptures = false;     ///< routes over the same pieces count as one capture
    bool SidewaysStepsOnly = false; ///< every step is one cell sideways
    bool SidewaysManyMen = false;   ///< sideways steps, and more than 12 men each at the start
    Long PieceSum = 0;              ///< magnitudes of the start position
    Long WhiteMen = 0;              ///< men of the start position, when it was counted
    Long BlackMen = 0;

    BoardCells Board = EmptyBoard();
    tavlon12::Sums Sums;            ///< of `Board`
    PieceTermTable TermsOfPieces{}; ///< what the evaluations want summed up, set when their tables are built
    BoardCells InitialBoard = EmptyBoard();
    GameTree Tree;
    MoveList Moves{};
    tavlon12::SortScores SortScores{}; ///< of `Moves`
    KillerMoves Killers{};
    BestLineTable BestLine{};
    KeyHistory PositionKeys;

    bool LastCapAnyPly = false; ///< the rule on the piece moved last also holds below the root
    Long StopFlag = 0;
    Long JumpLimit = kRootJumps; ///< of one call of a generator
    GeneratorFault Fault;
    CaptureTable Captures;     ///< of the last call of `GenerateMoves`
    CaptureTable ScanCaptures; ///< of the evaluation's move scan
};

/// Puts a piece onto an empty square, with its key and count; and takes it off again.
inline void PutPiece(Position& position, Long square, Long piece) {
    assert(IsLivePiece(piece) && position.Board[square] == kEmpty);
    Long type = PieceType(piece);
    position.Board[square] = piece;
    position.Sums.Key.Flip(type, square);
    ++position.Sums.PieceCount[type];
    position.Sums.TermSum += position.TermsOfPieces[type][square];
}

inline void LiftPiece(Position& position, Long square) {
    assert(IsLivePiece(position.Board[square]));
    Long type = PieceType(position.Board[square]);
    position.Board[square] = kEmpty;
    position.Sums.Key.Flip(type, square);
    --position.Sums.PieceCount[type];
    position.Sums.TermSum -= position.TermsOfPieces[type][square];
}

/// Whether the sums are those of the board, which has no marked piece then: what generators assert at entry and exit.
inline bool SumsMatchBoard(const Position& position) {
    return position.Sums == SumsOf(position.Board, position.TermsOfPieces);
}

/// Counts the sums anew after cells of the board or the terms were written directly.
inline void RecountPieces(Position& position) {
    position.Sums = SumsOf(position.Board, position.TermsOfPieces);
}

/// All pieces of a side, and the squares that are free for a step.
inline SquareSet PiecesOf(const Position& position, Long side) {
    Long man = PieceType(side * kMan);
    return position.Sums.Key.Sets[man] | position.Sums.Key.Sets[man + 2];
}

inline SquareSet EmptySquares(const Position& position) {
    return kAllSquares - (PiecesOf(position, kWhite) | PiecesOf(position, kBlack));
}

/// Promotion squares of a side's men, as the rules in force have them.
inline const PromotionList& PromoSquares(const Position& position, Long side) {
    return side == kWhite ? position.Rules.PromoW : position.Rules.PromoB;
}

/// Whether a square is among the first `slots` promotion squares of a side.
inline bool IsPromotionSquare(const Position& position, Long side, Long square, Long slots = kPromotionSlots) {
    return position.Promotions.Has(side, square, slots);
}

/// Takes over the steps and the promotion squares of the rules: `DirTable` and the marks anew, then
/// `RecognizeBoardKind` and `ClassifySteps`.
void AdoptMovements(Position& position);

/// A step of +1 or -1 makes all squares playable; flying kings on such a board make `DedupCaptures` 1.
void RecognizeBoardKind(Position& position);

/// Sets `SidewaysStepsOnly` and `SidewaysManyMen` from the steps and the men of the start.
void ClassifySteps(Position& position);

/// Moves every piece between the two squares of its column pair: `back` false from row + column odd to even, true the
/// reverse.
void ShiftPieces(Position& position, bool back);

/// Moves each used promotion slot onto the playing colour.
void ShiftPromotions(Position& position);

/// Brings the pieces onto the playing colour after the rule on colour has changed.
void MatchPiecesToColour(Position& position);

/// The first three steps of a new game but the reading of the definition: the classic start on `Board` and
/// `InitialBoard`, with a balance of 0 and the material sum 40 that such a start has.
void PlaceClassicStart(Position& position);

/// What a definition's `Setup` line gives: the digits on `Board` and `InitialBoard`, the men and the sum counted, the
/// balance of the root seen from Black.
void PlaceSetup(Position& position, std::string_view digits);

/// The last two steps of a new game: the pieces and, where the definition was written for the other colour
/// (`definedColour`, its `PiecesOnBlack`), the promotion squares onto the playing colour, the side to move from
/// `BlackStarts`, the tree empty, the material of the root.
void FinishNewPosition(Position& position, Byte definedColour);

/// Makes the board, set by hand or drawn, the start of a game: `InitialBoard`, counts, balance and `BlackStarts`
/// follow.
void AdoptBoard(Position& position);

/// Makes the present position the root, when exactly one move has been made and is accepted as played.
void InitGameTree(Position& position);

struct Repetition {
    Long RepeatCount;    ///< how many of the keys 0 to `index` equal the key of the board
    bool KingsOnlyFound; ///< one king each and nothing else
};

/// Compares the board with `PositionKeys[0..index]`; an index of -1 compares with none.
Repetition FindRepetition(const Position& position, Long index);

/// The tree of a game that begins on the board: plies and half-moves empty, all pieces in hand, the material of the
/// root as it was counted. The side to move and the balance stay.
void StartTree(Position& position);

} // namespace tavlon12
