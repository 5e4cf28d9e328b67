#include "ui/board_view.h"

#include "session/screen.h"
#include "ui/shown_text.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace tavlon12 {

namespace {

const QColor kFrameColour(70, 44, 24);
const QColor kLabelColour(84, 68, 52);
const QColor kNumberColour(255, 244, 214);
constexpr int kFrameWidth = 2;

/// Nothing for a button that the game does not know.
std::optional<MouseButton> GameButton(Qt::MouseButton button) {
    if (button == Qt::LeftButton) return MouseButton::Left;
    if (button == Qt::RightButton) return MouseButton::Right;
    return std::nullopt;
}

QRect DeviceRect(const QTransform& toDevice, const QRect& rect) {
    const QRectF mapped = toDevice.mapRect(QRectF(rect));
    const QPoint topLeft(static_cast<int>(std::lround(mapped.left())), static_cast<int>(std::lround(mapped.top())));
    const QPoint end(static_cast<int>(std::lround(mapped.right())), static_cast<int>(std::lround(mapped.bottom())));
    return {topLeft, QSize(end.x() - topLeft.x(), end.y() - topLeft.y())};
}

/// Fills the sides of a rectangle, from its edge inwards.
void FillSides(QPainter& painter, const QRect& outer, int width, const QColor& colour) {
    for (const QRect& side : QRegion(outer).subtracted(outer.adjusted(width, width, -width, -width)))
        painter.fillRect(side, colour);
}

/// Round the grid, outside of it.
void PaintFrame(QPainter& painter, const QRect& grid, int width) {
    FillSides(painter, grid.adjusted(-width, -width, width, width), width, kFrameColour);
}

/// The highlight box: one pixel from the edge, two pixels wide.
void PaintBox(QPainter& painter, const QRect& square, const QColor& colour, int ratio) {
    FillSides(painter, square.adjusted(ratio, ratio, -ratio, -ratio), 2 * ratio, colour);
}

void PaintNumber(QPainter& painter, const QRect& square, Long number, int ratio) {
    const QRect corner = square.adjusted(3 * ratio, 2 * ratio, 0, 0);
    const QString text = QString::number(number);
    // A dark rim keeps the number readable on a white piece.
    painter.setPen(kFrameColour);
    for (QPoint rim : {QPoint(-1, 0), QPoint(1, 0), QPoint(0, -1), QPoint(0, 1), QPoint(1, 1)}) {
        painter.drawText(corner.translated(rim * ratio), Qt::AlignLeft | Qt::AlignTop, text);
    }
    painter.setPen(kNumberColour);
    painter.drawText(corner, Qt::AlignLeft | Qt::AlignTop, text);
}

QFont NumberFont(QFont font, int pixels) {
    font.setPixelSize(std::max(1, pixels));
    font.setBold(true);
    return font;
}

} // namespace

