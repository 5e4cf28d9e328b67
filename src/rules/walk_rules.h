#pragma once

#include "rules/families.h"
#include "rules/position.h"

namespace tavlon12 {

// What a walk over the board asks of the rules: from the position's rule set, or, for a family, as constants that cost
// nothing.

struct GeneralRules {
    static constexpr bool kIsFamily = false;
    static constexpr bool kRegistersAtOnce = false;
    static constexpr Long kPromotionSlots = tavlon12::kPromotionSlots;

    explicit GeneralRules(const Position& position) : rules(position.Rules), dedup(position.DedupCaptures) {}

    const RuleSet& rules;
    bool dedup;

    bool MulJumps() const { return rules.MulJumps == 1; }
    bool CapRequired() const { return rules.CapRequired == 1; }
    bool LongKings() const { return rules.LongKings == 1; }
    bool KingFirst() const { return rules.KingFirst == 1; }
    bool CapReverse() const { return rules.CapReverse == 1; }
    bool RemovePieces() const { return rules.RemovePieces == 1; }
    bool ManCapKing() const { return rules.ManCapKing == 1; }
    bool ManCapMoveKing() const { return rules.ManCapMoveKing == 1; }
    bool ManContJump() const { return rules.ManContJump == 1; }
    bool ManContJumpCrowned() const { return rules.ManContJumpCrowned == 1; }
    bool JumpFriend() const { return rules.JumpFriend == 1; }
    bool CanContract() const { return rules.canContract == 1; }
    bool LastCap() const { return rules.LastCap == 1; }
    bool MaxCapMove() const { return rules.MaxCapMove == 1; }
    bool DedupCaptures() const { return dedup; }
};

template <Family F> struct FamilyRules {
    static constexpr bool kIsFamily = true;
    static constexpr bool kFlying = F == Family::German || F == Family::Russian;
    static constexpr bool kRegistersAtOnce = F == Family::American;
    static constexpr Long kPromotionSlots = 6;

    explicit FamilyRules(const Position&) {}

    static constexpr bool MulJumps() { return true; }
    static constexpr bool CapRequired() { return true; }
    static constexpr bool LongKings() { return kFlying; }
    static constexpr bool KingFirst() { return false; }
    static constexpr bool CapReverse() { return false; }
    static constexpr bool RemovePieces() { return true; } // for short pieces it makes no difference
    static constexpr bool ManCapKing() { return F != Family::Italian; }
    static constexpr bool ManCapMoveKing() { return false; }
    static constexpr bool ManContJump() { return kFlying; }
    static constexpr bool ManContJumpCrowned() { return F == Family::Russian; }
    static constexpr bool JumpFriend() { return false; }
    static constexpr bool CanContract() { return false; }
    static constexpr bool LastCap() { return false; }
    static constexpr bool MaxCapMove() { return F == Family::Italian || F == Family::German; }
    static constexpr bool DedupCaptures() { return false; }
};

} // namespace tavlon12
