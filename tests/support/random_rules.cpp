#include "support/random_rules.h"

#include "rules/board.h"
#include "rules/rule_keys.h"

namespace tavlon12::support {

namespace {

template <typename Number> void Randomize(Number& value, Byte, std::mt19937& random) {
    value = static_cast<Number>(random());
}

void Randomize(PromotionList& list, Byte piecesOnBlack, std::mt19937& random) {
    list.fill(kUnusedSlot);
    const std::size_t used = random() % 17;
    for (std::size_t slot = 0; slot < used;) {
        list[slot] = kFirstSquare + static_cast<Long>(random() % (kLastSquare - kFirstSquare + 1));
        if (IsSquare(list[slot]) && IsPlayingSquare(list[slot], piecesOnBlack)) ++slot;
    }
    if (used < list.size()) list[used] = kUnusedSlot;
}

void Randomize(std::string& movement, Byte, std::mt19937& random) {
    constexpr const char* kWords[] = {"NW", "NE", "SE", "SW", "W", "NN", ";", ";"};
    movement.clear();
    for (std::size_t words = random() % 6; words > 0; --words) movement += kWords[random() % 8];
    if (random() % 4 != 0) movement += " SE";
}

} // namespace

RuleSet RandomRules(std::mt19937& random) {
    RuleSet rules;
    const Byte piecesOnBlack = static_cast<Byte>(random() % 3);
    for (const RuleKey& key : RuleKeys()) {
        if (key.Name == "Setup") continue;
        std::visit([&](auto member) { Randomize(rules.*member, piecesOnBlack, random); }, key.Member);
    }
    rules.PiecesOnBlack = piecesOnBlack;
    return rules;
}

std::string RandomText(const std::string& characters, std::mt19937& random) {
    std::string text;
    for (std::size_t size = random() % 61; size > 0; --size) text += characters[random() % characters.size()];
    return text;
}

} // namespace tavlon12::support
