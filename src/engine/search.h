#pragma once

#include "engine/search_state.h"
#include "rules/position.h"

#include <utility>

namespace tavlon12 {

/// While it lives the position is searched under the tighter limit of work. A limit of a generator that is passed then
/// ends the search as a full move list does, and when it is over the position on the board is as playable as before.
class Lookahead {
public:
    explicit Lookahead(Position& position)
        : Pos(position), JumpLimit(std::exchange(position.JumpLimit, kLookaheadJumps)) {}
    ~Lookahead() {
        Pos.JumpLimit = JumpLimit;
        Pos.Fault = {};
    }
    Lookahead(const Lookahead&) = delete;
    Lookahead& operator=(const Lookahead&) = delete;

    bool LimitPassed() const { return Pos.Fault.Passed(); }

private:
    Position& Pos;
    Long JumpLimit;
};

/// The members of the search family. Search members choose moves, Score members only give a score.
enum class SearchMember {
    SearchGeneral,
    SearchAnti,
    SearchGoal,
    ScoreGeneral,
    ScoreGeneralAllSquares,
    ScoreAnti,
    ScoreAntiAllSquares,
    SearchAmerican,
    SearchItalian,
    SearchGerman,
    SearchRussian,
    ScoreAmerican,
    ScoreItalian,
    ScoreGerman,
    ScoreRussian,
};

/// The member that searches moves under these rules, and the one that scores positions.
SearchMember SearchMemberOf(const Position& position, const SearchState& search);
SearchMember ScoreMemberOf(const Position& position, const SearchState& search);

/// Whether the line below a winning root move is looked at again with an open window.
bool DeepensWithFullWindow(SearchMember member);

/// The value of the position for the side to move, by negamax with alpha-beta on the board in place. After a stop
/// `SearchAborted` is set and the value means nothing.
Long RunSearch(SearchMember member, Position& position, SearchState& search, Long alpha, Long beta, Long depth);

/// The score of a position for the side that has just moved.
struct DepthScore {
    Long Score = 0;       ///< the static score where the search was ended early, by a passed limit or from outside
    bool Stopped = false; ///< by a hook that sets `SearchAborted` and `Unwind`; both are cleared again
};

/// The score at the depth for a person's move.
DepthScore ScoreUserMove(Position& position, SearchState& search);

/// The score at a given depth, one less for the general member where all squares are used.
DepthScore ScoreAtDepth(Position& position, SearchState& search, Long depth);

} // namespace tavlon12
