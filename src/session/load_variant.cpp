#include "session/load_variant.h"

namespace tavlon12 {

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
    auto definition = ReadFileWith(
        file, [&](std::string_view bytes) { return ReadVariant(bytes, variant.DefinedRules, variant.Texts); });
    if (!definition) return definition.Failure();
    AdoptVariant(session, std::move(*definition));
    return std::nullopt;
}

} // namespace tavlon12
