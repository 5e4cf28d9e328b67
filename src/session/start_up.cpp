#include "session/start_up.h"

#include "session/command_state.h"
#include "session/reset_game.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

constexpr Long kFirstLazyMargin = 150;

/// Takes the settings over into what reads them while it runs.
void AdoptSettings(Session& session) {
    UserSettings& settings = session.Settings;
    if (settings.Limits.DepthLimit == 0) settings.Limits.DepthLimit = 2;
    if (settings.PlayMode == kComputerComputer) settings.PlayMode = kPlayerComputer;
    session.Search.Options = settings.Search;
    AdoptMovements(session.Pos);
}

void ShowSettings(Session& session) {
    ShowModeMark(session);
    ShowNotationMark(session);
    ShowCalculationMark(session);
}

} // namespace

bool StartUp(Session& session) {
    session.Variant.CustomSetup = false;
    session.Game.TouchedCell = 0;
    session.Search.LazyMargin = kFirstLazyMargin;
    AdoptSettings(session);
    ShowSettings(session);
    session.Port.Board.LoadSkin();
    if (session.Quitting) return false; // a skin that cannot be loaded ends the program
    if (!ResetGame(session)) return false;
    session.Port.Board
        .LayoutWindow(); // leaves the product line in panel 1, over the side to move, until the first move
    DrawBoard(session, 0);
    ShowStrengthLine(session);
    return true;
}

} // namespace tavlon12
