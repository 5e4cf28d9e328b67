#pragma once

#include "engine/search.h"
#include "engine/search_state.h"
#include "rules/position.h"

#include <array>
#include <functional>

namespace tavlon12 {

inline constexpr Long kNotFilled = -32767;

/// A root move with its score; both `From` and `Score` are -32767 while they are not filled.
struct RootMove {
    Long From = kNotFilled;
    Long To = 0;
    Long Score = kNotFilled;

    bool operator==(const RootMove&) const = default;
};

/// Parallel to the root stretch of the move list, and as large.
using RootMoveTable = std::array<RootMove, kMoveSlots>;

/// How a root move is scored.
enum class RootScoring {
    InWindow,     ///< by `Member` in the window as it stands, to the iteration's depth
    AtUserDepth,  ///< by `ScoreUserMove`
    AtGivenDepth, ///< by `ScoreAtDepth`, a ply less deep than the iteration
};

/// What a root search is asked.
struct RootSearchInput {
    SearchMember Member = SearchMember::SearchGeneral;
    RootScoring Scoring = RootScoring::InWindow;
    Long DepthLimit = 1;           ///< iterations at the most
    bool StopsByTime = false;      ///< otherwise by the iterations alone
    Long TimeLimit = 0;            ///< whole seconds
    Long StartTime = 0;            ///< whole seconds since midnight when the time began to run
    bool MoveLimitHit = false;     ///< the game has passed its move limit: every move is worth a draw
    bool DeepensShortLines = true; ///< a root move with a short best line is searched one ply deeper
    bool RepetitionIsDraw = true;  ///< a root move that repeats a position of the game scores 0
    bool EndsOnAbort = true;       ///< false: `SearchAborted` is neither asked nor set
    Long LastScore = 0;            ///< the score that stands when nothing better is found
};

struct RootSearchResult {
    Long LastScore = 0; ///< of the best root move
    Long BestDepth = 0; ///< the iteration that last confirmed it
};

/// The listener of a root search; each is empty by default. `Seconds` is the clock: whole seconds since midnight.
struct RootSearchHooks {
    std::function<Long()> Seconds = [] { return 0; };
    std::function<void(Long iteration)> IterationStarted = [](Long) {};
    std::function<void(Long iteration, Long slot)> MoveStarted = [](Long, Long) {};
    std::function<void(Long iteration, Long slot)> DeepeningStarted = [](Long, Long) {};
    /// The new best stands at the front of the list, its line in row 0 of the best lines.
    std::function<void(Long iteration, Long slot, Long score)> BestFound = [](Long, Long, Long) {};
    std::function<void()> MoveFinished = [] {};                 ///< one more root move searched
    std::function<void(Long seconds)> TimePassed = [](Long) {}; ///< elapsed, at most the time limit
    std::function<void(Long iteration)> IterationFinished = [](Long) {};
};

/// Seconds from `start` to `now`, both since midnight, with the clock past midnight or not.
Long ElapsedSeconds(Long start, Long now);

/// Deepens iteratively over the moves that the root ply of the move list holds. It sorts the best move to the front of
/// the list, keeps a score for each move in `moves`, and leaves the board as it was. The principal variation stands in
/// row 0 of the best lines when `BestFound` is called; later root moves clear its first cell. Ended early, it leaves
/// `SearchAborted` set (and `StopFlag` 2 when the time was up); a limit that a generator passes in lookahead ends it
/// too, and leaves neither. A cancel takes effect when the first iteration is done. The caller prepares what one
/// thinking shares with the static evaluation before it: `SearchAborted` cleared, `BackRankOn` set, thresholds and
/// noise. `Ply` must be 0.
RootSearchResult SearchRoot(Position& position, SearchState& search, const RootSearchInput& input,
                            const RootSearchHooks& hooks, RootMoveTable& moves);

} // namespace tavlon12
