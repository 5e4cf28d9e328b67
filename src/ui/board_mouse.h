#pragma once

#include "session/session.h"
#include "ui/board_view.h"

namespace tavlon12 {

// The mouse on the board. Views are 0 to 143; `x` and `y` count in pixels from the corner of the pressed square.

/// A button goes down: a movable piece is lifted, an empty square shows the square numbers, anything else is refused
/// with its message.
void SquareMouseDown(Session& session, BoardView& board, Long view, Qt::MouseButton button);

/// The mouse moves over a square, or anywhere while a button that went down on it is held.
void SquareMouseMove(Session& session, BoardView& board, Long view, int x, int y);

/// The button goes up: the piece that is carried moves, or goes back, or its move is refused with the reason.
void SquareMouseUp(Session& session, BoardView& board, Qt::MouseButton button);

/// The mouse moves outside the board: the boxes of the movable pieces come anew when it returns.
void FormMouseMove(Session& session);

/// Ends what the mouse has begun, without a move: a piece that is carried goes back, the square numbers go away. For
/// commands that come while a button is down.
void EndBoardInput(Session& session, BoardView& board);

} // namespace tavlon12
