#pragma once

#include "files/file_text.h"

#include <string>
#include <string_view>
#include <vector>

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

inline constexpr std::size_t kSquareImages = 10;
inline constexpr std::size_t kPieceCursors = 4; ///< in the order of the pieces

/// The key of an image in a skin file: "dark_white_man".
std::string_view KeyOf(SquareImage image);

/// The image of a cell with a value of -2 to 2. A piece has a ground of the playing colour, except with `piecesOnBlack`
/// 2.
SquareImage ImageOf(Long cell, Long value, Long piecesOnBlack);

struct SkinColour {
    Byte Red, Green, Blue;

    bool operator==(const SkinColour&) const = default;
};

/// An image that a skin names.
struct SkinImage {
    std::size_t Index; ///< a `SquareImage`, or a piece's cursor
    std::string File;  ///< as it is written, relative to the folder of the skin's own name
    Long Line;         ///< where it is named, from 1

    bool operator==(const SkinImage&) const = default;
};

/// What a skin file says.
struct SkinFile {
    Long BoardCustomSize = -1; ///< 0 small, 2 medium geometry; with any other no boxes are drawn
    SkinColour DarkHighlight = {255, 255, 0};
    SkinColour LightHighlight = {128, 128, 0};
    std::vector<SkinImage> Squares; ///< in the order of the lines: all are loaded, the last one of a kind is shown
    std::vector<SkinImage> Cursors;
};

/// Reads the bytes of a skin file. Fails without a line "END".
Outcome<SkinFile> ReadSkin(std::string_view bytes);

inline constexpr std::string_view kClassicSmall = "Classic Small";
inline constexpr std::string_view kClassicMedium = "Classic Medium";

} // namespace tavlon12
