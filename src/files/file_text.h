#pragma once

#include "rules/basics.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tavlon12 {

/// Why a file could not be read or written. A reader of bytes leaves `File` empty; who knows the file names it.
struct FileFailure {
    enum class Kind {
        CannotOpen,   ///< missing, a folder, or not to be read
        NotThisKind,  ///< a file of something else
        OtherVersion, ///< of the right kind, in another version of its format
        EndTooEarly,
        BadValue, ///< a value out of the range of its kind
        CannotWrite,
    } Reason = Kind::CannotOpen;
    std::string File;
    Long Line = 0; ///< from 1; 0 when no line is to blame
    std::string Text;

    /// One line: file, line and reason.
    std::string Message() const;
};

/// What a reader gives: a record, or why there is none. Ask before taking either.
template <typename Record> class [[nodiscard]] Outcome {
public:
    Outcome(Record record) : Value(std::move(record)) {}
    Outcome(FileFailure failure) : Value(std::move(failure)) {}

    explicit operator bool() const { return std::holds_alternative<Record>(Value); }
    Record& operator*() { return std::get<Record>(Value); }
    const Record& operator*() const { return std::get<Record>(Value); }
    Record* operator->() { return &std::get<Record>(Value); }
    const Record* operator->() const { return &std::get<Record>(Value); }
    const FileFailure& Failure() const { return std::get<FileFailure>(Value); }

private:
    std::variant<Record, FileFailure> Value;
};

/// All bytes of a file.
Outcome<std::string> ReadWholeFile(const std::filesystem::path& file);

/// What `read`, a reader of bytes, makes of a file. The file's name is put into its failure.
template <typename Read>
auto ReadFileWith(const std::filesystem::path& file, Read&& read) -> decltype(read(std::string_view())) {
    Outcome<std::string> bytes = ReadWholeFile(file);
    if (!bytes) return bytes.Failure();
    auto outcome = read(std::string_view(*bytes));
    if (outcome) return outcome;
    FileFailure failure = outcome.Failure();
    failure.File = file.string();
    return failure;
}

/// A failure to write for an error number of the system, in plain words.
FileFailure WriteFailure(const std::filesystem::path& file, int error);

/// The lines of a text without their line ends (CR LF, LF alone is accepted too). They look into the text.
std::vector<std::string_view> SplitLines(std::string_view text);

/// Puts the bytes in the place of a file, or makes a new one: they are written to a file of their own beside it,
/// flushed to the disk and renamed over it, so that the file is the old or the new one at any moment. A symbolic link
/// stays and its target is replaced; the permissions of the old file stay. On a failure the old file is untouched.
[[nodiscard]] std::optional<FileFailure> ReplaceFile(const std::filesystem::path& file, std::string_view bytes);

/// The file or folder of a relative path below the folder, whatever the case of the ASCII letters in its names; names
/// in the case given go first. Slashes and backslashes separate names.
std::optional<std::filesystem::path> FindFile(const std::filesystem::path& folder, std::string_view relative);

/// The names, without extension, of the files of a folder with this extension (".ini") in any case, sorted without
/// regard to case. A folder that cannot be read has none.
std::vector<std::string> FileNames(const std::filesystem::path& folder, std::string_view extension);

} // namespace tavlon12
