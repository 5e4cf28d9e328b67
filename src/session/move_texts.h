#pragma once

#include "session/session.h"

#include <string>
#include <string_view>

namespace tavlon12 {

/// A move as it is written.
struct MoveTexts {
    std::string MoveTextShown; ///< padded squares with "-" or the capture mark between them, "K" behind a promotion
    std::string MoveTextKey;   ///< padded squares alone
    std::string MoveTextPlain; ///< as shown, without padding
};

/// The texts of a move under the notation in force.
MoveTexts DisplayMove(const Session& session, const MoveRecord& move);

/// A square as the user writes it under the notation in force.
std::string SquareText(const Session& session, Long square, Padding padding);

/// The squares of a key ("c3d4", "15 9") in any case; a key of one square gives it twice. 0 stands for what is no
/// square.
SquarePair SquaresOfKey(const Session& session, std::string_view key);

/// The squares of a move as a person types it: "c3-d4", "c3xe5", "5-9", "c3d4".
SquarePair SquaresOfTypedText(const Session& session, std::string_view typed);

// The lines of `List2`: the shown text, and a "b" behind a move of the book.
std::string LegalMoveLine(const MoveTexts& texts, bool inBook);
SquarePair SquaresOfLegalMoveLine(const Session& session, std::string_view line);

/// The line of half-move `halfMove` in `List1`: pair number or blanks, the shown text, and a "b" where the position
/// after it is in the book.
std::string GameLine(Long halfMove, const std::string& shownText, bool inBook);

/// The key of a cell of the game table: its first two characters for a placement, else its first four.
std::string MoveKeyOfCell(const std::string& cell, bool placement);

/// Refills `List2` with the legal moves.
void RefreshLegalMoves(Session& session);

/// Refills `List3` from the candidates of the last search; nothing happens when `first` is 0 or not filled.
void ShowCandidates(Session& session, Long first);

/// Rewrites the move texts of the game and `List1` for the change between algebraic (0) and numeric (1).
void RewriteGameTexts(Session& session, Byte newNotation);

} // namespace tavlon12
