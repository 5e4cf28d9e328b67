#include "session/computer_move.h"

#include "engine/evaluate.h"
#include "engine/evaluation_tables.h"
#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/navigation.h"
#include "session/rating.h"
#include "session/record_move.h"
#include "session/screen.h"

#include <cstdlib>
#include <optional>
#include <string>

namespace tavlon12 {

namespace {

constexpr double kPause = 0.5; ///< seconds between a move and what follows it

std::string UserWins(const Session& session) {
    return session.Settings.UserName + " wins!";
}

void PrepareThinking(Session& session) {
    UiPort& port = session.Port;
    SearchState& search = session.Search;
    search.Options = session.Settings.Search;
    search.BackRankOn = true;
    search.NoiseRange = NoiseRangeOf(session.Settings.Limits.StrengthStep);
    search.SearchAborted = false;
    SetManThresholds(session.Pos, search);
    session.MainLineText.clear();
    session.RootMoves.fill(RootMove());
    session.GameTouched = true;
    session.SearchStarted = true;
    session.TouchedCell = 0;
    session.PredictedFrom = 0;
    session.PredictedTo = 0;
    session.ResultText.clear();
    session.Input.MovablesBoxed = false;
    if (session.Settings.ShowAvailableMoves == 1) RedrawFromSquares(session);

    if (session.PlayMode != kComputerComputer) {
        port.Lists.ListClear(ListId::List2);
        port.Lists.ListClear(ListId::List3);
        for (ListId list : {ListId::List1, ListId::List2, ListId::List3}) port.Lists.SetListEnabled(list, false);
    }
    ShowStrengthLine(session);
    ForgetFuture(session);
    port.Status.SetStatusText(1, "Thinking...");
    if (session.Settings.CalculationOn == 1) port.Status.SetSearchLine("");
    ShutCommandsForThinking(session);
}

/// Ends the game when the position leaves the computer nothing to think about; else the root moves are in the list.
bool EndsBeforeThinking(Session& session) {
    Position& position = session.Pos;
    SearchState& search = session.Search;
    InitGameTree(position);
    const Long value = Evaluate(position, search, -kWin, kWin, position.Tree.SideToMove);
    const bool lost = search.LostFlag;
    if (search.NoMovesDraw) {
        search.NoMovesDraw = false;
        SetGameResult(session, GameResult::Draw);
        session.GameOver = true;
        AnnounceResult(session, "It's a draw!", 0.5);
        return true;
    }

    if (!lost && value != kWin && GenerateLegalMoves(position) > 0) return false;
    if (position.Fault.Passed()) return false;
    const bool computerWins = !lost && (value == kWin || position.Rules.AntiMode == 1);
    const std::string text = computerWins ? "Computer wins!" : UserWins(session);
    SetGameResult(session, GameResult::FromBoard);
    session.GameOver = true;
    if (lost || value == kWin) session.Port.Status.SetStatusText(1, text);
    WaitSeconds(session, kPause);
    if (!session.Quitting) AnnounceResult(session, text, computerWins ? 0 : 1);
    return true;
}

/// Brings the chosen move to the front of the list. Gives the iteration that confirmed it; nothing when the program
/// ends.
std::optional<Long> SearchMove(Session& session, ThinkingDisplay& display, Long startTime) {
    UiPort& port = session.Port;
    session.MoveLimitHit = CheckMoveLimit(session, session.Pos.Tree.TreeIndex - 1);
    RootSearchInput input = RootInputOf(session);
    port.Status.SetProgress(0);
    WaitSeconds(session, kPause);
    if (session.Quitting) return std::nullopt;
    StartProgress(session, input, display);
    input.StartTime = WholeSeconds(session);
    FillCandidates(session);
    const RootSearchResult result =
        SearchRoot(session.Pos, session.Search, input, ThinkingHooks(session, display), session.RootMoves);
    if (session.Quitting || EndOnGeneratorFault(session)) return std::nullopt;
    session.LastScore = result.LastScore;
    session.Search.RepeatCount = 0;

    ShowStrengthLine(session);
    if (session.Settings.CalculationOn == 1)
        port.Status.SetSearchLine(display.BestText +
                                  "   Time: " + TimeString(ElapsedSeconds(startTime, WholeSeconds(session))) +
                                  "\nMain: " + session.MainLineText);
    // Time that has run out is no cancel; after a cancel the computer's game against itself ends.
    if (session.Pos.StopFlag == kStopTime) {
        session.Pos.StopFlag = 0;
        session.Search.SearchAborted = false;
    }
    SortCandidates(session);
    if (session.PlayMode != kComputerComputer) ShowCandidates(session, session.RootMoves[0].From);
    port.Status.SetStatusText(1, "");
    return result.BestDepth;
}

/// Says what the move that has just been made means. True when it has won the game on the board.
bool AnnounceMove(Session& session) {
    SearchState& search = session.Search;
    const Long value = Evaluate(session.Pos, search, -kWin, kWin, -session.Pos.Tree.SideToMove);
    if (search.NoMovesDraw) {
        search.NoMovesDraw = false;
        SetGameResult(session, GameResult::Draw);
        session.GameOver = true;
        AnnounceResult(session, "It's a draw!", 0.5);
        return false;
    }

    const bool losing = session.LastScore < -31979;
    const bool winning = session.LastScore >= 31980;
    if (winning && value >= 31981) {
        SetGameResult(session, GameResult::FromBoard);
        session.GameOver = true;
        UpdateRating(session, 0);
        session.Port.Status.SetStatusText(1, "Computer wins!");
        return true;
    }
    if (losing || winning) {
        session.Port.Status.SetStatusText(1, ForcedEndText(session, session.LastScore));
        session.MateAnnounced = true;
    }
    return false;
}

/// Plays the first move of the list and enters it.
void PlayMove(Session& session, const ThinkingDisplay& display, Long bestDepth) {
    constexpr Long kFront = 0;
    Position& position = session.Pos;
    HalfMoveEntry entry;
    entry.Kind = kByComputer;
    entry.Choices = MoveCount(position.Tree);
    entry.Move = position.Moves[kFront];
    entry.Score = session.LastScore;
    entry.Depth = std::to_string(bestDepth);
    DisplayMove(session, kFront);
    PerformMove(position, kFront);
    const bool won = AnnounceMove(session);
    PlayMoveSound(session);
    EnterHalfMove(session, entry);
    // From here on the position is the root again, as it is between moves: rules that hold at the root alone then hold
    // for the reply too.
    InitGameTree(position);
    UpdateDrawStatus(session);
    DrawBoard(session, 0);
    if (!won) return;
    SetGameResult(session, GameResult::FromBoard);
    WaitSeconds(session, kPause);
    session.Port.Status.SetProgress(display.ProgressMaximum);
    ShowMessage(session, "Computer wins!" + session.RatingNote, "Congratulations", MessageKind::Exclamation);
}

/// Asks the user for a draw when the game stands still.
void MaybeAskForDraw(Session& session) {
    constexpr Long kLookBack = 78;
    constexpr Long kBetweenQuestions = 40;
    const GameTree& tree = session.Pos.Tree;
    const GameRecord& record = session.Record;
    if (tree.TreeIndex > kLookBack && record.MoveScores[tree.TreeIndex - kLookBack] != 0) {
        const Long change = record.MoveScores[tree.TreeIndex - kLookBack] - record.MoveScores[tree.TreeIndex];
        session.Stagnation = std::abs(change) < 100 ? session.Stagnation + 1 : 0;
    }

    const bool standsStill = session.Stagnation >= 2;
    if (session.Settings.AskForDraw != 1 || tree.TreeIndex - session.LastDrawAsk <= kBetweenQuestions ||
        !(session.EqualKingsOnly || standsStill) || tree.PlyValue[tree.Ply] != 0 ||
        session.PlayMode == kComputerComputer)
        return;
    const double chance = static_cast<double>(session.Search.Random()) / 4294967296.0;
    if (!(chance < 0.1 || standsStill) || session.LastScore >= 30000 || session.MateAnnounced) return;
    session.LastDrawAsk = tree.TreeIndex;
    WaitSeconds(session, kPause);
    if (session.Quitting || !session.Port.Dialogs.AskYesNo("How about a draw?", "Question")) return;
    SetGameResult(session, GameResult::Draw);
    session.GameOver = true;
    AnnounceResult(session, "It's a draw!", 0.5);
}

/// Ends the game by a draw rule that the position meets.
void MaybeDrawByRule(Session& session) {
    GenerateMoves(session.Pos, 0);
    if (!DrawRuleApplies(session, MoveCount(session.Pos.Tree) == 0)) return;
    SetGameResult(session, GameResult::Draw);
    WaitSeconds(session, kPause);
    if (session.Quitting) return;
    session.GameOver = true;
    UpdateRating(session, 0.5);
    ShowDrawMessage(session);
}

/// The steps that end every call: the game is over when the side to move has no move, and the user gets the commands
/// back.
void CloseThinking(Session& session) {
    session.Pos.LastCapAnyPly = true; // the user's replies, wherever the root stands
    const bool canMove = GenerateLegalMoves(session.Pos) > 0;
    session.Pos.LastCapAnyPly = false;
    if (EndOnGeneratorFault(session)) return;
    if (!canMove && !session.GameOver) {
        session.GameOver = true;
        WaitSeconds(session, kPause);
        if (session.Quitting) return;
        SetGameResult(session, GameResult::FromBoard);
        const bool userWins = session.Pos.Rules.AntiMode == 1 && session.PlayMode != kComputerComputer;
        AnnounceResult(session, userWins ? UserWins(session) : "Computer wins!", userWins ? 1 : 0);
    }

    OpenCommandsAfterThinking(session);
    const bool autoplay = session.PlayMode == kComputerComputer;
    const bool goesOn = autoplay && !session.GameOver && !session.Search.SearchAborted;
    // A click on Cancel that came when the search was over must not stop the next one.
    if (!autoplay) session.Pos.StopFlag = 0;
    if (goesOn) return;
    session.Pos.LastCapAnyPly = true;
    RefreshLegalMoves(session);
    session.Pos.LastCapAnyPly = false;
    if (autoplay) ShowCandidates(session, session.RootMoves[0].From);
}

} // namespace

void ThinkComputerMove(Session& session) {
    if (GameIsFull(session)) {
        session.Search.SearchAborted = true; // a game of the computer against itself ends here
        ShowGameFull(session);
        CloseThinking(session);
        return;
    }

    const Long startTime = WholeSeconds(session);
    PrepareThinking(session);
    if (!EndsBeforeThinking(session)) {
        if (EndOnGeneratorFault(session)) return;
        ThinkingDisplay display;
        const std::optional<Long> bestDepth = SearchMove(session, display, startTime);
        if (!bestDepth) return;
        PlayMove(session, display, *bestDepth);
        if (!session.GameOver && !session.Quitting) MaybeAskForDraw(session);
        if (!session.GameOver && !session.Quitting) MaybeDrawByRule(session);
    }
    if (!session.Quitting) CloseThinking(session);
}

} // namespace tavlon12
