#include "files/variant_file.h"

#include "rules/rule_keys.h"

#include <vector>

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

/// What the lines have given so far. The position takes it over at the end, so that a broken file changes nothing.
struct Definition {
    RuleSet Rules;
    VariantTexts Texts;
    std::optional<std::string> Digits; ///< of the last `Setup` that is a position
    bool BalanceNegated = false;       ///< since that `Setup`
};

/// The text behind `key` when the line begins with it.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
    if (!line.starts_with(key) || line.substr(key.size()).substr(0, 1) != "=") return std::nullopt;
    return line.substr(key.size() + 1);
}

void ReadText(std::string_view line, VariantTexts& texts) {
    if (line == "Help=<br>") {
        texts.VariantHelp += "\r\n";
    } else if (auto help = ValueOf(line, "Help")) {
        texts.VariantHelp += *help;
    } else if (auto link = ValueOf(line, "HelpLink")) {
        texts.HelpLink = *link;
    } else if (auto quickLink = ValueOf(line, "QuickHelpLink")) {
        texts.QuickHelpLink = *quickLink;
    }
}

/// False when the line holds a rule with a value out of the range of its kind.
bool ReadRule(std::string_view line, Definition& definition) {
    const RuleKey* key = FindRuleKey(line.substr(0, line.find('=')));
    if (key == nullptr) return true;
    auto value = ValueOf(line, key->Name);
    if (!value) return true;
    if (!SetRuleValue(definition.Rules, *key, *value)) return false;
    if (key->Name == "Setup" && *value != "normal") {
        definition.Digits = *value;
        definition.BalanceNegated = false;
    }
    if (key->Name == "BlackStarts" && definition.Rules.BlackStarts == 0) {
        definition.BalanceNegated = !definition.BalanceNegated;
    }
    return true;
}

void Adopt(Definition&& definition, Position& position, VariantTexts& texts) {
    position.VariantName = position.VariantFile;
    position.DefinedRules = std::move(definition.Rules);
    texts = std::move(definition.Texts);
    if (definition.Digits) PlaceSetup(position, *definition.Digits);
    if (definition.BalanceNegated) {
        GameTree& tree = position.Tree;
        tree.PlyValue[0] = -tree.PlyValue[0];
        tree.GameValue[0] = -tree.GameValue[0];
    }
}

} // namespace

std::filesystem::path VariantFolder(const std::filesystem::path& programFolder, Long useClassic) {
    std::filesystem::path folder = programFolder / "variants";
    return useClassic == 1 ? folder : folder / "uservariants";
}

std::optional<FileFailure> LoadVariant(const std::filesystem::path& folder, Position& position, VariantTexts& texts) {
    using Kind = FileFailure::Kind;
    std::filesystem::path file = folder / (position.VariantFile + ".ini");
    std::vector<std::string> lines;
    if (!ReadLines(file, lines)) return FileFailure{Kind::CannotOpen, file.string(), 0, ""};

    Definition definition{position.DefinedRules, texts, {}, false};
    definition.Texts.VariantHelp.clear();
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const std::string& line = lines[i];
        if (line == "END") {
            Adopt(std::move(definition), position, texts);
            return std::nullopt;
        }
        ReadText(line, definition.Texts);
        if (!ReadRule(line, definition)) {
            return FileFailure{Kind::BadValue, file.string(), static_cast<Long>(i + 1), line};
        }
    }
    return FileFailure{Kind::EndTooEarly, file.string(), 0, "no line \"END\""};
}

} // namespace tavlon12
