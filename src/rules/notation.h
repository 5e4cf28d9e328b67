#pragma once

#include "rules/board.h"

#include <string>
#include <string_view>

namespace tavlon12 {

// How squares are written. Algebraic: column letter "a" to "l" and rank character "1" to "9", "0", "a", "b". Numeric: 1
// to 72 from the top left, on boards of one colour. A board without labels has numeric text.
inline constexpr Byte kAlgebraic = 0;
inline constexpr Byte kNumeric = 1;
inline constexpr Byte kNoLabels = 2;

// How a number below 10 is written.
enum class Padding { Blank = 0, None = 1, Zero = 2 };

/// The text of a square: "" for a piece off the board, "--" for any other index that is no square.
std::string SquareNotation(Long square, Padding padding, Byte notation);

/// The square of a text, 0 when it is none. Algebraic text has its column letter in upper case; the case of the rank
/// plays no part. Numeric text is read by its numeric value, and stands for the square of the playing colour.
Long SquareNumber(std::string_view text, Byte notation, Long piecesOnBlack);

} // namespace tavlon12
