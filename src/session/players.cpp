#include "session/players.h"

#include <utility>

namespace tavlon12 {

namespace {

const std::string& NameOf(const Session& session, Long side) {
    const bool begins = (side == kBlack) == (session.Pos.Rules.BlackStarts == 1);
    return begins ? session.Players.BlackPlayerName : session.Players.WhitePlayerName;
}

} // namespace

void SetPlayersOfNewGame(Session& session) {
    const std::string& user = session.Settings.UserName;
    const Long mode = session.Settings.PlayMode;
    session.Players.BlackPlayerName = mode == kComputerComputer ? kComputerName : user;
    session.Players.WhitePlayerName = mode == kPlayerPlayer ? user : kComputerName;
}

void SetPlayersOfPosition(Session& session) {
    SetPlayersOfNewGame(session);
    if (session.Settings.PlayMode != kPlayerPlayer) SetPlayersWithUserToMove(session);
}

void SetPlayersWithUserToMove(Session& session) {
    const bool blackToMove = session.Pos.Tree.SideToMove == kBlack;
    const bool beginnerToMove = blackToMove == (session.Pos.Rules.BlackStarts == 1);
    session.Players = {session.Settings.UserName, kComputerName};
    if (!beginnerToMove) SwapPlayerNames(session);
}

void SwapPlayerNames(Session& session) {
    std::swap(session.Players.BlackPlayerName, session.Players.WhitePlayerName);
}

void SwapNamesOfComputerGame(Session& session) {
    const PlayerNames& players = session.Players;
    if (players.BlackPlayerName == kComputerName || players.WhitePlayerName == kComputerName) SwapPlayerNames(session);
}

const std::string& NameToMove(const Session& session) {
    return NameOf(session, session.Pos.Tree.SideToMove);
}

bool WinnerIsUser(const Session& session, Long winner) {
    return NameOf(session, winner) == session.Settings.UserName;
}

} // namespace tavlon12
