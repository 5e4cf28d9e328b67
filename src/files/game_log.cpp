#include "files/game_log.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

namespace tavlon12 {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::locale SystemLocale() {
    try {
        return std::locale("");
    } catch (const std::runtime_error&) { // named in the environment, but not installed
        return std::locale::classic();
    }
}

std::string Formatted(const std::tm& moment, const char* format) {
    std::ostringstream text;
    text.imbue(SystemLocale());
    text << std::put_time(&moment, format);
    return text.str();
}

/// The part that all half-moves share: the list's line and the score in six columns.
std::string MoveColumns(std::string_view listLine, Long score) {
    const bool marked = listLine.ends_with('b') || listLine.ends_with('K');
    return std::string(listLine).append(marked ? "  " : "   ") + RightAligned(std::to_string(score), 6);
}

} // namespace

DateAndTime LocalDateAndTime(std::time_t moment) {
    std::tm local{};
    localtime_r(&moment, &local);
    return {Formatted(local, "%x"), Formatted(local, "%X")};
}

std::string SessionLogText(const DateAndTime& start) {
    return std::string(kLineEnd).append("Tavlon12 ").append(kProgramVersion).append("   ") + start.Date + "  " +
           start.Time + "\r\n";
}

std::string GameLogText(std::string_view variantName, bool blackStarts) {
    return std::string(kLineEnd)
        .append(variantName)
        .append(kLineEnd)
        .append(blackStarts ? "Black   White" : "White   Black")
        .append(kLineEnd)
        .append("      moves    score   depth    main")
        .append(kLineEnd);
}

std::string MoveLogText(std::string_view listLine, Long score) {
    return MoveColumns(listLine, score).append(kLineEnd);
}

std::string ComputerMoveLogText(std::string_view listLine, Long score, Long depth, std::string_view mainLine,
                                std::string_view iterations) {
    return MoveColumns(listLine, score)
        .append("      ")
        .append(RightAligned(std::to_string(depth), 2))
        .append("    ")
        .append(mainLine)
        .append(kLineEnd)
        .append(iterations)
        .append(kLineEnd);
}

std::optional<FileFailure> GameLog::Open(const std::filesystem::path& file) {
    Close();
    File = file;
    Handle = open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (Handle < 0) return WriteFailure(file, errno);
    return std::nullopt;
}

std::optional<FileFailure> GameLog::Write(std::string_view text) {
    if (Handle < 0) return std::nullopt;
    while (!text.empty()) {
        ssize_t written = write(Handle, text.data(), text.size());
        if (written < 0 && errno != EINTR) return WriteFailure(File, errno);
        if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    return std::nullopt;
}

void GameLog::Close() {
    if (Handle >= 0) close(Handle);
    Handle = -1;
}

} // namespace tavlon12
