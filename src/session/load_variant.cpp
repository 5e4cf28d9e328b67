#include "session/load_variant.h"

#include "session/program_files.h"

namespace tavlon12 {

namespace {

/// Why a definition cannot be read, in the dialog or at the start of a game.
std::optional<FileFailure> FailureOf(const std::filesystem::path& file) {
    for (FirstLine first : {FirstLine::Title, FirstLine::Key}) {
        const auto definition =
            ReadFileWith(file, [&](std::string_view bytes) { return ReadVariant(bytes, {}, {}, first); });
        if (!definition) return definition.Failure();
    }
    return std::nullopt;
}

/// The flags that a definition need not name: they have their defaults then, as the promotion squares have. Of the
/// other keys the values of the variant before it stay.
constexpr Byte RuleSet::*kDefaultedFlags[] = {&RuleSet::MaxCapMove, &RuleSet::MaxCapMoveK, &RuleSet::MaxCapMoveKings,
                                              &RuleSet::ManCapKing, &RuleSet::CapRequired, &RuleSet::KingCapMove,
                                              &RuleSet::MulJumps,   &RuleSet::BlackStarts, &RuleSet::WinAtPromo,
                                              &RuleSet::KingWin};

/// What a definition is read over.
RuleSet WithDefaults(RuleSet defined) {
    const RuleSet defaults;
    for (const auto flag : kDefaultedFlags) defined.*flag = defaults.*flag;
    defined.PromoW = defaults.PromoW;
    defined.PromoB = defaults.PromoB;
    return defined;
}

/// The definition as a change of some rules, which keeps the values that it does not name.
Outcome<VariantDefinition> ReadOver(const std::filesystem::path& file, const RuleSet& kept) {
    return ReadFileWith(file, [&](std::string_view bytes) { return ReadVariant(bytes, kept, {}, FirstLine::Key); });
}

/// The rules of the definition into those in force; the promotion squares stay.
void TakeRules(Position& position, RuleSet&& rules) {
    rules.PromoW = position.Rules.PromoW;
    rules.PromoB = position.Rules.PromoB;
    position.Rules = std::move(rules);
    AdoptMovements(position);
}

} // namespace

void AdoptVariant(Session& session, VariantDefinition&& definition) {
    Position& position = session.Pos;
    session.Variant.VariantName = session.Variant.VariantFile;
    session.Variant.DefinedRules = std::move(definition.Rules);
    session.Variant.Texts = std::move(definition.Texts);
    if (definition.StartDigits) PlaceSetup(position, *definition.StartDigits);
    if (definition.BalanceNegated) {
        GameTree& tree = position.Tree;
        tree.PlyValue[0] = -tree.PlyValue[0];
        tree.GameValue[0] = -tree.GameValue[0];
    }
}

std::optional<FileFailure> LoadVariant(Session& session, const std::filesystem::path& file) {
    const VariantState& variant = session.Variant;
    auto definition = ReadFileWith(file, [&](std::string_view bytes) {
        return ReadVariant(bytes, WithDefaults(variant.DefinedRules), variant.Texts);
    });
    if (!definition) return definition.Failure();
    AdoptVariant(session, std::move(*definition));
    return std::nullopt;
}

std::optional<FileFailure> ReadVariantForDialog(Session& session, const std::string& variantFile, Long useClassic,
                                                PromotionLists& shown) {
    Position& position = session.Pos;
    VariantState& variant = session.Variant;
    const std::filesystem::path file = VariantPath(session, variantFile, useClassic);
    if (auto failure = FailureOf(file)) return failure;
    RuleSet kept = position.Rules;
    kept.PromoW = shown[0];
    kept.PromoB = shown[1];
    auto inForce = ReadOver(file, kept);
    auto defined = ReadOver(file, WithDefaults(variant.DefinedRules));
    if (!inForce) return inForce.Failure();
    if (!defined) return defined.Failure();

    shown = {inForce->Rules.PromoW, inForce->Rules.PromoB};
    TakeRules(position, std::move(inForce->Rules));
    PlaceClassicStart(position);
    defined->BalanceNegated = false;
    variant.VariantFile = variantFile;
    session.Settings.UseClassic = useClassic;
    AdoptVariant(session, std::move(*defined));
    return std::nullopt;
}

std::vector<ListLine> FillVariantList(const Session& session) {
    std::vector<ListLine> lines;
    for (const std::string& name : VariantNames(session)) {
        const auto failure = FailureOf(VariantPath(session, name, session.Settings.UseClassic));
        lines.push_back({name, failure ? failure->Message() : ""});
    }
    return lines;
}

std::vector<ListLine> FillPdnVariantList(const Session& session) {
    std::vector<ListLine> lines = FillVariantList(session);
    lines.insert(lines.begin(), {"DEFAULT", ""});
    return lines;
}

} // namespace tavlon12
