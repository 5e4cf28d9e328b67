#pragma once

#include "rules/position.h"

namespace tavlon12 {

// Which of the recorded captures are legal depends on all of them: on the greatest number of pieces, on the kings among
// them, on whether a king can capture at all. So the selection runs once, after the last piece has walked. It first
// strikes out rows that repeat another, that stop short of what the same king had already reached, or that do not begin
// with the piece moved last where that is asked for. A row that is left is then dropped when it takes too few pieces,
// too few kings, or is a man's where a king must capture. The counters were final before, so that struck-out rows still
// count in them.

/// Hands every legal row of the table to `onCapture` in the order of recording, until that returns true. Gives whether
/// it did.
template <typename OnCapture> bool SelectCaptures(const Position& position, CaptureTable& table, OnCapture onCapture);

/// Lets the longest capture of a king set the length asked for, where a king's capture goes first.
void ApplyKingPriority(const RuleSet& rules, CaptureTable& table);

/// Whether the row has been struck out already, or is now.
bool StrikeOut(const RuleSet& rules, CaptureTable& table, Long row);

/// Whether a row that was not struck out takes less than the rules ask for.
bool IsDropped(const RuleSet& rules, const CaptureTable& table, const CaptureRow& row);

template <typename OnCapture> bool SelectCaptures(const Position& position, CaptureTable& table, OnCapture onCapture) {
    ApplyKingPriority(position.Rules, table);
    for (Long row = 0; row < table.RowCount; ++row) {
        if (StrikeOut(position.Rules, table, row) || IsDropped(position.Rules, table, table.Rows[row])) continue;
        if (onCapture(table.Rows[row])) return true;
    }
    return false;
}

} // namespace tavlon12
