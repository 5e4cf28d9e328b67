#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The computer takes over the side to move and plays.
void ComputeCommand(Session& session);

/// The computer answers a move that a person has just made.
void LetComputerReply(Session& session);

/// Ends a search that is under way with the best move found so far.
void CancelCommand(Session& session);

/// The computer plays both sides until the game ends or the user cancels; then the user has the side to move.
void PlayComputerComputer(Session& session);

// Who plays from now on: the user, who has the side to move, against the computer; or two persons. The game goes on.
void PlayComputerPlayer(Session& session);
void PlayPlayerPlayer(Session& session);

} // namespace tavlon12
