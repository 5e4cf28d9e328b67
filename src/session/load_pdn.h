#pragma once

#include "session/replay.h"
#include "session/session.h"

#include <filesystem>

namespace tavlon12 {

/// Loads a game of a PDN file: one that is chosen from a list, or drawn under `BookRandom`.
void LoadPdn(Session& session, LoadSource source, const std::filesystem::path& file);

} // namespace tavlon12
