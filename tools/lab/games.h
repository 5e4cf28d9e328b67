#pragma once

#include "lab/commands.h"

#include <span>
#include <string>

namespace tavlon12::lab {

/// Whether a command is one of those that open and save games: `games` or `load`.
bool IsGamesCommand(std::string_view name);

/// Carries such a command out, over a session without a window that starts as the program does for the first time. The
/// report's status is 1 when the game has not got through.
Failure RunGamesCommand(Lab& lab, std::span<const std::string> words, Report& report);

} // namespace tavlon12::lab
