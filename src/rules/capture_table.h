#pragma once

#include "rules/move_list.h"

#include <array>

namespace tavlon12 {

inline constexpr Long kCaptureRows = 2001;

/// One recorded capture. A path of no pieces marks a row that has been struck out.
struct CaptureRow {
    Long From;
    Long To;
    Long PromoMark;    ///< 1 when the move promotes
    Long KingsTaken;   ///< kings among the jumped pieces
    Long StartPiece;   ///< the piece on its start square; a man crowned on the way counts as a man
    Long LongestSoFar; ///< most jumps that the piece's walk had reached when the row was recorded
    bool LastCapStart; ///< the walk began by jumping the piece that moved last
    CapturePath Path;
};

/// The captures found by one call of a generator, with the counters that the selection reads. Lengths are in jumps.
struct CaptureTable {
    std::array<CaptureRow, kCaptureRows> Rows;
    Long RowCount = 0;
    Long MaxLength = 0;
    Long BestPiece = 0;                          ///< highest `StartPiece` for White, lowest for Black
    Long LastCapCount = 0;                       ///< jumps over the piece moved last that began a walk
    bool NextIsLastCap = false;                  ///< the next row recorded began with such a jump
    std::array<Long, kMaxJumps + 1> MostKings{}; ///< by length, most kings taken
    std::array<Long, 3> LongestOf{};             ///< by magnitude of the start piece, greatest length
};

/// Empties the table for a new call of a generator.
void ClearCaptures(CaptureTable& table);

} // namespace tavlon12
