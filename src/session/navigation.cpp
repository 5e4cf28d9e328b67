#include "session/navigation.h"

#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "session/book_lookup.h"
#include "session/command_state.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/players.h"
#include "session/screen.h"

#include <algorithm>

namespace tavlon12 {

namespace {

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

/// Makes the next half-move of the record again and takes it as played; false at its end.
bool RemakeHalfMove(Session& session) {
    const GameRecord& record = session.Record;
    const Long next = session.Pos.Tree.TreeIndex + 1;
    if (next > record.LastMoveIndex) return false;
    session.Port.Fields.SetText(Control::Text1, record.MoveComments[next]);
    SetRootMaterial(session);
    InputRecord(session, record.MoveHistory[next]);
    InitGameTree(session.Pos);
    // A search from an earlier position may have written its own keys over that of this one.
    UpdateDrawStatus(session);
    return true;
}

/// The closing steps that one half-move forward and many have in common.
void ShowForwardPosition(Session& session) {
    ConsultBook(session, false);
    UpdatePlayerLabels(session);
    DrawBoard(session, 0);
    SelectLine(session);
    bool atResult = !session.ResultShown.empty() && session.Pos.Tree.TreeIndex == session.Record.LastMoveIndex;
    session.Port.Status.SetStatusText(1, atResult ? session.ResultShown : "");
    session.Port.Status.SetProgress(0);
    OpenNavigation(session);
    CheckGameEnd(session);
}

void GoBackward(Session& session, Long count, bool silent) {
    const GameTree& tree = session.Pos.Tree;
    session.Game.GameOver = false;
    session.Game.TouchedCell = 0;
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
    ConsultBook(session, false);
    UpdatePlayerLabels(session);
    DrawBoard(session, 0);
    session.Thought.PredictedFrom = session.Thought.PredictedTo = 0;
    session.Game.DrawReason = 0;
    if (silent) return;
    session.Port.Fields.SetText(Control::Text1, session.Record.MoveComments[tree.TreeIndex]);
    session.Port.Status.SetStatusText(1, "");
    session.Port.Status.SetProgress(0);
    OpenRunningGame(session);
}

void GoForwardBy(Session& session, Long count, bool silent) {
    for (Long i = 0; i < count && RemakeHalfMove(session); ++i) {
        SwapNamesOfComputerGame(session);
        if (silent) DrawBoard(session, 0);
    }
    if (silent) return;
    session.Port.Status.SetSearchLine("no calculation");
    ShowForwardPosition(session);
}

} // namespace

void GoToMove(Session& session, Long count, bool keepCandidates, bool silent) {
    session.Game.RateableGame = false;
    if (!keepCandidates) session.Thought.RootMoves.fill(RootMove());
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

void CommentKey(Session& session) {
    const GameTree& tree = session.Pos.Tree;
    // While the computer thinks the index counts its line too.
    Long index = session.Busy ? tree.TreeIndex - tree.Ply : tree.TreeIndex;
    session.Record.MoveComments[index] = session.Port.Fields.GetText(Control::Text1);
}

} // namespace tavlon12
