#include "session/view_commands.h"

#include "session/command_state.h"
#include "session/move_texts.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

/// Brings the texts of the game and the lists into algebraic or numeric notation, and shows `labels` round the board.
void ChangeNotation(Session& session, Byte ofTexts, Byte labels) {
    const bool rewrite = (session.Settings.Notation == kAlgebraic) != (ofTexts == kAlgebraic);
    if (rewrite) RewriteGameTexts(session, ofTexts);
    session.Settings.Notation = ofTexts;
    if (rewrite) ShowCandidates(session, session.Thought.RootMoves[0].From);
    RefreshLegalMoves(session);
    session.Settings.Notation = labels;
    ShowNotationMark(session);
    DrawBoard(session, 0);
}

} // namespace

void TurnBoard(Session& session) {
    session.Settings.BoardTurned = 1 - session.Settings.BoardTurned;
    DrawBoard(session, 0);
}

void ToggleCalculation(Session& session) {
    session.Settings.CalculationOn = 1 - session.Settings.CalculationOn;
    ShowCalculationMark(session);
    if (session.Settings.CalculationOn != 1) session.Port.Status.SetSearchLine("no calculation");
}

void ShowNumericNotation(Session& session) {
    if (session.Busy || session.Pos.Rules.PiecesOnBlack >= 2) return;
    ChangeNotation(session, kNumeric, kNumeric);
}

void ShowAlgebraicNotation(Session& session) {
    if (!session.Busy) ChangeNotation(session, kAlgebraic, kAlgebraic);
}

void ShowNoNotation(Session& session) {
    if (!session.Busy) ChangeNotation(session, kNumeric, kNoLabels);
}

} // namespace tavlon12
