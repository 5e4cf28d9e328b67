#include "rules/families.h"

#include <algorithm>

namespace tavlon12 {

namespace {

constexpr const char* kForwardOnly = "NW;NE NW;NE";

/// What the short families share.
RuleSet ShortRules() {
    RuleSet rules;
    rules.WhiteManMovement = rules.BlackManMovement = kForwardOnly;
    rules.LongKings = rules.ManContJump = rules.RemovePieces = 0;
    return rules;
}

/// What tells families apart: all rules but the start and the later promotion squares.
RuleSet Essence(RuleSet rules) {
    constexpr std::size_t kPromotionSquares = 6;
    for (PromotionList* list : {&rules.PromoW, &rules.PromoB}) {
        std::fill(list->begin() + kPromotionSquares, list->end(), kUnusedSlot);
    }
    rules.Setup = RuleSet().Setup;
    return rules;
}

} // namespace

RuleSet RulesOfFamily(Family family) {
    RuleSet rules;
    switch (family) {
    case Family::American:
        rules = ShortRules();
        rules.MaxCapMove = 0;
        rules.BlackStarts = 1;
        break;
    case Family::Italian:
        rules = ShortRules();
        rules.MaxCapMoveKings = rules.KingCapMove = 1;
        rules.ManCapKing = 0;
        rules.PiecesOnBlack = 0;
        rules.PromoW = PromotionRow(183);
        rules.PromoB = PromotionRow(30);
        break;
    case Family::Russian:
        rules.MaxCapMove = 0;
        rules.ManContJumpCrowned = 1;
        rules.ThreeKings = 1;
        rules.NumberKings = 15;
        break;
    case Family::German:
    case Family::None: break; // the defaults
    }
    return rules;
}

Family FamilyOfRules(const RuleSet& rules) {
    const RuleSet essence = Essence(rules);
    const auto found = std::ranges::find_if(kFamilies, [&](Family family) { return RulesOfFamily(family) == essence; });
    return found == kFamilies.end() ? Family::None : *found;
}

Family RecognizeVariantFamily(const RuleSet& rules, const BoardCells& start) {
    return start == ClassicStart() ? FamilyOfRules(rules) : Family::None;
}

} // namespace tavlon12
