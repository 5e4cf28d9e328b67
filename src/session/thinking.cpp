#include "session/thinking.h"

#include "session/move_texts.h"
#include "session/screen.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <utility>

namespace tavlon12 {

namespace {

constexpr std::array kAlwaysAfterThinking{
    Command::New1,
    Command::NewVariant,
    Command::Open1,
    Command::Save,
    Command::Details,
    Command::Cplayer,
    Command::Pplayer,
    Command::Options,
    Command::Turn,
    Command::Nonotation,
    Command::mnu_Board_Notation_Chess,
    Command::mnu_Board_Notation_Checkers,
    Command::CreateHtml,
    Command::plyvaluetable,
};
constexpr std::array kByStateAfterThinking{
    Command::Compute,   Command::First,  Command::Moveback, Command::MoveForward,        Command::Last,
    Command::Offerdraw, Command::Resign, Command::Hint,     Command::mnu_Play_Ccomputer, Command::Analyze,
};

} // namespace

std::string TimeString(Long seconds) {
    std::array<char, 48> text{};
    std::snprintf(text.data(), text.size(), "%02d:%02d.%02d", seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text.data();
}

Long WholeSeconds(const Session& session) {
    return static_cast<Long>(std::floor(session.Port.Time.Clock()));
}

void DisplayMainVariant(Session& session) {
    constexpr Long kShownMoves = 20;
    const bool shown = session.Settings.CalculationOn == 1;
    const auto& line = session.Pos.BestLine[0];
    std::string& text = session.MainLineText;
    text.clear();
    for (Long k = 0; k <= kMaxPly && line[k].From != 0; ++k) {
        const BestLineCell& cell = line[k];
        if (shown && k < kShownMoves) {
            text += SquareText(session, cell.From, Padding::None);
            if (cell.Kind % 10 == 1)
                text += session.CaptureChar;
            else if (cell.From != kOffBoard)
                text += "-";
            text += SquareText(session, cell.To, Padding::None);
            if (cell.Kind > 1) text += "K";
            text += " ";
        }
        if (k == 1) {
            session.PredictedFrom = cell.From;
            session.PredictedTo = cell.To;
        }
    }
    if (shown) session.Port.Status.SetSearchLine(session.Port.Status.GetSearchLine() + "\nMain: " + text);
}

void ShutCommandsForThinking(Session& session) {
    for (Command command : kAlwaysAfterThinking) session.Port.Commands.SetCommandEnabled(command, false);
    for (Command command : kByStateAfterThinking) session.Port.Commands.SetCommandEnabled(command, false);
    session.Port.Commands.SetCommandEnabled(Command::mnu_Play_Cancel, true);
}

void OpenCommandsAfterThinking(Session& session) {
    UiPort& port = session.Port;
    const bool autoplay = session.PlayMode == kComputerComputer;
    if (!session.GameOver) {
        for (Command command : {Command::Compute, Command::mnu_Play_Ccomputer, Command::Analyze})
            port.Commands.SetCommandEnabled(command, true);
        if (!autoplay) {
            port.Commands.SetCommandEnabled(Command::Hint, true);
            port.Lists.SetListEnabled(ListId::List2, true);
        }
        if (session.PlayMode == kPlayerComputer) {
            port.Commands.SetCommandEnabled(Command::Offerdraw, true);
            port.Commands.SetCommandEnabled(Command::Resign, true);
        }
    }
    for (Command command : kAlwaysAfterThinking) port.Commands.SetCommandEnabled(command, true);
    port.Fields.SetControlEnabled(Control::mnu_Board1, true);
    if (!autoplay) {
        port.Lists.SetListEnabled(ListId::List1, true);
        if (session.RootMoves[0].From != kNotFilled) port.Lists.SetListEnabled(ListId::List3, true);
    }
    port.Commands.SetCommandEnabled(Command::mnu_Play_Cancel, false);
    port.Status.SetProgress(0);

    GameTree& tree = session.Pos.Tree;
    if (tree.TreeIndex > 0) {
        port.Commands.SetCommandEnabled(Command::Moveback, true);
        port.Commands.SetCommandEnabled(Command::First, true);
    }
    port.Commands.SetCommandEnabled(Command::MoveForward, false);
    port.Commands.SetCommandEnabled(Command::Last, false);
    session.Record.MoveHistory[tree.TreeIndex + 1].From = 0;
}

RootSearchInput RootInputOf(const Session& session) {
    constexpr Long kIterationsByTime = 20;
    const SearchLimits& limits = session.Settings.Limits;
    RootSearchInput input;
    input.Member = SearchMemberOf(session.Pos, session.Search);
    input.StopsByTime = limits.FixedDepth != 1;
    input.DepthLimit = input.StopsByTime ? kIterationsByTime : limits.DepthLimit;
    if (MoveCount(session.Pos.Tree) == 1) input.DepthLimit = 1;
    input.TimeLimit = limits.TimeLimit;
    input.MoveLimitHit = session.MoveLimitHit;
    input.LastScore = session.LastScore;
    return input;
}

void StartProgress(Session& session, const RootSearchInput& input, ThinkingDisplay& display) {
    const Long depthLimit = session.Settings.Limits.DepthLimit;
    display.Progress = 0;
    display.ProgressMaximum = input.StopsByTime ? input.TimeLimit : depthLimit * MoveCount(session.Pos.Tree);
    session.Port.Status.SetProgressRange(0, display.ProgressMaximum);
    session.Port.Status.SetProgress(0);
}

RootSearchHooks ThinkingHooks(Session& session, ThinkingDisplay& display) {
    const auto showMove = [&session, &display](const std::string& iteration, Long slot) {
        DisplayMove(session, slot);
        if (session.Settings.CalculationOn == 1)
            session.Port.Status.SetStatusText(1,
                                              display.Verb + " (" + iteration + ")  " + session.MoveText.MoveTextPlain);
    };

    RootSearchHooks hooks;
    hooks.Seconds = [&session] { return WholeSeconds(session); };
    hooks.MoveStarted = [showMove](Long iteration, Long slot) { showMove(std::to_string(iteration), slot); };
    hooks.DeepeningStarted = [showMove](Long iteration, Long slot) {
        showMove(std::to_string(iteration) + "/" + std::to_string(iteration + 1), slot);
    };
    hooks.BestFound = [&session, &display](Long iteration, Long slot, Long score) {
        DisplayMove(session, slot);
        display.BestText =
            "Depth:" + Str(iteration) + "   Best: " + session.MoveText.MoveTextPlain + "   Score:" + Str(score);
        if (session.Settings.CalculationOn == 1) session.Port.Status.SetSearchLine(display.BestText);
        DisplayMainVariant(session);
    };
    if (session.Settings.Limits.FixedDepth == 1)
        hooks.MoveFinished = [&session, &display] { session.Port.Status.SetProgress(++display.Progress); };
    else
        hooks.TimePassed = [&session](Long seconds) { session.Port.Status.SetProgress(seconds); };
    return hooks;
}

void FillCandidates(Session& session) {
    const GameTree& tree = session.Pos.Tree;
    for (Long slot = tree.PlyFirstMove[tree.Ply], i = 0; slot < tree.NextMoveSlot; ++slot, ++i)
        session.RootMoves[i] = {session.Pos.Moves[slot].From, session.Pos.Moves[slot].To, kNotFilled};
}

void SortCandidates(Session& session) {
    // The order among equal scores is that of this exchange sort, and it shows in the list of candidates.
    const Long count = MoveCount(session.Pos.Tree);
    for (Long i = 0; i < count; ++i)
        for (Long j = 0; j < count; ++j)
            if (session.RootMoves[i].Score > session.RootMoves[j].Score)
                std::swap(session.RootMoves[i], session.RootMoves[j]);
}

std::string ForcedEndText(const Session& session, Long score) {
    const bool losing = score < 0;
    const Long moves = losing ? (score + (session.Pos.Rules.AntiMode == 1 ? 32001 : 32000)) / 2 : (32001 - score) / 2;
    return std::string("Computer is ") + (losing ? "losing" : "winning") + " in" + Str(moves) + " move" +
           (moves > 1 ? "s" : "") + "! ";
}

} // namespace tavlon12
