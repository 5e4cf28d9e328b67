#include "session/play_modes.h"

#include "session/command_state.h"
#include "session/computer_move.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/players.h"
#include "session/screen.h"
#include "session/thinking.h"

namespace tavlon12 {

namespace {

void SetPlayMode(Session& session, Long mode) {
    session.Settings.PlayMode = mode;
    ShowModeMark(session);
    OpenForPlayMode(session);
}

/// Whether the computer's game against itself goes on after a move.
bool GoesOn(const Session& session) {
    return !session.Quitting && !session.Game.GameOver && !session.Search.SearchAborted &&
           session.Pos.StopFlag != kStopCancel;
}

void PlayBothSides(Session& session) {
    do {
        ThinkComputerMove(session);
        if (GoesOn(session)) WaitSeconds(session, kPause);
    } while (GoesOn(session));
}

} // namespace

void ComputeCommand(Session& session) {
    if (session.Game.GameOver || session.Busy) return;
    if (NameToMove(session) != kComputerName && !GameIsFull(session)) SwapNamesOfComputerGame(session);
    UpdatePlayerLabels(session);
    LetComputerReply(session);
}

void LetComputerReply(Session& session) {
    RunThinking(session, ThinkComputerMove);
}

void CancelCommand(Session& session) {
    if (!session.SearchStarted) return;
    session.Pos.StopFlag = kStopCancel;
    ShutCancel(session);
}

void PlayComputerComputer(Session& session) {
    if (session.Game.GameOver || session.Busy) return;
    session.Game.RateableGame = false;
    SetPlayMode(session, kComputerComputer);
    session.Players = {kComputerName, kComputerName};
    UpdatePlayerLabels(session);
    for (ListId list : {ListId::List2, ListId::List3}) {
        session.Port.Lists.ListClear(list);
        session.Port.Lists.SetListEnabled(list, false);
    }
    RunThinking(session, PlayBothSides);
    if (session.Quitting) return;

    SetPlayMode(session, kPlayerComputer);
    SetPlayersWithUserToMove(session);
    HandBack(session);
    ShowCandidates(session, session.Thought.RootMoves[0].From);
    UpdatePlayerLabels(session);
}

void PlayComputerPlayer(Session& session) {
    SetPlayMode(session, kPlayerComputer);
    SetPlayersWithUserToMove(session);
    session.Port.Status.SetStatusText(1, "Computer-Player mode");
    UpdatePlayerLabels(session);
}

void PlayPlayerPlayer(Session& session) {
    SetPlayMode(session, kPlayerPlayer);
    session.Players = {session.Settings.UserName, session.Settings.UserName};
    session.Port.Status.SetStatusText(1, "Player-Player mode");
    UpdatePlayerLabels(session);
}

} // namespace tavlon12
