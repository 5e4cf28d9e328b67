#include "rules/move_scan.h"

#include "rules/capture_selection.h"
#include "rules/move_walk.h"

namespace tavlon12 {

bool GenerateMoves1(Position& position, Long mode) {
    CaptureTable& table = position.ScanCaptures; // a call during the search must not disturb the generator's own
    const GeneralRules rules(position);
    SquareSet starters = CaptureStarters(position, rules);
    MoveWalk walk = WalkMoves(position, rules, mode, starters, table, [](Long, Long, bool, bool free) { return free; });
    if (walk != MoveWalk::Finished) return walk == MoveWalk::Stopped;
    return SelectCaptures(position, table, [](const CaptureRow&) { return true; });
}

Long Isamulti(const Position& position, Long square, Long side) {
    Long count = 1;
    for (Long piece : {side * kMan, side * kKing}) {
        for (Long step : position.DirTable[PieceType(piece)]) {
            if (step == kEndOfSteps) break;
            if (position.Board[square - step] == piece) count += 2;
        }
    }
    return count;
}

} // namespace tavlon12
