#pragma once

#include "session/move_texts.h"
#include "session/session.h"

#include <string>
#include <variant>

namespace tavlon12 {

/// A move that has been made on the board. The position is one ply behind its root.
struct MadeMove {
    MoveRecord Move;
    MoveTexts Texts;
    Long Choices = 0; ///< legal moves there were
};

/// Why a move is refused.
enum class Refusal {
    NotLegal,
    NeedsToJump,    ///< a capture is there, and captures are mandatory
    CannotJumpSo,   ///< the same, and a capture between these squares exists but is no legal move
    SquareNotEmpty, ///< of the target
    GameFull,       ///< the record has no room
    ProgramEnds,    ///< the position passes a limit of the generator; the message has been shown
};

using MoveAnswer = std::variant<MadeMove, Refusal>;

/// Makes the move given by its key ("C3D4", or one square for a placement) if it is legal now. When it is not, only the
/// move lists of the ply have changed.
MoveAnswer InputMove(Session& session, std::string_view key);

/// The same for two squares. Of two routes between them the first in the list is the move; a placement on the second
/// square comes after both.
MoveAnswer InputSquares(Session& session, SquarePair squares);

/// Makes the legal move in a slot of the list.
MadeMove MakeMove(Session& session, Long slot);

/// Makes a move of the record again, which was legal here, by the route that was played.
MadeMove InputRecord(Session& session, const MoveRecord& move);

/// The message box of a refusal: "Illegal move" with its reason, where one is known.
void ShowRefusal(Session& session, Refusal refusal);

/// Whether the record has no room for a further half-move.
bool GameIsFull(const Session& session);

} // namespace tavlon12
