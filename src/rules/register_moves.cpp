#include "rules/register_moves.h"

namespace tavlon12 {

Long MovePicker::Next() {
    // No score is higher than the last one, and most moves have the same.
    if (Slot >= 0) {
        for (Long slot = Slot + 1; slot < End; ++slot) {
            if (Scores[slot] == Score) return Take(slot);
        }
    }
    Long best = kUsedScore;
    Long bestSlot = -1;
    for (Long slot = First; slot < End; ++slot) {
        if (Scores[slot] > best) {
            best = Scores[slot];
            bestSlot = slot;
        }
    }
    return bestSlot >= 0 ? Take(bestSlot) : -1;
}

Long MovePicker::Take(Long slot) {
    Score = Scores[slot];
    Scores[slot] = kUsedScore;
    return Slot = slot;
}

} // namespace tavlon12
