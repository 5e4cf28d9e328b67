#pragma once

#include "files/file_text.h"

#include <optional>
#include <string>
#include <string_view>

namespace tavlon12 {

/// The first line of game files and books, "TAVLON12 Version=0.89", without its line end.
std::string FormatLine();

/// Why a file is not read by its first line: `NotThisKind` when it begins otherwise, `OtherVersion` when its number,
/// in single precision, is another.
std::optional<FileFailure> FormatFailure(std::string_view bytes);

} // namespace tavlon12
