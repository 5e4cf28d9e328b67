#include "rules/move_list.h"

#include "rules/position.h"

#include <algorithm>

namespace tavlon12 {

namespace {

constexpr Long kBestLineScore = 500;
constexpr Long kFirstKillerScore = 250;
constexpr Long kSecondKillerScore = 150;
constexpr Long kRecaptureScore = 300;

/// What the memory of the search adds to a move: the jumped pieces play no part.
Long MemoryScore(const Position& position, Long from, Long to) {
    Long ply = position.Tree.Ply;
    const BestLineCell& best = position.BestLine[0][ply];
    if (best.From == from && best.To == to) return kBestLineScore;
    const auto& killers = position.Killers[ply];
    if (killers[0] == SquarePair{from, to}) return kFirstKillerScore;
    if (killers[1] == SquarePair{from, to}) return kSecondKillerScore;
    return 0;
}

Long CaptureScore(const Position& position, Long from, Long to, const CapturePath& captures) {
    const GameTree& tree = position.Tree;
    Long score = 100 * captures.MaterialSum() - 50 * Magnitude(position.Board[from]);
    if (tree.Ply > 0 && to == tree.PlyLastTo[tree.Ply - 1]) score += kRecaptureScore;
    return score + MemoryScore(position, from, to);
}

void Append(Position& position, const MoveRecord& move) {
    GameTree& tree = position.Tree;
    position.Moves[tree.NextMoveSlot] = move;
    if (tree.NextMoveSlot < kMoveSlots - 1) {
        ++tree.NextMoveSlot;
    } else {
        position.StopFlag = kStopCancel;
    }
}

} // namespace

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

void InitGameTree(Position& position) {
    GameTree& tree = position.Tree;
    if (tree.Ply == 0) return;
    tree.PlyValue[0] = tree.PlyValue[1];
    tree.PlyMaterial[0] = tree.PlyMaterial[1];
    tree.Ply = 0;
}

void RegisterMove(Position& position, Long from, Long to) {
    MoveRecord move;
    move.From = from;
    move.To = to;
    move.SortScore = MemoryScore(position, from, to);
    Append(position, move);
}

void RegisterCaptureMove(Position& position, Long from, Long to, const CapturePath& captures) {
    Append(position, {from, to, captures, 0, CaptureScore(position, from, to, captures)});
}

void RegisterPromotion(Position& position, Long from, Long to, const CapturePath& captures) {
    Long score = captures.Count != 0 ? CaptureScore(position, from, to, captures) : MemoryScore(position, from, to);
    Append(position, {from, to, captures, kKing, score});
}

Long NextBestMove(Position& position) {
    const GameTree& tree = position.Tree;
    Long bestScore = kUsedScore;
    Long bestSlot = -1;
    for (Long slot = tree.PlyFirstMove[tree.Ply]; slot < tree.PlyFirstMove[tree.Ply + 1]; ++slot) {
        if (position.Moves[slot].SortScore > bestScore) {
            bestScore = position.Moves[slot].SortScore;
            bestSlot = slot;
        }
    }
    if (bestSlot >= 0) position.Moves[bestSlot].SortScore = kUsedScore;
    return bestSlot;
}

} // namespace tavlon12
