#include "ui/art.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

#include <memory>

namespace tavlon12 {

namespace {

/// As the style greys pictures, and as pale as the texts of disabled controls.
QPixmap Greyed(const QPixmap& picture) {
    QStyleOption option;
    option.palette = QApplication::palette();
    QPixmap grey = QApplication::style()->generatedIconPixmap(QIcon::Disabled, picture, &option);
    QPainter painter(&grey);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(grey.rect(), QColor(0, 0, 0, 180));
    painter.end();
    return grey;
}

class ArtEngine : public QIconEngine {
public:
    explicit ArtEngine(std::shared_ptr<QSvgRenderer> drawing) : Drawing(std::move(drawing)) {}

    QIconEngine* clone() const override { return new ArtEngine(*this); }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        Drawing->render(&painter);
        painter.end();
        return mode == QIcon::Disabled ? Greyed(picture) : picture;
    }

    void paint(QPainter* painter, const QRect& place, QIcon::Mode mode, QIcon::State state) override {
        painter->drawPixmap(place, pixmap(place.size() * painter->device()->devicePixelRatio(), mode, state));
    }

private:
    std::shared_ptr<QSvgRenderer> Drawing;
};

} // namespace

QIcon ArtIcon(const QString& name) {
    auto drawing = std::make_shared<QSvgRenderer>(QStringLiteral(":/art/%1.svg").arg(name));
    return drawing->isValid() ? QIcon(new ArtEngine(std::move(drawing))) : QIcon();
}

} // namespace tavlon12
