#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// The end of a game reaches the user's rating here: 1 a win of the user, 0.5 a draw, 0 a loss. Returns the note for
/// the end-of-game message: the old rating, the computer's and the new one; empty when the game does not count.
std::string UpdateRating(Session& session, double score);

/// The remark on a won game: a great one where the computer, having a choice, never saw itself two men ahead.
std::string GameQualityNote(const Session& session);

/// The command Rating.
void ShowRating(Session& session);

} // namespace tavlon12
