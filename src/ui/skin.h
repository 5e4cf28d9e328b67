#pragma once

#include "session/session.h"

#include <QColor>
#include <QPixmap>
#include <QSvgRenderer>

#include <array>
#include <map>
#include <memory>
#include <tuple>

namespace tavlon12 {

/// What a square of the board can show. The pieces follow their square's colour in the order white man, white king,
/// black man, black king.
enum class SquareImage {
    DarkSquare,
    DarkWhiteMan,
    DarkWhiteKing,
    DarkBlackMan,
    DarkBlackKing,
    LightSquare,
    LightWhiteMan,
    LightWhiteKing,
    LightBlackMan,
    LightBlackKing,
};

constexpr bool IsEmptySquareImage(SquareImage image) {
    return image == SquareImage::DarkSquare || image == SquareImage::LightSquare;
}

/// The image for a cell value of -2 to 2 on a dark or a light square.
SquareImage ImageOf(bool dark, Long value);

/// A set of pieces and squares. Each picture is rendered once for each size in device pixels.
struct Skin {
    std::unique_ptr<QSvgRenderer> Dark, Light;
    std::array<std::unique_ptr<QSvgRenderer>, 4> Pieces; ///< white man, white king, black man, black king
    QColor DarkHighlight;
    QColor LightHighlight;
    std::map<std::tuple<SquareImage, int, int>, QPixmap> Cache;
};

/// Takes the skin of `SkinName` and sets `SkinMode` by it: 0 "Classic Small", 2 "Classic Medium". For any other name,
/// or when a picture cannot be had, it shows the message of a failure that cannot be repaired, ends the program and
/// gives false.
bool LoadSkin(Session& session, Skin& skin);

/// The picture of a square, `width` by `height` device pixels.
const QPixmap& SquarePixmap(Skin& skin, SquareImage image, int width, int height);

/// The piece of a cell value alone on a transparent ground, `edge` pixels wide at the device pixel ratio given.
QPixmap PiecePixmap(const Skin& skin, Long value, int edge, qreal ratio);

} // namespace tavlon12
