#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Starts a new game without asking anything: position, tables, record, names, commands. With `CustomSetup` the board
/// stays. False, after the message and the end of the program, when the variant's definition cannot be read.
bool ResetGame(Session& session);

} // namespace tavlon12
