#include "rules/generate_moves.h"

#include "rules/capture_selection.h"
#include "rules/move_walk.h"

#include <cassert>

namespace tavlon12 {

void GenerateMoves(Position& position, Long mode) {
    GameTree& tree = position.Tree;
    CaptureTable& table = position.Captures;
    const RuleSet& rules = position.Rules;
    assert(tree.Ply >= 0 && tree.Ply <= kMaxPly);
    tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];

    MoveWalk walk = WalkMoves<GeneralRules>(position, mode, table, [&](Long from, Long to, bool promotes) {
        if (promotes) {
            RegisterPromotion(position, from, to, CapturePath());
        } else {
            RegisterMove(position, from, to);
        }
        return false;
    });

    if (walk == MoveWalk::LimitPassed) {
        tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
    } else if (table.RowCount > 0) {
        bool dropsQuietMoves = rules.LastCap == 1 && table.LastCapCount > 0 && rules.CapRequired != 1 && mode == 0;
        if (dropsQuietMoves) tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
        SelectCaptures(position, table, [&](const CaptureRow& row) {
            if (row.PromoMark != 0) {
                RegisterPromotion(position, row.From, row.To, row.Path);
            } else {
                RegisterCaptureMove(position, row.From, row.To, row.Path);
            }
            return false;
        });
    }
    tree.PlyFirstMove[tree.Ply + 1] = tree.NextMoveSlot;
}

Long GenerateLegalMoves(Position& position) {
    GenerateMoves(position, 0);
    if (MoveCount(position.Tree) == 0 && !position.Fault.Passed()) GenerateMoves(position, 1);
    return MoveCount(position.Tree);
}

} // namespace tavlon12
