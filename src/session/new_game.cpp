#include "session/new_game.h"

#include "session/move_texts.h"
#include "session/reset_game.h"
#include "session/screen.h"

namespace tavlon12 {

void NewGame(Session& session) {
    if (session.Busy) return;
    if (session.GameTouched && !session.Port.Dialogs.AskYesNo("Quit current game?", "Confirmation")) return;

    Position& position = session.Pos;
    position.CustomSetup = false;
    session.TouchedCell = 0;
    if (!ResetGame(session)) return;
    session.ResultShown.clear();
    ClearCandidates(session);

    ShowVariantName(session);
    position.Tree.SideToMove = position.Rules.BlackStarts == 1 ? kBlack : kWhite;
    session.Port.Status.SetStatusText(1, SideToMoveText(position));
    position.Tree.PlyMaterial[0] = position.Tree.GameMaterial[0] = position.PieceSum * 100;
    RefreshLegalMoves(session);
    session.Port.Lists.ListClear(ListId::List3);
    DrawBoard(session, 0);
    if (session.Settings.UseSound == 1) session.Port.Files.PlaySound(session.ProgramFolder / "sounds" / "roll.wav");
}

bool CloseRequested(Session& session) {
    if (session.Quitting) return true;
    if (session.Settings.AskExit == 1 &&
        !session.Port.Dialogs.AskYesNo("Are you sure you want to exit?", "Confirmation")) {
        return false;
    }
    session.Quitting = true;
    if (session.Busy) session.Pos.StopFlag = kStopCancel;
    return true;
}

} // namespace tavlon12
