#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// After each move of the real game: `DrawReason`, the position's key and the counts of kings.
void UpdateDrawStatus(Session& session);

/// Whether the half-moves 0 to `index` of the record pass the move limit without capture or promotion.
bool CheckMoveLimit(const Session& session, Long index);

/// Whether the draw rule that the position meets ends the game under the settings; `noMoveInFirstList` for king against
/// king.
bool DrawRuleApplies(const Session& session, bool noMoveInFirstList);

/// The verdict on the position on the board after a person's move; ends the game with its message.
void CheckGameEnd(Session& session);

enum class GameResult { FromBoard, Draw };

/// Sets `ResultText`; a position in which nobody has won leaves it empty.
void SetGameResult(Session& session, GameResult result);

/// Status line and message of the draw rule that applies.
void ShowDrawMessage(Session& session);

/// Shows the end of a game in the status line and, with the note of the rating, in a message. `score` is the user's: 1,
/// 0.5 or 0.
void AnnounceResult(Session& session, const std::string& text, double score);

/// Whether the winning side (1 White, -1 Black) bears the user's name.
bool WinnerIsUser(const Session& session, Long winner);

/// Greys the commands of a running game.
void DisableGameCommands(Session& session);

/// The user's commands.
void OfferDraw(Session& session);
void Resign(Session& session);

} // namespace tavlon12
