#include "rules/move_list.h"

#include "rules/position.h"

#include <algorithm>

namespace tavlon12 {

bool CapturePath::IsBeginningOf(const CapturePath& other) const {
    return Count <= other.Count && std::equal(Squares.begin(), Squares.begin() + Count, other.Squares.begin());
}

CapturePath CapturePath::Sorted() const {
    std::array<SquarePair, kMaxJumps> pieces; // square and magnitude
    for (Long i = 0; i < Count; ++i) pieces[i] = {Squares[i], MagnitudeAt(i)};
    std::sort(pieces.begin(), pieces.begin() + Count,
              [](const SquarePair& a, const SquarePair& b) { return a.From < b.From; });
    CapturePath sorted;
    for (Long i = 0; i < Count; ++i) sorted.Add(pieces[i].From, pieces[i].To);
    return sorted;
}

void InitGameTree(Position& position) {
    GameTree& tree = position.Tree;
    if (tree.Ply == 0) return;
    tree.PlyValue[0] = tree.PlyValue[1];
    tree.PlyMaterial[0] = tree.PlyMaterial[1];
    tree.Ply = 0;
}

Long NextBestMove(Position& position) {
    const GameTree& tree = position.Tree;
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
