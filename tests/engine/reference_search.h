#pragma once

#include "engine/engine_support.h"
#include "engine/root_search.h"

namespace tavlon12::support {

// The search and the root search once more, each as one plain procedure whose members differ by values read at each
// node. Written for comparison, not for speed: the real ones must visit the same nodes and leave the same memory
// behind.

Long ReferenceSearch(Engine& engine, SearchMember member, Long alpha, Long beta, Long depth);

/// Without clock and listener: iterations 1 to `DepthLimit`.
RootSearchResult ReferenceRoot(Engine& engine, const RootSearchInput& input, RootMoveTable& scores);

} // namespace tavlon12::support
