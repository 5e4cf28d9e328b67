#pragma once

#include "session/session.h"

namespace tavlon12 {

// The commands of the menus Board and View that are no more than a setting.
void TurnBoard(Session& session);
void ToggleCalculation(Session& session);
void ShowNumericNotation(Session& session); ///< nothing on a board of all squares, which has no numbers
void ShowAlgebraicNotation(Session& session);
void ShowNoNotation(Session& session); ///< texts in numbers, and none round the board

} // namespace tavlon12
