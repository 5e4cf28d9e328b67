#include "ui/widgets.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

namespace tavlon12 {

void GameList::mousePressEvent(QMouseEvent* event) {
    PressCounts = event->button() == Qt::LeftButton;
    if (PressCounts) QListWidget::mousePressEvent(event);
}

// The second half of a double click chooses nothing: it would play a move of the list that has come meanwhile.
void GameList::mouseDoubleClickEvent(QMouseEvent*) {
    PressCounts = false;
}

void GameList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (!PressCounts || event->button() != Qt::LeftButton || itemAt(event->position().toPoint()) == nullptr) return;
    // After the event, as with a release over the board.
    QMetaObject::invokeMethod(
        this, [this] { Clicked(); }, Qt::QueuedConnection);
}

void GameList::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QListWidget::keyPressEvent(event);
        return;
    }
    Entered();
}

void TextField::insertFromMimeData(const QMimeData* source) {
    if (source != nullptr && source->hasText()) QPlainTextEdit::insertFromMimeData(source);
}

void ShortLabel::paintEvent(QPaintEvent* event) {
    QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    if (shown == text()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()), shown);
}

bool ShortLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        bool whole = fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
        setToolTip(whole ? QString() : text());
    }
    return QLabel::event(event);
}

LinkLabel::LinkLabel(const QString& address, QWidget* parent) : ShortLabel(parent) {
    setTextFormat(Qt::PlainText);
    SetAddress(address);
}

void LinkLabel::SetAddress(const QString& address) {
    setText(address);
    setFocusPolicy(address.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    setCursor(address.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, address.isEmpty() ? QColor(Qt::black) : QColor(0, 0, 192));
    setPalette(colours);
}

void LinkLabel::Underline(bool on) {
    QFont underlined = font();
    underlined.setUnderline(on && !text().isEmpty());
    setFont(underlined);
}

void LinkLabel::Click() {
    if (text().isEmpty()) return;
    Clicked();
    Underline(false);
}

void LinkLabel::enterEvent(QEnterEvent*) {
    Underline(true);
}

void LinkLabel::leaveEvent(QEvent*) {
    Underline(false);
}

void LinkLabel::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Click();
}

void LinkLabel::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
        Click();
    } else {
        ShortLabel::keyPressEvent(event);
    }
}

void VectorPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QSizeF size = QSizeF(Renderer.defaultSize()).scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    QRectF target(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
    Renderer.render(&painter, target);
}

} // namespace tavlon12
