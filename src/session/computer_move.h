#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The computer thinks about the position and plays its move, or ends the game when it cannot. `Busy` must be set by
/// the caller. When the user closes the program meanwhile it returns with nothing played.
void ThinkComputerMove(Session& session);

} // namespace tavlon12
