#pragma once

#include "files/file_text.h"
#include "rules/position.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavlon12 {

/// The texts that a definition brings for the user.
struct VariantTexts {
    std::string VariantHelp;
    std::string HelpLink;
    std::string QuickHelpLink;
};

/// The folder of a variant's definition below the program folder: `useClassic` 1 the program's, else the user's own.
std::filesystem::path VariantFolder(const std::filesystem::path& programFolder, Long useClassic);

/// Reads the definition of `position.VariantFile` from the folder into `DefinedRules`, and its start position, when it
/// has one, onto the boards. The rules in force stay as they are. On a failure (no file, a value out of range, no line
/// "END") nothing has changed.
std::optional<FileFailure> LoadVariant(const std::filesystem::path& folder, Position& position, VariantTexts& texts);

} // namespace tavlon12
