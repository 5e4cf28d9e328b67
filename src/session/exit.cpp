#include "session/exit.h"

namespace tavlon12 {

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
