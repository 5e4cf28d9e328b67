#include "files/rating_file.h"

#include "files/text_item.h"

#include <algorithm>

namespace tavlon12 {

std::string EncodeRating(std::string_view key, std::string_view text) {
    std::string code(text);
    for (char& c : code) {
        if (c >= '0' && c <= '9') c = key[static_cast<std::size_t>(c - '0')];
    }
    return code;
}

std::string DecodeRating(std::string_view key, std::string_view text) {
    std::string digits(text);
    for (char& c : digits) {
        const std::size_t place = key.find(c);
        c = place < 10 ? static_cast<char>('0' + place) : '?';
    }
    return digits;
}

Outcome<Integer> ReadRating(std::string_view bytes) {
    const std::vector<std::string_view> lines = SplitLines(bytes);
    const std::string_view code = lines.empty() ? std::string_view() : TextItem(lines[0]);
    Integer rating = 0;
    if (ReadWhole(DecodeRating(kRatingKey, code), rating)) return rating;
    return FileFailure{FileFailure::Kind::BadValue, "", 1, std::string(code)};
}

std::string RatingText(Long rating) {
    return EncodeRating(kRatingKey, std::to_string(std::max<Long>(rating, 0))) + "\r\n";
}

} // namespace tavlon12
