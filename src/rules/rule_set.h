#pragma once

#include "rules/basics.h"

#include <array>
#include <string>

namespace tavlon12 {

inline constexpr Long kPromotionSlots = 20;
inline constexpr Long kUnusedSlot = -1;

/// As `NumberFriends`: a run of any length.
inline constexpr Long kUnlimited = -1;

/// Board indices in list order; unused slots hold -1.
using PromotionList = std::array<Long, kPromotionSlots>;

constexpr PromotionList PromotionRow(Long first) {
    PromotionList list;
    list.fill(kUnusedSlot);
    for (Long i = 0; i < 6; ++i) list[i] = first + 2 * i;
    return list;
}

/// All rules of a variant. A flag is on when it is exactly 1. The values on the right are those of Canadian Checkers.
struct RuleSet {
    // Captures
    Byte MulJumps = 1;           ///< a capture goes on while a further jump exists
    Byte MaxCapMove = 1;         ///< only captures of the most pieces
    Byte MaxCapMoveKings = 0;    ///< with MaxCapMove: among them only those of the most kings
    Byte MaxCapMoveK = 1;        ///< a flying king may not stop shorter than its walk has already reached
    Byte CapRequired = 1;        ///< no quiet move while a capture exists
    Byte KingCapMove = 0;        ///< a king's capture goes before a man's
    Byte LastCap = 0;            ///< captures that start with the piece moved last go before others
    Byte ManCapKing = 1;         ///< men may jump kings
    Byte ManContJump = 1;        ///< a man passes a promotion square in a capture when it can jump on
    Byte ManContJumpCrowned = 0; ///< and becomes a king on the spot
    Byte ManCapMoveKing = 0;     ///< men capture along lines like flying kings
    Byte LongKings = 1;          ///< flying kings
    Byte KingFirst = 0;          ///< a flying piece lands right behind the jumped piece
    Byte CapReverse = 0;         ///< a flying piece may jump straight back
    Byte RemovePieces = 1;       ///< jumped pieces block until the move is over
    Long JumpFriend = 0;         ///< quiet jump over a run of own like pieces
    Long NumberFriends = 0;      ///< exact length of the run, -1 any

    // Change of pieces
    Byte KingMan = 0;    ///< a king that captures becomes a man
    Byte ManKing = 0;    ///< a side whose only piece is a man gets it crowned
    Byte ChangeSide = 0; ///< a promoted man becomes the opponent's king

    // Start, goal and end
    Byte BlackStarts = 0;
    Byte RndColor = 0;
    Byte PiecesOnBlack = 1; ///< 1: row + column odd is played on, 0: even, 2: all squares
    Byte AntiMode = 0;      ///< who has no pieces or no moves has won
    Byte WinAtPromo = 0;    ///< a king that returns to its home squares wins
    Byte KingWin = 0;       ///< the first king wins
    Byte NoLegalDraw = 0;   ///< pieces but no move is a draw
    Long NumberPieces = 0;  ///< a side with this many pieces or fewer has lost
    Byte ThreeKings = 0;
    Byte NumberKings = 0; ///< moves until the draw of three kings against one
    Long TwoKings = 0;
    Long NumberKings2 = 0;
    Byte RemoveMen = 0;
    Byte NumberMen = 0;
    Byte DoMoves = 0;
    Byte NumberMoves = 0;

    // Pieces off the board; the rows are board rows 2 to 13
    Long canContract = 0;
    Long ContractNumber = 0;
    Long ContractW1 = 0;
    Long ContractW2 = 0;
    Long ContractB1 = 0;
    Long ContractB2 = 0;

    PromotionList PromoW = PromotionRow(184);
    PromotionList PromoB = PromotionRow(29);

    std::string WhiteManMovement = "NW;NE NW;NE;SE;SW";
    std::string BlackManMovement = "NW;NE NW;NE;SE;SW";
    std::string WhiteKingMovement = "NW;NE;SE;SW NW;NE;SE;SW";
    std::string BlackKingMovement = "NW;NE;SE;SW NW;NE;SE;SW";

    std::string Setup = "normal"; ///< or 144 digits

    bool operator==(const RuleSet&) const = default;
};

} // namespace tavlon12
