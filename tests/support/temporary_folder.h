#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tavlon12 {

/// A new folder that vanishes with the record.
struct TemporaryFolder {
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path Path;
};

/// Writes the bytes as they stand, and makes the folders above the file.
void WriteFile(const std::filesystem::path& file, std::string_view bytes);

/// All bytes of a file; throws when it cannot be read.
std::string ReadFile(const std::filesystem::path& file);

/// The definition of the default variant as it is shipped.
std::filesystem::path ShippedDefaultVariant();

} // namespace tavlon12
