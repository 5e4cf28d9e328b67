#include "rules/capture_selection.h"

#include <cassert>

namespace tavlon12 {

namespace {

bool IsSameStage(const CaptureRow& a, const CaptureRow& b) {
    return a.From == b.From && a.To == b.To && a.PromoMark == b.PromoMark && a.KingsTaken == b.KingsTaken &&
           a.StartPiece == b.StartPiece && a.Path == b.Path;
}

} // namespace

void ApplyKingPriority(const RuleSet& rules, CaptureTable& table) {
    if (Magnitude(table.BestPiece) == kKing && rules.KingCapMove == 1) table.MaxLength = table.LongestOf[kKing];
}

bool StrikeOut(const RuleSet& rules, CaptureTable& table, Long row) {
    assert(row >= 0 && row < table.RowCount && table.RowCount <= kCaptureRows);
    CaptureRow& capture = table.Rows[row];
    if (capture.Path.Count == 0) return true;
    if (rules.MulJumps != 1) {
        for (Long later = row + 1; later < table.RowCount; ++later) {
            if (IsSameStage(capture, table.Rows[later])) table.Rows[later].Path = CapturePath();
        }
    }
    bool kingsGoOn = rules.LongKings == 1 && rules.MaxCapMoveK == 1 && rules.MulJumps == 1;
    bool stopsShort = kingsGoOn && Magnitude(capture.StartPiece) == kKing && capture.Path.Count != capture.LongestSoFar;
    bool startsElsewhere = rules.LastCap == 1 && table.LastCapCount > 0 && !capture.LastCapStart;
    if (!stopsShort && !startsElsewhere) return false;
    capture.Path = CapturePath();
    return true;
}

bool IsDropped(const RuleSet& rules, const CaptureTable& table, const CaptureRow& row) {
    if (rules.MaxCapMove == 1 && row.Path.Count != table.MaxLength) return true;
    if (rules.MaxCapMove == 1 && rules.MaxCapMoveKings == 1 && row.KingsTaken != table.MostKings[table.MaxLength]) {
        return true;
    }
    return rules.KingCapMove == 1 && row.StartPiece != table.BestPiece && rules.MaxCapMoveKings != 1;
}

} // namespace tavlon12
