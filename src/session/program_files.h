#pragma once

#include "session/session.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12 {

// Files beside the program. Where its folder cannot be written to, the user has a folder of his own, whose files are
// found first and those of the installed program behind them.

inline constexpr const char* kSettingsFile = "tavlon12.ini";
inline constexpr const char* kRatingFile = "tavlon12.rtg";
inline constexpr const char* kLogFile = "tavlon12.log";
inline constexpr const char* kAutosaveFile = "tavlon12.sav";
inline constexpr const char* kAutomaticMovesFile = "domoves.tvl";

/// A file to be read, whatever the case of the letters in its relative path ("sounds/click.wav"); where it would lie
/// in the user's folder when it is in neither.
std::filesystem::path DataFile(const Session& session, std::string_view relative);

/// The definition file of the variant in force; of any variant, in the folder of `useClassic`.
std::filesystem::path VariantPath(const Session& session);
std::filesystem::path VariantPath(const Session& session, const std::string& variantFile, Long useClassic);

/// The variants of the folder in force, the user's own and the installed ones, in the order of their names.
std::vector<std::string> VariantNames(const Session& session);

/// The skins: the two of the program, then those of the folder of skins in the order of their names.
std::vector<std::string> SkinNames(const Session& session);

/// Replaces a file of the program. On a failure, which is told in a message, the old file stays, and it returns false.
bool WriteProgramFile(Session& session, const std::filesystem::path& file, std::string_view bytes);

/// Opens what a definition links to: a file by its path under the program's folder, or an address.
void OpenLink(Session& session, const std::string& link);

/// Plays a wave file of the folder of sounds, under `UseSound`.
void PlaySound(Session& session, std::string_view name);

// The log. The first line that cannot be written is told in a message; the game goes on without it.
void OpenLog(Session& session);
void WriteLog(Session& session, std::string_view text);

} // namespace tavlon12
