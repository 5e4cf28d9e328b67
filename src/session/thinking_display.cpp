#include "session/thinking_display.h"

#include "session/move_texts.h"
#include "session/screen.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace tavlon12 {

namespace {

/// The main line of a new best move; that of a book move is the word for it.
void ShowLine(Session& session, ThinkingDisplay& display) {
    if (!session.Thought.FromBook) {
        DisplayMainVariant(session);
        display.ShownLine = session.Thought.MainLineText;
    } else if (session.Settings.CalculationOn == 1) {
        StatusPort& status = session.Port.Status;
        status.SetSearchLine(status.GetSearchLine() + "\nBook");
        display.ShownLine = "Book";
    }
}

} // namespace

std::string TimeString(Long seconds) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d.%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text.data();
}

Long WholeSeconds(const Session& session) {
    return static_cast<Long>(std::floor(session.Port.Time.Clock() - session.BoxSeconds));
}

std::string MainLine(const Session& session) {
    constexpr Long kShownMoves = 20;
    const auto& line = session.Pos.BestLine[0];
    std::string text;
    for (Long k = 0; k < kShownMoves && line[k].From != 0; ++k) {
        const BestLineCell& cell = line[k];
        text += SquareText(session, cell.From, Padding::None);
        if (cell.Kind % 10 == 1)
            text += session.Game.CaptureChar;
        else if (cell.From != kOffBoard)
            text += "-";
        text += SquareText(session, cell.To, Padding::None);
        if (cell.Kind > 1) text += "K";
        text += " ";
    }
    return text;
}

void DisplayMainVariant(Session& session) {
    const auto& line = session.Pos.BestLine[0];
    Thinking& thought = session.Thought;
    thought.MainLineText.clear();
    if (line[0].From != 0 && line[1].From != 0) {
        thought.PredictedFrom = line[1].From;
        thought.PredictedTo = line[1].To;
    }
    if (session.Settings.CalculationOn != 1) return;
    thought.MainLineText = MainLine(session);
    StatusPort& status = session.Port.Status;
    status.SetSearchLine(status.GetSearchLine() + "\nMain: " + thought.MainLineText);
}

void StartProgress(Session& session, ThinkingDisplay& display) {
    const SearchLimits& limits = session.Settings.Limits;
    display.Progress = 0;
    display.ProgressMaximum =
        limits.FixedDepth == 1 ? limits.DepthLimit * MoveCount(session.Pos.Tree) : Long{limits.TimeLimit};
    session.Port.Status.SetProgressRange(0, display.ProgressMaximum);
    session.Port.Status.SetProgress(0);
}

RootSearchHooks ThinkingHooks(Session& session, ThinkingDisplay& display) {
    const auto showMove = [&session, &display](const std::string& iteration, Long slot) {
        if (session.Settings.CalculationOn != 1) return;
        const MoveTexts texts = DisplayMove(session, session.Pos.Moves[slot]);
        session.Port.Status.SetStatusText(1, display.Verb + " (" + iteration + ")  " + texts.MoveTextPlain);
    };

    RootSearchHooks hooks;
    hooks.Seconds = [&session] { return WholeSeconds(session); };
    hooks.MoveStarted = [showMove](Long iteration, Long slot) { showMove(std::to_string(iteration), slot); };
    hooks.DeepeningStarted = [showMove](Long iteration, Long slot) {
        showMove(std::to_string(iteration) + "/" + std::to_string(iteration + 1), slot);
    };
    hooks.BestFound = [&session, &display](Long iteration, Long slot, Long score) {
        const MoveTexts texts = DisplayMove(session, session.Pos.Moves[slot]);
        display.BestText = "Depth:" + Str(iteration) + "   Best: " + texts.MoveTextPlain + "   Score:" + Str(score);
        if (session.Settings.CalculationOn == 1) {
            session.Port.Status.SetSearchLine(display.BestText);
            display.IterationText = "D:" + Str(iteration) + "   B: " + texts.MoveTextPlain + "   S:" + Str(score);
        }
        ShowLine(session, display);
    };
    hooks.IterationStarted = [&session, &display](Long) { display.IterationStart = WholeSeconds(session); };
    hooks.IterationFinished = [&session, &display](Long) {
        const Long seconds = ElapsedSeconds(display.IterationStart, WholeSeconds(session));
        display.Iterations += std::string(15, ' ') + display.IterationText + "   M: " + display.ShownLine +
                              "  T: " + TimeString(seconds) + "\r\n";
    };
    if (session.Settings.Limits.FixedDepth == 1)
        hooks.MoveFinished = [&session, &display] { session.Port.Status.SetProgress(++display.Progress); };
    else
        hooks.TimePassed = [&session](Long seconds) { session.Port.Status.SetProgress(seconds); };
    return hooks;
}

void SortCandidates(Session& session) {
    // The order among equal scores is that of this exchange sort, and it shows in the list of candidates.
    const Long count = MoveCount(session.Pos.Tree);
    for (Long i = 0; i < count; ++i)
        for (Long j = 0; j < count; ++j)
            if (session.Thought.RootMoves[i].Score > session.Thought.RootMoves[j].Score)
                std::swap(session.Thought.RootMoves[i], session.Thought.RootMoves[j]);
}

std::string ForcedEndText(const Session& session, Long score) {
    const bool losing = score < 0;
    const Long moves = losing ? (score + (session.Pos.Rules.AntiMode == 1 ? 32001 : 32000)) / 2 : (32001 - score) / 2;
    return std::string("Computer is ") + (losing ? "losing" : "winning") + " in" + Str(moves) + " move" +
           (moves > 1 ? "s" : "") + "! ";
}

} // namespace tavlon12
