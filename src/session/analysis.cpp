#include "session/analysis.h"

#include "engine/evaluate.h"
#include "session/screen.h"
#include "session/thinking.h"

namespace tavlon12 {

namespace {

/// Says what the score of the best move means. Gives the text of the box that is due when it wins on the board.
std::optional<std::string> AnnounceAnalysis(Session& session, Long score) {
    const Long side = session.Pos.Tree.SideToMove;
    const Outlook outlook = OutlookOf(score, EvaluateRoot(session.Pos, session.Search, -side).Value);
    if (outlook == Outlook::Open) return std::nullopt;
    if (outlook == Outlook::Forced) {
        session.Port.Status.SetStatusText(1, ForcedEndText(session, score));
        return std::nullopt;
    }
    const GameEnd end = WinOf(session, true, side);
    SetGameResult(session, end.Winner);
    session.Port.Status.SetStatusText(1, end.Text);
    return end.Text;
}

void AnalyzeOpenPosition(Session& session, Long startTime) {
    ThinkingDisplay display;
    const auto result = SearchMove(session, kAnalysis, display, startTime);
    if (!result) return;
    const auto won = AnnounceAnalysis(session, result->LastScore);
    DrawBoard(session, 0);
    if (won) ShowEndBox(session, *won);
    if (DrawRuleApplies(session, true)) MeetEnd(session, kAnalysis, DrawByRule(session));
}

void AnalyzePosition(Session& session) {
    const Long startTime = WholeSeconds(session);
    session.Game.RateableGame = false;
    PrepareThinking(session, kAnalysis);
    if (const auto end = EndBeforeThinking(session, kAnalysis)) {
        MeetEnd(session, kAnalysis, *end);
    } else {
        if (EndOnGeneratorFault(session)) return;
        AnalyzeOpenPosition(session, startTime);
    }
    if (session.Quitting) return;
    session.Thought.PredictedFrom = session.Thought.PredictedTo = 0;
    session.Thought.FromBook = false;
    ForgetSearchFlags(session);
    session.Port.Status.SetProgress(0);
    HandBack(session);
}

} // namespace

void AnalyzeCommand(Session& session) {
    if (!session.Game.GameOver && !session.Busy) RunThinking(session, AnalyzePosition);
}

} // namespace tavlon12
