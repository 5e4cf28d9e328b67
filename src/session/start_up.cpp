#include "session/start_up.h"

#include "files/rating_file.h"
#include "session/command_state.h"
#include "session/load_game.h"
#include "session/new_game.h"
#include "session/program_files.h"
#include "session/reset_game.h"
#include "session/screen.h"

#include <iostream>

namespace tavlon12 {

namespace {

constexpr Long kFirstLazyMargin = 150;

/// Reads the file with what the user and the program have kept. False when the program must end: a file is there, and
/// a value in it is out of range.
bool LoadRating(Session& session) {
    const auto rating = ReadFileWith(session.ProgramFolder / kRatingFile, ReadRating);
    if (rating) session.Rating = *rating;
    return rating || rating.Failure().Reason != FileFailure::Kind::BadValue;
}

/// A file that is missing, too short or of another version is replaced by that of a first start.
bool LoadSettings(Session& session, StoredSettings& stored) {
    const std::filesystem::path file = session.ProgramFolder / kSettingsFile;
    const auto read = ReadFileWith(file, ReadSettings);
    if (read) {
        stored = *read;
        return true;
    }
    if (read.Failure().Reason == FileFailure::Kind::BadValue) {
        std::cerr << read.Failure().Message() << '\n';
        return false;
    }
    WriteProgramFile(session, file, DefaultSettingsText());
    return true;
}

/// Takes the settings over into what reads them while it runs.
void AdoptSettings(Session& session, const StoredSettings& stored) {
    UserSettings& settings = session.Settings = stored.User;
    if (settings.Limits.DepthLimit == 0) settings.Limits.DepthLimit = 2;
    if (settings.PlayMode == kComputerComputer) settings.PlayMode = kPlayerComputer;
    session.Search.Options = settings.Search;
    session.Variant.VariantFile = stored.VariantFile;
    session.Pos.Rules = stored.Rules;
    AdoptMovements(session.Pos);
    session.SettingsAdopted = true;
}

void ShowSettings(Session& session) {
    ShowModeMark(session);
    ShowNotationMark(session);
    ShowCalculationMark(session);
}

/// The game of the last run comes last, so that it replaces whatever has been built until then.
void RestoreGame(Session& session) {
    std::error_code error;
    const bool kept = std::filesystem::exists(session.ProgramFolder / kAutosaveFile, error);
    if (session.Settings.AutoSave == 1 && kept && !session.Quitting) LoadGame(session, LoadSource::Autosave);
}

} // namespace

bool StartUp(Session& session) {
    session.Variant.CustomSetup = false;
    session.Game.TouchedCell = 0;
    session.Search.LazyMargin = kFirstLazyMargin;
    StoredSettings stored;
    if (!LoadRating(session) || !LoadSettings(session, stored)) {
        FatalEnd(session);
        return false;
    }
    AdoptSettings(session, stored);
    ShowSettings(session);
    session.Port.Board.LoadSkin();
    if (session.Quitting) return false; // a skin that cannot be loaded ends the program
    OpenLog(session);
    if (!ResetGame(session)) return false;
    session.Port.Board
        .LayoutWindow(); // leaves the product line in panel 1, over the side to move, until the first move
    DrawBoard(session, 0);
    if (session.Settings.ChooseOpening == 1) LoadGame(session, LoadSource::Opening);
    ShowStrengthLine(session);
    ApplyStartRules(session);
    RestoreGame(session);
    session.Started = !session.Quitting;
    return session.Started;
}

} // namespace tavlon12
