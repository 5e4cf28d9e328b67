#include "ui/skin.h"

#include "session/screen.h"

#include <QPainter>

#include <cmath>

namespace tavlon12 {

namespace {

std::size_t PieceIndex(Long value) {
    return (value < 0 ? 2u : 0u) + (Magnitude(value) == kKing ? 1u : 0u);
}

std::unique_ptr<QSvgRenderer> Picture(const QString& folder, const char* name) {
    return std::make_unique<QSvgRenderer>(QStringLiteral(":/art/%1/%2.svg").arg(folder, QLatin1String(name)));
}

bool ReadPictures(Skin& skin, const QString& folder) {
    skin.Dark = Picture(folder, "dark_square");
    skin.Light = Picture(folder, "light_square");
    constexpr std::array<const char*, 4> names{"white_man", "white_king", "black_man", "black_king"};
    bool valid = skin.Dark->isValid() && skin.Light->isValid();
    for (std::size_t i = 0; i < names.size(); ++i) {
        skin.Pieces[i] = Picture(folder, names[i]);
        valid = valid && skin.Pieces[i]->isValid();
    }
    return valid;
}

} // namespace

SquareImage ImageOf(bool dark, Long value) {
    int image = static_cast<int>(dark ? SquareImage::DarkSquare : SquareImage::LightSquare);
    if (value != kEmpty) image += 1 + static_cast<int>(PieceIndex(value));
    return static_cast<SquareImage>(image);
}

bool LoadSkin(Session& session, Skin& skin) {
    QString folder;
    if (session.Settings.SkinName == "Classic Small") {
        session.Settings.SkinMode = 0;
        folder = QStringLiteral("small");
    } else if (session.Settings.SkinName == "Classic Medium") {
        session.Settings.SkinMode = 2;
        folder = QStringLiteral("medium");
    }
    skin = Skin();
    skin.DarkHighlight = QColor(255, 255, 0);
    skin.LightHighlight = QColor(128, 128, 0);
    if (!folder.isEmpty() && ReadPictures(skin, folder)) return true;
    FatalEnd(session);
    return false;
}

const QPixmap& SquarePixmap(Skin& skin, SquareImage image, int width, int height) {
    QPixmap& cached = skin.Cache[{image, width, height}];
    if (!cached.isNull()) return cached;
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::black);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF whole(0, 0, width, height);
    bool dark = image < SquareImage::LightSquare;
    QSvgRenderer* square = dark ? skin.Dark.get() : skin.Light.get();
    if (square != nullptr) square->render(&painter, whole);
    if (!IsEmptySquareImage(image)) {
        int first = static_cast<int>(dark ? SquareImage::DarkWhiteMan : SquareImage::LightWhiteMan);
        QSvgRenderer* piece = skin.Pieces[static_cast<std::size_t>(static_cast<int>(image) - first)].get();
        if (piece != nullptr) piece->render(&painter, whole);
    }
    painter.end();
    cached = pixmap;
    return cached;
}

QPixmap PiecePixmap(const Skin& skin, Long value, int edge, qreal ratio) {
    int size = static_cast<int>(std::lround(edge * ratio));
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer* piece = skin.Pieces[PieceIndex(value)].get();
    if (piece != nullptr) piece->render(&painter, QRectF(0, 0, size, size));
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

} // namespace tavlon12
