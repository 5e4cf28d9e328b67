#include "session/book_lookup.h"

#include "session/program_files.h"
#include "session/screen.h"

#include <optional>
#include <span>
#include <string>

namespace tavlon12 {

namespace {

/// The book of the variant; nothing where there is none.
std::optional<std::string> ReadBook(const Session& session) {
    auto bytes =
        ReadWholeFile(DataFile(session, BookPath(session.Variant.VariantFile, session.Settings.CanadianBook == 1)));
    if (!bytes) return std::nullopt;
    return std::move(*bytes);
}

/// The moves of the record up to a half-move.
std::vector<SquarePair> MovesUntil(const Session& session, Long halfMove) {
    std::vector<SquarePair> moves;
    for (Long i = 1; i <= halfMove; ++i) {
        moves.push_back({session.Record.MoveHistory[i].From, session.Record.MoveHistory[i].To});
    }
    return moves;
}

void TellBookFailure(Session& session, const FileFailure& failure) {
    using Kind = FileFailure::Kind;
    if (failure.Reason != Kind::NotThisKind && failure.Reason != Kind::OtherVersion) {
        FatalEnd(session);
        return;
    }
    if (session.Game.BookFailureTold) return;
    session.Game.BookFailureTold = true;
    const std::string book = session.Variant.VariantFile + ".BOK";
    if (failure.Reason == Kind::NotThisKind) {
        ShowMessage(session, book + " is not an Tavlon12 Book file", "Tavlon12", MessageKind::Exclamation);
    } else {
        ShowMessage(session, "Incorrect version of " + book + "\nNeed version 0.89", "Error", MessageKind::Exclamation);
    }
}

BookAnswer Ask(Session& session, const std::string& book, std::span<const SquarePair> moves, bool wantMove) {
    const std::string start = PositionString(session.Pos.InitialBoard);
    const BookQuestion question{.Rules = session.Pos.Rules,
                                .VariantName = session.Variant.VariantName,
                                .StartDigits = start,
                                .Moves = moves,
                                .SideToMove = session.Pos.Tree.SideToMove,
                                .CanadianBook = session.Settings.CanadianBook == 1,
                                .WantMove = wantMove};
    auto answer = AskBook(book, question, session.Search.Random);
    if (answer) return std::move(*answer);
    TellBookFailure(session, answer.Failure());
    return {};
}

} // namespace

BookAnswer ConsultBook(Session& session, bool wantMove) {
    BookAnswer answer;
    if (const auto book = ReadBook(session)) {
        answer = Ask(session, *book, MovesUntil(session, session.Pos.Tree.TreeIndex), wantMove);
    }
    if (!wantMove) {
        session.Game.BookStatusText = answer.OpeningName;
        session.Port.Status.SetStatusText(3, answer.OpeningName);
    }
    return answer;
}

std::vector<bool> BookMarks(Session& session) {
    const Long last = session.Record.LastMoveIndex;
    std::vector<bool> marks(static_cast<std::size_t>(last) + 1);
    const auto book = ReadBook(session);
    if (!book) return marks;
    const std::vector<SquarePair> moves = MovesUntil(session, last);
    for (std::size_t count = 1; count < marks.size() && !session.Quitting; ++count) {
        marks[count] = Ask(session, *book, std::span(moves).first(count), false).InBook;
        if (!marks[count]) break; // no line comes back to the book
    }
    return marks;
}

} // namespace tavlon12
