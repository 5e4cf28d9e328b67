#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// The end of a game reaches the user's rating here: 1 a win of the user, 0.5 a draw, 0 a loss. Returns the note for
/// the end-of-game message. No rating is kept yet, so it is empty.
std::string UpdateRating(Session& session, double score);

} // namespace tavlon12
