#pragma once

#include "session/replay.h"
#include "session/session.h"

#include <filesystem>

namespace tavlon12 {

/// Loads a game of a PDN file: one that is chosen from a list, or drawn under `BookRandom`. False when it has not got
/// through.
bool LoadPdn(Session& session, LoadSource source, const std::filesystem::path& file);

} // namespace tavlon12
