#include "engine/position_memory.h"

#include <cassert>

namespace tavlon12 {

void StoreBestLine(Position& position, Long slot) {
    Long ply = position.Tree.Ply;
    const MoveRecord& move = position.Moves[slot];
    assert(ply < kMaxPly && move.From != 0);
    auto& line = position.BestLine[ply];
    const auto& continuation = position.BestLine[ply + 1];
    line[ply] = {move.From, move.To, (move.IsCapture() ? 1 : 0) + (move.Promotes != 0 ? 10 : 0)};
    for (Long column = ply + 1; column <= kMaxPly; ++column) {
        line[column] = continuation[column];
        if (line[column].From == 0) return; // the end mark is copied too
    }
}

Long BestLineLength(const Position& position) {
    for (Long k = 1; k < kMaxPly; ++k) {
        if (position.BestLine[1][k].From == 0) return k;
    }
    return kMaxPly;
}

void StoreKiller(Position& position, Long slot) {
    assert(slot >= position.Tree.PlyFirstMove[position.Tree.Ply] && slot < position.Tree.NextMoveSlot);
    auto& killers = position.Killers[position.Tree.Ply];
    killers[1] = killers[0];
    killers[0] = {position.Moves[slot].From, position.Moves[slot].To};
}

} // namespace tavlon12
