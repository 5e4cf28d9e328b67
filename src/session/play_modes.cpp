#include "session/play_modes.h"

#include "session/command_state.h"
#include "session/computer_move.h"
#include "session/input_move.h"
#include "session/players.h"
#include "session/screen.h"

namespace tavlon12 {

void ComputeCommand(Session& session) {
    if (session.Game.GameOver || session.Busy) return;
    if (NameToMove(session) != kComputerName && !GameIsFull(session)) SwapNamesOfComputerGame(session);
    UpdatePlayerLabels(session);
    LetComputerReply(session);
}

void LetComputerReply(Session& session) {
    session.Port.Status.SetStatusText(1, "");
    session.Busy = true;
    session.Port.Fields.SetControlEnabled(Control::mnu_Board1, false);
    ThinkComputerMove(session);
    session.Busy = false;
}

void CancelCommand(Session& session) {
    if (!session.SearchStarted) return;
    session.Pos.StopFlag = kStopCancel;
    ShutCancel(session);
}

} // namespace tavlon12
