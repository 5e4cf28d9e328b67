#pragma once

#include "session/input_move.h"
#include "session/session.h"

namespace tavlon12 {

/// Where a person's move came from.
enum class MovePath { Board, Typed, LegalList, CandidateList };

/// Enters the move of a person that has just been made into the game, tests its end, and lets the computer reply, but
/// after a candidate, which replaces the computer's own move.
void CommitHumanMove(Session& session, const MadeMove& made, MovePath path);

/// The contents of `Text2` as a move. A game that is over is answered with its end.
void SubmitTypedMove(Session& session);

/// The line selected in `List2` as a move.
void ClickLegalMove(Session& session);

/// The line selected in `List3`: takes the last move back and plays the candidate instead.
void ClickCandidateMove(Session& session);

} // namespace tavlon12
