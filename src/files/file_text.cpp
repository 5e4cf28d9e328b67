#include "files/file_text.h"

#include <algorithm>
#include <array>
#include <fstream>

namespace tavlon12 {

namespace {

/// The bytes of a file. A folder opens like a file but cannot be read, which the stream tells only at the first read.
bool ReadBytes(const std::filesystem::path& file, std::string& bytes) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return false;
    std::array<char, 4096> part;
    while (in.read(part.data(), part.size()) || in.gcount() > 0) {
        bytes.append(part.data(), static_cast<std::size_t>(in.gcount()));
    }
    return !in.bad();
}

std::string_view ReasonText(FileFailure::Kind reason) {
    switch (reason) {
    case FileFailure::Kind::CannotOpen: return "cannot be read";
    case FileFailure::Kind::EndTooEarly: return "ends too early";
    case FileFailure::Kind::BadValue: return "value out of range";
    }
    return "";
}

} // namespace

std::string FileFailure::Message() const {
    std::string message = File;
    if (Line > 0) message += ", line " + std::to_string(Line);
    message.append(": ").append(ReasonText(Reason));
    if (!Text.empty()) message += ": " + Text;
    return message;
}

bool ReadLines(const std::filesystem::path& file, std::vector<std::string>& lines) {
    std::string bytes;
    lines.clear();
    if (!ReadBytes(file, bytes)) return false;
    std::size_t start = 0;
    while (start < bytes.size()) {
        std::size_t end = std::min(bytes.find('\n', start), bytes.size());
        std::size_t next = end + 1;
        if (end > start && bytes[end - 1] == '\r') --end;
        lines.push_back(bytes.substr(start, end - start));
        start = next;
    }
    return true;
}

} // namespace tavlon12
