#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// The names of a new game, by the mode of play: the user begins and the computer answers.
void SetPlayersOfNewGame(Session& session);

/// The names in the middle of a game: two persons, or the user with the side to move against the computer.
void SetPlayersOfPosition(Session& session);

/// The user against the computer, with the user to move.
void SetPlayersWithUserToMove(Session& session);

/// Exchanges the names of the two players; and the same only when one of them is the computer.
void SwapPlayerNames(Session& session);
void SwapNamesOfComputerGame(Session& session);

/// The name of the side to move.
const std::string& NameToMove(const Session& session);

/// Whether the winning side (1 White, -1 Black) bears the user's name.
bool WinnerIsUser(const Session& session, Long winner);

} // namespace tavlon12
