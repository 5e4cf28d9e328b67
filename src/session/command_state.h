#pragma once

#include "session/session.h"

namespace tavlon12 {

// Which commands and lists are open in which state of the game. Nothing else enables a command.

/// A game that has just begun.
void OpenNewGame(Session& session);

/// A game that has ended: what would go on with it is greyed.
void ShutEndedGame(Session& session);

/// A position that going back has reached: the game runs again.
void OpenRunningGame(Session& session);

/// After a change of who plays.
void OpenForPlayMode(Session& session);

/// First and Back where the game can go back, Forward and Last where it can go forward.
void OpenNavigation(Session& session);

/// While the computer thinks: all commands but Cancel, Exit and those of the menus View and Help.
void ShutForThinking(Session& session);

/// After it: what the state of the game allows.
void OpenAfterThinking(Session& session);

/// After a game has been loaded.
void OpenAfterLoad(Session& session);

/// A Cancel that has been given.
void ShutCancel(Session& session);

// A longer task shuts all menus, the toolbar and the move field.
void LockCommands(Session& session);
void UnlockCommands(Session& session);

/// The check marks of the mode of play, of the notation and of the calculation, as the settings have them.
void ShowModeMark(Session& session);
void ShowNotationMark(Session& session);
void ShowCalculationMark(Session& session);

} // namespace tavlon12
