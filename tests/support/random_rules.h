#pragma once

#include "rules/rule_set.h"

#include <random>
#include <string>

namespace tavlon12::support {

/// Rules with a random value of its kind for every key but `Setup`: up to 16 promotion squares a side, all on the
/// playing colour, in the first slots.
RuleSet RandomRules(std::mt19937& random);

/// Up to 60 characters of those given.
std::string RandomText(const std::string& characters, std::mt19937& random);

} // namespace tavlon12::support
