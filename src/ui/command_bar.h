#pragma once

#include "ui/commands.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

#include <array>
#include <functional>

namespace tavlon12 {

/// The menus and the toolbar over the same actions, each under its object name. They belong to the window.
struct CommandBar {
    std::array<QAction*, kCommandCount> Actions{}; ///< by `Command`
    std::array<bool, kCommandCount> Checked{};     ///< the check marks as the logic has set them
    std::array<QMenu*, 6> Menus{};                 ///< Game, Play, Board, View, Extra, Help
    QMenu* mnuSetup = nullptr;
    QToolBar* Toolbar1 = nullptr;

    QAction& ActionOf(Command command) const { return *Actions[static_cast<std::size_t>(command)]; }

    // A command that does nothing yet stays grey.
    void SetEnabled(Command command, bool on);
    void SetChecked(Command command, bool on);
};

/// Fills the bar, with the toolbar in the window's central widget. `run` is called when the user chooses a command.
void MakeCommandBar(CommandBar& bar, QMainWindow& window, const std::function<void(Command)>& run);

} // namespace tavlon12
