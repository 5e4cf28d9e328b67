#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Thinks about the position on the board for the side to move and says what it has found: candidates with scores, the
/// best line, a forced end. No move is made, and the half-moves ahead stay.
void AnalyzeCommand(Session& session);

} // namespace tavlon12
