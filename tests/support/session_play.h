#pragma once

#include "support/session_fixture.h"

#include <random>
#include <string>
#include <vector>

namespace tavlon12 {

/// Pieces to be put on a board: White's men and kings, then Black's, by algebraic squares in capitals, for instance
/// "A1".
struct PlacedPieces {
    std::vector<std::string> WhiteMen;
    std::vector<std::string> WhiteKings;
    std::vector<std::string> BlackMen;
    std::vector<std::string> BlackKings;
};

/// Starts a game from the pieces, as from a position that was set up by hand.
void StartFrom(Session& session, const PlacedPieces& pieces, Long sideToMove = kWhite);

/// Starts a game from a random position under the rules in force: up to `pieces` of each side, one in four a king.
void StartFromRandom(Session& session, std::mt19937& random, Long pieces);

/// Makes the move as a person would type it, with all that follows; false when it is refused.
bool Play(Session& session, const std::string& text);

/// A random one of the legal moves as its text in capitals; "" when there is none.
std::string RandomMoveText(Session& session, std::mt19937& random);

/// Rule sets that reach every kind of move: changes of the default's values, with a name for the test's messages.
struct RulesRow {
    std::string Name;
    std::vector<std::pair<std::string, std::string>> Values;
};
const std::vector<RulesRow>& VariedRules();

/// Puts a row's rules into force.
void UseRules(Position& position, const RulesRow& row);

} // namespace tavlon12
