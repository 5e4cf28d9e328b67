#pragma once

#include "session/replay.h"
#include "session/session.h"

namespace tavlon12 {

/// Loads a game. A file that is none of ours leaves the game on the board as it was.
void LoadGame(Session& session, LoadSource source);

/// The command Open.
void OpenCommand(Session& session);

} // namespace tavlon12