BoardView::BoardView(Session& session, QWidget* parent) : QWidget(parent), Game(session), Geometry(&GeometryOfSkin(0)) {
    setObjectName(QStringLiteral("Board"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
}

void BoardView::SetGeometry(const WindowGeometry& geometry) {
    Geometry = &geometry;
    update();
}

void BoardView::PaintBoard(int overlay) {
    Long number = 0;
    for (Long row = kLastRow; row >= kFirstRow; --row) {
        for (Long column = 1; column <= kLastColumn; ++column) {
            Long cell = row * kBoardWidth + column;
            Long view = ViewOfCell(cell, Game.Settings.BoardTurned);
            ShowSquare(view);
            Byte colour = Game.Pos.Rules.PiecesOnBlack;
            if (overlay == 1 && colour < 2 && SquareColourShift(cell, colour).SquareIsDark) {
                Squares[static_cast<std::size_t>(view)].Number = ++number;
            }
        }
    }
    update();
}

void BoardView::ShowSquare(Long view) {
    Long cell = CellOfView(view, Game.Settings.BoardTurned);
    Long value = Game.Pos.Board[static_cast<std::size_t>(cell)];
    ShownSquare& square = Squares[static_cast<std::size_t>(view)];
    square.Boxed = false;
    square.Number = 0;
    // A piece that is marked as jumped keeps the picture that it had.
    if (Magnitude(value) <= kKing) square.Image = ImageOf(cell, value, Game.Pos.Rules.PiecesOnBlack);
    update(SquareRect(view).adjusted(-1, -1, 1, 1));
}

void BoardView::DrawHighlightBox(Long view) {
    bool anyBoxes = Game.Settings.SkinMode != 4 || Pictures.BoardCustomSize == 0 || Pictures.BoardCustomSize == 2;
    if (!anyBoxes) return;
    Squares[static_cast<std::size_t>(view)].Boxed = true;
    update(SquareRect(view).adjusted(-1, -1, 1, 1));
}

void BoardView::LiftPiece(Long view) {
    Long cell = CellOfView(view, Game.Settings.BoardTurned);
    Squares[static_cast<std::size_t>(view)] = {ImageOf(cell, kEmpty, Game.Pos.Rules.PiecesOnBlack)};
    update(SquareRect(view).adjusted(-1, -1, 1, 1));
}

void BoardView::CarryPiece(Long value) {
    PieceCursor cursor = CursorOf(Pictures, value, Geometry->SquareEdge, devicePixelRatioF());
    setCursor(QCursor(cursor.Picture, cursor.HotSpot.x(), cursor.HotSpot.y()));
}

void BoardView::DropPiece() {
    unsetCursor();
}

Long BoardView::ViewAt(const QPointF& point) const {
    int edge = Geometry->SquareEdge;
    QPointF inGrid = point - QPointF(SquareRect(0).topLeft());
    int column = static_cast<int>(std::floor(inGrid.x() / edge));
    int row = static_cast<int>(std::floor(inGrid.y() / edge));
    if (column < 0 || column >= kGridSquares || row < 0 || row >= kGridSquares) return -1;
    return row * kGridSquares + column;
}

QRect BoardView::SquareRect(Long view) const {
    Place square = SquarePlace(*Geometry, view);
    Place board = PlaceOf(*Geometry, "Board", false);
    return {square.Left - board.Left, square.Top - board.Top, square.Width, square.Height};
}

// Everything but the texts is drawn in device pixels, with the edges of the squares rounded one by one: at a ratio such
// as 1.25 neighbours then share their edge, and no seam shows.
void BoardView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintCoordinates(painter);

    const QTransform toDevice = painter.deviceTransform();
    const int ratio = std::max(1, static_cast<int>(std::lround(toDevice.m11())));
    painter.setWorldTransform(toDevice.inverted());
    PaintFrame(painter, DeviceRect(toDevice, SquareRect(0).united(SquareRect(kSquareCount - 1))), kFrameWidth * ratio);
    painter.setFont(NumberFont(font(), DeviceRect(toDevice, SquareRect(0)).height() / 4));
    for (Long view = 0; view < static_cast<Long>(kSquareCount); ++view) {
        const QRect place = SquareRect(view);
        if (!event->region().intersects(place.adjusted(-1, -1, 1, 1))) continue;
        PaintSquare(painter, view, DeviceRect(toDevice, place), ratio);
    }
}

void BoardView::PaintSquare(QPainter& painter, Long view, const QRect& target, int ratio) {
    const ShownSquare& square = Squares[static_cast<std::size_t>(view)];
    painter.drawPixmap(target.topLeft(), SquarePixmap(Pictures, square.Image, target.width(), target.height()));
    if (square.Boxed) {
        const Long cell = CellOfView(view, Game.Settings.BoardTurned);
        const bool dark = SquareColourShift(cell, Game.Pos.Rules.PiecesOnBlack).SquareIsDark;
        PaintBox(painter, target, dark ? Pictures.DarkHighlight : Pictures.LightHighlight, ratio);
    }
    if (square.Number != 0) PaintNumber(painter, target, square.Number, ratio);
}

void BoardView::PaintCoordinates(QPainter& painter) const {
    Byte notation = Game.Settings.Notation;
    bool turned = Game.Settings.BoardTurned == 1;
    bool capitals = Game.Settings.NotationCapitals == 1;
    painter.setPen(kLabelColour);
    QRect last = SquareRect(kSquareCount - 1);
    for (Long i = 1; i <= kGridSquares; ++i) {
        // A number stands under the square of the playing colour in its column pair.
        bool toTheRight = notation == kNumeric && Game.Pos.Rules.PiecesOnBlack == 0 && i < kGridSquares;
        QRect column = SquareRect(toTheRight ? i : i - 1);
        column.setTop(last.bottom() + 1 + kFrameWidth);
        column.setBottom(height() - 1);
        painter.drawText(column, Qt::AlignCenter, Shown(ColumnLabel(i, notation, turned, capitals)));
        QRect row = SquareRect((kGridSquares - i) * kGridSquares);
        row.setLeft(0);
        row.setRight(kGridLeft - kFrameWidth - 1);
        painter.drawText(row, Qt::AlignCenter, Shown(RowLabel(i, notation, turned, capitals)));
    }
}

void BoardView::mousePressEvent(QMouseEvent* event) {
    FlushRelease();
    const std::optional<MouseButton> button = GameButton(event->button());
    if (!button) return;
    // With no other button down nothing can be left of an earlier press, even if its release went to a message box.
    if (event->buttons() == event->button()) {
        PressedView = -1;
        Game.Input.RightPressed = -1;
    }
    // The pointer may have come here without a move (a touch, a window that opened under it): a press follows a move.
    // Behind the set-up menu presses wait for a move of the mouse.
    if (event->position() != LastPoint && !Game.Input.AfterPopup) MoveTo(event->position());
    if (PressedView == -1) PressedView = ViewAt(event->position());
    if (PressedView != -1) SquareDown(PressedView, *button);
}

// The second press of two quick ones is a press like any other.
void BoardView::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void BoardView::mouseMoveEvent(QMouseEvent* event) {
    FlushRelease();
    if (event->buttons() == Qt::NoButton) PressedView = -1;
    MoveTo(event->position());
}

void BoardView::MoveTo(const QPointF& point) {
    LastPoint = point;
    Long view = PressedView != -1 ? PressedView : ViewAt(point);
    if (view == -1) {
        OutsideMove();
        return;
    }
    const QPoint offset = OffsetIn(view, point);
    SquareMove(view, offset.x(), offset.y());
}

QPoint BoardView::OffsetIn(Long view, const QPointF& point) const {
    const QPointF offset = point - QPointF(SquareRect(view).topLeft());
    return {static_cast<int>(std::floor(offset.x())), static_cast<int>(std::floor(offset.y()))};
}

// A release may start the computer's move, which lasts. It is handled right after the event, so that the toolkit does
// not go on sending the mouse here while the computer thinks.
void BoardView::mouseReleaseEvent(QMouseEvent* event) {
    FlushRelease();
    if (PressedView == -1) return;
    const std::optional<MouseButton> button = GameButton(event->button());
    if (button && event->position() != LastPoint) MoveTo(event->position()); // the last move may not have been told
    const Long view = PressedView;
    if (event->buttons() == Qt::NoButton) PressedView = -1;
    if (!button) return;
    PendingRelease = {view, *button, OffsetIn(view, event->position())};
    QMetaObject::invokeMethod(
        this, [this] { FlushRelease(); }, Qt::QueuedConnection);
}

void BoardView::FlushRelease() {
    if (!PendingRelease) return;
    const Release release = *PendingRelease;
    PendingRelease.reset();
    SquareUp(release.View, release.Button, release.Offset.x(), release.Offset.y());
}

void BoardView::leaveEvent(QEvent*) {
    if (PressedView == -1) OutsideMove();
}

} // namespace tavlon12
