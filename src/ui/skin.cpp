#include "ui/skin.h"

#include "session/program_files.h"
#include "session/screen.h"
#include "ui/shown_text.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>

#include <cmath>
#include <iostream>

namespace tavlon12 {

namespace {

constexpr Long kSkinFile = 4; ///< `SkinMode`

Long ModeOf(const std::string& name) {
    return name == kClassicSmall ? 0 : name == kClassicMedium ? 2 : kSkinFile;
}

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

QColor ShownColour(const SkinColour& colour) {
    return {colour.Red, colour.Green, colour.Blue};
}

/// A cursor file tells its hot spot behind the head of its first picture; for any other image it is the middle.
bool ReadCursor(const QString& file, PieceCursor& cursor) {
    if (!cursor.Picture.load(file)) return false;
    cursor.HotSpot = cursor.Picture.rect().center();
    QFile raw(file);
    if (file.endsWith(QLatin1String(".cur"), Qt::CaseInsensitive) && raw.open(QIODevice::ReadOnly)) {
        const QByteArray head = raw.read(14);
        if (head.size() == 14) cursor.HotSpot = {static_cast<uchar>(head[10]), static_cast<uchar>(head[12])};
    }
    return true;
}

/// Loads the images that a skin file names; a message when one cannot be loaded.
template <typename Load>
std::string LoadImages(const std::filesystem::path& folder, const std::vector<SkinImage>& images, Load load) {
    for (const SkinImage& image : images) {
        auto file = FindFile(folder, BytesOf(Shown(image.File)));
        if (file && load(QString::fromStdString(file->string()), image.Index)) continue;
        return folder.string() + ".ini, line " + std::to_string(image.Line) +
               ": the image cannot be read: " + image.File;
    }
    return "";
}

/// Why a skin file cannot be used; empty when it can.
std::string UseSkinFile(const Session& session, const std::string& name, Skin& skin) {
    const std::string relative = "skins/" + name;
    auto file = ReadFileWith(DataFile(session, relative + ".ini"), ReadSkin);
    if (!file) return file.Failure().Message();
    skin.BoardCustomSize = file->BoardCustomSize;
    skin.DarkHighlight = ShownColour(file->DarkHighlight);
    skin.LightHighlight = ShownColour(file->LightHighlight);
    const std::filesystem::path folder = DataFile(session, relative);
    auto loadSquare = [&](const QString& image, std::size_t index) { return skin.Images[index].load(image); };
    std::string failure = LoadImages(folder, file->Squares, loadSquare);
    if (!failure.empty()) return failure;
    return LoadImages(folder, file->Cursors,
                      [&](const QString& image, std::size_t index) { return ReadCursor(image, skin.Cursors[index]); });
}

/// Fills an empty skin; why it cannot, empty when it can.
std::string UseSkin(const Session& session, const std::string& name, Skin& skin) {
    if (ModeOf(name) == kSkinFile) return UseSkinFile(session, name, skin);
    const QString folder = name == kClassicSmall ? QStringLiteral("small") : QStringLiteral("medium");
    return ReadPictures(skin, folder) ? "" : "the program's own pictures cannot be read";
}

} // namespace

bool LoadSkin(Session& session, Skin& skin) {
    session.Settings.SkinMode = ModeOf(session.Settings.SkinName);
    skin = Skin();
    const std::string failure = UseSkin(session, session.Settings.SkinName, skin);
    if (failure.empty()) return true;
    std::cerr << failure << '\n';
    FatalEnd(session);
    return false;
}

std::string SkinProblem(const Session& session, const std::string& name) {
    Skin skin;
    return UseSkin(session, name, skin);
}

const QPixmap& SquarePixmap(Skin& skin, SquareImage image, int width, int height) {
    QPixmap& cached = skin.Cache[{image, width, height}];
    if (!cached.isNull()) return cached;
    QPixmap pixmap(width, height);
    pixmap.fill(Qt::black);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF whole(0, 0, width, height);
    const QImage& own = skin.Images[static_cast<std::size_t>(image)];
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!own.isNull()) painter.drawImage(whole, own);
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

std::string SquareBmp(Skin& skin, SquareImage image, int edge) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    SquarePixmap(skin, image, edge, edge).toImage().convertToFormat(QImage::Format_RGB32).save(&buffer, "BMP");
    return bytes.toStdString();
}

PieceCursor CursorOf(const Skin& skin, Long value, int edge, qreal ratio) {
    const PieceCursor& own = skin.Cursors[PieceIndex(value)];
    if (!own.Picture.isNull()) return own;
    int size = static_cast<int>(std::lround(edge * ratio));
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QSvgRenderer* piece = skin.Pieces[PieceIndex(value)].get();
    if (piece != nullptr) piece->render(&painter, QRectF(0, 0, size, size));
    painter.end();
    pixmap.setDevicePixelRatio(ratio);
    return {pixmap, QPoint(edge / 2, edge / 2)};
}

} // namespace tavlon12
