#include "files/skin_file.h"

#include "files/key_lines.h"
#include "rules/board.h"

#include <algorithm>
#include <array>
#include <span>

namespace tavlon12 {

namespace {

// A skin file is lines of "key=value" in any order up to a line "END"; any other line means nothing. A colour is a
// number with red in its low byte, an image a file name in the folder of the skin's own name.
//
//     BoardCustomSize=2
//     dark_highlight=65535
//     dark_square=oak.png
//     white_man_ico=man.cur
//     END

constexpr std::array<std::string_view, kSquareImages> kSquareKeys = {
    "dark_square",  "dark_white_man",  "dark_white_king",  "dark_black_man",  "dark_black_king",
    "light_square", "light_white_man", "light_white_king", "light_black_man", "light_black_king"};
constexpr std::array<std::string_view, kPieceCursors> kCursorKeys = {"white_man_ico", "white_king_ico", "black_man_ico",
                                                                     "black_king_ico"};

Long NumberOf(std::string_view text) {
    return RoundHalfEven(std::clamp(ParseNumber(text), -1e9, 1e9));
}

SkinColour ColourOf(std::string_view text) {
    const Long number = NumberOf(text);
    return {static_cast<Byte>(number), static_cast<Byte>(number >> 8), static_cast<Byte>(number >> 16)};
}

void ReadImage(const KeyLine& line, Long number, std::span<const std::string_view> keys,
               std::vector<SkinImage>& images) {
    auto key = std::ranges::find(keys, line.Key);
    if (key == keys.end()) return;
    images.push_back({static_cast<std::size_t>(key - keys.begin()), std::string(line.Value), number});
}

void ReadLine(const KeyLine& line, Long number, SkinFile& skin) {
    if (line.Key == "BoardCustomSize") skin.BoardCustomSize = NumberOf(line.Value);
    if (line.Key == "dark_highlight") skin.DarkHighlight = ColourOf(line.Value);
    if (line.Key == "light_highlight") skin.LightHighlight = ColourOf(line.Value);
    ReadImage(line, number, kSquareKeys, skin.Squares);
    ReadImage(line, number, kCursorKeys, skin.Cursors);
}

} // namespace

std::string_view KeyOf(SquareImage image) {
    return kSquareKeys[static_cast<std::size_t>(image)];
}

SquareImage ImageOf(Long cell, Long value, Long piecesOnBlack) {
    const bool dark = SquareColourShift(cell, piecesOnBlack).SquareIsDark || (value != kEmpty && piecesOnBlack < 2);
    const Long piece = value == kEmpty ? 0 : (value > 0 ? 1 : 3) + (Magnitude(value) == kKing ? 1 : 0);
    return static_cast<SquareImage>((dark ? 0 : static_cast<Long>(SquareImage::LightSquare)) + piece);
}

Outcome<SkinFile> ReadSkin(std::string_view bytes) {
    SkinFile skin;
    Long number = 0;
    for (std::string_view text : SplitLines(bytes)) {
        ++number;
        if (text == "END") return skin;
        if (auto line = SplitKeyLine(text)) ReadLine(*line, number, skin);
    }
    return FileFailure{FileFailure::Kind::EndTooEarly, "", 0, "no line \"END\""};
}

} // namespace tavlon12
