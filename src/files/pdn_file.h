#pragma once

#include "files/file_text.h"
#include "rules/board.h"
#include "rules/move_list.h"
#include "rules/rule_set.h"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12 {

/// The tags of a game, as they stand before its tag lines are read.
struct PdnTags {
    std::string Event;
    std::string Date; ///< mm/dd/yyyy where the program has written it
    std::string Black;
    std::string White;
    std::string Site;
    std::string Result = "*";
    std::string Round;
    std::string BlackElo;
    std::string WhiteElo;
    std::string SetUp;
    std::string Fen;
    std::string Eco;
    std::string OwnTag; ///< the rules of the game, as `OwnTagText` has them

    bool operator==(const PdnTags&) const = default;
};

/// Stores a tag line, cut of blanks on both sides, in its field. Lines of another shape are ignored.
void ParsePdnTag(std::string_view line, PdnTags& tags);

/// The text of a file with CR LF at the end of each line. A file without a CR in its first 1000 bytes is taken over in
/// blocks of 1000 bytes, each up to its first NUL, and without what follows its last LF.
std::string PdnText(std::string_view bytes);

/// Whether such a text is a PDN file: whether it begins with a known tag.
bool IsPdnText(std::string_view text);

/// A game of a file.
struct PdnGame {
    PdnTags Tags;
    std::size_t FirstMoveLine = 0; ///< index of the first line behind the tags
};

/// Goes through the games of a text one by one. It looks into the text, which must stay.
struct PdnReader {
    explicit PdnReader(std::string_view text);

    std::vector<std::string_view> Lines; ///< cut of blanks on both sides
    std::size_t Next = 0;
};

/// The next game; nothing behind the last one. Tags without a line behind them are no game.
std::optional<PdnGame> NextPdnGame(PdnReader& reader);

/// The moves of a game in one line, with comments and result.
std::string PdnMoveText(const PdnReader& reader, const PdnGame& game);

/// What the chooser shows of a game: Event and round, Date, Black, White, Result, Site, Setup, Eco, BlackElo, WhiteElo.
inline constexpr std::size_t kPdnColumns = 10;
std::array<std::string, kPdnColumns> PdnRow(const PdnTags& tags);

/// What the own tag says. `Setup` of the rules is no part of it.
struct PdnOwnTag {
    std::string VariantFile;
    std::string StartDigits;
    RuleSet Rules;
};

/// Reads the value of an own tag; 20 promotion squares for White and 16 for Black. Fails where it ends too early and
/// on a value out of the range of its kind.
Outcome<PdnOwnTag> ReadOwnTag(std::string_view value);

/// The value of an own tag. A movement is written without what plays no part: blanks behind it, and words behind two
/// blanks.
std::string OwnTagText(const PdnOwnTag& tag);

/// The rules of a game without own tag that is opened as no variant: the American ones, on the promotion squares in
/// force.
RuleSet PlainPdnRules(const RuleSet& inForce);

/// A position in the notation of Forsyth and Edwards for draughts, "W:W18,K24:B12,16.".
struct FenPosition {
    Byte BlackStarts = 0;
    BoardCells Board = EmptyBoard();
};

/// Reads the value of a FEN tag; nothing when it names no side to move. Squares are numbers; what is no square is left
/// out.
std::optional<FenPosition> ReadFen(std::string_view value, Long piecesOnBlack);

/// A half-move as it is written.
struct PdnHalfMove {
    SquarePair Squares; ///< `From` is `kOffBoard` for a placement
    bool Captures = false;
    std::string CommentBefore; ///< of the position that the move leaves
};

/// The notation of the moves of a game that is written: numbers, unless letters are asked for or all squares are
/// played on.
Byte PdnNotation(Byte piecesOnBlack, bool algebraic);

/// A game to be added to a file: the tags that are written, the own tag when it is not empty, an empty line, the moves
/// with their comments, the result, an empty line.
std::string PdnGameText(const PdnTags& tags, std::span<const PdnHalfMove> moves, Byte notation);

/// The bytes of a file with a game added. A last line without a line end gets one first.
std::string WithGameAdded(std::string_view file, std::string_view game);

} // namespace tavlon12
