#include "fuzz/reader_checks.h"

#include "files/rating_file.h"
#include "files/settings.h"
#include "files/skin_file.h"
#include "files/variant_file.h"
#include "rules/board.h"
#include "rules/rule_keys.h"

#include <algorithm>
#include <stdexcept>

namespace tavlon12::support {

namespace {

void Require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

void RequireSquares(const PromotionList& list) {
    for (Long square : list) Require(square == kUnusedSlot || IsSquare(square), "a promotion square is on the board");
}

/// The rules as a file brings them back: the used promotion slots move together.
RuleSet Reread(RuleSet rules) {
    for (const RuleKey& key : RuleKeys()) {
        Require(SetRuleValue(rules, key, RuleValueText(rules, key)), "a rule value is read as it was written");
    }
    return rules;
}

void CheckVariant(std::string_view bytes) {
    for (FirstLine first : {FirstLine::Title, FirstLine::Key}) {
        auto definition = ReadVariant(bytes, RuleSet(), VariantTexts(), first);
        if (!definition) continue;
        RuleSet rules = definition->Rules;
        RequireSquares(rules.PromoW);
        RequireSquares(rules.PromoB);
        const RuleSet reread = Reread(rules);
        rules.PromoW = reread.PromoW;
        rules.PromoB = reread.PromoB;
        Require(rules == reread, "rules survive");
    }
}

void CheckSettings(std::string_view bytes) {
    auto first = ReadSettings(bytes);
    if (!first) return;
    RequireSquares(first->Rules.PromoW);
    RequireSquares(first->Rules.PromoB);
    const std::string text = SettingsText(*first);
    Require(std::ranges::count(text, '\n') == 84, "the file has 84 lines");
    // What a text loses by being written without quotes it loses at once.
    auto second = ReadSettings(text);
    Require(static_cast<bool>(second), "what was written can be read");
    const std::string settled = SettingsText(*second);
    auto third = ReadSettings(settled);
    Require(third && SettingsText(*third) == settled, "settings survive");
}

void CheckRating(std::string_view bytes) {
    auto rating = ReadRating(bytes);
    if (!rating) return;
    auto again = ReadRating(RatingText(*rating));
    Require(again && *again == std::max<Integer>(*rating, 0), "a rating survives");
}

void CheckSkin(std::string_view bytes) {
    auto skin = ReadSkin(bytes);
    if (!skin) return;
    for (const SkinImage& image : skin->Squares) Require(image.Index < kSquareImages, "an image has a place");
    for (const SkinImage& image : skin->Cursors) Require(image.Index < kPieceCursors, "a cursor has a place");
}

const ReaderCheck kChecks[] = {
    {"variant", CheckVariant},
    {"settings", CheckSettings},
    {"rating", CheckRating},
    {"skin", CheckSkin},
};

} // namespace

std::span<const ReaderCheck> ReaderChecks() {
    return kChecks;
}

const ReaderCheck& FindReaderCheck(std::string_view name) {
    auto found = std::ranges::find(kChecks, name, &ReaderCheck::Name);
    if (found == std::end(kChecks)) throw std::invalid_argument("no reader check: " + std::string(name));
    return *found;
}

} // namespace tavlon12::support
