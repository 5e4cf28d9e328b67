#pragma once

#include "session/session.h"

#include <span>

namespace tavlon12 {

/// A command of the window: its menu entry and, where `Button` is not 0, its toolbar button.
struct CommandRow {
    Command Id;
    const char* Name; ///< of the menu entry
    int Button;       ///< place in the toolbar, from 1; places without a command are separators
    const char* Key;  ///< of the toolbar button
    const char* Caption;
    const char* Tip;
    const char* Shortcut; ///< "" for none
    const char* Icon;     ///< of the toolbar's pictures, without extension
    bool Checkable;
    bool WhileThinking;          ///< may run while another command still does
    void (*Procedure)(Session&); ///< null for the command Exit, which is the window's
};

/// In the order of `Command`.
const CommandRow& RowOf(Command command);
std::span<const CommandRow> AllCommands();

inline constexpr int kToolbarPlaces = 27;

/// The command at a place of the toolbar, from 1; null for a separator.
const CommandRow* RowAtButton(int place);

/// A line of the menu tree, read from above: a menu holds what follows until the next one, a submenu until its end.
struct MenuLine {
    enum class Kind { Menu, Submenu, SubmenuEnd, Entry, Dash } What;
    const char* Name = "";
    const char* Caption = "";
    Command Id = Command::New1; ///< of an entry
};
std::span<const MenuLine> MenuTree();

/// The menu of the position set-up, which opens on the board; an empty name is a separator.
struct SetupMenuLine {
    const char* Name;
    const char* Caption;
    SetupEntry Id = SetupEntry::Empty;
};
std::span<const SetupMenuLine> SetupMenu();

} // namespace tavlon12
