#include "lab/perft.h"

#include "lab/family.h"
#include "rules/generate_moves.h"
#include "rules/make_move.h"

#include <utility>

namespace tavlon12::lab {

namespace {

class Counter {
public:
    Counter(Position& position, Family family, Long depth, LastPly lastPly, const std::function<bool()>& interrupted)
        : position_(position), family_(family), depth_(depth), made_(lastPly == LastPly::Made),
          interrupted_(interrupted) {
        result_.ByDepth.resize(static_cast<std::size_t>(depth));
    }

    PerftResult Run() {
        Explore(0);
        return std::move(result_);
    }

private:
    /// Counts on from the present position, which `done` moves have reached; gives the sequences of the full depth.
    std::uint64_t Explore(Long done) {
        const GameTree& tree = position_.Tree;
        const bool last = done + 1 == depth_;
        const bool bulk = last && done > 0 && !made_;
        const Long count = bulk ? CountLegalMovesOf(family_, position_) : GenerateLegalMovesOf(family_, position_);
        if (position_.StopFlag != 0 || position_.Fault.Passed()) return 0;
        if (interrupted_ && interrupted_()) {
            result_.Interrupted = true;
            return 0;
        }
        result_.ByDepth[static_cast<std::size_t>(done)] += static_cast<std::uint64_t>(count);
        const Long first = tree.PlyFirstMove[tree.Ply];
        if (last && done > 0) {
            for (Long slot = first; made_ && slot < first + count; ++slot) {
                PerformMove(position_, slot);
                TakeBackMove(position_, slot);
            }
            return static_cast<std::uint64_t>(count);
        }
        std::uint64_t total = 0;
        for (Long slot = first; slot < first + count; ++slot) {
            std::uint64_t below = 1;
            if (!last) {
                PerformMove(position_, slot);
                below = Explore(done + 1);
                TakeBackMove(position_, slot);
                if (result_.Interrupted || position_.StopFlag != 0 || position_.Fault.Passed()) return 0;
            }
            if (done == 0) result_.Roots.push_back({position_.Moves[slot].From, position_.Moves[slot].To, below});
            total += below;
        }
        return total;
    }

    Position& position_;
    Family family_;
    Long depth_;
    bool made_;
    const std::function<bool()>& interrupted_;
    PerftResult result_;
};

} // namespace

PerftResult CountSequences(Position& position, Family family, Long depth, LastPly lastPly,
                           const std::function<bool()>& interrupted) {
    return Counter(position, family, depth, lastPly, interrupted).Run();
}

} // namespace tavlon12::lab
