#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The command New Game: asks when a game is running, then starts another.
void NewGame(Session& session);

/// The command New Variant: the same, but the Variants dialog chooses the rules first.
void NewVariant(Session& session);

/// The rules that change a fresh position before play: `RemoveMen` and `DoMoves`.
void ApplyStartRules(Session& session);

} // namespace tavlon12
