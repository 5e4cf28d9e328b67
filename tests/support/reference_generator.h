#pragma once

#include "rules/position.h"

#include <array>
#include <string>
#include <vector>

namespace tavlon12::support {

// A second generator of moves, written for clarity from what the rules mean: it copies the board for every jump, keeps
// the jumped pieces in a list beside it, and parses the movement strings itself. It shares no code with the program's
// generator but the records of rules and board. Some rules speak of the order in which captures are found (the longest
// walk "so far", the first row of a walk, the test on duplicates), so it explores in that order too: directions as the
// words stand, depth first, the nearest landing first.

struct ReferencePiece {
    Long Square;
    Long Magnitude;

    auto operator<=>(const ReferencePiece&) const = default;
};

struct ReferenceMove {
    Long From;
    Long To;
    std::vector<ReferencePiece> Jumped; ///< in the order of the walk
    bool Promotes;

    auto operator<=>(const ReferenceMove&) const = default;
};

/// All that the rules look at.
struct ReferenceState {
    RuleSet Rules;
    BoardCells Board;
    Long SideToMove;
    Long OffBoard[2];    ///< White's, Black's
    Long LastTo;         ///< where the last half-move ended, 0 before the first
    bool LastCapInForce; ///< the rule on the piece moved last holds here
};

ReferenceState StateOf(const Position& position);

struct ReferenceMoves {
    std::vector<ReferenceMove> Moves; ///< in the order of the move list
    bool AnyQuiet = false;            ///< a quiet move or a placement exists that the mode asks for
    bool AnyCaptureLeft = false;      ///< a capture is left after the selection
    Long LongestWalk = 0;             ///< most jumps of any walk, recorded or not
    Long Rows = 0;                    ///< captures recorded before the selection
    Long JumpsTried = 0;
    bool GaveUp = false; ///< more jumps than `budget`: nothing else is filled
};

/// The moves under `mode` (above 0 quiet moves and captures, 0 legal captures first, below 0 captures).
ReferenceMoves GenerateReferenceMoves(const ReferenceState& state, Long mode, Long budget = 200000);

/// The state after the move. The rule on the piece moved last holds after it only when `lastCapInForce`.
ReferenceState AfterMove(const ReferenceState& state, const ReferenceMove& move, bool lastCapInForce);

/// The record of the program in the form of this generator.
ReferenceMove AsReference(const MoveRecord& move);

std::string MoveText(const ReferenceMove& move);
std::string MoveTexts(const std::vector<ReferenceMove>& moves);

} // namespace tavlon12::support
