#include "session/options.h"

#include "session/move_texts.h"
#include "session/players.h"
#include "session/program_files.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

SettingTexts TextsOf(const UserSettings& settings) {
    SettingTexts texts;
    for (const SettingRow& row : SettingRows()) {
        if (row.ValueIn == nullptr) continue;
        std::string& text = texts[row.Name] = SettingText(settings, row);
        if (row.Most == 1 && text != "1") text = "0"; // a file may hold any number
    }
    return texts;
}

SettingTexts ApplyOptions(Session& session, const SettingTexts& entered) {
    const Byte capitalsBefore = session.Settings.NotationCapitals;
    for (const auto& [name, text] : entered) SetSetting(session.Settings, SettingNamed(name), text);
    if (session.Settings.NotationCapitals != capitalsBefore) DrawBoard(session, 0);
    return TextsOf(session.Settings);
}

std::vector<ListLine> SkinLines(const Session& session) {
    std::vector<ListLine> lines;
    for (const std::string& name : SkinNames(session)) lines.push_back({name, session.Port.Board.SkinProblem(name)});
    return lines;
}

/// Shows the game anew as the settings now have it.
void ShowWithOptions(Session& session, const std::string& skinBefore) {
    if (session.Settings.SkinName != skinBefore) {
        session.Port.Board.LoadSkin();
        if (session.Quitting) return;
        StatusPort& status = session.Port.Status;
        const std::string shown = status.GetStatusText(1); // which the layout empties
        session.Port.Board.LayoutWindow();
        status.SetStatusText(1, shown);
        DrawBoard(session, 0);
    }
    ShowStrengthLine(session);
    session.Game.CaptureChar = session.Settings.ColonCapture == 1 ? ":" : "x";
    SetPlayersOfPosition(session);
    DrawBoard(session, 0);
    RefreshLegalMoves(session);
}

} // namespace

void ShowOptions(Session& session) {
    if (session.Busy) return;
    const std::string skinBefore = session.Settings.SkinName;
    const OptionsEvents events{
        [&](const SettingTexts& entered) { return ApplyOptions(session, entered); },
        [&](const std::string& name) { session.Settings.SkinName = name; },
        [&] { return session.Rating = kFirstRating; },
    };
    session.Port.Dialogs.EditOptions({TextsOf(session.Settings), SkinLines(session), session.Rating}, events);
    ShowWithOptions(session, skinBefore);
}

} // namespace tavlon12
