#include "session/play_modes.h"

#include "session/computer_move.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/navigation.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

/// One of the three notations has the check mark.
void ShowNotation(Session& session, Byte notation) {
    session.Settings.Notation = notation;
    session.Port.Commands.SetCommandChecked(Command::Nonotation, notation == kNoLabels);
    session.Port.Commands.SetCommandChecked(Command::mnu_Board_Notation_Chess, notation == kAlgebraic);
    session.Port.Commands.SetCommandChecked(Command::mnu_Board_Notation_Checkers, notation == kNumeric);
    DrawBoard(session, 0);
}

/// Brings the texts of the game and the lists into algebraic or numeric notation.
void ChangeTexts(Session& session, Byte notation) {
    const bool rewrite = (session.Settings.Notation == kAlgebraic) != (notation == kAlgebraic);
    if (rewrite) RewriteGameTexts(session, notation);
    session.Settings.Notation = notation;
    if (rewrite) ShowCandidates(session, session.RootMoves[0].From);
    RefreshLegalMoves(session);
}

} // namespace

void ComputeCommand(Session& session) {
    if (session.GameOver || session.Busy) return;
    session.Port.Status.SetStatusText(1, "");
    session.Busy = true;
    session.Port.Fields.SetControlEnabled(Control::mnu_Board1, false);
    if (NameToMove(session) != kComputerName && !GameIsFull(session)) SwapNamesOfComputerGame(session);
    UpdatePlayerLabels(session);
    ThinkComputerMove(session);
    session.Busy = false;
}

void CancelCommand(Session& session) {
    if (!session.SearchStarted) return;
    session.Pos.StopFlag = kStopCancel;
    session.Port.Commands.SetCommandEnabled(Command::mnu_Play_Cancel, false);
}

void TurnBoard(Session& session) {
    session.Settings.BoardTurned = 1 - session.Settings.BoardTurned;
    DrawBoard(session, 0);
}

void ToggleCalculation(Session& session) {
    session.Settings.CalculationOn = 1 - session.Settings.CalculationOn;
    const bool on = session.Settings.CalculationOn == 1;
    session.Port.Commands.SetCommandChecked(Command::calculation, on);
    if (!on) session.Port.Status.SetSearchLine("no calculation");
}

void ShowNumericNotation(Session& session) {
    // A board that is played on all squares has no numbers.
    if (session.Busy || session.Pos.Rules.PiecesOnBlack >= 2) return;
    ChangeTexts(session, kNumeric);
    ShowNotation(session, kNumeric);
}

void ShowAlgebraicNotation(Session& session) {
    if (session.Busy) return;
    ChangeTexts(session, kAlgebraic);
    ShowNotation(session, kAlgebraic);
}

void ShowNoNotation(Session& session) {
    if (session.Busy) return;
    ChangeTexts(session, kNumeric);
    ShowNotation(session, kNoLabels);
}

} // namespace tavlon12
