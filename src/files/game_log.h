#pragma once

#include "files/file_text.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavlon12 {

// The texts of the log, each one or more whole lines ended by CR LF.

/// A moment in the form of the system's locale, or of the language C where that is not installed.
struct DateAndTime {
    std::string Date;
    std::string Time;
};
DateAndTime LocalDateAndTime(std::time_t moment);

/// The start of the program: an empty line, then program, version, date and time.
std::string SessionLogText(const DateAndTime& start);

/// The head of a game, before its first move.
std::string GameLogText(std::string_view variantName, bool blackStarts);

/// A half-move by its line in the move list, and its score.
std::string MoveLogText(std::string_view listLine, Long score);

/// A half-move of the computer: the same line goes on with depth and main line. `iterations` is a line for each
/// iteration with its line end; an empty line closes the block.
std::string ComputerMoveLogText(std::string_view listLine, Long score, Long depth, std::string_view mainLine,
                                std::string_view iterations);

/// A log that is only added to. What has been written is in the system's hands at once, and several programs may write
/// to one file. A log that could not be opened takes no lines; after a write that failed the next one is tried again.
class GameLog {
public:
    GameLog() = default;
    ~GameLog() { Close(); }
    GameLog(const GameLog&) = delete;
    GameLog& operator=(const GameLog&) = delete;

    /// Opens the file, or makes it. Closes the one before.
    [[nodiscard]] std::optional<FileFailure> Open(const std::filesystem::path& file);

    /// Adds whole lines. Without an open file nothing is done and nothing fails.
    std::optional<FileFailure> Write(std::string_view text);

    void Close();

private:
    std::filesystem::path File;
    int Handle = -1;
};

} // namespace tavlon12
