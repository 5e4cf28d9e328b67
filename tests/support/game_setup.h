#pragma once

#include "rules/generate_moves.h"
#include "session/reset_game.h"
#include "session/screen.h"
#include "support/positions.h"
#include "support/session_fixture.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12::support {

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

/// The computer stops by depth and plays without chance.
inline void LimitDepth(SessionFixture& fixture, Byte depth) {
    fixture.Game.Settings.Limits = {0, depth, 1, 2};
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
