#pragma once

#include "session/session.h"

#include <optional>
#include <string>

namespace tavlon12 {

inline constexpr double kPause = 0.5; ///< seconds between a last move and what is said about it

/// How a game has ended.
struct GameEnd {
    std::string Text;           ///< of the status line and, with the note of the rating, of the box
    double Score = 0;           ///< the user's: 1, 0.5 or 0
    std::optional<Long> Winner; ///< 1 White, -1 Black, 0 a draw; nothing where a side has resigned
};

/// A draw with the text that every one has where no rule gives a longer one.
GameEnd Draw();
/// The draw by the rule that the position meets.
GameEnd DrawByRule(const Session& session);

/// The side that has won where the side to move has no move or no piece.
Long WinnerByPosition(const Position& position);

/// Everything that the end of a game does but its box: flag, result, rating, greyed commands, status line. Returns the
/// text of the box.
std::string CloseGame(Session& session, const GameEnd& end);

/// The box of a game that has ended.
void ShowEndBox(Session& session, const std::string& text);

/// Ends the game with its box.
void EndGame(Session& session, const GameEnd& end);

/// Sets `ResultText` for the winner as in `GameEnd`: "1-0" when the side that began the game has won.
void SetGameResult(Session& session, std::optional<Long> winner);

/// After each move of the real game, and after each half-move that is made again: the position's key and `DrawReason`.
void UpdateDrawStatus(Session& session);

/// Whether the half-moves 0 to `index` of the record pass the move limit without capture or promotion.
bool CheckMoveLimit(const Session& session, Long index);

/// Whether the draw rule that the position meets ends the game under the settings; `noMoveInFirstList` for king against
/// king.
bool DrawRuleApplies(const Session& session, bool noMoveInFirstList);

/// The end that the position on the board means; nothing while the game goes on, or when a generator's limit is passed.
std::optional<GameEnd> VerdictOn(Session& session);

/// The verdict on the position on the board after a person's move; ends the game with its message.
void CheckGameEnd(Session& session);

// The user's commands.
void OfferDraw(Session& session);
void Resign(Session& session);

} // namespace tavlon12
