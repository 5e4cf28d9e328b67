#include "session/move_texts.h"

#include "rules/generate_moves.h"
#include "rules/notation.h"
#include "session/screen.h"

namespace tavlon12 {

namespace {

/// The notation of texts. A number stands for two squares of a board that is played on all of them, so that moves are
/// written in letters there, whatever stands round the board.
Byte TextNotation(Byte notation, const Position& position) {
    return position.Rules.PiecesOnBlack >= 2 ? kAlgebraic : notation;
}

std::string RewrittenSquare(std::string_view text, Byte from, Byte to, const Position& position) {
    Long square = SquareNumber(UpperCase(text), from, position.Rules.PiecesOnBlack);
    return SquareNotation(square, Padding::Blank, to);
}

/// A cell of the game table in another notation.
std::string RewrittenCell(const std::string& cell, bool placement, Byte from, Byte to, const Position& position) {
    std::string key = MoveKeyOfCell(cell, placement);
    std::string first = RewrittenSquare(std::string_view(key).substr(0, 2), from, to, position);
    if (placement) return first + " " + first;
    std::string second = RewrittenSquare(std::string_view(key).substr(2), from, to, position);
    std::string shown = first + cell.substr(key.size() + 3, 1) + second + (cell.ends_with('K') ? "K" : "");
    return first + second + " " + shown;
}

std::string ShownTextOfCell(const std::string& cell, bool placement) {
    return cell.substr(placement ? 3 : 5);
}

std::string CandidateLine(const Session& session, const RootMove& move) {
    return SquareText(session, move.From, Padding::Zero) + SquareText(session, move.To, Padding::Zero) + " " +
           (move.Score == kNotFilled ? " n/a" : Str(move.Score));
}

} // namespace

void DisplayMove(Session& session, Long slot) {
    const MoveRecord& move = session.Pos.Moves[slot];
    std::string separator;
    if (move.From != kOffBoard) separator = move.IsCapture() ? session.CaptureChar : "-";
    std::string crown = move.Promotes != 0 ? "K" : "";
    std::string from = SquareText(session, move.From, Padding::Blank);
    std::string to = SquareText(session, move.To, Padding::Blank);
    session.MoveText.MoveTextShown = from + separator + to + crown;
    session.MoveText.MoveTextKey = from + to;
    session.MoveText.MoveTextPlain =
        SquareText(session, move.From, Padding::None) + separator + SquareText(session, move.To, Padding::None) + crown;
}

std::string SquareText(const Session& session, Long square, Padding padding) {
    return SquareNotation(square, padding, TextNotation(session.Settings.Notation, session.Pos));
}

Long SquareOfText(const Session& session, std::string_view text) {
    return SquareNumber(text, TextNotation(session.Settings.Notation, session.Pos), session.Pos.Rules.PiecesOnBlack);
}

std::string GameLine(Long halfMove, const std::string& shownText) {
    if (halfMove % 2 == 0) return std::string(6, ' ') + shownText;
    return RightAligned(std::to_string(RowOfHalfMove(halfMove)), 4) + ". " + shownText;
}

std::string MoveKeyOfCell(const std::string& cell, bool placement) {
    return cell.substr(0, placement ? 2 : 4);
}

void RefreshLegalMoves(Session& session) {
    Position& position = session.Pos;
    GenerateLegalMoves(position);
    session.Port.Lists.ListClear(ListId::List2);
    if (EndOnGeneratorFault(session)) return;
    for (Long slot = position.Tree.PlyFirstMove[position.Tree.Ply]; slot < position.Tree.NextMoveSlot; ++slot) {
        DisplayMove(session, slot);
        session.Port.Lists.ListAdd(ListId::List2, session.MoveText.MoveTextShown);
    }
}

void ShowCandidates(Session& session, Long first) {
    if (first == 0 || first == kNotFilled) return;
    session.Port.Lists.ListClear(ListId::List3);
    for (const RootMove& move : session.RootMoves) {
        if (move.From == kNotFilled) break;
        session.Port.Lists.ListAdd(ListId::List3, CandidateLine(session, move));
    }
}

void RewriteGameTexts(Session& session, Byte newNotation) {
    const Position& position = session.Pos;
    Byte to = TextNotation(newNotation, position);
    Byte from = TextNotation(static_cast<Byte>(1 - newNotation), position);
    Long selected = session.Port.Lists.ListSelected(ListId::List1);
    session.Port.Lists.ListClear(ListId::List1);
    for (Long halfMove = 1; halfMove <= session.Record.LastMoveIndex; ++halfMove) {
        std::string& cell = session.Record.GameRows[RowOfHalfMove(halfMove)][TextColumn(halfMove)];
        if (cell.empty()) break;
        bool placement = session.Record.MoveHistory[halfMove].From == kOffBoard;
        cell = RewrittenCell(cell, placement, from, to, position);
        session.Port.Lists.ListAdd(ListId::List1, GameLine(halfMove, ShownTextOfCell(cell, placement)));
    }
    if (selected < session.Port.Lists.ListCount(ListId::List1)) session.Port.Lists.ListSelect(ListId::List1, selected);
    session.Settings.Notation = newNotation;
}

} // namespace tavlon12
