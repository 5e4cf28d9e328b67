#pragma once

#include "engine/root_search.h"
#include "session/game_end.h"
#include "session/session.h"
#include "session/thinking_display.h"

#include <functional>
#include <optional>

namespace tavlon12 {

// What the commands share that let the computer think: its move, the analysis, the hint and the study tools.

/// What one thinking about the position on the board does differently from another.
struct ThinkingKind {
    const char* Verb;          ///< how the status line begins
    bool IsForMove = false;    ///< it is the computer's turn: an end that is found ends the game, with its rating
    bool ShowsStrength = true; ///< rewrites the line of strength and limit
    bool KeepsLegalMoves = false;
    bool ClosesBook = true;         ///< a book without a move is not asked again in this game
    bool DeepensShortLines = true;  ///< of root moves, and widens the margin of lazy evaluation with it
    bool ShowsAllCandidates = true; ///< also while the computer plays itself
};
inline constexpr ThinkingKind kMoveThinking{.Verb = "Thinking...", .IsForMove = true, .ShowsAllCandidates = false};
inline constexpr ThinkingKind kAnalysis{.Verb = "Analyzing...",
                                        .ShowsStrength = false,
                                        .KeepsLegalMoves = true,
                                        .ClosesBook = false,
                                        .DeepensShortLines = false};

/// The frame of every command that lets the computer think: the status line is emptied, the board is busy meanwhile,
/// and a Cancel that comes when the work is over is forgotten.
void RunThinking(Session& session, const std::function<void(Session&)>& work);

/// The user's settings of the search, and the thresholds of the position, into the search's state.
void AdoptSearchSettings(Session& session);

/// The score of the position for the side that has just moved. No event is let in: nothing may come between a move on
/// the board and its entry in the record. So it takes half a second at the most.
Long ScoreQuietly(Session& session);

/// Clears what an earlier thinking has left and shows that this one begins.
void PrepareThinking(Session& session, const ThinkingKind& kind);

/// The end that the position means for the side that is to think; nothing while there is something to think about.
/// Then the root moves are in the list.
std::optional<GameEnd> EndBeforeThinking(Session& session, const ThinkingKind& kind);

/// Ends the game, or only says how it would end, after a pause in which the board can be seen.
void MeetEnd(Session& session, const ThinkingKind& kind, const GameEnd& end);

/// Asks the book and searches. The chosen move stands at the front of the list. Nothing when the program ends.
std::optional<RootSearchResult> SearchMove(Session& session, const ThinkingKind& kind, ThinkingDisplay& display,
                                           Long startTime);

/// What the score of the chosen move says, `value` being that of the position for the side that thinks.
enum class Outlook { Open, Forced, Won };
Outlook OutlookOf(Long score, Long value);

/// The end of a game that the computer, playing `computer`, wins or loses.
GameEnd WinOf(const Session& session, bool computerWins, Long computer);

/// Gives the user the commands and the legal moves back.
void HandBack(Session& session);

/// Clears the flags that a search leaves, so that no later one finds them.
void ForgetSearchFlags(Session& session);

} // namespace tavlon12
