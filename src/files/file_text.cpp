#include "files/file_text.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace tavlon12 {

namespace fs = std::filesystem;

namespace {

std::string_view ReasonText(FileFailure::Kind reason) {
    switch (reason) {
    case FileFailure::Kind::CannotOpen: return "cannot be read";
    case FileFailure::Kind::NotThisKind: return "is no file of this kind";
    case FileFailure::Kind::OtherVersion: return "has another version";
    case FileFailure::Kind::EndTooEarly: return "ends too early";
    case FileFailure::Kind::BadValue: return "value out of range";
    case FileFailure::Kind::CannotWrite: return "cannot be written";
    }
    return "";
}

/// Error numbers of the system in the user's words; the system's own texts follow its language settings.
std::string ErrorText(int error) {
    switch (error) {
    case ENOSPC: return "no space left on the disk";
    case EDQUOT: return "the user's share of the disk is full";
    case EACCES:
    case EPERM: return "no permission";
    case EROFS: return "the disk cannot be written to";
    case ENOENT: return "the folder does not exist";
    case ENOTDIR: return "a part of its path is no folder";
    case EISDIR: return "it is a folder";
    case ENAMETOOLONG: return "the name is too long";
    case EFBIG: return "the file is too large";
    case EIO: return "the disk reports an error";
    case ELOOP: return "its links lead nowhere";
    default: return std::generic_category().message(error);
    }
}

/// The file that a chain of symbolic links ends in, which need not exist. An endless chain is left as it is.
fs::path LinkTarget(fs::path file) {
    std::error_code none;
    for (int links = 0; links < 40 && fs::is_symlink(fs::symlink_status(file, none)); ++links) {
        file = file.parent_path() / fs::read_symlink(file, none);
    }
    return file;
}

/// The folder of a file as a path that can be opened.
fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

/// A name for a new file in the folder that no other file of this program has had.
fs::path FreshName(const fs::path& folder) {
    static std::atomic<unsigned> made = 0;
    return folder / (".tavlon12-" + std::to_string(getpid()) + "-" + std::to_string(made++) + ".tmp");
}

/// A file that is being written beside another. Where the system can, it has no name until it is whole, so that a
/// program that is killed leaves nothing behind. It vanishes with the record unless it was renamed. The procedures give
/// the system's error number, or 0.
class NewFile {
public:
    explicit NewFile(const fs::path& folder) : Folder(folder) {
        const bool canBeNamedLater = access("/proc/self/fd", X_OK) == 0;
        if (canBeNamedLater) Handle = open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
        if (Handle < 0) OpenNamed();
    }
    ~NewFile() {
        if (Handle >= 0) close(Handle);
        if (!Name.empty()) unlink(Name.c_str());
    }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    int Write(std::string_view bytes) {
        if (Handle < 0) return OpenError;
        while (!bytes.empty()) {
            ssize_t written = write(Handle, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) return errno;
            if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return 0;
    }

    /// Best effort: a file system without permissions refuses it.
    void TakePermissions(mode_t mode) {
        if (fchmod(Handle, mode & 07777) != 0) errno = 0;
    }

    int Flush() {
        return fsync(Handle) == 0 || errno == EINVAL ? 0 : errno; // EINVAL: the file system cannot flush
    }

    int RenameTo(const fs::path& file) {
        if (int error = GiveName()) return error;
        if (rename(Name.c_str(), file.c_str()) != 0) return errno;
        Name.clear();
        return 0;
    }

private:
    // A name may be taken by another program with the same number, left by one that was killed, or on a shared disk.
    void OpenNamed() {
        do {
            Name = FreshName(Folder);
            Handle = open(Name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        } while (Handle < 0 && errno == EEXIST);
        if (Handle >= 0) return;
        OpenError = errno;
        Name.clear();
    }

    int GiveName() {
        if (!Name.empty()) return 0;
        const std::string unnamed = "/proc/self/fd/" + std::to_string(Handle);
        for (;;) {
            const fs::path name = FreshName(Folder);
            if (linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0) {
                Name = name;
                return 0;
            }
            if (errno != EEXIST) return errno;
        }
    }

    fs::path Folder;
    fs::path Name; ///< empty while the file has none
    int Handle = -1;
    int OpenError = 0;
};

/// Makes a rename in the folder last. The new file is in place already, so that nothing can be done where this fails.
void FlushFolder(const fs::path& folder) {
    int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
}

/// Why an old file must not be replaced: the system's error number, or 0.
int Refusal(const fs::path& file, const struct stat& old) {
    if (S_ISDIR(old.st_mode)) return EISDIR;
    if (!S_ISREG(old.st_mode)) return EACCES;
    return access(file.c_str(), W_OK) == 0 ? 0 : errno;
}

std::vector<std::string> SplitPath(std::string_view relative) {
    std::vector<std::string> names;
    while (!relative.empty()) {
        std::string_view name = relative.substr(0, relative.find_first_of("/\\"));
        if (!name.empty()) names.emplace_back(name);
        relative.remove_prefix(std::min(name.size() + 1, relative.size()));
    }
    return names;
}

/// The entries of a folder that differ from the name in case alone, sorted.
std::vector<fs::path> Spellings(const fs::path& folder, const std::string& name) {
    std::vector<fs::path> found;
    std::error_code unreadable; // then there are none
    for (const auto& entry : fs::directory_iterator(folder, unreadable)) {
        std::string own = entry.path().filename().string();
        if (own != name && LowerCase(own) == LowerCase(name)) found.push_back(entry.path());
    }
    std::ranges::sort(found);
    return found;
}

std::optional<fs::path> FindBelow(const fs::path& folder, const std::vector<std::string>& names, std::size_t at) {
    std::error_code none;
    if (at == names.size()) return fs::exists(folder, none) ? std::optional(folder) : std::nullopt;
    if (auto found = FindBelow(folder / names[at], names, at + 1)) return found;
    for (const fs::path& spelling : Spellings(folder, names[at])) {
        if (auto found = FindBelow(spelling, names, at + 1)) return found;
    }
    return std::nullopt;
}

} // namespace

std::string FileFailure::Message() const {
    std::string message = File;
    if (Line > 0) message += ", line " + std::to_string(Line);
    message.append(": ").append(ReasonText(Reason));
    if (!Text.empty()) message += ": " + Text;
    return message;
}

// A folder opens like a file but cannot be read, which the stream tells only at the first read.
Outcome<std::string> ReadWholeFile(const fs::path& file) {
    const FileFailure failure{FileFailure::Kind::CannotOpen, file.string(), 0, ""};
    std::ifstream in(file, std::ios::binary);
    if (!in) return failure;
    std::string bytes;
    std::array<char, 65536> part;
    while (in.read(part.data(), part.size()) || in.gcount() > 0) {
        bytes.append(part.data(), static_cast<std::size_t>(in.gcount()));
    }
    if (in.bad()) return failure;
    return bytes;
}

FileFailure WriteFailure(const fs::path& file, int error) {
    return {FileFailure::Kind::CannotWrite, file.string(), 0, ErrorText(error)};
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::string_view line = text.substr(0, text.find('\n'));
        text.remove_prefix(std::min(line.size() + 1, text.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines.push_back(line);
    }
    return lines;
}

std::optional<FileFailure> ReplaceFile(const fs::path& file, std::string_view bytes) {
    const fs::path target = LinkTarget(file);
    struct stat old;
    const bool existed = stat(target.c_str(), &old) == 0;
    if (!existed && errno != ENOENT) return WriteFailure(file, errno);
    if (int error = existed ? Refusal(target, old) : 0) return WriteFailure(file, error);

    NewFile beside(FolderOf(target));
    if (int error = beside.Write(bytes)) return WriteFailure(file, error);
    if (existed) beside.TakePermissions(old.st_mode);
    if (int error = beside.Flush()) return WriteFailure(file, error);
    if (int error = beside.RenameTo(target)) return WriteFailure(file, error);
    FlushFolder(FolderOf(target));
    return std::nullopt;
}

std::optional<fs::path> FindFile(const fs::path& folder, std::string_view relative) {
    return FindBelow(folder, SplitPath(relative), 0);
}

std::vector<std::string> FileNames(const fs::path& folder, std::string_view extension) {
    std::vector<std::string> names;
    std::error_code unreadable; // then there are none
    for (const auto& entry : fs::directory_iterator(folder, unreadable)) {
        std::string name = entry.path().filename().string();
        if (!EndsWithNoCase(name, extension)) continue;
        names.push_back(name.substr(0, name.size() - extension.size()));
    }
    std::ranges::sort(names, {}, [](const std::string& name) { return std::pair(LowerCase(name), name); });
    return names;
}

} // namespace tavlon12
