#include "session/start_up.h"

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
    session.PlayMode = settings.PlayMode;
    session.Search.Options = settings.Search;
    AdoptMovements(session.Pos);
}

void ShowSettings(Session& session) {
    UiPort& port = session.Port;
    bool twoPersons = session.PlayMode == kPlayerPlayer;
    port.Commands.SetCommandChecked(Command::Cplayer, !twoPersons);
    port.Commands.SetCommandChecked(Command::Pplayer, twoPersons);
    if (twoPersons) {
        port.Commands.SetCommandEnabled(Command::Offerdraw, false);
        port.Commands.SetCommandEnabled(Command::Resign, false);
    }
    Byte notation = session.Settings.Notation;
    port.Commands.SetCommandChecked(Command::mnu_Board_Notation_Chess, notation == kAlgebraic);
    port.Commands.SetCommandChecked(Command::mnu_Board_Notation_Checkers, notation == kNumeric);
    port.Commands.SetCommandChecked(Command::Nonotation, notation != kAlgebraic && notation != kNumeric);
    port.Commands.SetCommandChecked(Command::calculation, session.Settings.CalculationOn == 1);
}

} // namespace

bool StartUp(Session& session) {
    session.Pos.CustomSetup = false;
    session.TouchedCell = 0;
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
