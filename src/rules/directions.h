#pragma once

#include "rules/board.h"
#include "rules/rule_set.h"

#include <array>
#include <string_view>

namespace tavlon12 {

inline constexpr Long kEndOfSteps = -99;
inline constexpr Long kDirectionRows = 8;
inline constexpr Long kDirectionColumns = 9;

/// Steps by piece type: rows 0 to 3 quiet, rows 4 to 7 captures, each row closed by -99. The order in a row is the
/// order in which directions are tried.
using DirectionRow = std::array<Long, kDirectionColumns>;
using DirectionTable = std::array<DirectionRow, kDirectionRows>;

/// Fills the quiet and the capture row of a piece type (0 to 3) from a movement string, for instance "NW;NE
/// NW;NE;SE;SW". A text without a blank leaves the capture row empty; a list ends at an unknown word and after 8 words.
/// Black's steps are negated, so that "NW" is always forward and left.
void ParseMovement(std::string_view text, Long pieceType, DirectionTable& table);

/// Whether every word of a list of directions, separated by semicolons, is known; an empty list is one.
bool IsDirectionList(std::string_view words);

/// The table of all four movement strings of a rule set.
DirectionTable DirectionsOf(const RuleSet& rules);

} // namespace tavlon12
