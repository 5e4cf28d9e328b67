#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The computer takes over the side to move and plays.
void ComputeCommand(Session& session);

/// Ends a search that is under way with the best move found so far.
void CancelCommand(Session& session);

// The commands of the menus Board and View that are no more than a setting.
void TurnBoard(Session& session);
void ToggleCalculation(Session& session);
void ShowNumericNotation(Session& session);
void ShowAlgebraicNotation(Session& session);
void ShowNoNotation(Session& session);

} // namespace tavlon12
