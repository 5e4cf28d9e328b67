#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The box with the reply that the computer expects to its last move.
void ShowPredictedReply(Session& session);

/// Tells the user a move: the reply that the computer expects, or what a short search finds. Board and turn stay; the
/// game no longer counts for the rating.
void ShowHint(Session& session);

} // namespace tavlon12
