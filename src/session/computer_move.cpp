#include "session/computer_move.h"

#include "engine/evaluate.h"
#include "rules/generate_moves.h"
#include "session/book_lookup.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/program_files.h"
#include "session/record_move.h"
#include "session/screen.h"
#include "session/thinking.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace tavlon12 {

namespace {

/// Says what the move that has just been made means. Gives the text of the box that is due when it has won the game on
/// the board.
std::optional<std::string> AnnounceMove(Session& session) {
    const Long computer = -session.Pos.Tree.SideToMove;
    const RootValue root = EvaluateRoot(session.Pos, session.Search, computer);
    if (root.NoMovesDraw) {
        EndGame(session, Draw());
        return std::nullopt;
    }
    const Outlook outlook = OutlookOf(session.Game.LastScore, root.Value);
    if (outlook == Outlook::Won) return CloseGame(session, WinOf(session, true, computer));
    if (outlook == Outlook::Forced) {
        session.Port.Status.SetStatusText(1, ForcedEndText(session, session.Game.LastScore));
        session.Game.MateAnnounced = true;
    }
    return std::nullopt;
}

/// Plays the first move of the list and enters it.
void PlayMove(Session& session, const ThinkingDisplay& display, Long bestDepth) {
    Position& position = session.Pos;
    const MadeMove made = MakeMove(session, 0);
    const std::optional<std::string> won = AnnounceMove(session);
    EnterHalfMove(session, made, {kByComputer, session.Game.LastScore, std::to_string(bestDepth)});
    PlaySound(session, "click.wav");
    const bool inBook = ConsultBook(session, false).InBook || session.Thought.FromBook;
    const std::string line = LineOfHalfMove(session, made, inBook);
    LogHalfMove(session, ComputerMoveLogText(line, session.Game.LastScore, bestDepth, session.Thought.MainLineText,
                                             display.Iterations));
    ShowHalfMove(session, line);
    // From here on the position is the root again, as it is between moves: rules that hold at the root alone then hold
    // for the reply too.
    InitGameTree(position);
    UpdateDrawStatus(session);
    DrawBoard(session, 0);
    if (!won) return;
    WaitSeconds(session, kPause);
    session.Port.Status.SetProgress(display.ProgressMaximum);
    ShowEndBox(session, *won);
}

/// Counts the computer's moves in a row whose score is near to that of 78 half-moves earlier.
void UpdateStagnation(Session& session) {
    constexpr Long kLookBack = 78;
    const Long index = session.Pos.Tree.TreeIndex;
    const auto& scores = session.Record.MoveScores;
    if (index <= kLookBack || scores[index - kLookBack] == 0) return;
    const bool near = std::abs(scores[index - kLookBack] - scores[index]) < 100;
    session.Game.Stagnation = near ? session.Game.Stagnation + 1 : 0;
}

/// Asks the user for a draw when the game stands still.
void MaybeAskForDraw(Session& session) {
    constexpr Long kBetweenQuestions = 40;
    const GameTree& tree = session.Pos.Tree;
    UpdateStagnation(session);
    const bool standsStill = session.Game.Stagnation >= 2;
    if (session.Settings.AskForDraw != 1 || tree.TreeIndex - session.Game.LastDrawAsk <= kBetweenQuestions ||
        !(session.EqualKingsOnly || standsStill) || tree.PlyValue[tree.Ply] != 0 ||
        session.Settings.PlayMode == kComputerComputer)
        return;
    const double chance = static_cast<double>(session.Search.Random()) / 4294967296.0;
    if (!(chance < 0.1 || standsStill) || session.Game.LastScore >= 30000 || session.Game.MateAnnounced) return;
    session.Game.LastDrawAsk = tree.TreeIndex;
    WaitSeconds(session, kPause);
    if (session.Quitting || !AskYesNo(session, "How about a draw?", "Question")) return;
    EndGame(session, Draw());
}

/// Ends the game by a draw rule that the position meets.
void MaybeDrawByRule(Session& session) {
    GenerateMoves(session.Pos, 0);
    if (DrawRuleApplies(session, MoveCount(session.Pos.Tree) == 0))
        MeetEnd(session, kMoveThinking, DrawByRule(session));
}

/// The side to move has no move after the computer's.
GameEnd EndWithoutMoves(const Session& session) {
    const bool computerWins = session.Pos.Rules.AntiMode != 1 || session.Settings.PlayMode == kComputerComputer;
    GameEnd end = WinOf(session, computerWins, -session.Pos.Tree.SideToMove);
    end.Winner = WinnerByPosition(session.Pos); // also where the computer has played both sides
    return end;
}

/// The steps that end every call: the game is over when the side to move has no move, and the user gets the commands
/// back, unless the computer plays itself: then its loop gives them back when it ends.
void CloseThinking(Session& session) {
    session.Pos.LastCapAnyPly = true; // the user's replies, wherever the root is
    const bool canMove = GenerateLegalMoves(session.Pos) > 0;
    session.Pos.LastCapAnyPly = false;
    if (EndOnGeneratorFault(session)) return;
    if (!canMove && !session.Game.GameOver) MeetEnd(session, kMoveThinking, EndWithoutMoves(session));
    if (session.Quitting) return;
    session.Port.Status.SetProgress(0);
    if (session.Settings.PlayMode != kComputerComputer) HandBack(session);
}

void ThinkAndPlay(Session& session, Long startTime) {
    ThinkingDisplay display;
    const auto result = SearchMove(session, kMoveThinking, display, startTime);
    if (!result) return;
    session.Game.LastScore = result->LastScore;
    PlayMove(session, display, result->BestDepth);
    if (!session.Game.GameOver && !session.Quitting) MaybeAskForDraw(session);
    if (!session.Game.GameOver && !session.Quitting) MaybeDrawByRule(session);
}

} // namespace

void ThinkComputerMove(Session& session) {
    if (GameIsFull(session)) {
        session.Search.SearchAborted = true; // a game of the computer against itself ends here
        ShowRefusal(session, Refusal::GameFull);
        CloseThinking(session);
        return;
    }
    const Long startTime = WholeSeconds(session);
    PrepareThinking(session, kMoveThinking);
    if (const auto end = EndBeforeThinking(session, kMoveThinking)) {
        MeetEnd(session, kMoveThinking, *end);
    } else {
        if (EndOnGeneratorFault(session)) return;
        ThinkAndPlay(session, startTime);
    }
    if (!session.Quitting) CloseThinking(session);
}

} // namespace tavlon12
