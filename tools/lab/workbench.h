#pragma once

#include "engine/search_state.h"
#include "lab/options.h"
#include "rules/fast_generators.h"
#include "rules/position.h"
#include "session/session.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace tavlon12::lab {

/// A game on no screen, in the state in which a process begins. It is large: keep it on the heap.
struct Workbench {
    Workbench() : Game(Pos, Search) {}
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    Position Pos;
    SearchState Search;
    Session Game;
    Family FamilyOfMembers = Family::None; ///< of generator, evaluation and search, as the options ask for them
};

/// What all commands of a process share. It is large: keep it on the heap.
struct Lab {
    std::filesystem::path ProgramFolder;
    std::function<bool()> Interrupted; ///< asked at each node; true ends the command with an error. Empty: never
    std::optional<Workbench> Bench;    ///< made anew, in place, for each command
};

/// Makes the workbench anew and brings it to the position of the options, with the tables built.
Failure PreparePosition(Lab& lab, const Options& options);

/// The limit that a generator has passed; empty when all is well.
Failure GeneratorLimitPassed(const Position& position);

/// The same, or the move list that is full, so that moves are missing.
Failure LimitPassed(const Position& position);

} // namespace tavlon12::lab
