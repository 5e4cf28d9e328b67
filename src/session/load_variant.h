#pragma once

#include "session/session.h"

#include <array>
#include <vector>

namespace tavlon12 {

/// Takes a definition over: `VariantName`, `DefinedRules`, the texts, and the start position, when it has one, onto the
/// boards. The rules in force stay as they are.
void AdoptVariant(Session& session, VariantDefinition&& definition);

/// Reads the definition file of `VariantFile` and takes it over. On a failure nothing has changed.
[[nodiscard]] std::optional<FileFailure> LoadVariant(Session& session, const std::filesystem::path& file);

/// White's promotion squares, then Black's.
using PromotionLists = std::array<PromotionList, 2>;

/// Reads the definition of another variant for the Variants dialog, which becomes the one in force: into the rules in
/// force as well as into the defined ones. The promotion squares in force stay: those of the definition go into
/// `shown`, the lists of the dialog. The start position goes onto the boards, with the balance as Black sees it. On a
/// failure nothing has changed.
[[nodiscard]] std::optional<FileFailure> ReadVariantForDialog(Session& session, const std::string& variantFile,
                                                              Long useClassic, PromotionLists& shown);

/// The variants of the folder in force with what keeps their definitions from being read: in the dialog, where the
/// first line counts, or at the start of a game, where it does not.
std::vector<ListLine> FillVariantList(const Session& session);

/// The entry "DEFAULT", for the rules that a PDN game brings or those of plain PDN, and the same variants.
std::vector<ListLine> FillPdnVariantList(const Session& session);

} // namespace tavlon12
