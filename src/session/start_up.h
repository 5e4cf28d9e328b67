#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Everything between the making of the window and its showing, in its order. False when the program must end.
bool StartUp(Session& session);

} // namespace tavlon12
