#include "rules/register_moves.h"

namespace tavlon12 {

Long NextBestMove(Position& position) {
    const GameTree& tree = position.Tree;
    assert(tree.PlyFirstMove[tree.Ply] <= tree.PlyFirstMove[tree.Ply + 1]);
    assert(tree.PlyFirstMove[tree.Ply + 1] <= kMoveSlots);
    Long bestScore = kUsedScore;
    Long bestSlot = -1;
    for (Long slot = tree.PlyFirstMove[tree.Ply]; slot < tree.PlyFirstMove[tree.Ply + 1]; ++slot) {
        if (position.Moves[slot].SortScore > bestScore) {
            bestScore = position.Moves[slot].SortScore;
            bestSlot = slot;
        }
    }
    if (bestSlot >= 0) position.Moves[bestSlot].SortScore = kUsedScore;
    return bestSlot;
}

} // namespace tavlon12
