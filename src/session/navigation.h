#pragma once

#include "session/session.h"

namespace tavlon12 {

/// `count` above 0 goes that many half-moves back, below 0 forward, 0 only refreshes. Without `keepCandidates` the
/// candidate table is emptied. `silent` leaves lists and commands alone and only redraws the board.
void GoToMove(Session& session, Long count, bool keepCandidates, bool silent);

/// One half-move forward; nothing at the end of the record.
void StepForward(Session& session);

// The commands and the click on a line of `List1`. First, Last and the line do nothing while the computer is busy.
void GoFirst(Session& session);
void GoBack(Session& session);
void GoForward(Session& session);
void GoLast(Session& session);
void GoToSelectedLine(Session& session);

/// Keeps the text of the comment field for the position on the board, at each key that goes down in it.
void CommentKey(Session& session);

} // namespace tavlon12
