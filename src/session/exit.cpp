#include "session/exit.h"

#include "files/rating_file.h"
#include "session/program_files.h"
#include "session/save_game.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

/// The settings with the rules in force, and the rating.
void SaveSettings(Session& session) {
    const StoredSettings stored{session.Settings, session.Pos.Rules, session.Variant.VariantFile};
    WriteProgramFile(session, session.ProgramFolder / kSettingsFile, SettingsText(stored));
    WriteProgramFile(session, session.ProgramFolder / kRatingFile, RatingText(session.Rating));
}

} // namespace

bool CloseRequested(Session& session) {
    if (session.Quitting) return true;
    if (session.Settings.AskExit == 1 && !AskYesNo(session, "Are you sure you want to exit?", "Confirmation")) {
        return false;
    }
    session.Quitting = true;
    if (session.Busy) session.Pos.StopFlag = kStopQuit;
    return true;
}

void CloseMainWindow(Session& session) {
    if (session.Started) SaveGame(session, session.ProgramFolder / kAutosaveFile);
    if (session.SettingsAdopted) SaveSettings(session);
    session.Log.Close();
}

} // namespace tavlon12
