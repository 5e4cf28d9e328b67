#pragma once

#include "session/session.h"

namespace tavlon12 {

/// Takes a definition over: `VariantName`, `DefinedRules`, the texts, and the start position, when it has one, onto the
/// boards. The rules in force stay as they are.
void AdoptVariant(Session& session, VariantDefinition&& definition);

/// Reads the definition file of `VariantFile` and takes it over. On a failure nothing has changed.
[[nodiscard]] std::optional<FileFailure> LoadVariant(Session& session, const std::filesystem::path& file);

} // namespace tavlon12
