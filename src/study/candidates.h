#pragma once

#include "session/input_move.h"
#include "session/session.h"

#include <functional>

namespace tavlon12 {

// What the study tools share: each legal move of the position on the board is made and the replies to it are searched
// deeper and deeper.

/// A legal move of the position on the board, which has been made: the replies are searched from `Ply` 0.
struct Candidate {
    Long Index = 0; ///< in the order of the list of legal moves
    MadeMove Made;
    bool EndsGame = false;
};

/// Makes each legal move in turn, as a person's, hands it to `study` and takes it back. Position, game, record and
/// names are then as before, but that the game no longer counts for the rating. Ends early on a cancel.
void StudyCandidates(Session& session, const std::function<void(const Candidate&)>& study);

/// The best reply so far to the move that has been made.
struct BestReply {
    Long Depth = 0;
    Long Value = 0;    ///< seen from the side that has made the move
    std::string Line; ///< the main line, the reply first
    Long Captures = 0; ///< in the main line
    bool IsCapture = false;
};

/// Searches the replies to the move that has been made, at depth 1 to `depth`. Ends early on a cancel, which leaves
/// `SearchAborted` set.
void DeepenReplies(Session& session, Long depth, const std::function<void(const BestReply&)>& bestFound,
                   const std::function<void(Long depth)>& depthFinished);

/// The frame of a study: the board is busy, the commands are shut, Cancel is open.
void RunStudy(Session& session, const std::function<void()>& work);

} // namespace tavlon12
