#pragma once

#include "session/session.h"
#include "ui/board_view.h"
#include "ui/command_bar.h"
#include "ui/event_pump.h"
#include "ui/side_panel.h"

#include <QMainWindow>

#include <functional>

namespace tavlon12 {

/// The window of the program. It fills the port of the session that it is given, and empties it again when it goes.
class MainWindow : public QMainWindow {
public:
    explicit MainWindow(Session& session);
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Sizes the window for the skin and the rules in force, places the controls, centres it and shows the product
    /// line.
    void LayoutWindow();

    /// The procedure of a command, when it may run now.
    void RunCommand(Command command);

    /// Runs a procedure of the session for a user's event. While one is running no other starts, unless `nested` allows
    /// it. When the user has closed the program meanwhile, the window closes once the outermost has returned.
    void Run(const std::function<void()>& procedure, bool nested = false);

    /// The same for a move typed or chosen in a list: a piece that is carried on the board goes back first.
    void RunInput(void (*procedure)(Session&));

    /// Closes the window without a question; the program ends with code 1.
    void EndProgram();

    Session& Game;
    int ExitCode = 0;
    CommandBar Bar;
    SidePanel Panel;
    BoardView* Board = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    /// What the program keeps for its next start is written, once.
    void CloseForGood();
    void MakeClient();
    void ConnectBoardMouse();
    void ConnectPanel();
    void SetFocusOrder();
    bool MayClose();
    bool IsShortcut(const QKeyEvent& key) const;

    EventPump Pump;
    YieldGuard SearchYields;
    int Running = 0; ///< procedures under way, one inside the other
    bool AskingToClose = false;
    bool ClosingForGood = false;
    bool Closed = false; ///< what the program keeps has been written
};

} // namespace tavlon12
