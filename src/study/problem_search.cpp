#include "study/problem_search.h"

#include "engine/search.h"
#include "session/hint.h"
#include "session/thinking.h"
#include "study/candidates.h"

#include <cstdlib>
#include <optional>

namespace tavlon12 {

namespace {

constexpr Long kShallow = 2; ///< depth of the value that deeper ones are compared with
constexpr Long kPawn = 100;

/// The value of the position on the board for the side to move. A cancel leaves `SearchAborted` set.
Long ShallowValue(Session& session) {
    AdoptSearchSettings(session);
    session.Search.ExtensionLimit = kShallow + session.Search.Options.Plys;
    const DepthScore scored = ScoreAtDepth(session.Pos, session.Search, kShallow);
    if (scored.Stopped) session.Search.SearchAborted = true;
    return -scored.Score;
}

/// The line of a move that hides a combination; nothing for any other.
std::optional<std::string> ProblemRow(Session& session, const Candidate& candidate, Long base) {
    if (session.Thought.PredictedFrom > 0) {
        ShowPredictedReply(session);
        return std::nullopt;
    }
    BestReply best;
    std::string text;
    const auto bestFound = [&](const BestReply& reply) {
        best = reply;
        const std::string values =
            "Score:" + Str(reply.Value) + "   iniScore:" + Str(base) + "   Depth:" + Str(reply.Depth);
        session.Port.Status.SetSearchLine(values);
        text = reply.Captures == 0 ? "" : reply.Line + "  " + candidate.Made.Texts.MoveTextShown + "  " + values;
    };
    DeepenReplies(session, session.Settings.PlyValueDepth, bestFound, [](Long) {});
    session.Thought.PredictedFrom = session.Thought.PredictedTo = 0;
    if (std::abs(best.Value - base) <= kPawn || text.empty()) return std::nullopt;
    return text + "\n";
}

void SearchProblems(Session& session) {
    StatusPort& status = session.Port.Status;
    session.Port.Study.ClearProblems();
    status.SetSearchLine("Searching...");
    const Long depth = session.Settings.PlyValueDepth;
    status.SetProgressRange(0, session.Port.Lists.ListCount(ListId::List2) * depth);
    status.SetProgress(0);
    const Long base = ShallowValue(session);
    std::string text;
    Long problemCount = 0;
    StudyCandidates(session, [&](const Candidate& candidate) {
        if (!candidate.EndsGame) {
            if (const auto found = ProblemRow(session, candidate, base)) {
                text += *found;
                ++problemCount;
            }
        }
        status.SetProgress((candidate.Index + 1) * depth);
    });
    if (session.Quitting) return;
    status.SetProgress(0);
    if (problemCount == 0) {
        status.SetSearchLine("no Problems/Combinations found");
        return;
    }
    status.SetSearchLine(std::to_string(problemCount) + " Problems/Combinations found");
    session.Port.Study.ShowProblems(text);
}

} // namespace

void FindProblems(Session& session) {
    if (!session.Busy) RunStudy(session, [&] { SearchProblems(session); });
}

} // namespace tavlon12
