#pragma once

#include "session/session.h"
#include "ui/board_view.h"
#include "ui/command_bar.h"
#include "ui/event_pump.h"
#include "ui/side_panel.h"

#include <functional>

namespace tavlon12 {

/// What the port of a window works on.
struct WindowParts {
    Session& Game;
    QMainWindow& Window;
    CommandBar& Bar;
    SidePanel& Panel;
    BoardView& Board;
    EventPump& Pump;
    std::function<void()> LayoutWindow;
    std::function<void()> EndProgram;
};

/// Fills the session's port with a window. All parts must outlive its use.
void ConnectPort(const WindowParts& parts);

} // namespace tavlon12
