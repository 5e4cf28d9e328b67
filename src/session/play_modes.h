#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The computer takes over the side to move and plays.
void ComputeCommand(Session& session);

/// The computer answers a move that a person has just made.
void LetComputerReply(Session& session);

/// Ends a search that is under way with the best move found so far.
void CancelCommand(Session& session);

} // namespace tavlon12
