#include "session/move_texts.h"

#include "rules/generate_moves.h"
#include "rules/notation.h"
#include "session/book_lookup.h"
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

/// The squares of a typed move without the marks between them: "C3XE5" is "C3E5", "5-9" is "5 9 ".
std::string KeyOfTypedText(std::string_view typed, std::string_view captureChar) {
    std::string text = UpperCase(typed);
    const std::string captureMark = UpperCase(captureChar);
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

std::string CandidateLine(const Session& session, const RootMove& move) {
    return SquareText(session, move.From, Padding::Zero) + SquareText(session, move.To, Padding::Zero) + " " +
           (move.Score == kNotFilled ? " n/a" : Str(move.Score));
}

} // namespace

MoveTexts DisplayMove(const Session& session, const MoveRecord& move) {
    std::string separator;
    if (move.From != kOffBoard) separator = move.IsCapture() ? session.Game.CaptureChar : "-";
    const std::string crown = move.Promotes != 0 ? "K" : "";
    const auto text = [&session](Long square, Padding padding) { return SquareText(session, square, padding); };
    const std::string from = text(move.From, Padding::Blank);
    const std::string to = text(move.To, Padding::Blank);
    return {from + separator + to + crown, from + to,
            text(move.From, Padding::None) + separator + text(move.To, Padding::None) + crown};
}

std::string SquareText(const Session& session, Long square, Padding padding) {
    return SquareNotation(square, padding, TextNotation(session.Settings.Notation, session.Pos));
}

SquarePair SquaresOfKey(const Session& session, std::string_view key) {
    const Byte notation = TextNotation(session.Settings.Notation, session.Pos);
    const auto square = [&](std::string_view text) {
        return Long{SquareNumber(UpperCase(text), notation, session.Pos.Rules.PiecesOnBlack)};
    };
    const Long from = square(key.substr(0, 2));
    return {from, key.size() > 2 ? square(key.substr(2, 2)) : from};
}

SquarePair SquaresOfTypedText(const Session& session, std::string_view typed) {
    return SquaresOfKey(session, KeyOfTypedText(typed, session.Game.CaptureChar));
}

std::string LegalMoveLine(const MoveTexts& texts, bool inBook) {
    return texts.MoveTextShown + (inBook ? "b" : "");
}

SquarePair SquaresOfLegalMoveLine(const Session& session, std::string_view line) {
    constexpr std::size_t kMoveSize = 5; // two squares and the mark between them
    const bool placement = line.size() < kMoveSize;
    return SquaresOfKey(session, std::string(line.substr(0, 2)) + std::string(placement ? "" : line.substr(3, 2)));
}

std::string GameLine(Long halfMove, const std::string& shownText, bool inBook) {
    const std::string number =
        halfMove % 2 == 0 ? std::string(6, ' ') : RightAligned(std::to_string(RowOfHalfMove(halfMove)), 4) + ". ";
    return number + shownText + (inBook ? "b" : "");
}

std::string MoveKeyOfCell(const std::string& cell, bool placement) {
    return cell.substr(0, placement ? 2 : 4);
}

void RefreshLegalMoves(Session& session) {
    Position& position = session.Pos;
    GenerateLegalMoves(position);
    session.Port.Lists.ListClear(ListId::List2);
    if (EndOnGeneratorFault(session)) return;
    const BookAnswer book = ConsultBook(session, true);
    for (Long slot = position.Tree.PlyFirstMove[position.Tree.Ply]; slot < position.Tree.NextMoveSlot; ++slot) {
        const MoveRecord& move = position.Moves[slot];
        const bool inBook = IsBookCandidate(book.BookCandidates, {move.From, move.To}, position.Rules.PiecesOnBlack);
        session.Port.Lists.ListAdd(ListId::List2, LegalMoveLine(DisplayMove(session, move), inBook));
    }
}

void ShowCandidates(Session& session, Long first) {
    if (first == 0 || first == kNotFilled) return;
    session.Port.Lists.ListClear(ListId::List3);
    for (const RootMove& move : session.Thought.RootMoves) {
        if (move.From == kNotFilled) break;
        session.Port.Lists.ListAdd(ListId::List3, CandidateLine(session, move));
    }
}

void RewriteGameTexts(Session& session, Byte newNotation) {
    const Position& position = session.Pos;
    Byte to = TextNotation(newNotation, position);
    Byte from = TextNotation(static_cast<Byte>(1 - newNotation), position);
    Long selected = session.Port.Lists.ListSelected(ListId::List1);
    const std::vector<bool> inBook = BookMarks(session);
    session.Port.Lists.ListClear(ListId::List1);
    for (Long halfMove = 1; halfMove <= session.Record.LastMoveIndex; ++halfMove) {
        std::string& cell = session.Record.GameRows[RowOfHalfMove(halfMove)][TextColumn(halfMove)];
        if (cell.empty()) break;
        bool placement = session.Record.MoveHistory[halfMove].From == kOffBoard;
        cell = RewrittenCell(cell, placement, from, to, position);
        session.Port.Lists.ListAdd(ListId::List1,
                                   GameLine(halfMove, ShownTextOfCell(cell, placement), inBook[halfMove]));
    }
    if (selected < session.Port.Lists.ListCount(ListId::List1)) session.Port.Lists.ListSelect(ListId::List1, selected);
    session.Settings.Notation = newNotation;
}

} // namespace tavlon12
