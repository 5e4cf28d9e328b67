#include "session/load_variant.h"

namespace tavlon12 {

void AdoptVariant(Session& session, VariantDefinition&& definition) {
    Position& position = session.Pos;
    position.VariantName = position.VariantFile;
    position.DefinedRules = std::move(definition.Rules);
    session.Texts = std::move(definition.Texts);
    if (definition.StartDigits) PlaceSetup(position, *definition.StartDigits);
    if (definition.BalanceNegated) {
        GameTree& tree = position.Tree;
        tree.PlyValue[0] = -tree.PlyValue[0];
        tree.GameValue[0] = -tree.GameValue[0];
    }
}

std::optional<FileFailure> LoadVariant(Session& session, const std::filesystem::path& folder) {
    const Position& position = session.Pos;
    auto definition = ReadFileWith(VariantPath(folder, position.VariantFile), [&](std::string_view bytes) {
        return ReadVariant(bytes, position.DefinedRules, session.Texts);
    });
    if (!definition) return definition.Failure();
    AdoptVariant(session, std::move(*definition));
    return std::nullopt;
}

} // namespace tavlon12
