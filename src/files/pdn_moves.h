#pragma once

#include "rules/basics.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace tavlon12 {

/// How the moves of a game are read.
struct PdnMoveSettings {
    Byte Notation = 0; ///< in force; keys are given in it
    Long PiecesOnBlack = 1;
    bool OwnTag = false; ///< the game brings its rules
    bool AsVariant =
        false; ///< it was opened as a variant that the user has chosen: its first word decides the notation
    bool Placements = false; ///< pieces come from off the board, so that a square alone is a move
};

/// Eats the moves of a game, joined in one line, from the front. It looks into the text, which must stay.
struct PdnMoveReader {
    std::string_view Rest; ///< what is left
    PdnMoveSettings Settings;

    // Where it stands
    enum class Step { Comments, Number, Word } Next = Step::Comments;
    bool SecondHalf = false; ///< of a pair
    bool AnyWord = false;
};

struct PdnItem {
    enum class Kind {
        Comment, ///< `Text` replaces the comment of the position that stands on the board
        Move,    ///< `Text` is the key of the next move ("C3D4", " 914") in the reader's notation
        End,
        Error, ///< `Text` is no move, or a comment without an end
    } What = Kind::End;
    std::string Text;
};

/// The next item. The first word of a game that is opened as a variant sets `Settings.Notation` of the reader. Behind
/// an end or an error there is nothing to read.
PdnItem NextPdnItem(PdnMoveReader& reader);

} // namespace tavlon12
