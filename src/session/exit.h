#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Whether the program may end: asks under `AskExit`. On Yes `Quitting` is set and a search that is under way unwinds;
/// the window closes when it has.
bool CloseRequested(Session& session);

} // namespace tavlon12
