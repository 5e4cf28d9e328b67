#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Whether the program may end: asks under `AskExit`. On Yes `Quitting` is set and a search that is under way unwinds;
/// the window closes when it has.
bool CloseRequested(Session& session);

/// What every way out of the program does, once: the command Exit, the window that is closed, and the end after a
/// failure that cannot be repaired. Keeps game, settings and rating, and closes the log.
void CloseMainWindow(Session& session);

} // namespace tavlon12
