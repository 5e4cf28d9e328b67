#include "session/new_game.h"

#include "session/program_files.h"
#include "session/reset_game.h"
#include "session/screen.h"

namespace tavlon12 {

void NewGame(Session& session) {
    if (session.Busy) return;
    if (session.Game.GameTouched && !AskYesNo(session, "Quit current game?", "Confirmation")) return;

    session.Variant.CustomSetup = false;
    if (!ResetGame(session)) return;
    session.ResultShown.clear();

    session.Port.Lists.ListClear(ListId::List3);
    DrawBoard(session, 0);
    PlaySound(session, "roll.wav");
}

} // namespace tavlon12
