#pragma once

#include "session/session.h"
#include "ui/board_view.h"
#include "ui/commands.h"

#include <QAction>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QToolBar>

#include <array>
#include <chrono>
#include <functional>

namespace tavlon12 {

/// The style and colours of the program, whatever the desktop's are: the board and its panels are drawn for a light
/// ground.
void ApplyLook(QApplication& application);

/// A list whose lines are clicked: `Clicked` runs when the left button goes up over one, `Entered` when Enter is
/// pressed in it.
class GameList : public QListWidget {
public:
    using QListWidget::QListWidget;
    std::function<void()> Clicked = [] {};
    std::function<void()> Entered = [] {};

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool PressCounts = false; ///< the button that is down may choose a line
};

/// A label that ends a text too long for it in "...", and tells the whole in its tool tip.
class ShortLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

/// A vector picture, drawn as large as its place allows.
class VectorPicture : public QWidget {
public:
    VectorPicture(const QString& file, QWidget* parent) : QWidget(parent), Renderer(file) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer Renderer;
};

/// When the events of the window were last processed under a search.
struct EventPump {
    unsigned Calls = 0;
    std::chrono::steady_clock::time_point Last{};
    bool Inside = false;
};

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

    QAction& ActionOf(Command command) { return *Actions[static_cast<std::size_t>(command)]; }
    GameList& ListOf(ListId list);
    QWidget& WidgetOf(Control control);

    Session& Game;
    int ExitCode = 0;

    // The controls, each under its object name
    BoardView* Board = nullptr;
    QToolBar* Toolbar1 = nullptr;
    std::array<QLabel*, 3> StatusPanels{};
    QProgressBar* Progress = nullptr;
    std::array<QLabel*, 15> Labels{}; ///< from 1: `Label1` to `Label14`
    GameList* List1 = nullptr;
    GameList* List2 = nullptr;
    GameList* List3 = nullptr;
    QLineEdit* Text2 = nullptr;
    QPushButton* Command1 = nullptr;
    QPlainTextEdit* Text1 = nullptr;
    std::array<QMenu*, 6> Menus{}; ///< Game, Play, Board, View, Extra, Help
    QMenu* mnuSetup = nullptr;
    std::array<bool, kCommandCount> Checked{}; ///< the check marks as the logic has set them
    EventPump Pump;
    bool TypedLast = false; ///< the move field had the focus when it was greyed

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    void MakeActions();
    void MakeMenus();
    void MakeToolbar();
    void MakeBoard();
    void MakeSidePanel();
    void MakeStatusBar();

    std::array<QAction*, kCommandCount> Actions{};
    int Running = 0; ///< procedures under way, one inside the other
    bool AskingToClose = false;
    bool ClosingForGood = false;
};

} // namespace tavlon12
