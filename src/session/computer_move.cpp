#include "session/computer_move.h"

#include "engine/evaluate.h"
#include "rules/generate_moves.h"
#include "session/book_lookup.h"
#include "session/command_state.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/program_files.h"
#include "session/record_move.h"
#include "session/screen.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace tavlon12 {

namespace {

/// The end of a game between the computer, which plays `computer`, and the user.
GameEnd WinOf(const Session& session, bool computerWins, Long computer) {
    if (computerWins) return {"Computer wins!", 0, computer};
    return {session.Settings.UserName + " wins!", 1, -computer};
}

void PrepareThinking(Session& session) {
    SearchState& search = session.Search;
    AdoptSearchSettings(session);
    search.BackRankOn = true;
    search.NoiseRange = NoiseRangeOf(session.Settings.Limits.StrengthStep);
    search.SearchAborted = false;
    session.Thought = Thinking();
    session.SearchStarted = true;
    session.Game.GameTouched = true;
    session.Game.TouchedCell = 0;
    session.Game.ResultText.clear();
    session.Input.MovablesBoxed = false;
}

void ShowThinking(Session& session) {
    if (session.Settings.ShowAvailableMoves == 1) RedrawFromSquares(session);
    if (session.Settings.PlayMode != kComputerComputer) {
        session.Port.Lists.ListClear(ListId::List2);
        session.Port.Lists.ListClear(ListId::List3);
    }
    ShowStrengthLine(session);
    session.Port.Status.SetStatusText(1, "Thinking...");
    if (session.Settings.CalculationOn == 1) session.Port.Status.SetSearchLine("");
    ShutForThinking(session);
}

/// Ends the game when the position leaves the computer nothing to think about; else the root moves are in the list.
bool EndsBeforeThinking(Session& session) {
    Position& position = session.Pos;
    InitGameTree(position);
    const Long computer = position.Tree.SideToMove;
    const RootValue root = EvaluateRoot(position, session.Search, computer);
    if (root.NoMovesDraw) {
        EndGame(session, Draw());
        return true;
    }

    if (!root.Lost && root.Value != kWin && GenerateLegalMoves(position) > 0) return false;
    if (position.Fault.Passed()) return false;
    const bool computerWins = !root.Lost && (root.Value == kWin || position.Rules.AntiMode == 1);
    WaitSeconds(session, kPause);
    if (!session.Quitting) EndGame(session, WinOf(session, computerWins, computer));
    return true;
}

/// Where the book has a move for the computer, it becomes the only one in the list.
void TakeBookMove(Session& session) {
    const SquarePair chosen = ConsultBook(session, true).Move;
    if (chosen.From == 0) {
        session.Game.BookOpen = false;
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

/// Brings the chosen move to the front of the list. Gives the iteration that confirmed it; nothing when the program
/// ends.
std::optional<Long> SearchMove(Session& session, ThinkingDisplay& display, Long startTime) {
    StatusPort& status = session.Port.Status;
    status.SetProgress(0);
    WaitSeconds(session, kPause);
    if (session.Quitting) return std::nullopt;
    StartProgress(session, display);
    if (session.Settings.OpeningBook == 1) TakeBookMove(session);
    if (session.Quitting) return std::nullopt;
    RootSearchInput input = RootInputOf(session);
    input.MoveLimitHit = CheckMoveLimit(session, session.Pos.Tree.TreeIndex - 1);
    input.StartTime = WholeSeconds(session);
    const RootSearchResult result =
        SearchRoot(session.Pos, session.Search, input, ThinkingHooks(session, display), session.Thought.RootMoves);
    if (session.Quitting) return std::nullopt;
    session.Game.LastScore = result.LastScore;
    session.Search.RepeatCount = 0;

    ShowStrengthLine(session);
    if (session.Settings.CalculationOn == 1)
        status.SetSearchLine(display.BestText +
                             "   Time: " + TimeString(ElapsedSeconds(startTime, WholeSeconds(session))) +
                             "\nMain: " + display.ShownLine);
    // Time that has run out is no cancel; after a cancel the computer's game against itself ends.
    if (session.Pos.StopFlag == kStopTime) {
        session.Pos.StopFlag = 0;
        session.Search.SearchAborted = false;
    }
    SortCandidates(session);
    if (session.Settings.PlayMode != kComputerComputer) ShowCandidates(session, session.Thought.RootMoves[0].From);
    status.SetStatusText(1, "");
    return result.BestDepth;
}

/// Says what the move that has just been made means. Gives the text of the box that is due when it has won the game on
/// the board.
std::optional<std::string> AnnounceMove(Session& session) {
    const Long computer = -session.Pos.Tree.SideToMove;
    const RootValue root = EvaluateRoot(session.Pos, session.Search, computer);
    if (root.NoMovesDraw) {
        EndGame(session, Draw());
        return std::nullopt;
    }

    const Long score = session.Game.LastScore;
    const bool winning = score >= 31980;
    if (winning && root.Value >= 31981) return CloseGame(session, WinOf(session, true, computer));
    if (winning || score < -31979) {
        session.Port.Status.SetStatusText(1, ForcedEndText(session, score));
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
    if (!DrawRuleApplies(session, MoveCount(session.Pos.Tree) == 0)) return;
    WaitSeconds(session, kPause);
    if (!session.Quitting) EndGame(session, DrawByRule(session));
}

/// The side to move has no move after the computer's.
void EndWithoutMoves(Session& session) {
    WaitSeconds(session, kPause);
    if (session.Quitting) return;
    const bool computerWins = session.Pos.Rules.AntiMode != 1 || session.Settings.PlayMode == kComputerComputer;
    GameEnd end = WinOf(session, computerWins, -session.Pos.Tree.SideToMove);
    end.Winner = WinnerByPosition(session.Pos); // also where the computer has played both sides
    EndGame(session, end);
}

/// The steps that end every call: the game is over when the side to move has no move, and the user gets the commands
/// back.
void CloseThinking(Session& session) {
    session.Pos.LastCapAnyPly = true; // the user's replies, wherever the root is
    const bool canMove = GenerateLegalMoves(session.Pos) > 0;
    session.Pos.LastCapAnyPly = false;
    if (EndOnGeneratorFault(session)) return;
    if (!canMove && !session.Game.GameOver) EndWithoutMoves(session);
    if (session.Quitting) return;

    OpenAfterThinking(session);
    session.Port.Status.SetProgress(0);
    const bool autoplay = session.Settings.PlayMode == kComputerComputer;
    const bool goesOn = autoplay && !session.Game.GameOver && !session.Search.SearchAborted;
    // A click on Cancel that came when the search was over must not stop the next one.
    if (!autoplay) session.Pos.StopFlag = 0;
    if (goesOn) return;
    session.Pos.LastCapAnyPly = true;
    RefreshLegalMoves(session);
    session.Pos.LastCapAnyPly = false;
    if (autoplay) ShowCandidates(session, session.Thought.RootMoves[0].From);
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
    PrepareThinking(session);
    ShowThinking(session);
    if (!EndsBeforeThinking(session)) {
        if (EndOnGeneratorFault(session)) return;
        ThinkingDisplay display;
        const std::optional<Long> bestDepth = SearchMove(session, display, startTime);
        if (!bestDepth) return;
        PlayMove(session, display, *bestDepth);
        if (!session.Game.GameOver && !session.Quitting) MaybeAskForDraw(session);
        if (!session.Game.GameOver && !session.Quitting) MaybeDrawByRule(session);
    }
    if (!session.Quitting) CloseThinking(session);
}

} // namespace tavlon12
