#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// Where a person's move came from.
enum class MovePath { Board, Typed, LegalList, CandidateList };

/// Enters the move that `InputMove` has just made into the game, tests its end, and lets the computer reply, but after
/// a candidate, which replaces the computer's own move.
void CommitHumanMove(Session& session, MovePath path);

/// Why a refused move is none, as its message says it: "Illegal move", with a reason behind it where one is known. For
/// the text of two squares that `InputMove` has just refused.
std::string RefusedMoveText(const Session& session, const std::string& text);

/// The contents of `Text2` as a move.
void SubmitTypedMove(Session& session);

/// The line selected in `List2` as a move.
void ClickLegalMove(Session& session);

/// The line selected in `List3`: takes the last move back and plays the candidate instead.
void ClickCandidateMove(Session& session);

} // namespace tavlon12
