#include "rules/move_list.h"

#include <algorithm>

namespace tavlon12 {

bool CapturePath::IsBeginningOf(const CapturePath& other) const {
    return Count <= other.Count && std::equal(Squares.begin(), Squares.begin() + Count, other.Squares.begin());
}

CapturePath CapturePath::Sorted() const {
    std::array<SquarePair, kMaxJumps> pieces; // square and magnitude
    for (Long i = 0; i < Count; ++i) pieces[i] = {Squares[i], MagnitudeAt(i)};
    std::sort(pieces.begin(), pieces.begin() + Count,
              [](const SquarePair& a, const SquarePair& b) { return a.From < b.From; });
    CapturePath sorted;
    for (Long i = 0; i < Count; ++i) sorted.Add(pieces[i].From, pieces[i].To);
    return sorted;
}

} // namespace tavlon12
