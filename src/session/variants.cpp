#include "session/variants.h"

#include "rules/rule_keys.h"
#include "session/load_variant.h"
#include "session/program_files.h"
#include "session/screen.h"

#include <algorithm>
#include <random>

namespace tavlon12 {

namespace {

using Texts = std::vector<std::string>;

constexpr Byte RuleSet::*kDrawnFlags[] = {
    &RuleSet::MaxCapMove,      &RuleSet::MulJumps,    &RuleSet::BlackStarts,    &RuleSet::RndColor,
    &RuleSet::PiecesOnBlack,   &RuleSet::AntiMode,    &RuleSet::WinAtPromo,     &RuleSet::KingWin,
    &RuleSet::MaxCapMoveKings, &RuleSet::MaxCapMoveK, &RuleSet::ManCapKing,     &RuleSet::CapRequired,
    &RuleSet::KingCapMove,     &RuleSet::ManContJump, &RuleSet::LongKings,      &RuleSet::ManContJumpCrowned,
    &RuleSet::RemovePieces,    &RuleSet::KingFirst,   &RuleSet::ManCapMoveKing, &RuleSet::NoLegalDraw,
    &RuleSet::RemoveMen,       &RuleSet::LastCap,     &RuleSet::ManKing,        &RuleSet::KingMan,
    &RuleSet::CapReverse,      &RuleSet::DoMoves,     &RuleSet::ChangeSide,     &RuleSet::ThreeKings,
};

struct DrawnNumber {
    Byte RuleSet::*Member;
    int Most;
};
constexpr DrawnNumber kDrawnNumbers[] = {
    {&RuleSet::NumberMen, 10}, {&RuleSet::NumberMoves, 10}, {&RuleSet::NumberKings, 20}};

const RuleKey& ColourKey() {
    static const RuleKey& key = RuleKeyOf(&RuleSet::PiecesOnBlack);
    return key;
}

bool IsFriendKey(const RuleKey& key) {
    return key.Member == RuleMember(&RuleSet::JumpFriend) || key.Member == RuleMember(&RuleSet::NumberFriends);
}

bool IsNumber(const RuleKey& key) {
    return std::holds_alternative<Byte RuleSet::*>(key.Member) || std::holds_alternative<Long RuleSet::*>(key.Member);
}

/// The member of a kind, null for a key of another kind. The start position has no control.
template <typename Value> Value RuleSet::*MemberOf(const RuleKey& key) {
    const auto* member = std::get_if<Value RuleSet::*>(&key.Member);
    return member == nullptr || key.Member == RuleMember(&RuleSet::Setup) ? nullptr : *member;
}

Texts SquareTexts(const PromotionList& list) {
    Texts texts;
    for (Long square : list) {
        texts.push_back(square == kUnusedSlot ? "" : SquareNotation(square, Padding::Blank, kAlgebraic));
    }
    return texts;
}

Long SquareOfText(const std::string& text) {
    return SquareNumber(UpperCase(text), kAlgebraic, 0);
}

/// What is no square counts as an unused slot.
PromotionList SquaresOf(const Texts& texts) {
    PromotionList list;
    list.fill(kUnusedSlot);
    for (std::size_t slot = 0; slot < list.size(); ++slot) {
        if (const Long square = SquareOfText(texts[slot]); square != 0) list[slot] = square;
    }
    return list;
}

Texts HalvesOf(const std::string& movement) {
    const std::size_t blank = movement.find(' ');
    if (blank == std::string::npos) return {movement, ""};
    return {movement.substr(0, blank), movement.substr(blank + 1)};
}

Texts& TextsOf(VariantsForm& form, const RuleMember& member) {
    return form.Values[RuleKeyOf(member).Name];
}

void ShowPromotions(VariantsForm& form, const PromotionLists& lists) {
    TextsOf(form, &RuleSet::PromoW) = SquareTexts(lists[0]);
    TextsOf(form, &RuleSet::PromoB) = SquareTexts(lists[1]);
}

PromotionLists ShownPromotions(VariantsForm& form) {
    return {SquaresOf(TextsOf(form, &RuleSet::PromoW)), SquaresOf(TextsOf(form, &RuleSet::PromoB))};
}

bool IsColourOpen(const RuleSet& rules) {
    return rules.PiecesOnBlack != 2;
}

/// The promotion squares in the form move onto the colour that is played on.
void MovePromotions(VariantsForm& form, Byte piecesOnBlack) {
    for (const RuleMember member : {RuleMember(&RuleSet::PromoW), RuleMember(&RuleSet::PromoB)}) {
        for (std::string& text : TextsOf(form, member)) {
            const Long square = SquareOfText(text);
            if (square == 0) continue;
            const Long moved = square + SquareColourShift(square, piecesOnBlack).Shift;
            text = SquareNotation(moved, Padding::Blank, kAlgebraic);
        }
    }
}

/// Flags and numbers. The box of a colour rule that does not apply keeps its value.
void ShowNumbers(VariantsForm& form, const RuleSet& rules) {
    form.ColourOpen = IsColourOpen(rules);
    for (const RuleKey& key : RuleKeys()) {
        const bool kept = &key == &ColourKey() && !form.ColourOpen && form.Values.contains(key.Name);
        if (IsNumber(key) && !kept) form.Values[key.Name] = {RuleValueText(rules, key)};
    }
}

/// Of the help its first paragraph.
void ShowTexts(VariantsForm& form, const VariantTexts& texts) {
    form.Help = texts.VariantHelp.substr(0, texts.VariantHelp.find("\r\n"));
    form.HelpLink = texts.HelpLink;
}

void ShowMovements(VariantsForm& form, const RuleSet& rules) {
    for (const RuleKey& key : RuleKeys()) {
        if (const auto member = MemberOf<std::string>(key)) form.Values[key.Name] = HalvesOf(rules.*member);
    }
}

// The steps of `ApplyVariant`. Each gives the first entry that is none.
using Wrong = std::optional<VariantsBox>;

Wrong ApplyNumbers(RuleSet& rules, const VariantsForm& form, bool includeFriends) {
    Wrong wrong;
    for (const RuleKey& key : RuleKeys()) {
        if (!IsNumber(key) || (!includeFriends && IsFriendKey(key))) continue;
        if (&key == &ColourKey() && !form.ColourOpen) continue;
        if (!SetRuleValue(rules, key, form.Values.at(key.Name)[0]) && !wrong) wrong = VariantsBox{key.Name, 0};
    }
    return wrong;
}

Wrong ApplyPromotions(RuleSet& rules, const VariantsForm& form) {
    for (const RuleKey& key : RuleKeys()) {
        const auto member = MemberOf<PromotionList>(key);
        if (member == nullptr) continue;
        const Texts& texts = form.Values.at(key.Name);
        for (std::size_t slot = 0; slot < texts.size(); ++slot) {
            const Long square = texts[slot].empty() ? kUnusedSlot : SquareOfText(texts[slot]);
            const bool good =
                square == kUnusedSlot || (IsSquare(square) && IsPlayingSquare(square, rules.PiecesOnBlack));
            if (!good) return VariantsBox{key.Name, slot};
            (rules.*member)[slot] = square;
        }
    }
    return std::nullopt;
}

/// All of the four strings, or none when one of them has a word that is no direction.
Wrong ApplyMovements(Position& position, VariantsForm& form) {
    RuleSet rules = position.Rules;
    for (const RuleKey& key : RuleKeys()) {
        const auto member = MemberOf<std::string>(key);
        if (member == nullptr) continue;
        const Texts& halves = form.Values.at(key.Name);
        for (std::size_t half = 0; half < halves.size(); ++half) {
            if (!IsDirectionList(halves[half])) return VariantsBox{key.Name, half};
        }
        rules.*member = halves[1].empty() ? halves[0] : halves[0] + " " + halves[1];
    }
    position.Rules = std::move(rules);
    AdoptMovements(position);
    form.ColourOpen = IsColourOpen(position.Rules);
    return std::nullopt;
}

} // namespace

VariantsForm FormOfRules(const Session& session) {
    const RuleSet& rules = session.Pos.Rules;
    VariantsForm form;
    form.Variants = FillVariantList(session);
    form.Variant = session.Variant.VariantName;
    form.UseClassic = session.Settings.UseClassic;
    ShowTexts(form, session.Variant.Texts);
    ShowNumbers(form, rules);
    ShowMovements(form, rules);
    ShowPromotions(form, {rules.PromoW, rules.PromoB});
    return form;
}

bool VariantPicked(Session& session, VariantsForm& form, const std::string& name) {
    PromotionLists shown = ShownPromotions(form);
    if (const auto failure = ReadVariantForDialog(session, name, form.UseClassic, shown)) {
        ShowMessage(session, failure->Message(), "Error", MessageKind::Exclamation);
        return false;
    }
    form.Variant = name;
    ShowTexts(form, session.Variant.Texts);
    ShowNumbers(form, session.Pos.Rules);
    ShowMovements(form, session.Pos.Rules);
    ShowPromotions(form, shown);
    return true;
}

void FolderPicked(Session& session, VariantsForm& form, Long useClassic) {
    Long& inForce = session.Settings.UseClassic;
    if (inForce == useClassic && form.UseClassic == useClassic) return; // the button that is on
    const Long before = std::exchange(inForce, useClassic);
    form.UseClassic = useClassic;
    form.Variants = FillVariantList(session);
    const auto first = std::ranges::find(form.Variants, "", &ListLine::Problem);
    if (first == form.Variants.end() || !VariantPicked(session, form, first->Name)) inForce = before;
}

void ColourPicked(Session& session, VariantsForm& form, bool bottomLeftPlayed) {
    RuleSet& rules = session.Pos.Rules;
    rules.PiecesOnBlack = session.Variant.DefinedRules.PiecesOnBlack = bottomLeftPlayed ? 1 : 0;
    MovePromotions(form, rules.PiecesOnBlack);
}

void RandomRules(Session& session, VariantsForm& form) {
    std::mt19937& random = session.Search.Random;
    RuleSet& rules = session.Pos.Rules;
    for (const auto member : kDrawnFlags) {
        if (member == &RuleSet::PiecesOnBlack && !form.ColourOpen) continue;
        rules.*member = std::bernoulli_distribution()(random) ? 1 : 0;
    }
    for (const auto& [member, most] : kDrawnNumbers) {
        rules.*member = static_cast<Byte>(std::uniform_int_distribution(1, most)(random));
    }
    ShowNumbers(form, rules);
    if (form.ColourOpen) MovePromotions(form, rules.PiecesOnBlack);
}

bool ApplyVariant(Session& session, VariantsForm& form, bool includeFriends,
                  const std::function<void(VariantsBox)>& mark) {
    Position& position = session.Pos;
    session.Variant.VariantName = form.Variant;
    Wrong wrong = ApplyNumbers(position.Rules, form, includeFriends);
    if (!wrong) wrong = ApplyPromotions(position.Rules, form);
    if (!wrong) wrong = ApplyMovements(position, form);
    if (!wrong) return true;
    mark(*wrong);
    ShowMessage(session, "Illegal entry!", "Error", MessageKind::Exclamation);
    return false;
}

void EditVariants(Session& session) {
    VariantsEvents events;
    events.PickVariant = [&](VariantsForm& form, const std::string& name) { VariantPicked(session, form, name); };
    events.PickFolder = [&](VariantsForm& form, Long useClassic) { FolderPicked(session, form, useClassic); };
    events.PickColour = [&](VariantsForm& form, bool on) { ColourPicked(session, form, on); };
    events.Random = [&](VariantsForm& form) { RandomRules(session, form); };
    events.Apply = [&](VariantsForm& form, bool includeFriends, const std::function<void(VariantsBox)>& mark) {
        return ApplyVariant(session, form, includeFriends, mark);
    };
    events.OpenHelp = [&] {
        const std::string& link = session.Variant.Texts.HelpLink;
        if (!link.empty()) OpenLink(session, link);
    };
    session.Port.Dialogs.EditVariants(FormOfRules(session), events);
}

} // namespace tavlon12
