#pragma once

#include "rules/generate_moves.h"
#include "session/human_move.h"
#include "session/move_texts.h"
#include "session/reset_game.h"
#include "session/screen.h"
#include "support/positions.h"
#include "support/session_fixture.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12::support {

/// A row of a table of cases. Its name is that of the test.
struct NamedCase {
    std::string_view Name;
};

inline std::ostream& operator<<(std::ostream& stream, const NamedCase& row) {
    return stream << row.Name;
}

inline constexpr auto kNameOfCase = [](const auto& test) { return TestName(test.param.Name); };

/// Starts a game of the fixture's session from the position on its board.
inline void StartFromBoard(SessionFixture& fixture) {
    fixture.Search->Yield = fixture.Game.Port.Time.Yield;
    fixture.Game.Variant.CustomSetup = true;
    ResetGame(fixture.Game);
    fixture.Game.Variant.CustomSetup = false;
    DrawBoard(fixture.Game, 0);
    fixture.Screen.Panel1.clear();
}

/// Starts a game from a placement under the default rules with some keys changed.
inline void StartGame(SessionFixture& fixture, std::string_view changedKeys, std::string_view placement,
                      Long sideToMove = kWhite) {
    Position& position = *fixture.Pos;
    position.Rules = RulesWith(changedKeys);
    AdoptMovements(position);
    fixture.Game.Variant.DefinedRules = position.Rules;
    position.Board = BoardOf(placement);
    position.Tree.SideToMove = sideToMove;
    AdoptBoard(position);
    StartFromBoard(fixture);
}

/// Starts a game from the start position of a rule set.
inline void StartGame(SessionFixture& fixture, const RuleSet& rules) {
    *fixture.Pos = *StartPosition(rules);
    StartFromBoard(fixture);
}

/// Starts a game from random pieces under a rule set.
inline void StartGame(SessionFixture& fixture, const RuleSet& rules, Random& random) {
    *fixture.Pos = *StartPosition(rules);
    PlacePiecesAtRandom(*fixture.Pos, random);
    AdoptBoard(*fixture.Pos);
    StartFromBoard(fixture);
}

/// The computer stops by depth and plays without chance.
inline void LimitDepth(SessionFixture& fixture, Byte depth) {
    fixture.Game.Settings.Limits = {0, depth, 1, 2};
}

/// Makes moves as a person, with all that follows: "c3d4 h8g7". Throws on a move that is refused.
inline void Play(Session& game, std::string_view moves) {
    for (std::size_t at = 0; at < moves.size(); at += 5) {
        const std::string_view key = moves.substr(at, 4);
        const MoveAnswer answer = InputMove(game, key);
        if (std::holds_alternative<Refusal>(answer)) throw std::invalid_argument("no move: " + std::string(key));
        CommitHumanMove(game, std::get<MadeMove>(answer), MovePath::Typed);
    }
}

/// Makes a random one of the legal moves as a person; false where there is none.
inline bool PlayRandomMove(Session& game, Random& random) {
    InitGameTree(game.Pos);
    const Long count = GenerateLegalMoves(game.Pos);
    if (count == 0 || game.Pos.Fault.Passed()) return false;
    const MoveRecord& move = game.Pos.Moves[Draw(random, count)];
    CommitHumanMove(game, std::get<MadeMove>(InputSquares(game, {move.From, move.To})), MovePath::Typed);
    return true;
}

inline std::vector<std::string> Texts(const std::vector<RecordedMessage>& messages) {
    std::vector<std::string> texts;
    for (const RecordedMessage& message : messages) texts.push_back(message.Text);
    return texts;
}

inline bool WasShown(const RecordingPort& screen, std::string_view text) {
    return std::find(screen.Panel1.begin(), screen.Panel1.end(), text) != screen.Panel1.end();
}

} // namespace tavlon12::support
