#include "ui/skin.h"

#include "files/file_text.h"
#include "session/screen.h"
#include "ui/shown_text.h"

#include <QFile>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <iostream>

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

constexpr std::array<const char*, 10> kImageKeys = {
    "dark_square",  "dark_white_man",  "dark_white_king",  "dark_black_man",  "dark_black_king",
    "light_square", "light_white_man", "light_white_king", "light_black_man", "light_black_king"};
constexpr std::array<const char*, 4> kCursorKeys = {"white_man_ico", "white_king_ico", "black_man_ico",
                                                    "black_king_ico"};

QColor ColourOfNumber(Long number) {
    return {number & 255, number >> 8 & 255, number >> 16 & 255};
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

/// One line of a skin file; false when it names an image that cannot be read.
bool ReadSkinLine(const QString& folder, std::string_view line, Skin& skin) {
    const std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) return true;
    const std::string key(line.substr(0, sign));
    const std::string value(line.substr(sign + 1));
    const Long number = RoundHalfEven(std::clamp(ParseNumber(value), -1e9, 1e9));
    if (key == "BoardCustomSize") skin.BoardCustomSize = number;
    if (key == "dark_highlight") skin.DarkHighlight = ColourOfNumber(number);
    if (key == "light_highlight") skin.LightHighlight = ColourOfNumber(number);
    const QString file = folder + QLatin1Char('/') + Shown(value).replace(QLatin1Char('\\'), QLatin1Char('/'));
    for (std::size_t i = 0; i < kImageKeys.size(); ++i) {
        if (key == kImageKeys[i] && !skin.Images[i].load(file)) return false;
    }
    for (std::size_t i = 0; i < kCursorKeys.size(); ++i) {
        if (key == kCursorKeys[i] && !ReadCursor(file, skin.Cursors[i])) return false;
    }
    return true;
}

/// Why a skin file cannot be used; empty when it can.
std::string ReadSkinFile(const std::filesystem::path& folder, const std::string& name, Skin& skin) {
    const std::filesystem::path file = folder / (name + ".ini");
    const Outcome<std::string> bytes = ReadWholeFile(file);
    if (!bytes) return bytes.Failure().Message();
    const std::vector<std::string_view> lines = SplitLines(*bytes);
    const QString images = QString::fromStdString((folder / name).string());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] == "END") return "";
        if (!ReadSkinLine(images, lines[i], skin)) {
            return file.string() + ", line " + std::to_string(i + 1) +
                   ": the image cannot be read: " + std::string(lines[i]);
        }
    }
    return file.string() + ": ends too early: no line \"END\"";
}

} // namespace

SquareImage ImageOf(bool dark, Long value) {
    int image = static_cast<int>(dark ? SquareImage::DarkSquare : SquareImage::LightSquare);
    if (value != kEmpty) image += 1 + static_cast<int>(PieceIndex(value));
    return static_cast<SquareImage>(image);
}

bool LoadSkin(Session& session, Skin& skin) {
    QString folder;
    session.Settings.SkinMode = 4;
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
    std::string failure;
    if (folder.isEmpty()) {
        failure = ReadSkinFile(session.ProgramFolder / "skins", session.Settings.SkinName, skin);
    } else if (!ReadPictures(skin, folder)) {
        failure = "the program's own pictures cannot be read";
    }
    if (failure.empty()) return true;
    std::cerr << failure << '\n';
    FatalEnd(session);
    return false;
}

std::vector<std::string> SkinNames(const std::filesystem::path& programFolder) {
    std::vector<std::string> names{"Classic Small", "Classic Medium"};
    std::error_code unreadable; // then there are none
    for (const auto& entry : std::filesystem::directory_iterator(programFolder / "skins", unreadable)) {
        if (entry.path().extension() == ".ini") names.push_back(entry.path().stem().string());
    }
    return names;
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
