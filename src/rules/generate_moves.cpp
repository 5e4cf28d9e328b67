#include "rules/generate_moves.h"

#include "rules/capture_selection.h"
#include "rules/list_moves.h"

#include <cassert>

namespace tavlon12 {

namespace {

/// One call of the generator, with the pieces that a capture may start from.
void Generate(Position& position, Long mode, const SquareSet& starters) {
    GameTree& tree = position.Tree;
    CaptureTable& table = position.Captures;
    const RuleSet& rules = position.Rules;
    const MoveWalk walk = ListMoves<GeneralRules>(position, mode, starters);
    if (walk == MoveWalk::LimitPassed) {
        tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
    } else if (table.RowCount > 0) {
        bool dropsQuietMoves = rules.LastCap == 1 && table.LastCapCount > 0 && rules.CapRequired != 1 && mode == 0;
        if (dropsQuietMoves) tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
        SelectCaptures(position, table, [&](const CaptureRow& row) {
            RegisterCaptureMove(position, row.From, row.To, row.Path, row.PromoMark != 0 ? kKing : 0);
            return false;
        });
    }
    tree.PlyFirstMove[tree.Ply + 1] = tree.NextMoveSlot;
}

} // namespace

void GenerateMoves(Position& position, Long mode) {
    Generate(position, mode, CaptureStarters(position, GeneralRules(position)));
}

Long GenerateLegalMoves(Position& position) {
    SquareSet starters = CaptureStarters(position, GeneralRules(position));
    bool capturesFirst = starters.Any() || position.Rules.CapRequired != 1; // else mode 0 gives nothing
    if (capturesFirst) Generate(position, 0, starters);
    if ((!capturesFirst || MoveCount(position.Tree) == 0) && !position.Fault.Passed()) Generate(position, 1, starters);
    return MoveCount(position.Tree);
}

Long CountLegalMoves(Position& position) {
    const GeneralRules rules(position);
    if (rules.JumpFriend() || rules.CanContract()) return GenerateLegalMoves(position);
    const SquareSet starters = CaptureStarters(position, rules);
    if (starters.Any()) {
        Generate(position, 0, starters);
        if (MoveCount(position.Tree) > 0 || position.Fault.Passed()) return MoveCount(position.Tree);
    }
    return CountQuietMoves(position, rules);
}

} // namespace tavlon12
