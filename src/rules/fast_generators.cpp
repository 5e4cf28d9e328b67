#include "rules/fast_generators.h"

#include "rules/capture_selection.h"
#include "rules/list_moves.h"

#include <cassert>

namespace tavlon12 {

namespace {

/// Whether a recorded capture is legal. `maxLength` is the length asked for.
template <Family F> bool IsSelected(const CaptureTable& table, const CaptureRow& row, Long maxLength) {
    if constexpr (F == Family::Italian) {
        return row.Path.Count == maxLength && row.KingsTaken == table.MostKings[maxLength] &&
               row.StartPiece == table.BestPiece;
    } else {
        if (Magnitude(row.StartPiece) == kKing && row.Path.Count != row.LongestSoFar) return false;
        return F != Family::German || row.Path.Count == maxLength;
    }
}

template <Family F> void RegisterSelected(Position& position) {
    const CaptureTable& table = position.Captures;
    bool kingsFirst = F == Family::Italian && Magnitude(table.BestPiece) == kKing;
    Long maxLength = kingsFirst ? table.LongestOf[kKing] : table.MaxLength;
    for (Long i = 0; i < table.RowCount; ++i) {
        const CaptureRow& row = table.Rows[i];
        if (!IsSelected<F>(table, row, maxLength)) continue;
        RegisterCaptureMove(position, row.From, row.To, row.Path, row.PromoMark != 0 ? kKing : 0);
    }
}

/// One call of the generator, with the pieces that a capture may start from. Captures are mandatory in all four sets,
/// so that mode 0 gives no quiet moves.
template <Family F> void Generate(Position& position, Long mode, const SquareSet& starters) {
    GameTree& tree = position.Tree;
    const MoveWalk walk = ListMoves<FamilyRules<F>>(position, mode, starters);
    if (walk == MoveWalk::LimitPassed) {
        tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
    } else {
        RegisterSelected<F>(position);
    }
    tree.PlyFirstMove[tree.Ply + 1] = tree.NextMoveSlot;
}

template <Family F> Long CountMoves(Position& position) {
    const FamilyRules<F> rules(position);
    const SquareSet starters = CaptureStarters(position, rules);
    if (starters.Any()) {
        Generate<F>(position, 0, starters);
        if (MoveCount(position.Tree) > 0 || position.Fault.Passed()) return MoveCount(position.Tree);
    }
    return CountQuietMoves(position, rules);
}

} // namespace

template <Family F> void GenerateFamilyMoves(Position& position, Long mode) {
    Generate<F>(position, mode, CaptureStarters(position, FamilyRules<F>(position)));
}

template <Family F> Long GenerateLegalFamilyMoves(Position& position) {
    const SquareSet starters = CaptureStarters(position, FamilyRules<F>(position));
    if (starters.Any()) {
        Generate<F>(position, 0, starters);
        if (MoveCount(position.Tree) > 0 || position.Fault.Passed()) return MoveCount(position.Tree);
    }
    Generate<F>(position, 1, starters);
    return MoveCount(position.Tree);
}

template void GenerateFamilyMoves<Family::American>(Position&, Long);
template void GenerateFamilyMoves<Family::Italian>(Position&, Long);
template void GenerateFamilyMoves<Family::German>(Position&, Long);
template void GenerateFamilyMoves<Family::Russian>(Position&, Long);
template Long GenerateLegalFamilyMoves<Family::American>(Position&);
template Long GenerateLegalFamilyMoves<Family::Italian>(Position&);
template Long GenerateLegalFamilyMoves<Family::German>(Position&);
template Long GenerateLegalFamilyMoves<Family::Russian>(Position&);

void GenerateFamilyMoves(Family family, Position& position, Long mode) {
    VisitFamily(family, [&]<Family F>() { GenerateFamilyMoves<F>(position, mode); });
}

Long GenerateLegalFamilyMoves(Family family, Position& position) {
    return VisitFamily(family, [&]<Family F>() { return GenerateLegalFamilyMoves<F>(position); });
}

Long CountFamilyMoves(Family family, Position& position) {
    return VisitFamily(family, [&]<Family F>() { return CountMoves<F>(position); });
}

} // namespace tavlon12
