#include "session/program_files.h"

#include "session/screen.h"

#include <algorithm>
#include <ctime>

namespace tavlon12 {

namespace {

void TellFailure(Session& session, const FileFailure& failure) {
    session.Port.Dialogs.ShowMessage(failure.Message(), "Error", MessageKind::Exclamation); // also while it quits
}

void TellLogFailure(Session& session, const std::optional<FileFailure>& failure) {
    if (!failure || session.LogFailureTold) return;
    session.LogFailureTold = true;
    TellFailure(session, *failure);
}

/// The names of the ".ini" files of a folder, the user's own and the installed ones, sorted without regard to case.
std::vector<std::string> NamesInFolder(const Session& session, const std::filesystem::path& relative) {
    std::vector<std::string> names;
    for (const std::filesystem::path& folder : {session.ProgramFolder, session.InstalledFolder}) {
        if (folder.empty()) continue;
        const auto found = FileNames(FindFile(folder, relative.generic_string()).value_or(folder / relative), ".ini");
        names.insert(names.end(), found.begin(), found.end());
    }
    const auto before = [](const std::string& a, const std::string& b) { return LowerCase(a) < LowerCase(b); };
    const auto same = [](const std::string& a, const std::string& b) { return LowerCase(a) == LowerCase(b); };
    std::stable_sort(names.begin(), names.end(), before);
    names.erase(std::unique(names.begin(), names.end(), same), names.end());
    return names;
}

} // namespace

std::filesystem::path DataFile(const Session& session, std::string_view relative) {
    for (const std::filesystem::path& folder : {session.ProgramFolder, session.InstalledFolder}) {
        if (folder.empty()) continue;
        if (auto file = FindFile(folder, relative)) return *file;
    }
    return session.ProgramFolder / relative;
}

std::filesystem::path VariantPath(const Session& session) {
    return VariantPath(session, session.Variant.VariantFile, session.Settings.UseClassic);
}

std::filesystem::path VariantPath(const Session& session, const std::string& variantFile, Long useClassic) {
    const std::filesystem::path file = VariantFolder("", useClassic) / (variantFile + ".ini");
    return DataFile(session, file.generic_string());
}

std::vector<std::string> VariantNames(const Session& session) {
    return NamesInFolder(session, VariantFolder("", session.Settings.UseClassic));
}

std::vector<std::string> SkinNames(const Session& session) {
    std::vector<std::string> names{std::string(kClassicSmall), std::string(kClassicMedium)};
    const std::vector<std::string> found = NamesInFolder(session, "skins");
    names.insert(names.end(), found.begin(), found.end());
    return names;
}

bool WriteProgramFile(Session& session, const std::filesystem::path& file, std::string_view bytes) {
    const auto failure = ReplaceFile(file, bytes);
    if (failure) TellFailure(session, *failure);
    return !failure;
}

void OpenLink(Session& session, const std::string& link) {
    const std::filesystem::path file = DataFile(session, link);
    std::error_code error;
    const bool found = std::filesystem::is_regular_file(file, error);
    session.Port.Files.OpenDocument(found ? std::filesystem::absolute(file, error).string() : link);
}

void PlaySound(Session& session, std::string_view name) {
    if (session.Settings.UseSound != 1) return;
    session.Port.Files.PlaySound(DataFile(session, "sounds/" + std::string(name)));
}

void OpenLog(Session& session) {
    TellLogFailure(session, session.Log.Open(session.ProgramFolder / kLogFile));
    WriteLog(session, SessionLogText(LocalDateAndTime(std::time(nullptr))));
}

void WriteLog(Session& session, std::string_view text) {
    TellLogFailure(session, session.Log.Write(text));
}

} // namespace tavlon12
