#pragma once

#include "rules/basics.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavlon12 {

/// Why a file could not be read.
struct FileFailure {
    enum class Kind { CannotOpen, EndTooEarly, BadValue } Reason = Kind::CannotOpen;
    std::string File;
    Long Line = 0; ///< from 1; 0 when no line is to blame
    std::string Text;

    /// One line: file, line and reason.
    std::string Message() const;
};

/// The lines of a whole file without their line ends (CR LF, LF alone is accepted too). False when it cannot be read.
[[nodiscard]] bool ReadLines(const std::filesystem::path& file, std::vector<std::string>& lines);

} // namespace tavlon12
