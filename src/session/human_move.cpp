#include "session/human_move.h"

#include "engine/evaluation_tables.h"
#include "engine/search.h"
#include "rules/generate_moves.h"
#include "session/computer_move.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/navigation.h"
#include "session/record_move.h"
#include "session/screen.h"

#include <algorithm>
#include <utility>

namespace tavlon12 {

namespace {

/// The score of the position for the person who has just moved. No event is let in: nothing may come between a move on
/// the board and its entry in the record.
Long ScoreQuietly(Session& session) {
    SearchState& search = session.Search;
    search.Options = session.Settings.Search;
    SetManThresholds(session.Pos, search);
    auto yield = std::exchange(search.Yield, [] {});
    const Long score = ScoreUserMove(session.Pos, search);
    search.Yield = std::move(yield);
    return score;
}

/// The squares of a typed or listed move without the marks between them: "c3xe5" is "C3E5", "5-9" is "5 9 ".
std::string MoveKeyOfTypedText(const Session& session, const std::string& typed) {
    std::string text = UpperCase(typed);
    const std::string captureMark = UpperCase(session.CaptureChar);
    for (;;) {
        if (const std::size_t mark = text.find(captureMark); mark != std::string::npos) {
            text.erase(mark, captureMark.size());
            continue;
        }
        const std::size_t mark = text.find('-');
        if (mark == std::string::npos) return text;
        std::string before = text.substr(0, mark);
        std::string after = text.substr(mark + 1);
        if (before.size() == 1) before += ' ';
        if (after.size() == 1) after += ' ';
        text = before + after;
    }
}

/// Makes the move or says that it is none.
bool MakeOrRefuse(Session& session, const std::string& key) {
    if (InputMove(session, key)) return true;
    if (GameIsFull(session)) {
        ShowGameFull(session);
        return false;
    }
    DrawBoard(session, 0);
    session.Port.Fields.SetControlEnabled(Control::Text2, false);
    ShowMessage(session, "Illegal move", "Error", MessageKind::Exclamation);
    session.Port.Fields.SetControlEnabled(Control::Text2, true);
    return false;
}

void LetComputerReply(Session& session) {
    session.Port.Status.SetStatusText(1, "");
    session.Busy = true;
    session.Port.Fields.SetControlEnabled(Control::mnu_Board1, false);
    ThinkComputerMove(session);
    session.Busy = false;
}

/// What comes after the move of a person, when the game goes on.
void GoOnAfterMove(Session& session, MovePath path) {
    if (session.PlayMode == kPlayerPlayer) {
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

} // namespace

void CommitHumanMove(Session& session, MovePath path) {
    UiPort& port = session.Port;
    Position& position = session.Pos;
    GameTree& tree = position.Tree;

    port.Status.SetSearchLine("no calculation");
    port.Status.SetStatusText(1, "");
    if (path != MovePath::CandidateList) port.Lists.SetListEnabled(ListId::List3, false);
    session.GameTouched = true;
    port.Commands.SetCommandEnabled(Command::Moveback, true);
    port.Commands.SetCommandEnabled(Command::First, true);
    port.Commands.SetCommandEnabled(Command::MoveForward, false);
    port.Commands.SetCommandEnabled(Command::Last, false);
    session.ResultText.clear();

    HalfMoveEntry entry;
    entry.Move = position.Moves[session.LastMoveSlot];
    entry.Kind = kByPerson;
    entry.Choices = tree.PlyFirstMove[tree.Ply] - tree.PlyFirstMove[tree.Ply - 1];
    entry.Depth = "2";
    DrawBoard(session, 0);
    const Long score = ScoreQuietly(session);
    if (session.PlayMode == kPlayerPlayer) entry.Score = score;
    DrawBoard(session, 0);
    PlayMoveSound(session);
    EnterHalfMove(session, entry);
    if (EndOnGeneratorFault(session)) return;
    UpdateDrawStatus(session);
    CheckGameEnd(session);
    if (session.Quitting) return;
    session.PredictedFrom = 0;
    session.PredictedTo = 0;

    // Taking back the computer's move has made the person the one to move; after the candidate the names stand as
    // before.
    if (path == MovePath::CandidateList) SwapNamesOfComputerGame(session);
    if (path == MovePath::Board || path == MovePath::CandidateList) DrawBoard(session, 0);
    if (!session.GameOver) GoOnAfterMove(session, path);
}

std::string RefusedMoveText(const Session& session, const std::string& text) {
    std::string illegal = "Illegal move";
    const Position& position = session.Pos;
    const GameTree& tree = position.Tree;
    const Long from = SquareOfText(session, text.substr(0, 2));
    const Long to = text.size() > 2 ? SquareOfText(session, text.substr(2, 2)) : from;

    const auto first = position.Moves.begin() + tree.PlyFirstMove[tree.Ply];
    const bool mustJump =
        position.Rules.CapRequired == 1 &&
        std::any_of(first, first + MoveCount(tree), [](const MoveRecord& m) { return m.IsCapture(); });
    if (mustJump) {
        // Only the first rows of the table of captures are asked.
        constexpr Long kRowsAsked = 21;
        const CaptureTable& captures = position.Captures;
        for (Long row = 0; row < std::min(captures.RowCount, kRowsAsked) && captures.Rows[row].Path.Count != 0; ++row)
            if (captures.Rows[row].From == from && captures.Rows[row].To == to)
                return illegal + ": you cannot jump that way";
        return illegal + ": you need to jump";
    }
    if (to == 0 || position.Board[to] == kEmpty) return illegal;
    return illegal + ": that square is not empty";
}

void SubmitTypedMove(Session& session) {
    if (session.Busy || session.GameOver) return;
    const std::string text = session.Port.Fields.GetText(Control::Text2);
    session.Port.Fields.SetText(Control::Text2, "");
    if (MakeOrRefuse(session, MoveKeyOfTypedText(session, text))) CommitHumanMove(session, MovePath::Typed);
}

void ClickLegalMove(Session& session) {
    UiPort& port = session.Port;
    if (session.Busy || session.GameOver) return;
    const Long selected = port.Lists.ListSelected(ListId::List2);
    if (selected < 0 || selected >= port.Lists.ListCount(ListId::List2)) return;
    std::string line = port.Lists.ListText(ListId::List2, selected);
    // The book mark behind a move of two squares or of one.
    if (line.size() == 6 || line.size() == 3) line.pop_back();
    port.Fields.SetText(Control::Text2, "");
    if (!MakeOrRefuse(session, MoveKeyOfTypedText(session, line))) return;
    port.Lists.ListClear(ListId::List2);
    port.Lists.FocusList(ListId::List2);
    CommitHumanMove(session, MovePath::LegalList);
}

void ClickCandidateMove(Session& session) {
    UiPort& port = session.Port;
    if (session.Busy || session.Pos.Tree.TreeIndex == 0) return;
    const Long selected = port.Lists.ListSelected(ListId::List3);
    if (selected < 0 || selected >= port.Lists.ListCount(ListId::List3)) return;
    const RootMove candidate = session.RootMoves[selected];
    if (candidate.From == kNotFilled) return;
    GoToMove(session, 1, true, false);
    const std::string key =
        SquareText(session, candidate.From, Padding::Blank) + SquareText(session, candidate.To, Padding::Blank);
    if (!MakeOrRefuse(session, UpperCase(key))) return;
    port.Lists.SetListEnabled(ListId::List3, true);
    CommitHumanMove(session, MovePath::CandidateList);
}

} // namespace tavlon12
