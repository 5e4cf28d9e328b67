#pragma once

#include <string_view>

namespace tavlon12 {

// How the lines of the settings file and the rating file are read, one value a line.

/// The text of a line: from its first character that is no blank to a comma or the end; a text that begins with a
/// double quote ends at the next one.
std::string_view TextItem(std::string_view line);

/// The number of a line as text: from its first character that is no blank to a blank, a comma or the end.
std::string_view NumberItem(std::string_view line);

} // namespace tavlon12
