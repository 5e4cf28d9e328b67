#include "ui/board_geometry.h"

#include "rules/notation.h"

namespace tavlon12 {

namespace {

// Columns: left, top, width, height.
constexpr WindowGeometry kSmall{
    896,
    689,
    38,
    {{
        {"Toolbar1", {4, 1, 884, 29}},   {"Board", {0, 30, 484, 480}},     {"Shape1", {512, 36, 171, 50}},
        {"Label3", {512, 38, 39, 22}},   {"Label1", {552, 39, 99, 20}},    {"Label5", {656, 38, 23, 22}},
        {"Line1", {513, 61, 169, 1}},    {"Label4", {512, 62, 39, 22}},    {"Label2", {552, 63, 99, 20}},
        {"Label6", {656, 62, 23, 22}},   {"Shape2", {690, 36, 198, 50}},   {"Label8", {696, 38, 188, 22}},
        {"Line2", {691, 61, 196, 1}},    {"Label7", {712, 62, 172, 22}},   {"List1", {512, 93, 136, 396}},
        {"List2", {656, 93, 80, 396}},   {"List3", {744, 93, 144, 396}},   {"Line3", {512, 503, 376, 1}},
        {"Text2", {512, 517, 183, 23}},  {"Command1", {703, 517, 65, 23}}, {"Label10", {512, 541, 72, 20}},
        {"Label11", {585, 541, 33, 20}}, {"Label12", {619, 541, 25, 20}},  {"Label13", {645, 541, 33, 20}},
        {"Label14", {679, 541, 25, 20}}, {"Text1", {512, 550, 256, 57}},   {"Picture11", {776, 518, 112, 89}},
        {"Progress", {8, 517, 489, 6}},  {"Label9", {16, 525, 473, 66}},
    }},
};

constexpr WindowGeometry kMedium{
    1087,
    883,
    54,
    {{
        {"Toolbar1", {4, 1, 1075, 29}},  {"Board", {0, 30, 676, 672}},     {"Shape1", {706, 35, 171, 50}},
        {"Label3", {706, 37, 39, 22}},   {"Label1", {746, 38, 99, 20}},    {"Label5", {850, 37, 23, 22}},
        {"Line1", {707, 60, 169, 1}},    {"Label4", {706, 61, 39, 22}},    {"Label2", {746, 62, 99, 20}},
        {"Label6", {850, 61, 23, 22}},   {"Shape2", {884, 35, 195, 50}},   {"Label8", {890, 37, 185, 22}},
        {"Line2", {885, 60, 193, 1}},    {"Label7", {906, 61, 169, 22}},   {"List1", {706, 91, 136, 591}},
        {"List2", {850, 91, 80, 591}},   {"List3", {938, 91, 141, 591}},   {"Line3", {706, 696, 373, 1}},
        {"Text2", {712, 710, 184, 23}},  {"Command1", {904, 710, 68, 23}}, {"Label10", {712, 735, 72, 20}},
        {"Label11", {785, 735, 33, 20}}, {"Label12", {819, 735, 25, 20}},  {"Label13", {845, 735, 33, 20}},
        {"Label14", {879, 735, 25, 20}}, {"Text1", {712, 743, 260, 57}},   {"Picture11", {980, 709, 99, 91}},
        {"Progress", {8, 712, 683, 6}},  {"Label9", {16, 720, 667, 66}},
    }},
};

constexpr int kExtraPiecesShift = 13;

std::string Letter(char smallLetter, bool capitals) {
    return std::string(1, capitals ? static_cast<char>(smallLetter - 'a' + 'A') : smallLetter);
}

/// Ranks 1 to 12 as one character each.
std::string RankCharacter(Long rank, bool capitals) {
    if (rank > 10) return Letter(static_cast<char>('a' + rank - 11), capitals);
    return std::string(1, static_cast<char>('0' + rank % 10));
}

} // namespace

const WindowGeometry& GeometryOfSkin(Long skinMode, Long boardCustomSize) {
    return skinMode == 2 || (skinMode == 4 && boardCustomSize == 2) ? kMedium : kSmall;
}

Place PlaceOf(const WindowGeometry& geometry, std::string_view name, bool extraPieces) {
    for (const ControlPlace& control : geometry.Controls) {
        if (control.Name != name) continue;
        Place place = control.At;
        if (extraPieces && name == "Text1") {
            place.Top += kExtraPiecesShift;
            place.Height -= kExtraPiecesShift;
        }
        return place;
    }
    return {};
}

Place SquarePlace(const WindowGeometry& geometry, Long view) {
    int edge = geometry.SquareEdge;
    return {kGridLeft + view % kGridSquares * edge, kGridTop + view / kGridSquares * edge, edge, edge};
}

std::string ColumnLabel(Long i, Byte notation, bool turned, bool capitals) {
    if (notation == kAlgebraic) {
        return Letter(static_cast<char>(turned ? 'l' - i + 1 : 'a' + i - 1), capitals);
    }
    if (notation != kNumeric || i % 2 == 0) return "";
    return std::to_string(turned ? 6 - (i - 1) / 2 : 67 + (i - 1) / 2);
}

std::string RowLabel(Long i, Byte notation, bool turned, bool capitals) {
    if (notation == kAlgebraic) return RankCharacter(turned ? 13 - i : i, capitals);
    if (notation != kNumeric) return "";
    return std::to_string(turned ? 6 * i : 73 - 6 * i);
}

} // namespace tavlon12
