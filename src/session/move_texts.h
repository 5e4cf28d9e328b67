#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// Leaves the three texts of a slot of the move list in `MoveText`.
void DisplayMove(Session& session, Long slot);

/// A square as the user writes it under the notation in force, and back (0 when the text is none).
std::string SquareText(const Session& session, Long square, Padding padding);
Long SquareOfText(const Session& session, std::string_view text);

/// The line of half-move `halfMove` in `List1`: pair number or blanks, and the shown text.
std::string GameLine(Long halfMove, const std::string& shownText);

/// The key of a cell of the game table: its first two characters for a placement, else its first four.
std::string MoveKeyOfCell(const std::string& cell, bool placement);

/// Refills `List2` with the legal moves.
void RefreshLegalMoves(Session& session);

/// Refills `List3` from the candidates of the last search; nothing happens when `first` is 0 or not filled.
void ShowCandidates(Session& session, Long first);

/// Rewrites the move texts of the game and `List1` for the change between algebraic (0) and numeric (1).
void RewriteGameTexts(Session& session, Byte newNotation);

} // namespace tavlon12
