#include "files/key_lines.h"

namespace tavlon12 {

std::optional<KeyLine> SplitKeyLine(std::string_view line) {
    std::size_t sign = line.find('=');
    if (sign == std::string_view::npos) return std::nullopt;
    return KeyLine{line.substr(0, sign), line.substr(sign + 1)};
}

std::string KeyLineText(std::string_view key, std::string_view value) {
    return std::string(key).append("=").append(value).append("\r\n");
}

} // namespace tavlon12
