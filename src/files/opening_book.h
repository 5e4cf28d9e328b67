#pragma once

#include "files/file_text.h"
#include "rules/board.h"
#include "rules/move_list.h"
#include "rules/rule_set.h"

#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12 {

/// The book of a variant below the program folder; the one book of the classic start with `canadianBook`.
std::string BookPath(std::string_view variantFile, bool canadianBook);

/// What a book is asked.
struct BookQuestion {
    const RuleSet& Rules; ///< in force
    std::string_view VariantName;
    std::string_view StartDigits;      ///< of the game
    std::span<const SquarePair> Moves; ///< of the game, up to the position that is asked about
    Long SideToMove = kWhite;
    bool CanadianBook = false; ///< the book of another variant is read, with the colours exchanged where White begins
    bool WantMove = false;
};

struct BookAnswer {
    bool InBook = false;                     ///< the game, which has begun, lies on a line of the book
    std::vector<std::string> BookCandidates; ///< the moves on offer here, 11 at most, as a book writes them ("0913")
    SquarePair Move;                         ///< the one chosen, when a move was wanted; `From` 0 for none
    std::string OpeningName;                 ///< status panel 3 shows it when no move was wanted
};

/// Asks a book by its bytes. Without a section for these rules the answer is empty. Fails as `FormatFailure` does, and
/// with `BadValue` on a twelfth candidate and on a name without apostrophe.
Outcome<BookAnswer> AskBook(std::string_view bytes, const BookQuestion& question, std::mt19937& random);

/// Whether a move is among the candidates, which are compared by their numbers where one colour is played on.
bool IsBookCandidate(std::span<const std::string> candidates, SquarePair move, Byte piecesOnBlack);

/// The square of the board turned by 180 degrees.
constexpr Long MirrorSquare(Long square) {
    return (15 - RowOf(square)) * kBoardWidth + 13 - ColumnOf(square);
}

} // namespace tavlon12
