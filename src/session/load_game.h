#pragma once

#include "session/replay.h"
#include "session/session.h"

namespace tavlon12 {

/// Loads a game; false when it has not got through. A file that is none of ours leaves the game on the board as it was.
bool LoadGame(Session& session, LoadSource source);

/// The command Open.
void OpenCommand(Session& session);

} // namespace tavlon12
