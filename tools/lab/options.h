#pragma once

#include "engine/search_options.h"
#include "rules/basics.h"

#include <array>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12::lab {

/// Why something cannot be done, as one clause that names the argument or the file; empty when it can.
using Failure = std::optional<std::string>;

enum class Command { Moves, Perft, Eval, Search, Bench };

/// Which generator, evaluation and search are asked for.
enum class Members {
    OfGame,  ///< the general ones, but in a search those of the program: the family's where rules and start position
             ///< have one
    General, ///< the general ones whatever the rules are
    Fast,    ///< those of the family that the rules alone have
};

/// A command line as it is meant. What stands here is in range; whether rules, file and moves exist shows later.
struct Options {
    Command Name = Command::Moves;

    // The position
    std::filesystem::path Variants; ///< folder of the definitions, empty: that of the program folder
    std::string Variant = "Canadian Checkers";
    bool ReadsDefinition = true;      ///< otherwise the rules begin as the built-in ones; for the bench alone
    std::vector<std::string> Rules;   ///< "KEY=VALUE" in order
    std::optional<std::string> Setup; ///< 144 digits
    std::optional<Long> Turn;         ///< side to move
    std::optional<std::array<Long, 2>> OffBoard; ///< White's, Black's
    Long Last = 0;                               ///< square on which the last move ended, 0 for none
    std::vector<std::string> Play;               ///< move keys in capitals

    // The command
    Members Use = Members::OfGame;
    Long Depth = 0;
    bool Divide = false;
    std::optional<Long> Side; ///< whose evaluation
    SearchOptions Search;
    std::optional<Long> Seconds; ///< how long a bench lasts at least
    bool MakesLastPly = false;   ///< perft makes the moves of the last ply too; for the bench alone
};

/// Reads the words of a command line, the command first.
Failure ParseOptions(std::span<const std::string> words, Options& options);

/// Text of the user's in a message: in quotes, shortened when it is long.
std::string Quoted(std::string_view text);

/// A message without line ends and other control characters, of bounded length.
std::string OneLine(std::string_view text);

} // namespace tavlon12::lab
