#pragma once

#include "files/file_text.h"

#include <string>
#include <string_view>

namespace tavlon12 {

/// Ten different characters: the one for the digit 0 first.
inline constexpr std::string_view kRatingKey = "QX4M9BZRLD";

/// The text with each digit replaced by its character in the key.
std::string EncodeRating(std::string_view key, std::string_view text);

/// The text with each character of the key replaced by its digit; any other becomes a mark that ends a number.
std::string DecodeRating(std::string_view key, std::string_view text);

/// Reads the bytes of a rating file; an empty one gives 0. Fails on a number that is no rating (16 bits).
Outcome<Integer> ReadRating(std::string_view bytes);

/// The bytes of the rating file. A rating below 0 has no form and is stored as 0.
std::string RatingText(Long rating);

} // namespace tavlon12
