#include "session/navigation.h"

#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/reset_game.h"
#include "session/screen.h"

#include <algorithm>
#include <utility>

namespace tavlon12 {

namespace {

void EnableCommands(Session& session, std::initializer_list<Command> commands, bool on) {
    for (Command command : commands) session.Port.Commands.SetCommandEnabled(command, on);
}

void EmptyCandidateList(Session& session) {
    session.Port.Lists.ListClear(ListId::List3);
}

/// The line of the position on the board, none at the start of the game.
void SelectLine(Session& session) {
    Long line = session.Pos.Tree.TreeIndex - 1;
    if (line < session.Port.Lists.ListCount(ListId::List1)) session.Port.Lists.ListSelect(ListId::List1, line);
}

void SetRootMaterial(Session& session) {
    GameTree& tree = session.Pos.Tree;
    tree.Ply = 0;
    tree.PlyValue[0] = tree.GameValue[tree.TreeIndex];
    tree.PlyMaterial[0] = tree.GameMaterial[tree.TreeIndex];
}

void TakeBackHalfMove(Session& session) {
    Position& position = session.Pos;
    position.Moves[0] = session.Record.MoveHistory[position.Tree.TreeIndex];
    position.Tree.Ply = 1;
    TakeBackMove(position, 0);
    SetRootMaterial(session);
}

bool SameMove(const MoveRecord& a, const MoveRecord& b) {
    return a.From == b.From && a.To == b.To && a.Promotes == b.Promotes && a.Captures == b.Captures;
}

/// Two captures can share their first and last square; the text of the game then stands for the first of them. What was
/// played is the recorded one.
void PreferRecordedRoute(Session& session) {
    Position& position = session.Pos;
    const MoveRecord& recorded = session.Record.MoveHistory[position.Tree.TreeIndex];
    if (SameMove(position.Moves[session.LastMoveSlot], recorded)) return;
    for (Long slot = position.Tree.PlyFirstMove[0]; slot < position.Tree.PlyFirstMove[1]; ++slot) {
        if (!SameMove(position.Moves[slot], recorded)) continue;
        TakeBackMove(position, session.LastMoveSlot);
        PerformMove(position, slot);
        session.LastMoveSlot = slot;
        session.LastMovePromoted = recorded.Promotes == 2;
        return;
    }
}

/// Makes the next half-move of the record again; false at its end.
bool RemakeHalfMove(Session& session) {
    Position& position = session.Pos;
    const GameRecord& record = session.Record;
    Long next = position.Tree.TreeIndex + 1;
    if (next > record.LastMoveIndex) return false;
    bool placement = record.MoveHistory[next].From == kOffBoard;
    std::string key = MoveKeyOfCell(record.GameRows[RowOfHalfMove(next)][TextColumn(next)], placement);
    session.Port.Fields.SetText(Control::Text1, record.MoveComments[next]);
    SetRootMaterial(session);
    session.TouchedCell = 0;
    if (!InputMove(session, UpperCase(key))) return false;
    PreferRecordedRoute(session);
    // A search from an earlier position may have written its own keys here.
    position.PositionKeys[next - 1] = position.Key;
    return true;
}

/// What the draw rules say about the position that going forward has reached.
void RebuildDrawReason(Session& session) {
    Long index = session.Pos.Tree.TreeIndex;
    session.DrawReason = 0;
    session.MoveLimitHit = CheckMoveLimit(session, index);
    if (session.MoveLimitHit) session.DrawReason = 2;
    Repetition repetition = FindRepetition(session.Pos, index);
    if (repetition.RepeatCount == 3) session.DrawReason = 1;
    if (repetition.KingsOnlyFound) session.DrawReason = 3;
}

void DisableForwardAtEnd(Session& session) {
    if (session.Record.MoveHistory[session.Pos.Tree.TreeIndex + 1].From != 0) return;
    EnableCommands(session, {Command::MoveForward, Command::Last}, false);
}

/// The closing steps that one half-move forward and many have in common.
void ShowForwardPosition(Session& session) {
    UpdatePlayerLabels(session);
    DrawBoard(session, 0);
    SelectLine(session);
    bool atResult = !session.ResultShown.empty() && session.Pos.Tree.TreeIndex == session.Record.LastMoveIndex;
    session.Port.Status.SetStatusText(1, atResult ? session.ResultShown : "");
    session.Port.Status.SetProgress(0);
    if (session.Pos.Tree.TreeIndex > 0) EnableCommands(session, {Command::Moveback, Command::First}, true);
    RebuildDrawReason(session);
    CheckGameEnd(session);
}

void EnableRunningGame(Session& session) {
    session.Port.Status.SetStatusText(1, "");
    session.Port.Status.SetProgress(0);
    EnableCommands(session, {Command::Compute, Command::Analyze, Command::MoveForward, Command::Last}, true);
    if (session.PlayMode != kPlayerPlayer) EnableCommands(session, {Command::Offerdraw, Command::Resign}, true);
    EnableCommands(session, {Command::Hint, Command::mnu_Play_Ccomputer}, true);
    session.Port.Lists.SetListEnabled(ListId::List2, true);
}

void GoBackward(Session& session, Long count, bool silent) {
    const GameTree& tree = session.Pos.Tree;
    session.GameOver = false;
    session.TouchedCell = 0;
    for (Long i = std::min(count, tree.TreeIndex); i > 0; --i) {
        TakeBackHalfMove(session);
        if (silent) {
            DrawBoard(session, 0);
        } else {
            SelectLine(session);
        }
        SwapNamesOfComputerGame(session);
    }
    if (!silent) session.Port.Status.SetSearchLine("no calculation");
    UpdatePlayerLabels(session);
    DrawBoard(session, 0);
    session.PredictedFrom = session.PredictedTo = 0;
    session.DrawReason = 0;
    if (silent) return;
    session.Port.Fields.SetText(Control::Text1, session.Record.MoveComments[tree.TreeIndex]);
    if (tree.TreeIndex == 0) EnableCommands(session, {Command::First, Command::Moveback}, false);
    EnableRunningGame(session);
}

void GoForwardBy(Session& session, Long count, bool silent) {
    for (Long i = 0; i < count && RemakeHalfMove(session); ++i) {
        SwapNamesOfComputerGame(session);
        if (silent) DrawBoard(session, 0);
    }
    if (silent) {
        RebuildDrawReason(session);
        return;
    }
    session.Port.Status.SetSearchLine("no calculation");
    ShowForwardPosition(session);
    DisableForwardAtEnd(session);
}

void LockAll(Session& session, bool on) {
    for (Control control : {Control::mnuGame, Control::mnuPlay, Control::mnu_Board1, Control::view, Control::Help,
                            Control::Text2, Control::Toolbar1}) {
        session.Port.Fields.SetControlEnabled(control, on);
    }
}

} // namespace

void GoToMove(Session& session, Long count, bool keepCandidates, bool silent) {
    session.RateableGame = false;
    if (!keepCandidates) ClearCandidates(session);
    if (!silent) session.Port.Lists.SetListEnabled(ListId::List3, false);
    if (count > 0) {
        GoBackward(session, count, silent);
    } else {
        GoForwardBy(session, -count, silent);
    }
    GenerateLegalMoves(session.Pos);
    if (!silent) RefreshLegalMoves(session);
}

void StepForward(Session& session) {
    if (!RemakeHalfMove(session)) return;
    session.Port.Lists.SetListEnabled(ListId::List3, false);
    session.Port.Status.SetSearchLine("no calculation");
    SwapNamesOfComputerGame(session);
    ShowForwardPosition(session);
    RefreshLegalMoves(session);
    DisableForwardAtEnd(session);
}

void GoFirst(Session& session) {
    if (session.Busy) return;
    EmptyCandidateList(session);
    if (session.Pos.Tree.TreeIndex != 0) GoToMove(session, session.Pos.Tree.TreeIndex, false, false);
}

// Back and Forward are greyed while the computer thinks; the test is for the shortcut that was pressed just before.
void GoBack(Session& session) {
    if (session.Busy) return;
    EmptyCandidateList(session);
    if (session.Pos.Tree.TreeIndex != 0) GoToMove(session, 1, false, false);
}

void GoForward(Session& session) {
    if (session.Busy) return;
    EmptyCandidateList(session);
    StepForward(session);
}

void GoLast(Session& session) {
    if (session.Busy) return;
    Long count = session.Pos.Tree.TreeIndex - session.Port.Lists.ListCount(ListId::List1);
    EmptyCandidateList(session);
    if (count != 0) GoToMove(session, count, false, false);
}

void GoToSelectedLine(Session& session) {
    if (session.Busy) return;
    Long line = session.Port.Lists.ListSelected(ListId::List1);
    EmptyCandidateList(session);
    if (line < 0) return; // a press beside the lines
    Long count = session.Pos.Tree.TreeIndex - line - 1;
    if (count != 0) GoToMove(session, count, false, false);
}

void SwapPlayerNames(Session& session) {
    std::swap(session.BlackPlayerName, session.WhitePlayerName);
}

void SwapNamesOfComputerGame(Session& session) {
    if (session.BlackPlayerName == kComputerName || session.WhitePlayerName == kComputerName) SwapPlayerNames(session);
}

const std::string& NameToMove(const Session& session) {
    bool begins = (session.Pos.Tree.SideToMove == kBlack) == (session.Pos.Rules.BlackStarts == 1);
    return begins ? session.BlackPlayerName : session.WhitePlayerName;
}

void CommentKey(Session& session) {
    const GameTree& tree = session.Pos.Tree;
    // While the computer thinks the index counts its line too.
    Long index = session.Busy ? tree.TreeIndex - tree.Ply : tree.TreeIndex;
    session.Record.MoveComments[index] = session.Port.Fields.GetText(Control::Text1);
}

void LockCommands(Session& session) {
    LockAll(session, false);
}

void UnlockCommands(Session& session) {
    LockAll(session, true);
}

void ForgetFuture(Session& session) {
    GameRecord& record = session.Record;
    Long index = session.Pos.Tree.TreeIndex;
    for (Long line = session.Port.Lists.ListCount(ListId::List1) - 1; line >= index; --line) {
        session.Port.Lists.ListRemove(ListId::List1, line);
    }
    for (Long halfMove = index + 1; halfMove <= record.LastMoveIndex; ++halfMove) {
        record.MoveComments[halfMove].clear();
        record.MoveScores[halfMove] = 0;
    }
    record.LastMoveIndex = index;
}

} // namespace tavlon12
