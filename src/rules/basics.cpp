#include "rules/basics.h"

#include <charconv>
#include <cmath>

namespace tavlon12 {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at;
}

/// Length of the longest start of the text that forms a number; 0 when there is none. A sign may stand before it.
std::size_t NumberLength(std::string_view text) {
    std::size_t start = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    std::size_t end = SkipDigits(text, start);
    std::size_t digits = end - start;
    if (end < text.size() && text[end] == '.') {
        std::size_t fractionEnd = SkipDigits(text, end + 1);
        digits += fractionEnd - (end + 1);
        end = fractionEnd;
    }
    if (digits == 0) return 0;
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponent = end + 1;
        if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
        std::size_t exponentEnd = SkipDigits(text, exponent);
        if (exponentEnd > exponent) end = exponentEnd;
    }
    return end;
}

template <typename Change> std::string Changed(std::string_view text, Change change) {
    std::string result(text);
    for (char& c : result) c = change(c);
    return result;
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

Long RoundHalfEven(double value) {
    return static_cast<Long>(std::nearbyint(value)); // the default rounding mode is to nearest, ties to even
}

double ParseNumber(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    text = text.substr(0, NumberLength(text));
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range) return text.front() == '-' ? -HUGE_VAL : HUGE_VAL;
    return value;
}

std::string Str(Long number) {
    std::string text = std::to_string(number);
    if (number >= 0) text.insert(text.begin(), ' ');
    return text;
}

std::string RightAligned(std::string_view text, std::size_t width) {
    return std::string(text.size() < width ? width - text.size() : 0, ' ').append(text);
}

std::string LowerCase(std::string_view text) {
    return Changed(text, Lower);
}

std::string UpperCase(std::string_view text) {
    return Changed(text, Upper);
}

bool EndsWithNoCase(std::string_view text, std::string_view ending) {
    return text.size() >= ending.size() && LowerCase(text.substr(text.size() - ending.size())) == LowerCase(ending);
}

} // namespace tavlon12
