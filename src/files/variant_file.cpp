#include "files/variant_file.h"

#include "files/key_lines.h"
#include "rules/rule_keys.h"

namespace tavlon12 {

namespace {

// A definition is a text of lines "Key=value": the first line is a title, every line that begins with no known key is a
// comment, and the line "END" ends it. Keys have no order but one: `Setup` and `BlackStarts` act on the balance of the
// root at the line where they stand.
//
//     Canadian Checkers
//     MulJumps=1
//     Setup=normal
//     BlackStarts=0
//     Help=Canadian Checkers is played on the dark squares.
//     Help=<br>
//     END

void ReadText(const KeyLine& line, VariantTexts& texts) {
    if (line.Key == "Help") texts.VariantHelp += line.Value == "<br>" ? "\r\n" : line.Value;
    if (line.Key == "HelpLink") texts.HelpLink = line.Value;
    if (line.Key == "QuickHelpLink") texts.QuickHelpLink = line.Value;
}

/// False when the line holds a rule with a value out of the range of its kind.
bool ReadRule(const KeyLine& line, VariantDefinition& definition) {
    const RuleKey* key = FindRuleKey(line.Key);
    if (key == nullptr) return true;
    if (!SetRuleValue(definition.Rules, *key, line.Value)) return false;
    if (key->Name == "Setup" && line.Value != "normal") {
        definition.StartDigits = line.Value;
        definition.BalanceNegated = false;
    }
    if (key->Name == "BlackStarts" && definition.Rules.BlackStarts == 0) {
        definition.BalanceNegated = !definition.BalanceNegated;
    }
    return true;
}

} // namespace

std::filesystem::path VariantFolder(const std::filesystem::path& programFolder, Long useClassic) {
    std::filesystem::path folder = programFolder / "variants";
    return useClassic == 1 ? folder : folder / "uservariants";
}

std::filesystem::path VariantPath(const std::filesystem::path& folder, const std::string& variantFile) {
    const std::string name = variantFile + ".ini";
    return FindFile(folder, name).value_or(folder / name);
}

Outcome<VariantDefinition> ReadVariant(std::string_view bytes, const RuleSet& kept, const VariantTexts& keptTexts,
                                       FirstLine first) {
    using Kind = FileFailure::Kind;
    const std::vector<std::string_view> lines = SplitLines(bytes);
    VariantDefinition definition{kept, keptTexts, {}, false};
    definition.Texts.VariantHelp.clear();
    for (std::size_t i = first == FirstLine::Title ? 1 : 0; i < lines.size(); ++i) {
        if (lines[i] == "END") return definition;
        auto line = SplitKeyLine(lines[i]);
        if (!line) continue;
        ReadText(*line, definition.Texts);
        if (!ReadRule(*line, definition)) {
            return FileFailure{Kind::BadValue, "", static_cast<Long>(i + 1), std::string(lines[i])};
        }
    }
    return FileFailure{Kind::EndTooEarly, "", 0, "no line \"END\""};
}

} // namespace tavlon12
