#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// What the record keeps of a half-move beside its texts.
struct HalfMoveEntry {
    MoveRecord Move;
    const char* Kind = kByPerson; ///< `kByComputer`, `kByPerson` or `kFromFile`
    Long Choices = 0;             ///< legal moves there were to choose from
    Long Score = 0;
    std::string Depth; ///< for the strength column: the search's depth, "2" for a person
};

/// Enters the move that has just been made on the board, with the texts in `MoveText`, as the last half-move of the
/// record and as a line of `List1`, which is selected; whatever stood there or behind it is forgotten. The record must
/// have room.
void EnterHalfMove(Session& session, const HalfMoveEntry& entry);

/// The sound of a move, under `UseSound`.
void PlayMoveSound(Session& session);

} // namespace tavlon12
