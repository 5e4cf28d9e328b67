#include "rules/capture_table.h"

namespace tavlon12 {

void ClearCaptures(CaptureTable& table) {
    if (table.RowCount == 0 && table.LastCapCount == 0) return; // nothing has been written since the last time
    table.RowCount = table.MaxLength = table.BestPiece = table.LastCapCount = 0;
    table.NextIsLastCap = false;
    table.MostKings.fill(0);
    table.LongestOf.fill(0);
}

} // namespace tavlon12
