#include "files/format_line.h"

namespace tavlon12 {

namespace {

constexpr std::string_view kMagic = "TAVLON12 Version=";

} // namespace

std::string FormatLine() {
    return std::string(kMagic).append(kFormatVersion);
}

std::optional<FileFailure> FormatFailure(std::string_view bytes) {
    using Kind = FileFailure::Kind;
    if (!bytes.starts_with(kMagic)) return FileFailure{Kind::NotThisKind, "", 1, ""};
    const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
    const auto version = [](std::string_view text) { return static_cast<float>(ParseNumber(text)); };
    const std::string_view number = line.substr(kMagic.size());
    if (version(number) != version(kFormatVersion)) return FileFailure{Kind::OtherVersion, "", 1, std::string(number)};
    return std::nullopt;
}

} // namespace tavlon12
