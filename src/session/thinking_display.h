#pragma once

#include "engine/root_search.h"
#include "session/session.h"

#include <string>

namespace tavlon12 {

/// What the screen shows of a root search under way.
struct ThinkingDisplay {
    std::string Verb = "Thinking..."; ///< how the status line begins
    std::string BestText;             ///< depth, best move and score, as last shown in the search line
    std::string IterationText;        ///< the same, shorter, for the log
    std::string ShownLine;            ///< the main line, or "Book"
    std::string Iterations;           ///< a line of the log for each finished iteration
    Long IterationStart = 0;          ///< on the clock of the search
    Long Progress = 0;
    Long ProgressMaximum = 0;
};

/// 65 seconds are "00:01.05".
std::string TimeString(Long seconds);

/// The clock of the search: seconds since midnight without their fraction, less the time that boxes were open.
Long WholeSeconds(const Session& session);

/// The best line in row 0 of the best lines, a blank behind each move; at most 20 moves.
std::string MainLine(const Session& session);

/// Rebuilds `MainLineText` from row 0 of the best lines, with the predicted reply, and shows it.
void DisplayMainVariant(Session& session);

/// Empties the progress bar and sets its range for a search of the root moves in the list.
void StartProgress(Session& session, ThinkingDisplay& display);

/// Shows the search in status line, search line and progress bar. Both references must outlive the hooks.
RootSearchHooks ThinkingHooks(Session& session, ThinkingDisplay& display);

/// The best candidate first.
void SortCandidates(Session& session);

/// "Computer is losing in 3 moves! " for a score of at most -31980, else "Computer is winning in 3 moves! ".
std::string ForcedEndText(const Session& session, Long score);

} // namespace tavlon12
