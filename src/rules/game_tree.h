#pragma once

#include "rules/board.h"
#include "rules/move_list.h"

#include <array>

namespace tavlon12 {

inline constexpr Long kMaxHalfMoves = 1000;

/// Room of the arrays by half-move: a full game and the longest search line on top of it.
inline constexpr Long kTreeSize = kMaxHalfMoves + kMaxPly + 2;

/// Everything that is stacked per move. Arrays by ply hold the state along the current line of the search, arrays by
/// half-move (Tree...) what must be undone for each half-move of the game and the search line together.
struct GameTree {
    Long Ply = 0;       ///< depth from the current root, 0 to 100
    Long TreeIndex = 0; ///< half-moves made since the start of the game, search line included
    Long SideToMove = kWhite;
    Long NextMoveSlot = 0; ///< first free slot of the move list
    std::array<Long, kMaxPly + 2> PlyFirstMove{};
    std::array<Long, kMaxPly + 2> PlyValue{}; ///< material balance in hundredths of a man, seen from the side to move
    std::array<Long, kMaxPly + 2> PlyMaterial{}; ///< sum of both sides' material in the same unit
    std::array<Long, kMaxPly + 2> PlyLastTo{};   ///< destination of the move that led to the ply
    std::array<Long, kMaxPly + 2> PlyForcing{};  ///< 1 when that move captured or promoted
    std::array<Long, kTreeSize> TreeTo{};        ///< destination of each half-move
    std::array<Long, kTreeSize> TreeLastMan{};   ///< where the last man of a side was crowned, 0 if nowhere
    std::array<Long, kTreeSize> TreeKingMan{};   ///< 1 when a capturing king turned into a man
    std::array<Long, kTreeSize> GameValue{};     ///< `PlyValue` after each half-move of the game
    std::array<Long, kTreeSize> GameMaterial{};  ///< `PlyMaterial` after each half-move of the game
    Long WhiteOffBoard = 0;
    Long BlackOffBoard = 0;
};

/// Whether the ply has moves after a generation.
inline Long MoveCount(const GameTree& tree) {
    return tree.NextMoveSlot - tree.PlyFirstMove[tree.Ply];
}

} // namespace tavlon12
