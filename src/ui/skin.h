#pragma once

#include "files/skin_file.h"
#include "session/session.h"

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QPoint>
#include <QSvgRenderer>

#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace tavlon12 {

constexpr bool IsEmptySquareImage(SquareImage image) {
    return image == SquareImage::DarkSquare || image == SquareImage::LightSquare;
}

/// The cursor while a piece is carried, as a skin file brings it.
struct PieceCursor {
    QPixmap Picture;
    QPoint HotSpot;
};

/// A set of pieces and squares: vector pictures of the program, or images of a skin file. Each picture is rendered once
/// for each size in device pixels.
struct Skin {
    std::unique_ptr<QSvgRenderer> Dark, Light;
    std::array<std::unique_ptr<QSvgRenderer>, 4> Pieces; ///< white man, white king, black man, black king
    std::array<QImage, kSquareImages> Images; ///< of a skin file, by `SquareImage`; null in the program's own sets
    std::array<PieceCursor, kPieceCursors> Cursors; ///< of a skin file, in the order of the pieces
    Long BoardCustomSize = -1; ///< of a skin file: 0 small, 2 medium geometry; with any other no boxes are drawn
    QColor DarkHighlight{255, 255, 0};
    QColor LightHighlight{128, 128, 0};
    std::map<std::tuple<SquareImage, int, int>, QPixmap> Cache;
};

/// Takes the skin of `SkinName` and sets `SkinMode` by it: 0 "Classic Small", 2 "Classic Medium", 4 for the name of a
/// file in a folder "skins". When file or picture cannot be had, it shows the message of a
/// failure that cannot be repaired, ends the program and gives false.
bool LoadSkin(Session& session, Skin& skin);

/// Why the skin of that name cannot be loaded: file, line and reason; empty when it can.
std::string SkinProblem(const Session& session, const std::string& name);

/// The picture of a square, `width` by `height` device pixels.
const QPixmap& SquarePixmap(Skin& skin, SquareImage image, int width, int height);

/// The picture of a square as a BMP file.
std::string SquareBmp(Skin& skin, SquareImage image, int edge);

/// The cursor that carries the piece of a cell value, for squares `edge` pixels wide at the device pixel ratio given.
PieceCursor CursorOf(const Skin& skin, Long value, int edge, qreal ratio);

} // namespace tavlon12
