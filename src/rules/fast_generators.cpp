#include "rules/fast_generators.h"

#include "rules/capture_selection.h"
#include "rules/move_walk.h"
#include "rules/register_moves.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

namespace tavlon12 {

namespace {

/// What the four rule sets do not share.
struct FamilyRow {
    Family Member;
    std::string_view ManMovement;
    Byte MaxCapMove;
    Byte MaxCapMoveKings;
    Byte KingCapMove;
    Byte ManCapKing;
    Byte LongKings;
    Byte ManContJump;
    Byte ManContJumpCrowned;
    Byte RemovePieces;
    Byte BlackStarts;
    Byte PiecesOnBlack;
    Byte ThreeKings;
    Byte NumberKings;
    Long FirstPromoW;
    Long FirstPromoB;
};

constexpr std::array<FamilyRow, 4> kFamilies = {{
    {Family::American, "NW;NE NW;NE", 0, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 184, 29},
    {Family::Italian, "NW;NE NW;NE", 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 183, 30},
    {Family::German, "NW;NE NW;NE;SE;SW", 1, 0, 0, 1, 1, 1, 0, 1, 0, 1, 0, 0, 184, 29},
    {Family::Russian, "NW;NE NW;NE;SE;SW", 0, 0, 0, 1, 1, 1, 1, 1, 0, 1, 1, 15, 184, 29},
}};

constexpr std::string_view kKingMovement = "NW;NE;SE;SW NW;NE;SE;SW";

bool HasSharedRules(const RuleSet& r) {
    bool on = r.MulJumps == 1 && r.CapRequired == 1 && r.MaxCapMoveK == 1;
    bool bytesOff = (r.AntiMode | r.WinAtPromo | r.KingWin | r.NoLegalDraw | r.RemoveMen | r.NumberMen | r.DoMoves |
                     r.NumberMoves | r.LastCap | r.ManKing | r.KingMan | r.ChangeSide | r.KingFirst | r.ManCapMoveKing |
                     r.CapReverse | r.RndColor) == 0;
    bool longsOff = (r.JumpFriend | r.NumberFriends | r.TwoKings | r.NumberKings2 | r.NumberPieces | r.canContract |
                     r.ContractNumber | r.ContractW1 | r.ContractW2 | r.ContractB1 | r.ContractB2) == 0;
    return on && bytesOff && longsOff && r.WhiteKingMovement == kKingMovement && r.BlackKingMovement == kKingMovement;
}

bool BeginsWithRow(const PromotionList& list, Long first) {
    const PromotionList row = PromotionRow(first);
    return std::equal(row.begin(), row.begin() + 6, list.begin());
}

bool Matches(const RuleSet& r, const FamilyRow& row) {
    return r.WhiteManMovement == row.ManMovement && r.BlackManMovement == row.ManMovement &&
           r.MaxCapMove == row.MaxCapMove && r.MaxCapMoveKings == row.MaxCapMoveKings &&
           r.KingCapMove == row.KingCapMove && r.ManCapKing == row.ManCapKing && r.LongKings == row.LongKings &&
           r.ManContJump == row.ManContJump && r.ManContJumpCrowned == row.ManContJumpCrowned &&
           r.RemovePieces == row.RemovePieces && r.BlackStarts == row.BlackStarts &&
           r.PiecesOnBlack == row.PiecesOnBlack && r.ThreeKings == row.ThreeKings && r.NumberKings == row.NumberKings &&
           BeginsWithRow(r.PromoW, row.FirstPromoW) && BeginsWithRow(r.PromoB, row.FirstPromoB);
}

template <Family F> Long CountMoves(Position& position) {
    const FamilyRules<F> rules(position);
    if (CaptureStarters(position, rules).Any()) {
        GenerateFamilyMoves<F>(position, 0);
        if (MoveCount(position.Tree) > 0 || position.Fault.Passed()) return MoveCount(position.Tree);
    }
    return CountQuietMoves(position, rules);
}

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

} // namespace

Family FamilyOfRules(const RuleSet& rules) {
    if (!HasSharedRules(rules)) return Family::None;
    for (const FamilyRow& row : kFamilies) {
        if (Matches(rules, row)) return row.Member;
    }
    return Family::None;
}

Family RecognizeVariantFamily(const RuleSet& rules, const BoardCells& start) {
    return start == ClassicStart() ? FamilyOfRules(rules) : Family::None;
}

template <Family F> void GenerateFamilyMoves(Position& position, Long mode) {
    GameTree& tree = position.Tree;
    tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
    // Captures are mandatory in all four sets, so that mode 0 gives no quiet moves.
    SquareSet starters = CaptureStarters(position, FamilyRules<F>(position));
    MoveWalk walk =
        WalkMoves<FamilyRules<F>>(position, mode, starters, position.Captures, [&](Long from, Long to, bool promotes) {
            RegisterMove(position, from, to, promotes ? kKing : 0);
            return false;
        });
    if (walk == MoveWalk::LimitPassed) {
        tree.NextMoveSlot = tree.PlyFirstMove[tree.Ply];
    } else {
        RegisterSelected<F>(position);
    }
    tree.PlyFirstMove[tree.Ply + 1] = tree.NextMoveSlot;
}

template void GenerateFamilyMoves<Family::American>(Position&, Long);
template void GenerateFamilyMoves<Family::Italian>(Position&, Long);
template void GenerateFamilyMoves<Family::German>(Position&, Long);
template void GenerateFamilyMoves<Family::Russian>(Position&, Long);

void GenerateFamilyMoves(Family family, Position& position, Long mode) {
    assert(family != Family::None);
    switch (family) {
    case Family::American: return GenerateFamilyMoves<Family::American>(position, mode);
    case Family::Italian: return GenerateFamilyMoves<Family::Italian>(position, mode);
    case Family::German: return GenerateFamilyMoves<Family::German>(position, mode);
    case Family::Russian: return GenerateFamilyMoves<Family::Russian>(position, mode);
    case Family::None: return;
    }
}

Long CountFamilyMoves(Family family, Position& position) {
    assert(family != Family::None);
    switch (family) {
    case Family::American: return CountMoves<Family::American>(position);
    case Family::Italian: return CountMoves<Family::Italian>(position);
    case Family::German: return CountMoves<Family::German>(position);
    case Family::Russian: return CountMoves<Family::Russian>(position);
    case Family::None: break;
    }
    return 0;
}

} // namespace tavlon12
