#pragma once

#include "session/session.h"

namespace tavlon12 {

// The mouse on the board. Views are places on the screen, 0 to 143 from the top left.

enum class MouseButton { Left, Right };

/// A button goes down: a movable piece is lifted, an empty square shows the square numbers, anything else is refused
/// with its message.
void SquareMouseDown(Session& session, Long view, MouseButton button);

/// The mouse moves over a square, or anywhere while a button that went down on it is held. `x` and `y` count in pixels
/// from the corner of that square.
void SquareMouseMove(Session& session, Long view, Long x, Long y);

/// The button that went down on a square goes up, `x` and `y` pixels from its corner: the piece that is carried moves,
/// or goes back, or its move is refused with the reason. The right button opens the set-up menu.
void SquareMouseUp(Session& session, Long view, MouseButton button, Long x, Long y);

/// The mouse moves outside the board: the boxes of the movable pieces come anew when it returns.
void FormMouseMove(Session& session);

/// Ends what the mouse has begun, without a move: a piece that is carried goes back, the square numbers go away. For
/// commands that come while a button is down.
void EndBoardInput(Session& session);

} // namespace tavlon12
