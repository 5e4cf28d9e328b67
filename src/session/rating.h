#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The end of a game reaches the user's rating here: 1 a win of the user, 0.5 a draw, 0 a loss. No rating is kept yet,
/// so the note for the end-of-game message is empty.
void UpdateRating(Session& session, double score);

} // namespace tavlon12
