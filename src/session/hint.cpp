#include "session/hint.h"

#include "engine/evaluate.h"
#include "rules/generate_moves.h"
#include "session/command_state.h"
#include "session/move_texts.h"
#include "session/screen.h"
#include "session/thinking.h"

#include <chrono>
#include <memory>

namespace tavlon12 {

namespace {

void ShowHintBox(Session& session, const std::string& move) {
    ShowMessage(session, "Try " + move, "Hint", MessageKind::Information);
}

/// The moves of the position into the list. Where the game is won for somebody the user is told so.
void ListMovesForHint(Session& session) {
    const auto tellWon = [&] {
        ShowMessage(session, "You have already won!", "Congratulations", MessageKind::Exclamation);
    };
    Position& position = session.Pos;
    InitGameTree(position);
    if (EvaluateRoot(position, session.Search, position.Tree.SideToMove).Lost) tellWon();
    if (GenerateLegalMoves(position) == 0 && !position.Fault.Passed()) tellWon();
}

/// Brings the best move of a short search to the front of the list.
void SearchHint(Session& session) {
    using Clock = std::chrono::steady_clock;
    constexpr auto kLongest = std::chrono::seconds(5);
    constexpr Long kNoise = 5;
    SearchState& search = session.Search;
    search.NoiseRange = kNoise;
    RootSearchInput input;
    input.Scoring = RootScoring::AtUserDepth;
    input.DepthLimit = session.Pos.Rules.PiecesOnBlack == 2 ? 1 : 2;
    input.MoveLimitHit = CheckMoveLimit(session, session.Pos.Tree.TreeIndex - 1);
    input.DeepensShortLines = input.RepetitionIsDraw = input.EndsOnAbort = false;

    // Nothing can cancel a hint. So where moves are slow to score, those that are left get their static score.
    const auto end = Clock::now() + kLongest;
    const auto letEventsIn = search.Yield;
    const YieldGuard inTime(search, [&] {
        letEventsIn();
        if (session.Quitting || Clock::now() > end) search.SearchAborted = search.Unwind = true;
    });
    const auto scores = std::make_unique<RootMoveTable>(); // the candidates stay those of the last move
    SearchRoot(session.Pos, search, input, RootSearchHooks(), *scores);
}

void FindHint(Session& session) {
    ListMovesForHint(session);
    if (session.Quitting || EndOnGeneratorFault(session)) return;
    SearchHint(session);
    if (session.Quitting) return;
    const Position& position = session.Pos;
    ShowHintBox(session, DisplayMove(session, position.Moves[position.Tree.PlyFirstMove[0]]).MoveTextShown);
    session.Thought.PredictedFrom = session.Thought.PredictedTo = 0;
    ForgetSearchFlags(session);
}

} // namespace

void ShowPredictedReply(Session& session) {
    const Thinking& thought = session.Thought;
    const std::string to = SquareText(session, thought.PredictedTo, Padding::None);
    const bool placement = thought.PredictedFrom == kOffBoard;
    ShowHintBox(session, placement ? to : SquareText(session, thought.PredictedFrom, Padding::None) + "-" + to);
}

void ShowHint(Session& session) {
    if (session.Busy) return;
    session.Game.RateableGame = false;
    session.Busy = true;
    LockCommands(session);
    AdoptSearchSettings(session);
    if (session.Thought.PredictedFrom > 0)
        ShowPredictedReply(session);
    else
        FindHint(session);
    session.Busy = false;
    if (session.Quitting) return;
    UnlockCommands(session);
    session.Port.Status.SetStatusText(1, "Think ahead and try not to leave your opponent with multiple jumps");
}

} // namespace tavlon12
