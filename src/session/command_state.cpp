#include "session/command_state.h"

#include <initializer_list>

namespace tavlon12 {

namespace {

using Commands = std::initializer_list<Command>;

constexpr Commands kThinking{Command::Compute, Command::mnu_Play_Ccomputer, Command::Analyze};
constexpr Commands kAgainstComputer{Command::Offerdraw, Command::Resign};
constexpr Commands kBackward{Command::First, Command::Moveback};
constexpr Commands kForward{Command::MoveForward, Command::Last};

/// Shut while the computer thinks and open in every state of the game.
constexpr Commands kBetweenThinking{
    Command::New1,
    Command::NewVariant,
    Command::Open1,
    Command::Save,
    Command::Details,
    Command::Cplayer,
    Command::Pplayer,
    Command::Options,
    Command::Turn,
    Command::Nonotation,
    Command::mnu_Board_Notation_Chess,
    Command::mnu_Board_Notation_Checkers,
    Command::CreateHtml,
    Command::plyvaluetable,
    Command::problems,
};

void Enable(Session& session, Commands commands, bool on) {
    for (Command command : commands) session.Port.Commands.SetCommandEnabled(command, on);
}

/// What goes on with a running game by a thought of the computer or an agreement with it.
void EnableRunningGame(Session& session, bool on) {
    Enable(session, kThinking, on);
    Enable(session, kAgainstComputer, on && session.Settings.PlayMode == kPlayerComputer);
    Enable(session, {Command::Hint}, on && session.Settings.PlayMode != kComputerComputer);
}

void EnableMenus(Session& session, bool on) {
    for (Control control : {Control::mnuGame, Control::mnuPlay, Control::mnu_Board1, Control::view, Control::extra,
                            Control::Help, Control::Text2, Control::Toolbar1}) {
        session.Port.Fields.SetControlEnabled(control, on);
    }
}

} // namespace

void OpenNewGame(Session& session) {
    EnableRunningGame(session, true);
    OpenNavigation(session);
    Enable(session, {Command::mnu_Play_Cancel}, false);
    session.Port.Lists.SetListEnabled(ListId::List2, true);
    session.Port.Lists.SetListEnabled(ListId::List3, false);
}

void ShutEndedGame(Session& session) {
    EnableRunningGame(session, false);
    session.Port.Lists.SetListEnabled(ListId::List2, false);
}

void OpenForPlayMode(Session& session) {
    EnableRunningGame(session, !session.Game.GameOver);
}

void OpenRunningGame(Session& session) {
    EnableRunningGame(session, true);
    // Once more in hand, a game of the computer against itself is the user's too.
    Enable(session, kAgainstComputer, session.Settings.PlayMode != kPlayerPlayer);
    Enable(session, {Command::Hint}, true);
    OpenNavigation(session);
    session.Port.Lists.SetListEnabled(ListId::List2, true);
}

void OpenNavigation(Session& session) {
    const Long index = session.Pos.Tree.TreeIndex;
    Enable(session, kBackward, index > 0);
    Enable(session, kForward, session.Record.MoveHistory[index + 1].From != 0);
}

void ShutForThinking(Session& session) {
    EnableRunningGame(session, false);
    for (Commands commands : {kBackward, kForward, kBetweenThinking}) Enable(session, commands, false);
    Enable(session, {Command::mnu_Play_Cancel}, true);
    if (session.Settings.PlayMode == kComputerComputer) return;
    for (ListId list : {ListId::List1, ListId::List2, ListId::List3}) session.Port.Lists.SetListEnabled(list, false);
}

void OpenAfterThinking(Session& session) {
    if (!session.Game.GameOver) EnableRunningGame(session, true);
    Enable(session, kBetweenThinking, true);
    Enable(session, {Command::mnu_Play_Cancel}, false);
    OpenNavigation(session);
    session.Port.Fields.SetControlEnabled(Control::mnu_Board1, true);
    if (session.Settings.PlayMode == kComputerComputer) return;
    session.Port.Lists.SetListEnabled(ListId::List1, true);
    if (!session.Game.GameOver) session.Port.Lists.SetListEnabled(ListId::List2, true);
    if (session.Thought.RootMoves[0].From != kNotFilled) session.Port.Lists.SetListEnabled(ListId::List3, true);
}

void OpenAfterLoad(Session& session) {
    OpenNavigation(session);
    session.Port.Lists.SetListEnabled(ListId::List1, true);
    session.Port.Lists.SetListEnabled(ListId::List2, !session.Game.GameOver);
    session.Port.Lists.SetListEnabled(ListId::List3, true);
}

void ShutCancel(Session& session) {
    Enable(session, {Command::mnu_Play_Cancel}, false);
}

void LockCommands(Session& session) {
    EnableMenus(session, false);
}

void UnlockCommands(Session& session) {
    EnableMenus(session, true);
}

void ShowModeMark(Session& session) {
    const Long mode = session.Settings.PlayMode;
    CommandPort& port = session.Port.Commands;
    port.SetCommandChecked(Command::Cplayer, mode == kPlayerComputer);
    port.SetCommandChecked(Command::Pplayer, mode == kPlayerPlayer);
    port.SetCommandChecked(Command::mnu_Play_Ccomputer, mode == kComputerComputer);
}

void ShowNotationMark(Session& session) {
    const Byte notation = session.Settings.Notation;
    CommandPort& port = session.Port.Commands;
    port.SetCommandChecked(Command::mnu_Board_Notation_Chess, notation == kAlgebraic);
    port.SetCommandChecked(Command::mnu_Board_Notation_Checkers, notation == kNumeric);
    port.SetCommandChecked(Command::Nonotation, notation != kAlgebraic && notation != kNumeric);
}

void ShowCalculationMark(Session& session) {
    session.Port.Commands.SetCommandChecked(Command::calculation, session.Settings.CalculationOn == 1);
}

} // namespace tavlon12
