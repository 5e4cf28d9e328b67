#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Makes the position on the board, with its side to move, the start of a game, which does not count for the rating.
/// False when the program ends. `CustomSetup` must be set.
bool AdoptPosition(Session& session);

/// Opens the set-up menu on a square, where a piece may be put there, and makes the game that its entry asks for.
void OpenSetupMenu(Session& session, Long cell);

/// An entry of the set-up menu for a square: any placement becomes a game.
void SetupEdit(Session& session, SetupEntry entry, Long cell);

} // namespace tavlon12
