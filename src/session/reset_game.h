#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Starts a new game without asking anything: position, tables, record, names, commands. With `CustomSetup` the board
/// stays. False, after the message and the end of the program, when the variant's definition cannot be read.
bool ResetGame(Session& session);

/// Draws who begins, under the rule `RndColor`.
void DrawBeginner(Session& session);

/// A board that is played on all squares has no numbers: its notation is algebraic.
void LeaveNumericNotation(Session& session);

} // namespace tavlon12
