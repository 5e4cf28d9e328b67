#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The command New Game: asks when a game is running, then starts another.
void NewGame(Session& session);

} // namespace tavlon12
