#pragma once

#include "engine/engine_support.h"

namespace tavlon12::support {

/// The general evaluation with an open window as one scan of the board in its order, term by term, without sums kept
/// between moves. No win, no repetition, no random term: positions that have one are for other tests. Seen from `side`.
Long ReferenceEvaluate(const Position& position, const SearchState& search, Long side);

} // namespace tavlon12::support
