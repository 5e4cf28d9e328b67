#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tavlon12 {

/// A line "Key=value", as definitions, game files, the heads of books and skin files have them. A key stands at the
/// very start of its line and is compared exactly; the value is all that stands behind the first "=".
struct KeyLine {
    std::string_view Key;
    std::string_view Value;
};

/// The line divided at its first "="; nothing when it has none.
std::optional<KeyLine> SplitKeyLine(std::string_view line);

/// "Key=value" and CR LF.
std::string KeyLineText(std::string_view key, std::string_view value);

} // namespace tavlon12
