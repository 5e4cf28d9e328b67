#pragma once

#include "session/session.h"

#include <string>

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

/// Exchanges the names of the two players; and the same only when one of them is the computer.
void SwapPlayerNames(Session& session);
void SwapNamesOfComputerGame(Session& session);

/// The name of the side to move.
const std::string& NameToMove(const Session& session);

/// Keeps the text of the comment field for the position on the board, at each key that goes down in it.
void CommentKey(Session& session);

// While a game is loaded all menus, the toolbar and the move field are shut.
void LockCommands(Session& session);
void UnlockCommands(Session& session);

/// Forgets the half-moves beyond the position on the board: lines of `List1`, comments and scores.
void ForgetFuture(Session& session);

} // namespace tavlon12
