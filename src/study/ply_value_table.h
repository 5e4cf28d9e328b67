#pragma once

#include "session/session.h"
#include "study/candidates.h"

#include <string>
#include <vector>

namespace tavlon12 {

/// What the search says of one legal move. Values are seen from the side that makes it.
struct PlyValues {
    std::string Move;
    std::vector<Long> Values; ///< at depth 1 and so on, as far as the search has come
    Long Difference = 0;      ///< value at the deepest depth less that at depth 2
    Long Seconds = 0;
    std::string Line;           ///< the main line; empty where it holds no capture
    bool IsCombination = false; ///< it hides a tactic
};

struct PlyValueTable {
    Long Depth = 0; ///< the deepest search asked for
    std::vector<PlyValues> Rows;
};

/// The orders that a table can be sorted in, all descending. The last lists combinations alone.
enum class PlyValueOrder { BestDifference, BothDifference, BestValue, MostTime, Combinations };
const std::vector<std::string>& PlyValueOrders();

/// The row of a move that has been made on the board, searched to `depth`. A move that ends the game has no values.
PlyValues PlyValueRow(Session& session, const Candidate& candidate, Long depth);

/// The table as text of one letter width, sorted. Rows with equal keys stand as an exchange sort leaves them.
std::string PlyValueText(PlyValueTable table, PlyValueOrder order);

/// The command: searches every legal move at each depth and shows the table, which can be sorted afterwards.
void ShowPlyValueTable(Session& session);

} // namespace tavlon12
