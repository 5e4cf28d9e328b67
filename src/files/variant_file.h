#pragma once

#include "files/file_text.h"
#include "rules/rule_set.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavlon12 {

/// The variant of a first start.
inline constexpr const char* kDefaultVariant = "Canadian Checkers";

/// The texts that a definition brings for the user.
struct VariantTexts {
    std::string VariantHelp;
    std::string HelpLink;
    std::string QuickHelpLink;

    bool operator==(const VariantTexts&) const = default;
};

/// What a definition says.
struct VariantDefinition {
    RuleSet Rules;
    VariantTexts Texts;
    std::optional<std::string> StartDigits; ///< of the last `Setup` that is a position: a digit for each square
    bool BalanceNegated = false; ///< `BlackStarts` 0 has turned the balance of the root, since that `Setup` if any
};

/// What the first line of a definition is: a title that a game skips, or, in the dialog, a line like any other.
enum class FirstLine { Title, Key };

/// The folder of a variant's definition below the program folder: `useClassic` 1 the program's, else the user's own.
std::filesystem::path VariantFolder(const std::filesystem::path& programFolder, Long useClassic);

/// The definition of a variant in a folder, whatever the case of its name; as it would be spelt when there is none.
std::filesystem::path VariantPath(const std::filesystem::path& folder, const std::string& variantFile);

/// Reads the bytes of a definition. A key that is absent keeps the value of `kept`; so do the links, while the help
/// begins empty. Fails on a value out of the range of its kind and without a line "END".
Outcome<VariantDefinition> ReadVariant(std::string_view bytes, const RuleSet& kept, const VariantTexts& keptTexts,
                                       FirstLine first = FirstLine::Title);

} // namespace tavlon12
