#pragma once

#include "rules/fast_generators.h"
#include "rules/position.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace tavlon12::lab {

/// How many sequences of legal moves there are.
struct PerftResult {
    struct RootCount {
        Long From;
        Long To;
        std::uint64_t Count; ///< sequences of the full depth that begin with the move
    };

    std::vector<std::uint64_t> ByDepth; ///< entry d - 1: sequences of d moves
    std::vector<RootCount> Roots;       ///< in the order of the list
    bool Interrupted = false;
};

/// When the moves of the last ply are made: never, their number is enough; or each, as the search would.
enum class LastPly { InBulk, Made };

/// Counts the sequences of up to `depth` moves from the root position; every slot of the move list counts. It ends
/// early, with the position whole, at a passed limit of the generator, at a full move list and when `interrupted` says
/// so.
PerftResult CountSequences(Position& position, Family family, Long depth, LastPly lastPly,
                           const std::function<bool()>& interrupted);

} // namespace tavlon12::lab
