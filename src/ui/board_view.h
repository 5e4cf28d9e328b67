#pragma once

#include "session/board_input.h"
#include "session/session.h"
#include "ui/board_geometry.h"
#include "ui/skin.h"

#include <QWidget>

#include <array>
#include <functional>
#include <optional>

namespace tavlon12 {

/// The board with its frame and coordinates. Of each square it keeps the picture that it shows, so that a piece can be
/// lifted and boxes can lie on squares without the position knowing of it.
class BoardView : public QWidget {
public:
    BoardView(Session& session, QWidget* parent);

    // What the logic and the mouse ask for; views are 0 to 143 from the top left.
    void SetGeometry(const WindowGeometry& geometry);
    void PaintBoard(int overlay);
    void ShowSquare(Long view);
    void DrawHighlightBox(Long view);
    void LiftPiece(Long view);   ///< shows the empty square
    void CarryPiece(Long value); ///< the cursor becomes the piece
    void DropPiece();            ///< and returns to normal

    bool ShowsEmptySquare(Long view) const { return IsEmptySquareImage(Squares[static_cast<std::size_t>(view)].Image); }
    bool ShowsBox(Long view) const { return Squares[static_cast<std::size_t>(view)].Boxed; }
    SquareImage ShownImage(Long view) const { return Squares[static_cast<std::size_t>(view)].Image; }
    int SquareEdge() const { return Geometry->SquareEdge; }

    /// The square at a point of this widget, -1 outside the grid.
    Long ViewAt(const QPointF& point) const;
    /// A square in this widget's coordinates.
    QRect SquareRect(Long view) const;

    Skin Pictures;

    // Mouse events that concern the game. `x` and `y` count from the corner of the square.
    std::function<void(Long view, MouseButton button)> SquareDown = [](Long, MouseButton) {};
    std::function<void(Long view, Long x, Long y)> SquareMove = [](Long, Long, Long) {};
    std::function<void(Long view, MouseButton button, Long x, Long y)> SquareUp = [](Long, MouseButton, Long, Long) {};
    std::function<void()> OutsideMove = [] {};

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    /// A button that has gone up, and where.
    struct Release {
        Long View;
        MouseButton Button;
        QPoint Offset;
    };

    struct ShownSquare {
        SquareImage Image = SquareImage::LightSquare;
        bool Boxed = false;
        Long Number = 0; ///< printed in its corner, 0 for none
    };

    void MoveTo(const QPointF& point);
    /// From the corner of a square, rounded down.
    QPoint OffsetIn(Long view, const QPointF& point) const;
    void FlushRelease();
    void PaintCoordinates(QPainter& painter) const;
    void PaintSquare(QPainter& painter, Long view, const QRect& target, int ratio);

    Session& Game;
    const WindowGeometry* Geometry;
    std::array<ShownSquare, kSquareCount> Squares{};
    Long PressedView = -1; ///< keeps the mouse while a button is down
    QPointF LastPoint;
    std::optional<Release> PendingRelease;
};

} // namespace tavlon12
