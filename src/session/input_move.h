#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// Makes the move given by its key in capitals ("C3D4", or one square for a placement) if it is legal now. False, with
/// only the move lists of the ply changed, when it is not. A full game (1000 half-moves) refuses every move; see
/// `GameIsFull`.
bool InputMove(Session& session, const std::string& text);

/// Whether the record has no room for a further half-move.
bool GameIsFull(const Session& session);

/// The one message about a full game.
void ShowGameFull(Session& session);

} // namespace tavlon12
