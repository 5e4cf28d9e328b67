#pragma once

#include "files/game_file.h"
#include "session/session.h"

#include <filesystem>

namespace tavlon12 {

/// Saves the game to a path: the autosave at once, any other name after the user has chosen one in a dialog. A name
/// that ends in "pdn" gets the game added in Portable Draughts Notation, any other a game file of its own.
void SaveGame(Session& session, const std::filesystem::path& path);

/// The command Save.
void SaveCommand(Session& session);

/// The head of a game file for the game that is going on.
GameHead HeadOfGame(const Session& session);

/// Whether a file is told to be PDN by its name.
bool IsPdnName(const std::filesystem::path& path);

/// What both file dialogs offer.
inline constexpr const char* kGameFilter = "Tavlon File (*.tvl)|*.tvl|Portable Draughts Notation File (*.pdn)|*.pdn";

} // namespace tavlon12
