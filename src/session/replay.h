#pragma once

#include "session/session.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace tavlon12 {

// What the loading of a game file and of a PDN game share. The moves are made as those of a game are, so that texts,
// scores, draw state and end come about in the ordinary way.

/// Where a game comes from: a file that the user chooses, the collection of openings, the automatic moves at the start
/// of a game, the game of the last run.
enum class LoadSource { User, Opening, AutomaticMoves, Autosave };

/// Places a start position given by its digits. `CustomSetup` keeps it in the next new game, but that of an autosave.
void PlaceLoadedStart(Session& session, std::string_view digits, LoadSource source);

/// The rules and the start position stand: brings pieces and, where they are still those of a definition of the other
/// colour, promotion squares onto the playing colour, makes what follows from the rules, and shuts the window.
/// `tellsLoading` shows it on the status line.
void BeginReplay(Session& session, LoadSource source, bool promotionsFromDefinition, bool tellsLoading);

/// Makes, enters, scores and shows the next half-move, given by its key. False when it is no legal move, or the program
/// ends.
bool ReplayMove(Session& session, std::string_view key);

/// The end of a load that has got through, with the names and texts of a game file; `progress` is the length of the
/// whole in the progress bar.
void FinishReplay(Session& session, LoadSource source, const std::filesystem::path& file, Long progress);

/// The end of a load that has failed before a new game was started: the lists and fields of the game on the board are
/// filled again.
void ShowKeptGame(Session& session);

/// The end of a load that has failed after the start of a new game: message, and a new game.
void AbandonReplay(Session& session, const std::string& message);

/// The last steps of every load: the window answers again.
void ReleaseWindow(Session& session);

} // namespace tavlon12
