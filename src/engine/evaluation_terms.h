#pragma once

#include "engine/search_state.h"
#include "rules/position.h"

namespace tavlon12 {

// What the general evaluation and those of the families share.
//
// What a piece is worth on its square alone is summed up by making and unmaking moves (piece_terms.h). What depends on
// other pieces is worked out here from sets of squares: the nearness of a supported piece to its target, and the lines
// at the back rank.

/// The greatest distance of two squares is 22, so that every bonus for nearness is above 0.
inline constexpr Long kNearness = 23;

/// The square of one piece of `side`, which the other side's pieces strive to: a king where there is one; of White's
/// the first, of Black's the last in the order of rows, within a row the one on White's right and on Black's. 0 without
/// pieces.
Long TargetOf(const Position& position, Long side);

/// Closeness of the pieces of `side` to `target`. The nearness of a man is divided by `manDivisor` (1 or 3), that of a
/// king by 3. Looks it up in the memory first.
ClosenessSum SumCloseness(const Position& position, ClosenessMemory& memory, Long side, Long target, Long manDivisor);

/// Sum over the lines at the back rank before the promotion squares of `side`, seen from White. An open line counts 30,
/// and one with a gap 20; `openCountsTwice` gives an open line both.
Long BackRankScore(const Position& position, BackRankLines& lines, Long side, bool openCountsTwice);

/// The lines of three squares from the first `slots` promotion squares of a side on, in the directions of the other
/// colour's men. With `stopsAtSideways` a step of size 1 ends the directions.
BackRanks BuildBackRankLines(const Position& position, Long slots, bool stopsAtSideways);

/// What a piece of a type on a square adds by itself, for every evaluation the same terms.
Long CentreTerm(Long square, Long piecesOnBlack);
Long LongKingTerm(Long square); ///< 100, 50 or 25
Long EdgeTerm(Long square);     ///< of a short king: 0, -10 or -20
Long HomeManTerm(const Position& position, Long side, Long square, Long slots);

/// A single repetition, in the game or in the line under search, is a draw; any other placement is remembered.
bool RepeatsElseStore(Position& position);

/// The random term: two draws, so that it is centred on 0.
Long Noise(SearchState& search);

} // namespace tavlon12
