#include "session/reset_game.h"

#include "engine/evaluation_tables.h"
#include "rules/generate_moves.h"
#include "session/command_state.h"
#include "session/load_variant.h"
#include "session/move_texts.h"
#include "session/players.h"
#include "session/program_files.h"
#include "session/screen.h"

#include <cmath>
#include <iostream>

namespace tavlon12 {

namespace {

bool BuildPosition(Session& session) {
    Position& position = session.Pos;
    PlaceClassicStart(position);
    session.Variant.VariantName = kDefaultVariant;
    session.Game.RateableGame = true;
    if (auto failure = LoadVariant(session, VariantPath(session))) {
        std::cerr << failure->Message() << '\n';
        FatalEnd(session);
        return false;
    }
    DrawBeginner(session);
    FinishNewPosition(position, session.Variant.DefinedRules.PiecesOnBlack);
    return true;
}

void ClearPosition(Position& position) {
    StartTree(position);
    position.PositionKeys.Fill({});
    position.LastCapAnyPly = false;
    position.StopFlag = 0;
    position.Fault = {};
}

void ClearGameState(Session& session) {
    const bool rateable = session.Game.RateableGame;
    session.Record = GameRecord();
    session.Game = GameState();
    session.Game.RateableGame = rateable;
    session.Game.CaptureChar = session.Settings.ColonCapture == 1 ? ":" : "x";
    session.Thought = Thinking();
    session.Input = BoardInput();
    session.Busy = false;
    session.Search.NoMovesDraw = session.Search.SearchAborted = false;
    session.Search.RepeatCount = 0;
}

void ShowFreshGame(Session& session) {
    UiPort& port = session.Port;
    port.Status.SetStatusText(1, SideToMoveText(session.Pos));
    port.Status.SetSearchLine("no calculation");
    port.Fields.SetText(Control::Text1, "");
    port.Status.SetStatusText(3, session.Game.BookStatusText);
    port.Status.SetProgress(0);
    port.Lists.ListClear(ListId::List1);
    OpenNewGame(session);
}

} // namespace

void DrawBeginner(Session& session) {
    RuleSet& rules = session.Pos.Rules;
    if (rules.RndColor != 1) return;
    rules.BlackStarts = std::bernoulli_distribution()(session.Search.Random) ? 1 : 0;
    session.Variant.DefinedRules.BlackStarts = rules.BlackStarts;
}

void LeaveNumericNotation(Session& session) {
    if (session.Pos.Rules.PiecesOnBlack != 2 || session.Settings.Notation == kAlgebraic) return;
    session.Settings.Notation = kAlgebraic;
    ShowNotationMark(session);
}

bool ResetGame(Session& session) {
    Position& position = session.Pos;
    session.Search.Random.seed(static_cast<std::mt19937::result_type>(std::llround(session.Port.Time.Clock() * 1000)));
    if (!session.Variant.CustomSetup && !BuildPosition(session)) return false;

    session.Port.Status.SetWindowTitle(" Tavlon12 " + std::string(kProgramVersion));
    ShowVariantName(session);
    BuildEvaluationTables(position, session.Search.Tables);
    ClearPosition(position);
    ClearGameState(session);
    ShowFreshGame(session);
    RefreshLegalMoves(session);
    if (position.Fault.Passed()) return false;
    SetPlayersOfNewGame(session);
    LeaveNumericNotation(session);
    return true;
}

} // namespace tavlon12
