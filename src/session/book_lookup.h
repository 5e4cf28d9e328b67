#pragma once

#include "files/opening_book.h"
#include "session/session.h"

#include <vector>

namespace tavlon12 {

/// What the opening book says about the game up to the position on the board. With `wantMove` one of its moves is
/// chosen; without, the opening's name is shown on status panel 3. A book that is no book is told once a game; one with
/// a fault in it ends the program.
BookAnswer ConsultBook(Session& session, bool wantMove);

/// Whether the positions after the half-moves of the record lie on a line of the book; entry t is of half-move t.
std::vector<bool> BookMarks(Session& session);

} // namespace tavlon12
