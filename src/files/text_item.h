#pragma once

#include <string_view>

namespace tavlon12 {

/// The text that a line of the settings file or the rating file holds: from its first character that is no blank to a
/// comma or the end; a text that begins with a double quote ends at the next one.
std::string_view TextItem(std::string_view line);

} // namespace tavlon12
