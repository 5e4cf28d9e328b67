#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace tavlon12 {

using Byte = std::uint8_t;
using Integer = std::int16_t;
using Long = std::int32_t;

inline constexpr std::string_view kProgramVersion = "1.13";
inline constexpr std::string_view kFormatVersion = "0.89";

/// Nearest whole number, ties to even.
Long RoundHalfEven(double value);

/// The number that the text begins with, after leading blanks; 0 when it begins with none ("12 yes" is 12, "x" is 0).
double ParseNumber(std::string_view text);

/// Reads a whole number: the one that the text begins with, to the nearest, ties to even. False, with nothing changed,
/// when it lies out of the range of its kind.
template <typename Number> [[nodiscard]] bool ReadWhole(std::string_view text, Number& value) {
    const double number = std::nearbyint(ParseNumber(text));
    if (number < std::numeric_limits<Number>::min() || number > std::numeric_limits<Number>::max()) return false;
    value = static_cast<Number>(number);
    return true;
}

/// A number as text with a leading blank when it is not negative: 5 is " 5", -5 is "-5".
std::string Str(Long number);

/// The text with blanks before it up to `width`; a longer text stays as it is.
std::string RightAligned(std::string_view text, std::size_t width);

/// ASCII letters alone are changed; other bytes stay.
std::string LowerCase(std::string_view text);
std::string UpperCase(std::string_view text);

/// Whether the text ends in `ending`, compared without regard to the case of ASCII letters.
bool EndsWithNoCase(std::string_view text, std::string_view ending);

} // namespace tavlon12
