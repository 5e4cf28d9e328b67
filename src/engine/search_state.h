#pragma once

#include "engine/search_options.h"
#include "rules/board.h"
#include "rules/families.h"
#include "rules/square_set.h"

#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <utility>
#include <vector>

namespace tavlon12 {

/// Lines of three squares from promotion squares on, all in the same direction, within a window of 64 squares.
struct BackRankLine {
    Long Base;          ///< the first square of the window, as a bit of the sets
    std::uint64_t From; ///< the promotion squares, in the window
    Long Second;        ///< step to the second square
    Long Third;         ///< step to the third, from the first
};

/// What the lines of a side see in their window.
struct BackRankView {
    std::uint64_t Empty = 0;
    std::uint64_t WhiteMen = 0;
    std::uint64_t BlackMen = 0;

    bool operator==(const BackRankView&) const = default;
};

/// The lines of the side whose men promote there, and the scores of the views that came last: few moves touch them.
struct BackRankLines {
    struct Known {
        BackRankView View;
        Long Score = 0;
    };
    static constexpr std::size_t kKnown = 1024;

    std::vector<BackRankLine> Lines;
    Long Base = -1;            ///< of the window that they all lie in; -1 when they need several
    std::uint64_t Squares = 0; ///< in that window, the squares that they look at
    std::vector<Known> Memory = std::vector<Known>(kKnown); ///< by a hash of the view
};

using BackRanks = std::array<BackRankLines, 2>;

struct ClosenessSum {
    Long Weighted; ///< over the pieces of a side, support times nearness
    Long Lonely;   ///< how many of them have no support

    bool operator==(const ClosenessSum&) const = default;
};

/// Closeness as it was worked out last for the pieces of a side: between two positions of a search mostly one side's
/// have changed. The key is the whole of what the sum depends on under a set of rules.
class ClosenessMemory {
public:
    struct alignas(64) Entry { ///< in a line of the processor's cache
        SquareSet Men;
        SquareSet Kings;
        Long Target = 0;
        Long ManDivisor = 0;
        ClosenessSum Sum{};
    };

    /// The entry for the pieces of a side with this hash, whatever it holds.
    Entry& At(std::size_t side, std::uint64_t hash) { return Entries[side * kEntries + hash % kEntries]; }
    void Clear() { Entries.assign(Entries.size(), {}); }

private:
    static constexpr std::size_t kEntries = 2048; ///< a side; both take a quarter of a megabyte

    std::vector<Entry> Entries = std::vector<Entry>(2 * kEntries);
};

/// What the evaluation reads beside the position; built anew whenever a rule set comes into force.
struct EvaluationTables {
    std::array<std::array<Long, kBoardCells>, 2> SquareValue{};   ///< by side, then square
    std::array<std::array<Long, kBoardCells>, 2> PromotionCone{}; ///< 1 where a man of the side can still promote
    std::array<Long, 2> EmptyAdvancement{};                       ///< by side, half its square values over all squares
    BackRanks BackRankLines;                                      ///< of the general evaluation, by side
    BackRanks FamilyBackRankLines;                                ///< of the family's
    ClosenessMemory Closeness;
    bool ConesMatter = false;            ///< some square lies outside the cones
    bool PromoEven = false;              ///< both sides have as many promotion squares
    Long PromoCountMax = -1;             ///< the larger number of used promotion slots, minus 1
    bool ClosenessOn = true;             ///< neither winning square rule is on
    Family VariantFamily = Family::None; ///< chosen once per game
};

/// What a cancel of the user does: it ends the search, or it waits for the end of the first iteration, or it has come
/// while it was to wait.
enum class CancelMode { Ends, Waits, HasCome };

/// The search's own state: tables, margins, flags, the random source, the node count and the hook to the event loop.
struct SearchState {
    EvaluationTables Tables;
    SearchOptions Options;

    Long WhiteMenThreshold = 6;
    Long BlackMenThreshold = 6;
    Long LazyMargin = 150; ///< only grows while the program runs
    Long NoiseRange = 0;   ///< amplitude of the random term
    bool BackRankOn = true;
    Long RepeatCount = 0; ///< above 0 while a root move that repeats the game is searched

    bool LostFlag = false;    ///< the last evaluation found its side lost by the pieces or the winning squares
    bool NoMovesDraw = false; ///< it found the side to move without moves where that is a draw
    bool SearchAborted = false;
    bool Unwind = false; ///< with `SearchAborted`: every member returns at once, not only those that choose moves
    CancelMode Cancel = CancelMode::Ends;
    Long ExtensionLimit = 0;     ///< plies from the root beyond which nothing is extended
    std::uint64_t NodeCount = 0; ///< calls of search members since it was last set to 0

    std::mt19937 Random{1};
    std::function<void()> Yield = [] {}; ///< called at each node
};

/// Gives the search another `Yield` for as long as the guard lives; then the one before is back.
class YieldGuard {
public:
    YieldGuard(SearchState& search, std::function<void()> yield)
        : Guarded(search), Before(std::exchange(search.Yield, std::move(yield))) {}
    ~YieldGuard() { Guarded.Yield = std::move(Before); }
    YieldGuard(const YieldGuard&) = delete;
    YieldGuard& operator=(const YieldGuard&) = delete;

private:
    SearchState& Guarded;
    std::function<void()> Before;
};

} // namespace tavlon12
