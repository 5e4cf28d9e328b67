#include "rules/directions.h"

#include <utility>

namespace tavlon12 {

namespace {

constexpr std::array<std::pair<std::string_view, Long>, 12> kWords = {{{"NW", 13},
                                                                       {"NE", 15},
                                                                       {"SE", -13},
                                                                       {"SW", -15},
                                                                       {"W", -1},
                                                                       {"N", 14},
                                                                       {"E", 1},
                                                                       {"S", -14},
                                                                       {"WW", -2},
                                                                       {"NN", 28},
                                                                       {"EE", 2},
                                                                       {"SS", -28}}};

/// White's step of a word, 0 for an unknown word.
Long StepOfWord(std::string_view word) {
    for (const auto& [name, step] : kWords) {
        if (name == word) return step;
    }
    return 0;
}

void ParseSteps(std::string_view words, Long sign, DirectionRow& row) {
    Long count = 0;
    while (!words.empty() && count < kDirectionColumns - 1) {
        std::size_t end = words.find(';');
        Long step = StepOfWord(words.substr(0, end));
        if (step == 0) break;
        row[count++] = sign * step;
        words = end == std::string_view::npos ? std::string_view() : words.substr(end + 1);
    }
}

} // namespace

void ParseMovement(std::string_view text, Long pieceType, DirectionTable& table) {
    DirectionRow& quiet = table[pieceType];
    DirectionRow& captures = table[pieceType + 4];
    quiet.fill(kEndOfSteps);
    captures.fill(kEndOfSteps);
    Long sign = pieceType % 2 == 0 ? 1 : -1;
    std::size_t blank = text.find(' ');
    ParseSteps(text.substr(0, blank), sign, quiet);
    if (blank != std::string_view::npos) ParseSteps(text.substr(blank + 1), sign, captures);
}

bool IsDirectionList(std::string_view words) {
    if (words.empty()) return true;
    for (;;) {
        const std::size_t end = words.find(';');
        if (StepOfWord(words.substr(0, end)) == 0) return false;
        if (end == std::string_view::npos) return true;
        words.remove_prefix(end + 1);
    }
}

DirectionTable DirectionsOf(const RuleSet& rules) {
    DirectionTable table;
    ParseMovement(rules.WhiteManMovement, 0, table);
    ParseMovement(rules.BlackManMovement, 1, table);
    ParseMovement(rules.WhiteKingMovement, 2, table);
    ParseMovement(rules.BlackKingMovement, 3, table);
    return table;
}

} // namespace tavlon12
