#pragma once

#include "engine/search_state.h"
#include "rules/position.h"
#include "session/session.h"
#include "support/recording_port.h"
#include "support/temporary_folder.h"

#include <filesystem>
#include <memory>
#include <string>

namespace tavlon12 {

/// A whole session on a recording screen, over the project's data. Nothing has been started: call `StartUp` or
/// `ResetGame` on `Game`. The program folder is empty, or the one that is given.
struct SessionFixture {
    explicit SessionFixture(const std::filesystem::path& programFolder = "")
        : Pos(std::make_unique<Position>()), Search(std::make_unique<SearchState>()), Game(*Pos, *Search) {
        Game.Port = Screen.Port();
        Game.ProgramFolder = programFolder.empty() ? Folder.Path : programFolder;
        if (programFolder.empty()) Game.InstalledFolder = TAVLON12_DATA_DIR;
    }

    TemporaryFolder Folder;
    RecordingPort Screen;
    std::unique_ptr<Position> Pos;
    std::unique_ptr<SearchState> Search;
    Session Game;
};

/// A program folder of its own with the definition of the default variant.
struct ProgramFolder : TemporaryFolder {
    ProgramFolder() { WriteFile(DefaultVariant(), ReadFile(ShippedDefaultVariant())); }

    std::filesystem::path DefaultVariant() const { return Path / "variants" / "Canadian Checkers.ini"; }

    /// Writes a definition that differs from the default's by these lines. Each line ends in "\r\n".
    void WriteVariant(const std::string& name, const std::string& lines) const {
        std::string text = ReadFile(ShippedDefaultVariant());
        WriteFile(Path / "variants" / (name + ".ini"), text.insert(text.rfind("END"), lines));
    }
};

} // namespace tavlon12
