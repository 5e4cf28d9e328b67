#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The command: looks through the legal moves for those whose value changes by more than a man when the search goes
/// deeper and whose main line holds a capture, and lists them in a window.
void FindProblems(Session& session);

} // namespace tavlon12
