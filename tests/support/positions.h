#pragma once

#include "rules/position.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <string_view>

namespace tavlon12::support {

/// The default rules with some keys changed: "MaxCapMove=0 | WhiteManMovement=NW;NE NW;NE". Throws on an unknown key or
/// a value out of range, so that a misspelt table row fails instead of testing the defaults.
RuleSet RulesWith(std::string_view changedKeys);

/// The keys in which the rules differ from the defaults, in the form that `RulesWith` reads.
std::string ChangedKeys(const RuleSet& rules);

/// The square of "c3" or "lb", 0 for any other text. Independent of the notation of the program.
Long SquareOf(std::string_view name);
std::string NameOf(Long square);

/// Pieces from a list such as "W: c3 Ke5; B: d4 Kf6" (K before a king), or from 144 digits. Throws on a bad square.
BoardCells BoardOf(std::string_view placement);

/// The list of a board, for messages of a failed test.
std::string PlacementOf(const BoardCells& board);

/// A position at the root of a new game: the rules adopted, the board as told, every piece of `ContractNumber` off the
/// board. No piece is shifted to the playing colour.
std::unique_ptr<Position> MakePosition(const RuleSet& rules, std::string_view placement, Long sideToMove = kWhite);
std::unique_ptr<Position> MakePosition(const RuleSet& rules, const BoardCells& board, Long sideToMove = kWhite);

/// The start position of a rule set, shifted to its colour, as a new game makes it.
std::unique_ptr<Position> StartPosition(const RuleSet& rules);

/// Pretends that the last half-move ended on this square.
void SetLastMove(Position& position, std::string_view square);

/// A move as "c3-d4", "c3xe5(d4,Kf6)" with the jumped pieces in order, "@c1" for a placement; "=K" behind a promotion.
std::string MoveText(const MoveRecord& move);

/// The moves of the current ply in the order of the list, one blank between two.
std::string MoveTexts(const Position& position);

/// What a failed comparison needs to be repeated by hand.
std::string DescribePosition(const Position& position);

struct NamedRules {
    std::string Name;
    RuleSet Rules;
};

/// The letters and digits of a name: all that the name of a test may have.
std::string TestName(std::string_view name);

/// How a parameterised test shows a row.
void PrintTo(const NamedRules& rules, std::ostream* stream);

/// The rules of all shipped definitions.
std::span<const NamedRules> ShippedRules();

/// Of some of them: real games and some that use the rarer rules.
std::span<const NamedRules> NamedRuleSets();

/// How often to repeat a random test: a tenth where assertions or sanitizers make everything several times slower.
constexpr Long Scaled(Long count) {
#ifdef _GLIBCXX_ASSERTIONS
    return (count + 9) / 10;
#else
    return count;
#endif
}

using Random = std::mt19937_64;

/// 0 to `count` - 1, the same on every platform.
Long Draw(Random& random, Long count);
bool DrawOneIn(Random& random, Long count);

/// Any combination of the values that decide which moves exist and what they do.
RuleSet RandomRules(Random& random);

/// Replaces the pieces by random ones on the playing squares: density, kings, side to move, last move and pieces off
/// the board are drawn too. The rules and the ply stay, the material balance is counted anew.
void PlacePiecesAtRandom(Position& position, Random& random);

/// Up to `halfMoves` random moves, each accepted as played, so that the position ends at the root. Ends early where
/// there is no legal move. Gives the number of moves made.
Long PlayAtRandom(Position& position, Long halfMoves, Random& random);

/// Makes the move and makes the position after it the root.
void PlayMove(Position& position, Long slot);

} // namespace tavlon12::support
