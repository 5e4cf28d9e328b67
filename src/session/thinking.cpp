#include "session/thinking.h"

#include "engine/evaluate.h"
#include "engine/evaluation_tables.h"
#include "rules/generate_moves.h"
#include "session/book_lookup.h"
#include "session/command_state.h"
#include "session/move_texts.h"
#include "session/screen.h"

#include <algorithm>
#include <chrono>

namespace tavlon12 {

namespace {

/// Where the book has a move for the computer, it becomes the only one in the list.
void TakeBookMove(Session& session, const ThinkingKind& kind) {
    const SquarePair chosen = ConsultBook(session, true).Move;
    if (chosen.From == 0) {
        if (kind.ClosesBook) session.Game.BookOpen = false;
        return;
    }
    GameTree& tree = session.Pos.Tree;
    const auto first = session.Pos.Moves.begin() + tree.PlyFirstMove[0];
    const auto end = first + MoveCount(tree);
    const auto found = std::find_if(
        first, end, [&](const MoveRecord& move) { return move.From == chosen.From && move.To == chosen.To; });
    if (found == end) return;
    *first = *found;
    tree.NextMoveSlot = tree.PlyFirstMove[1] = tree.PlyFirstMove[0] + 1;
    session.Thought.FromBook = true;
}

/// The limits of a search of the root moves in the list, from the settings; one iteration is enough for a single move.
RootSearchInput RootInputOf(const Session& session, const ThinkingKind& kind) {
    constexpr Long kIterationsByTime = 20;
    const SearchLimits& limits = session.Settings.Limits;
    RootSearchInput input;
    input.Member = SearchMemberOf(session.Pos, session.Search);
    input.StopsByTime = limits.FixedDepth != 1;
    input.DepthLimit = input.StopsByTime ? kIterationsByTime : limits.DepthLimit;
    if (MoveCount(session.Pos.Tree) == 1) input.DepthLimit = 1;
    input.TimeLimit = limits.TimeLimit;
    input.StartTime = WholeSeconds(session);
    input.MoveLimitHit = CheckMoveLimit(session, session.Pos.Tree.TreeIndex - 1);
    input.DeepensShortLines = kind.DeepensShortLines;
    input.LastScore = session.Game.LastScore;
    return input;
}

/// The best text with the time of the whole call and the main line.
void ShowTotalTime(Session& session, const ThinkingDisplay& display, Long startTime) {
    if (session.Settings.CalculationOn != 1) return;
    const Long seconds = ElapsedSeconds(startTime, WholeSeconds(session));
    session.Port.Status.SetSearchLine(display.BestText + "   Time: " + TimeString(seconds) +
                                      "\nMain: " + display.ShownLine);
}

/// Says how the game would end, which goes on.
void TellEnd(Session& session, const GameEnd& end) {
    SetGameResult(session, end.Winner);
    session.Port.Status.SetStatusText(1, end.Text);
    ShowEndBox(session, end.Text);
}

} // namespace

void RunThinking(Session& session, const std::function<void(Session&)>& work) {
    session.Port.Status.SetStatusText(1, "");
    session.Busy = true;
    session.Port.Fields.SetControlEnabled(Control::mnu_Board1, false);
    work(session);
    session.Busy = false;
    if (!session.Quitting) session.Pos.StopFlag = 0;
}

void AdoptSearchSettings(Session& session) {
    session.Search.Options = session.Settings.Search;
    SetManThresholds(session.Pos, session.Search);
}

Long ScoreQuietly(Session& session) {
    using Clock = std::chrono::steady_clock;
    constexpr auto kLongest = std::chrono::milliseconds(500);
    SearchState& search = session.Search;
    AdoptSearchSettings(session);
    const auto start = Clock::now();
    const YieldGuard clockAlone(search, [&] {
        if (Clock::now() - start > kLongest) search.SearchAborted = search.Unwind = true;
    });
    return ScoreUserMove(session.Pos, search).Score;
}

void PrepareThinking(Session& session, const ThinkingKind& kind) {
    SearchState& search = session.Search;
    AdoptSearchSettings(session);
    if (kind.IsForMove) search.BackRankOn = true;
    search.NoiseRange = NoiseRangeOf(session.Settings.Limits.StrengthStep);
    search.SearchAborted = false;
    session.Thought = Thinking();
    session.Thought.RootIndex = session.Pos.Tree.TreeIndex;
    session.SearchStarted = true;
    session.Game.GameTouched = true;
    if (kind.IsForMove) session.Game.TouchedCell = 0;
    session.Game.ResultText.clear();
    session.Input.MovablesBoxed = false;

    if (session.Settings.ShowAvailableMoves == 1) RedrawFromSquares(session);
    if (session.Settings.PlayMode != kComputerComputer) {
        if (!kind.KeepsLegalMoves) session.Port.Lists.ListClear(ListId::List2);
        session.Port.Lists.ListClear(ListId::List3);
    }
    if (kind.ShowsStrength) ShowStrengthLine(session);
    session.Port.Status.SetStatusText(1, kind.Verb);
    if (session.Settings.CalculationOn == 1) session.Port.Status.SetSearchLine("");
    ShutForThinking(session);
}

std::optional<GameEnd> EndBeforeThinking(Session& session, const ThinkingKind& kind) {
    Position& position = session.Pos;
    InitGameTree(position);
    const Long side = position.Tree.SideToMove;
    const RootValue root = EvaluateRoot(position, session.Search, side);
    if (root.NoMovesDraw && kind.IsForMove) return Draw();
    if (!root.Lost && root.Value != kWin && GenerateLegalMoves(position) > 0) return std::nullopt;
    if (position.Fault.Passed()) return std::nullopt;
    const bool computerWins = !root.Lost && (root.Value == kWin || position.Rules.AntiMode == 1);
    return WinOf(session, computerWins, side);
}

void MeetEnd(Session& session, const ThinkingKind& kind, const GameEnd& end) {
    WaitSeconds(session, kPause);
    if (session.Quitting) return;
    if (kind.IsForMove)
        EndGame(session, end);
    else
        TellEnd(session, end);
}

std::optional<RootSearchResult> SearchMove(Session& session, const ThinkingKind& kind, ThinkingDisplay& display,
                                           Long startTime) {
    StatusPort& status = session.Port.Status;
    display.Verb = kind.Verb;
    status.SetProgress(0);
    WaitSeconds(session, kPause);
    if (session.Quitting) return std::nullopt;
    StartProgress(session, display);
    if (session.Settings.OpeningBook == 1) TakeBookMove(session, kind);
    if (session.Quitting) return std::nullopt;
    const RootSearchResult result = SearchRoot(session.Pos, session.Search, RootInputOf(session, kind),
                                               ThinkingHooks(session, display), session.Thought.RootMoves);
    if (session.Quitting) return std::nullopt;
    session.Search.RepeatCount = 0;

    if (kind.ShowsStrength) ShowStrengthLine(session);
    ShowTotalTime(session, display, startTime);
    // Time that has run out is no cancel; after a cancel the computer's game against itself ends.
    if (session.Pos.StopFlag == kStopTime) {
        session.Pos.StopFlag = 0;
        session.Search.SearchAborted = false;
    }
    SortCandidates(session);
    if (kind.ShowsAllCandidates || session.Settings.PlayMode != kComputerComputer)
        ShowCandidates(session, session.Thought.RootMoves[0].From);
    status.SetStatusText(1, "");
    return result;
}

Outlook OutlookOf(Long score, Long value) {
    if (score >= 31980) return value >= 31981 ? Outlook::Won : Outlook::Forced;
    return score < -31979 ? Outlook::Forced : Outlook::Open;
}

GameEnd WinOf(const Session& session, bool computerWins, Long computer) {
    if (computerWins) return {"Computer wins!", 0, computer};
    return {session.Settings.UserName + " wins!", 1, -computer};
}

void HandBack(Session& session) {
    OpenAfterThinking(session);
    session.Pos.LastCapAnyPly = true; // the user's replies, wherever the root is
    RefreshLegalMoves(session);
    session.Pos.LastCapAnyPly = false;
}

void ForgetSearchFlags(Session& session) {
    SearchState& search = session.Search;
    search.NoMovesDraw = search.SearchAborted = search.LostFlag = false;
    search.RepeatCount = 0;
}

} // namespace tavlon12
