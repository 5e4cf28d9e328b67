#pragma once

#include "rules/game_tree.h"
#include "rules/move_list.h"

#include <array>
#include <string>

namespace tavlon12 {

// Columns of `GameRows`.
inline constexpr Long kStrengthColumn = 4;
constexpr Long TextColumn(Long halfMove) {
    return halfMove % 2 == 0 ? 1 : 0;
}
constexpr Long KindColumn(Long halfMove) {
    return TextColumn(halfMove) + 2;
}
constexpr Long RowOfHalfMove(Long halfMove) {
    return (halfMove + 1) / 2;
}

// Kinds of a half-move.
inline constexpr const char* kByComputer = "1";
inline constexpr const char* kByPerson = "2";
inline constexpr const char* kFromFile = "3";

/// The game as half-moves counted from 1: half-move t leads to the position with `TreeIndex` t. A `From` of 0 in
/// `MoveHistory[t + 1]` marks the end.
struct GameRecord {
    Long LastMoveIndex = 0; ///< half-moves in the record; `TreeIndex` is below it after going back
    std::array<MoveRecord, kMaxHalfMoves + 2> MoveHistory{};
    std::array<Long, kMaxHalfMoves + 2> MoveScores{};
    std::array<Long, kMaxHalfMoves + 2> MoveChoices{}; ///< legal moves there were to choose from
    std::array<std::string, kMaxHalfMoves + 2>
        MoveComments{}; ///< of the position after the half-move; entry 0 of the start

    /// Row n holds the pair n from 1 on. Columns 0 and 1: move key, a blank, shown text ("c3d4 c3-d4"); 2 and 3: kind;
    /// 4: the depth of the row's computer move, or "2" after a person's.
    std::array<std::array<std::string, 5>, kMaxHalfMoves / 2 + 2> GameRows{};

    bool operator==(const GameRecord&) const = default;
};

} // namespace tavlon12
