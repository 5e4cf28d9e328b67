#pragma once

#include "session/input_move.h"
#include "session/session.h"

#include <string>

namespace tavlon12 {

/// What the record keeps of a half-move beside the move itself.
struct HalfMoveEntry {
    const char* Kind = kByPerson; ///< `kByComputer`, `kByPerson` or `kFromFile`
    Long Score = 0;
    std::string Depth; ///< for the strength column: the search's depth, "2" for a person
};

/// Enters the move that has just been made on the board as the last half-move of the record; whatever was there or
/// behind it is forgotten. The record must have room.
void EnterHalfMove(Session& session, const MadeMove& made, const HalfMoveEntry& entry);

/// The line of the half-move that has just been entered, for `List1` and the log.
std::string LineOfHalfMove(const Session& session, const MadeMove& made, bool inBook);

/// Writes its lines into the log, behind the head of the game where it is the first.
void LogHalfMove(Session& session, std::string_view text);

/// Shows its line in `List1`, which is selected, and its empty comment. The lines of what was forgotten go.
void ShowHalfMove(Session& session, const std::string& line);

} // namespace tavlon12
