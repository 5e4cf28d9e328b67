#include "session/new_game.h"

#include "session/reset_game.h"
#include "session/screen.h"

namespace tavlon12 {

void NewGame(Session& session) {
    if (session.Busy) return;
    if (session.Game.GameTouched && !session.Port.Dialogs.AskYesNo("Quit current game?", "Confirmation")) return;

    session.Variant.CustomSetup = false;
    if (!ResetGame(session)) return;
    session.ResultShown.clear();

    session.Port.Lists.ListClear(ListId::List3);
    DrawBoard(session, 0);
    if (session.Settings.UseSound == 1) session.Port.Files.PlaySound(session.ProgramFolder / "sounds" / "roll.wav");
}

} // namespace tavlon12
