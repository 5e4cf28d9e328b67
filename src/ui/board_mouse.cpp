#include "ui/board_mouse.h"

#include "session/human_move.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/screen.h"

#include <span>

namespace tavlon12 {

namespace {

std::span<const MoveRecord> LegalMoves(const Session& session) {
    const GameTree& tree = session.Pos.Tree;
    Long first = tree.PlyFirstMove[static_cast<std::size_t>(tree.Ply)];
    return {session.Pos.Moves.data() + first, static_cast<std::size_t>(tree.NextMoveSlot - first)};
}

Long FloorDivide(Long value, Long divisor) {
    return value >= 0 ? value / divisor : -((-value + divisor - 1) / divisor);
}

void Refuse(Session& session, BoardView& board, Long view, const std::string& text) {
    board.ShowSquare(view);
    ShowMessage(session, text, "Error", MessageKind::Exclamation);
    session.Input.DragSource = -1;
}

void PutBackCarriedPiece(Session& session, BoardView& board) {
    BoardInput& input = session.Input;
    board.DropCursor();
    board.ShowSquare(input.DragSource);
    input.DragSource = -1;
    input.MovablesBoxed = false;
    input.DragIconSet = false;
    DrawBoard(session, 0);
}

/// The square that lies `dx` squares right and `dy` below the source on the screen; 0 off the board or where no piece
/// may stand.
Long TargetSquare(const Session& session, Long source, Long dx, Long dy) {
    bool turned = session.Settings.BoardTurned == 1;
    Long column = turned ? ColumnOf(source) - dx : ColumnOf(source) + dx;
    Long row = turned ? RowOf(source) + dy : RowOf(source) - dy;
    if (column < 1 || column > kLastColumn || row < kFirstRow || row > kLastRow) return 0;
    Long target = row * kBoardWidth + column;
    return IsPlayingSquare(target, session.Pos.Rules.PiecesOnBlack) ? target : 0;
}

} // namespace

void SquareMouseDown(Session& session, BoardView& board, Long view, Qt::MouseButton button) {
    BoardInput& input = session.Input;
    if (session.Busy || input.RightPressed != -1 || input.AfterPopup) return;
    if (button == Qt::RightButton) {
        if (!input.MovablesBoxed) input.RightPressed = view;
        return;
    }
    if (board.ShowsEmptySquare(view)) {
        if (!input.PopupJustClosed) {
            input.NumbersShown = true;
            input.MovablesBoxed = false;
            DrawBoard(session, 1);
        }
        input.PopupJustClosed = false;
        return;
    }
    if (session.Game.GameOver) return;

    input.DragSource = view;
    input.DragX = 0;
    input.DragY = 0;
    Long cell = CellOfView(view, session.Settings.BoardTurned);
    Long value = session.Pos.Board[static_cast<std::size_t>(cell)];
    board.LiftPiece(view);
    if ((value > 0) != (session.Pos.Tree.SideToMove > 0)) {
        Refuse(session, board, view, SideToMoveText(session.Pos));
        return;
    }
    bool canMove = false;
    input.SelfMoveExists = false;
    for (const MoveRecord& move : LegalMoves(session)) {
        if (move.From != cell) continue;
        canMove = true;
        if (move.To == cell) input.SelfMoveExists = true;
    }
    if (!canMove) {
        Refuse(session, board, view, "You cannot move that piece");
        return;
    }

    board.CarryPiece(value);
    input.DragIconSet = false;
    // The pointer may be here without having moved since the last drawing of the board.
    input.HoverCell = cell;
    input.HoverView = view;
    if (session.Settings.ShowAvailableMoves != 1) return;
    if (input.HoverView > -1) board.DrawHighlightBox(input.HoverView);
    for (const MoveRecord& move : LegalMoves(session)) {
        if (move.From != input.HoverCell && move.From != kOffBoard) {
            board.ShowSquare(ViewOfCell(move.From, session.Settings.BoardTurned));
        }
    }
    for (const MoveRecord& move : LegalMoves(session)) {
        input.MovablesBoxed = true;
        if (move.From == input.HoverCell) board.DrawHighlightBox(ViewOfCell(move.To, session.Settings.BoardTurned));
    }
    if (session.Game.TouchedCell == 0) session.Game.TouchedCell = cell;
}

void SquareMouseMove(Session& session, BoardView& board, Long view, int x, int y) {
    BoardInput& input = session.Input;
    if (input.NumbersShown || session.Busy || session.Game.GameOver) return;
    input.AfterPopup = false;
    if (session.Settings.ShowAvailableMoves == 1 && !input.MovablesBoxed) {
        input.MovablesBoxed = true;
        for (const MoveRecord& move : LegalMoves(session)) {
            if (move.From == kOffBoard) continue;
            Long from = ViewOfCell(move.From, session.Settings.BoardTurned);
            board.ShowSquare(from);
            board.DrawHighlightBox(from);
        }
    }
    if (input.DragSource == -1) {
        Long cell = CellOfView(view, session.Settings.BoardTurned);
        for (const MoveRecord& move : LegalMoves(session)) {
            if (move.From != cell) continue;
            input.HoverCell = cell;
            input.HoverView = view;
            break;
        }
        return;
    }
    if (!input.DragIconSet) {
        input.DragIconSet = true;
        Long cell = CellOfView(input.DragSource, session.Settings.BoardTurned);
        board.CarryPiece(session.Pos.Board[static_cast<std::size_t>(cell)]);
    }
    input.DragX = x;
    input.DragY = y;
}

void SquareMouseUp(Session& session, BoardView& board, Qt::MouseButton button) {
    BoardInput& input = session.Input;
    if (session.Busy) return;
    if (button == Qt::RightButton) {
        input.RightPressed = -1;
        return;
    }
    if (input.NumbersShown) {
        input.NumbersShown = false;
        DrawBoard(session, 0);
        return;
    }
    if (input.DragSource == -1) return;
    board.DropCursor();

    Long source = CellOfView(input.DragSource, session.Settings.BoardTurned);
    Long target = TargetSquare(session, source, FloorDivide(input.DragX, board.SquareEdge()),
                               FloorDivide(input.DragY, board.SquareEdge()));
    if (target == 0 || (target == source && !input.SelfMoveExists)) {
        PutBackCarriedPiece(session, board);
        return;
    }

    bool movablesBoxed = input.MovablesBoxed;
    bool selfMoveExists = input.SelfMoveExists;
    input = BoardInput();
    input.MovablesBoxed = movablesBoxed;
    input.SelfMoveExists = selfMoveExists;
    const MoveAnswer answer = InputSquares(session, {source, target});
    if (const auto* refusal = std::get_if<Refusal>(&answer)) {
        DrawBoard(session, 0);
        ShowRefusal(session, *refusal);
        return;
    }
    CommitHumanMove(session, std::get<MadeMove>(answer), MovePath::Board);
    if (session.Settings.PlayMode == kPlayerPlayer) input.MovablesBoxed = false;
}

void FormMouseMove(Session& session) {
    session.Input.MovablesBoxed = false;
}

void EndBoardInput(Session& session, BoardView& board) {
    BoardInput& input = session.Input;
    if (session.Busy) return; // the search has the board
    input.RightPressed = -1;
    if (input.DragSource != -1) PutBackCarriedPiece(session, board);
    if (input.NumbersShown) {
        input.NumbersShown = false;
        DrawBoard(session, 0);
    }
}

} // namespace tavlon12
