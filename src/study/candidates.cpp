#include "study/candidates.h"

#include "engine/root_search.h"
#include "engine/search.h"
#include "rules/generate_moves.h"
#include "session/command_state.h"
#include "session/game_end.h"
#include "session/move_texts.h"
#include "session/navigation.h"
#include "session/record_move.h"
#include "session/screen.h"
#include "session/thinking.h"

#include <memory>
#include <utility>

namespace tavlon12 {

namespace {

/// What trying a move changes of the game.
struct KeptGame {
    explicit KeptGame(const Session& session)
        : Tree(session.Pos.Tree), Record(session.Record), Game(session.Game), Players(session.Players) {}
    void PutBack(Session& session) const {
        session.Pos.Tree = Tree;
        session.Record = Record;
        session.Game = Game;
        session.Players = Players;
    }

    GameTree Tree;
    GameRecord Record;
    GameState Game;
    PlayerNames Players;
};

/// Makes a move and enters it, without showing it.
MadeMove TryMove(Session& session, Long index) {
    GenerateLegalMoves(session.Pos);
    const MadeMove made = MakeMove(session, session.Pos.Tree.PlyFirstMove[0] + index);
    EnterHalfMove(session, made, {kByPerson, 0, "2"});
    UpdateDrawStatus(session);
    return made;
}

/// Hands a move that has been made on. What happens in the position behind it is looked ahead.
void StudyMove(Session& session, Long index, const MadeMove& made, const std::function<void(const Candidate&)>& study) {
    const Lookahead lookahead(session.Pos);
    Candidate candidate{index, made, VerdictOn(session).has_value()};
    if (!lookahead.LimitPassed()) study(candidate);
    if (lookahead.LimitPassed()) session.Pos.StopFlag = 0;
}

BestReply ReplyInFront(Session& session, Long depth, Long score) {
    const Position& position = session.Pos;
    const MoveRecord& move = position.Moves[position.Tree.PlyFirstMove[0]];
    BestReply best{depth, -score, MainLine(session), 0, move.IsCapture()};
    for (const BestLineCell& cell : position.BestLine[0]) {
        if (cell.From == 0) break;
        if (cell.Kind % 10 == 1) ++best.Captures;
    }
    return best;
}

} // namespace

void StudyCandidates(Session& session, const std::function<void(const Candidate&)>& study) {
    if (GameIsFull(session)) {
        ShowRefusal(session, Refusal::GameFull);
        return;
    }
    session.Game.RateableGame = false;
    InitGameTree(session.Pos);
    const Long count = GenerateLegalMoves(session.Pos);
    if (EndOnGeneratorFault(session)) return;
    const auto kept = std::make_unique<KeptGame>(session);
    for (Long index = 0; index < count && !session.Search.SearchAborted && !session.Quitting; ++index) {
        StudyMove(session, index, TryMove(session, index), study);
        GoToMove(session, 1, true, true);
        kept->PutBack(session);
    }
}

void DeepenReplies(Session& session, Long depth, const std::function<void(const BestReply&)>& bestFound,
                   const std::function<void(Long depth)>& depthFinished) {
    Position& position = session.Pos;
    if (GenerateLegalMoves(position) == 0 || position.Fault.Passed()) return;
    AdoptSearchSettings(session);
    RootSearchInput input;
    input.Scoring = RootScoring::AtGivenDepth;
    input.DepthLimit = depth;
    input.DeepensShortLines = input.RepetitionIsDraw = false;
    RootSearchHooks hooks;
    hooks.BestFound = [&](Long iteration, Long, Long score) { bestFound(ReplyInFront(session, iteration, score)); };
    hooks.IterationFinished = depthFinished;
    const auto scores = std::make_unique<RootMoveTable>(); // the candidates stay those of the last move
    SearchRoot(position, session.Search, input, hooks, *scores);
}

void RunStudy(Session& session, const std::function<void()>& work) {
    SearchState& search = session.Search;
    const auto letEventsIn = search.Yield;
    const YieldGuard cancels(search, [&] {
        letEventsIn();
        if (session.Quitting || session.Pos.StopFlag == kStopCancel) search.SearchAborted = search.Unwind = true;
    });
    const Long noise = std::exchange(search.NoiseRange, 0); // what is found out is to be true
    RunThinking(session, [&](Session&) {
        session.SearchStarted = true;
        search.SearchAborted = false;
        session.Input.MovablesBoxed = false;
        if (session.Settings.ShowAvailableMoves == 1) RedrawFromSquares(session);
        ShutForThinking(session);
        work();
        ForgetSearchFlags(session);
    });
    search.NoiseRange = noise;
    if (session.Quitting) return;
    HandBack(session);
    session.Port.Status.SetStatusText(1, session.Game.EndText);
    UpdatePlayerLabels(session);
}

} // namespace tavlon12
