#pragma once

#include "rules/basics.h"

#include <array>
#include <string>
#include <string_view>

namespace tavlon12 {

/// Pixels from the top left corner of the client area, which lies under the menu bar.
struct Place {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const Place&) const = default;
};

struct ControlPlace {
    std::string_view Name;
    Place At;
};

inline constexpr int kGridLeft = 25;
inline constexpr int kGridTop = 32;
inline constexpr int kGridSquares = 12;
inline constexpr int kStatusPanel2Width = 160;
inline constexpr int kStatusPanel3Width = 133;
inline constexpr int kPlacedControls = 29;

/// Where everything in the window stands. The client area holds the status bar too, at its bottom.
struct WindowGeometry {
    int Width = 0;
    int Height = 0;
    int SquareEdge = 0;
    std::array<ControlPlace, kPlacedControls> Controls{};
};

/// The medium geometry for `SkinMode` 2 and for a skin file with `BoardCustomSize` 2, the small one for any other.
const WindowGeometry& GeometryOfSkin(Long skinMode, Long boardCustomSize = -1);

/// The place of a control by its object name; all zero for a name that is not in the table. With `extraPieces` the
/// comment field leaves room for the line about the pieces off the board.
Place PlaceOf(const WindowGeometry& geometry, std::string_view name, bool extraPieces);

/// The place of a square in the window, for views 0 to 143.
Place SquarePlace(const WindowGeometry& geometry, Long view);

// The coordinates at the edges of the board, `i` from 1 to 12; "" where none stands.
/// Under the i-th square from the left.
std::string ColumnLabel(Long i, Byte notation, bool turned, bool capitals);
/// Beside the i-th square from the bottom.
std::string RowLabel(Long i, Byte notation, bool turned, bool capitals);

} // namespace tavlon12
