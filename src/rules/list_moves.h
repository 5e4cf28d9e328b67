#pragma once

#include "rules/move_walk.h"
#include "rules/register_moves.h"

namespace tavlon12 {

/// Appends the quiet moves of all pieces, where none are placed from off the board.
template <typename Rules> void ListQuietMoves(Position& position, const Rules& rules) {
    assert(SumsMatchBoard(position) && !rules.CanContract());
    Long next = position.Tree.NextMoveSlot; // read and written at each square otherwise, one waiting for the other
    QuietStarters(position, rules).ForEach([&](Long square) {
        WalkQuietMoves(position, rules, square, [&](Long from, Long to, bool promotes, bool free) {
            RegisterMove(position, next, from, to, promotes ? kKing : 0, free);
            return false;
        });
    });
    position.Tree.NextMoveSlot = next;
}

/// Lists the quiet moves of the current ply and records the captures, which are still to be selected. `starters` are the
/// pieces that a capture may start from.
template <typename Rules> MoveWalk ListMoves(Position& position, Long mode, const SquareSet& starters) {
    GameTree& tree = position.Tree;
    const Rules rules(position);
    assert(tree.Ply >= 0 && tree.Ply <= kMaxPly);
    assert(tree.PlyFirstMove[tree.Ply] >= 0 && tree.PlyFirstMove[tree.Ply] < kMoveSlots);
    tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
    if (starters.Any() || rules.CanContract()) {
        return WalkMoves(position, rules, mode, starters, position.Captures,
                         [&](Long from, Long to, bool promotes, bool free) {
                             RegisterMove(position, tree.NextMoveSlot, from, to, promotes ? kKing : 0, free);
                             return false;
                         });
    }
    ClearCaptures(position.Captures);
    if (WantsQuietMoves(rules, mode)) ListQuietMoves(position, rules);
    return MoveWalk::Finished;
}

} // namespace tavlon12
