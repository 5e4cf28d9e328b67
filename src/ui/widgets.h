#pragma once

#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSvgRenderer>

#include <functional>

namespace tavlon12 {

/// A list whose lines are clicked: `Clicked` runs when the left button goes up over one, `Entered` when Enter is
/// pressed in it.
class GameList : public QListWidget {
public:
    using QListWidget::QListWidget;
    std::function<void()> Clicked = [] {};
    std::function<void()> Entered = [] {};

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool PressCounts = false; ///< the button that is down may choose a line
};

/// A field of several lines. What is pasted or dropped is text or nothing: the toolkit's own field crashes when it is
/// given nothing.
class TextField : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;

protected:
    void insertFromMimeData(const QMimeData* source) override;
};

/// A label that ends a text too long for it in "...", and tells the whole in its tool tip.
class ShortLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

/// An address that a click, the space bar or Enter opens. It is underlined under the mouse.
class LinkLabel : public ShortLabel {
public:
    explicit LinkLabel(const QString& address = {}, QWidget* parent = nullptr);
    std::function<void()> Clicked = [] {};

    /// Without an address it cannot be clicked.
    void SetAddress(const QString& address);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Underline(bool on);
    void Click();
};

/// A vector picture, drawn as large as its place allows.
class VectorPicture : public QWidget {
public:
    VectorPicture(const QString& file, QWidget* parent) : QWidget(parent), Renderer(file) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer Renderer;
};

} // namespace tavlon12
