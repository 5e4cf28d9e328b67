#include "session/human_move.h"

#include "engine/search.h"
#include "rules/generate_moves.h"
#include "session/book_lookup.h"
#include "session/command_state.h"
#include "session/game_end.h"
#include "session/move_texts.h"
#include "session/navigation.h"
#include "session/play_modes.h"
#include "session/players.h"
#include "session/program_files.h"
#include "session/record_move.h"
#include "session/screen.h"
#include "session/thinking.h"

#include <variant>

namespace tavlon12 {

namespace {

/// Says why a typed or chosen move is none.
void RefuseText(Session& session, Refusal refusal) {
    // The reason is told on the board alone.
    const bool full = refusal == Refusal::GameFull;
    DrawBoard(session, 0);
    session.Port.Fields.SetControlEnabled(Control::Text2, false);
    ShowRefusal(session, full ? Refusal::GameFull : Refusal::NotLegal);
    session.Port.Fields.SetControlEnabled(Control::Text2, true);
}

/// The line that is selected in a list; -1 when none of its lines is.
Long SelectedLine(const Session& session, ListId list) {
    const ListPort& lists = session.Port.Lists;
    const Long selected = lists.ListSelected(list);
    return selected < lists.ListCount(list) ? selected : -1;
}

void ShowStartOfCommit(Session& session, MovePath path) {
    session.Port.Status.SetSearchLine("no calculation");
    session.Port.Status.SetStatusText(1, "");
    if (path != MovePath::CandidateList) session.Port.Lists.SetListEnabled(ListId::List3, false);
    DrawBoard(session, 0);
}

/// What comes after the move of a person, when the game goes on.
void GoOnAfterMove(Session& session, MovePath path) {
    if (session.Settings.PlayMode == kPlayerPlayer) {
        session.Port.Status.SetStatusText(1, "Player-Player mode");
        session.Port.Status.SetProgress(0);
        CheckGameEnd(session);
        if (!session.Quitting) RefreshLegalMoves(session);
    } else if (path == MovePath::CandidateList) {
        RefreshLegalMoves(session);
    } else {
        LetComputerReply(session);
    }
}

/// An ended game takes no move.
void ShowEndAgain(Session& session) {
    session.Port.Status.SetStatusText(1, session.Game.EndText);
}

} // namespace

void CommitHumanMove(Session& session, const MadeMove& made, MovePath path) {
    session.Game.GameTouched = true;
    session.Game.ResultText.clear();
    ShowStartOfCommit(session, path);

    const Long score = ScoreQuietly(session);
    EnterHalfMove(session, made, {kByPerson, session.Settings.PlayMode == kPlayerPlayer ? score : 0, "2"});
    PlaySound(session, "click.wav");
    const std::string line = LineOfHalfMove(session, made, ConsultBook(session, false).InBook);
    LogHalfMove(session, MoveLogText(line, score));
    ShowHalfMove(session, line);
    OpenNavigation(session);
    DrawBoard(session, 0);

    UpdateDrawStatus(session);
    CheckGameEnd(session);
    if (session.Quitting) return;
    session.Thought.PredictedFrom = 0;
    session.Thought.PredictedTo = 0;

    // Taking back the computer's move has made the person the one to move; after the candidate the names stand as
    // before.
    if (path == MovePath::CandidateList) SwapNamesOfComputerGame(session);
    if (path == MovePath::Board || path == MovePath::CandidateList) DrawBoard(session, 0);
    if (!session.Game.GameOver) GoOnAfterMove(session, path);
}

void SubmitTypedMove(Session& session) {
    if (session.Busy) return;
    FieldPort& fields = session.Port.Fields;
    const std::string text = fields.GetText(Control::Text2);
    fields.SetText(Control::Text2, "");
    if (session.Game.GameOver) {
        ShowEndAgain(session);
        return;
    }
    const MoveAnswer answer = InputSquares(session, SquaresOfTypedText(session, text));
    if (const auto* refusal = std::get_if<Refusal>(&answer)) {
        RefuseText(session, *refusal);
    } else {
        CommitHumanMove(session, std::get<MadeMove>(answer), MovePath::Typed);
    }
}

void ClickLegalMove(Session& session) {
    ListPort& lists = session.Port.Lists;
    if (session.Busy || session.Game.GameOver) return;
    const Long selected = SelectedLine(session, ListId::List2);
    if (selected < 0) return;
    session.Port.Fields.SetText(Control::Text2, "");
    const std::string line = lists.ListText(ListId::List2, selected);
    const MoveAnswer answer = InputSquares(session, SquaresOfLegalMoveLine(session, line));
    if (const auto* refusal = std::get_if<Refusal>(&answer)) {
        RefuseText(session, *refusal);
        return;
    }
    lists.ListClear(ListId::List2);
    lists.FocusList(ListId::List2);
    CommitHumanMove(session, std::get<MadeMove>(answer), MovePath::LegalList);
}

void ClickCandidateMove(Session& session) {
    if (session.Busy) return;
    const Long selected = SelectedLine(session, ListId::List3);
    if (selected < 0) return;
    const RootMove candidate = session.Thought.RootMoves[selected];
    if (candidate.From == kNotFilled) return;
    // The candidates are those of the computer's last move, which is taken back, or those of an analysis.
    const bool takesBack = session.Pos.Tree.TreeIndex > session.Thought.RootIndex;
    if (!takesBack && session.Game.GameOver) {
        ShowEndAgain(session);
        return;
    }
    if (takesBack) GoToMove(session, 1, true, false);
    const MoveAnswer answer = InputSquares(session, {candidate.From, candidate.To});
    if (const auto* refusal = std::get_if<Refusal>(&answer)) {
        RefuseText(session, *refusal);
        return;
    }
    if (takesBack) session.Port.Lists.SetListEnabled(ListId::List3, true);
    CommitHumanMove(session, std::get<MadeMove>(answer), takesBack ? MovePath::CandidateList : MovePath::LegalList);
}

} // namespace tavlon12
