#include "session/board_input.h"

#include "rules/notation.h"
#include "session/human_move.h"
#include "session/input_move.h"
#include "session/position_setup.h"
#include "session/screen.h"

#include <algorithm>
#include <span>
#include <variant>

namespace tavlon12 {

namespace {

std::span<const MoveRecord> LegalMoves(const Session& session) {
    const GameTree& tree = session.Pos.Tree;
    const Long first = tree.PlyFirstMove[tree.Ply];
    return {session.Pos.Moves.data() + first, static_cast<std::size_t>(tree.NextMoveSlot - first)};
}

Long CellOf(const Session& session, Long view) {
    return CellOfView(view, session.Settings.BoardTurned);
}

Long ViewOf(const Session& session, Long cell) {
    return ViewOfCell(cell, session.Settings.BoardTurned);
}

bool HasMove(const Session& session, Long from) {
    return std::ranges::any_of(LegalMoves(session), [=](const MoveRecord& move) { return move.From == from; });
}

bool HasMove(const Session& session, Long from, Long to) {
    return std::ranges::any_of(LegalMoves(session),
                               [=](const MoveRecord& move) { return move.From == from && move.To == to; });
}

void ShowNumbers(Session& session) {
    BoardInput& input = session.Input;
    if (!input.PopupJustClosed) {
        input.NumbersShown = true;
        input.MovablesBoxed = false;
        DrawBoard(session, 1);
    }
    input.PopupJustClosed = false;
}

void HideNumbers(Session& session) {
    session.Input.NumbersShown = false;
    DrawBoard(session, 0);
}

/// The boxes of all movable pieces make room for those of the piece under the pointer and of where it can go.
void BoxMovesOfHoverCell(Session& session) {
    BoardInput& input = session.Input;
    BoardPort& board = session.Port.Board;
    board.DrawHighlightBox(input.HoverView);
    for (const MoveRecord& move : LegalMoves(session))
        if (move.From != input.HoverCell && move.From != kOffBoard) board.ShowSquare(ViewOf(session, move.From));
    for (const MoveRecord& move : LegalMoves(session))
        if (move.From == input.HoverCell) board.DrawHighlightBox(ViewOf(session, move.To));
    input.MovablesBoxed = true;
}

void BoxMovablePieces(Session& session) {
    session.Input.MovablesBoxed = true;
    for (const MoveRecord& move : LegalMoves(session)) {
        if (move.From == kOffBoard) continue;
        const Long view = ViewOf(session, move.From);
        session.Port.Board.ShowSquare(view);
        session.Port.Board.DrawHighlightBox(view);
    }
}

/// Why the piece on a square cannot be carried away; empty when it can.
std::string RefusalOfPiece(const Session& session, Long cell) {
    const Long value = session.Pos.Board[cell];
    if ((value > 0) != (session.Pos.Tree.SideToMove > 0)) return SideToMoveText(session.Pos);
    return HasMove(session, cell) ? "" : "You cannot move that piece";
}

void PressPiece(Session& session, Long view) {
    BoardInput& input = session.Input;
    BoardPort& board = session.Port.Board;
    const Long cell = CellOf(session, view);
    input.DragSource = view;
    input.DragX = input.DragY = 0;
    board.LiftPiece(view);
    if (const std::string refusal = RefusalOfPiece(session, cell); !refusal.empty()) {
        board.ShowSquare(view);
        ShowMessage(session, refusal, "Error", MessageKind::Exclamation);
        input.DragSource = -1;
        return;
    }
    input.SelfMoveExists = HasMove(session, cell, cell);
    board.CarryPiece(session.Pos.Board[cell]);
    input.DragIconSet = false;
    // The pointer may be here without having moved since the last drawing of the board.
    input.HoverCell = cell;
    input.HoverView = view;
    if (session.Settings.ShowAvailableMoves != 1) return;
    BoxMovesOfHoverCell(session);
    if (session.Game.TouchedCell == 0) session.Game.TouchedCell = cell;
}

void PutBackCarriedPiece(Session& session) {
    BoardInput& input = session.Input;
    session.Port.Board.DropPiece();
    session.Port.Board.ShowSquare(input.DragSource);
    input.DragSource = -1;
    input.MovablesBoxed = false;
    input.DragIconSet = false;
    DrawBoard(session, 0);
}

Long FloorDivide(Long value, Long divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

/// The square under the pointer, as far from the source as the carried piece has come; 0 off the board or where no
/// piece may stand.
Long TargetSquare(const Session& session, Long source) {
    const Long edge = session.Port.Board.SquareEdge();
    const Long dx = FloorDivide(session.Input.DragX, edge);
    const Long dy = FloorDivide(session.Input.DragY, edge);
    const bool turned = session.Settings.BoardTurned == 1;
    const Long column = turned ? ColumnOf(source) - dx : ColumnOf(source) + dx;
    const Long row = turned ? RowOf(source) + dy : RowOf(source) - dy;
    if (column < 1 || column > kLastColumn || row < kFirstRow || row > kLastRow) return 0;
    const Long target = row * kBoardWidth + column;
    return IsPlayingSquare(target, session.Pos.Rules.PiecesOnBlack) ? target : 0;
}

/// Clears the state of the mouse for a move. What the board shows and what has been found out about the piece stays.
void ClearInput(BoardInput& input) {
    input = {.MovablesBoxed = input.MovablesBoxed, .SelfMoveExists = input.SelfMoveExists};
}

void DropPieceOn(Session& session, Long source, Long target) {
    ClearInput(session.Input);
    const MoveAnswer answer = InputSquares(session, {source, target});
    if (const auto* refusal = std::get_if<Refusal>(&answer)) {
        DrawBoard(session, 0);
        ShowRefusal(session, *refusal);
        return;
    }
    CommitHumanMove(session, std::get<MadeMove>(answer), MovePath::Board);
    if (session.Settings.PlayMode == kPlayerPlayer) session.Input.MovablesBoxed = false;
}

} // namespace

void SquareMouseDown(Session& session, Long view, MouseButton button) {
    BoardInput& input = session.Input;
    if (session.Busy || input.RightPressed != -1 || input.AfterPopup) return;
    if (button == MouseButton::Right) {
        if (!input.MovablesBoxed) input.RightPressed = view;
    } else if (session.Port.Board.ShowsEmptySquare(view)) {
        ShowNumbers(session);
    } else if (!session.Game.GameOver) {
        PressPiece(session, view);
    }
}

void SquareMouseMove(Session& session, Long view, Long x, Long y) {
    BoardInput& input = session.Input;
    if (input.NumbersShown || session.Busy || session.Game.GameOver) return;
    input.AfterPopup = false;
    if (session.Settings.ShowAvailableMoves == 1 && !input.MovablesBoxed) BoxMovablePieces(session);
    if (input.DragSource == -1) {
        const Long cell = CellOf(session, view);
        if (!HasMove(session, cell)) return;
        input.HoverCell = cell;
        input.HoverView = view;
        return;
    }
    if (!input.DragIconSet) {
        input.DragIconSet = true;
        session.Port.Board.CarryPiece(session.Pos.Board[CellOf(session, input.DragSource)]);
    }
    input.DragX = x;
    input.DragY = y;
}

void SquareMouseUp(Session& session, Long view, MouseButton button, Long x, Long y) {
    BoardInput& input = session.Input;
    if (session.Busy) return;
    if (button == MouseButton::Right) {
        input.RightPressed = -1;
        const Long edge = session.Port.Board.SquareEdge();
        const bool inside = x >= 0 && x < edge && y >= 0 && y < edge;
        if (inside && input.DragSource == -1) OpenSetupMenu(session, CellOf(session, view));
    } else if (input.NumbersShown) {
        HideNumbers(session);
    } else if (input.DragSource != -1) {
        const Long source = CellOf(session, input.DragSource);
        const Long target = TargetSquare(session, source);
        if (target == 0 || (target == source && !input.SelfMoveExists)) {
            PutBackCarriedPiece(session);
        } else {
            session.Port.Board.DropPiece();
            DropPieceOn(session, source, target);
        }
    }
}

void FormMouseMove(Session& session) {
    session.Input.MovablesBoxed = false;
}

void EndBoardInput(Session& session) {
    BoardInput& input = session.Input;
    if (session.Busy) return; // the search has the board
    input.RightPressed = -1;
    if (input.DragSource != -1) PutBackCarriedPiece(session);
    if (input.NumbersShown) HideNumbers(session);
}

} // namespace tavlon12
