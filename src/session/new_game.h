#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The command New Game: asks when a game is running, then starts another.
void NewGame(Session& session);

/// Whether the window may close: asks under `AskExit`. On Yes `Quitting` is set and a search that is under way unwinds.
bool CloseRequested(Session& session);

} // namespace tavlon12
