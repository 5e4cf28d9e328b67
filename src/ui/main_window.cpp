#include "ui/main_window.h"

#include "session/board_input.h"
#include "session/exit.h"
#include "session/help.h"
#include "session/human_move.h"
#include "session/navigation.h"
#include "ui/art.h"
#include "ui/board_geometry.h"
#include "ui/look.h"
#include "ui/window_port.h"

#include <QCloseEvent>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace tavlon12 {

namespace {

/// Of the shortcuts only these edit a text, as they do everywhere.
bool EditsText(int key) {
    return key == Qt::Key_A || key == Qt::Key_C || key == Qt::Key_V || key == Qt::Key_X;
}

} // namespace

MainWindow::MainWindow(Session& session) : Game(session), SearchYields(session.Search, [this] { Pump.Yield(); }) {
    setWindowIcon(ArtIcon(QStringLiteral("icon")));
    setFont(FontOfSize(kFontPixels));
    setMouseTracking(true);
    setContextMenuPolicy(Qt::NoContextMenu);
    MakeClient();
    MakeCommandBar(Bar, *this, [this](Command command) { RunCommand(command); });
    Board = new BoardView(Game, centralWidget());
    ConnectBoardMouse();
    Panel = MakeSidePanel(centralWidget(), *statusBar());
    ConnectPanel();
    SetFocusOrder();
    ConnectPort({Game, *this, Bar, Panel, *Board, Pump, [this] { LayoutWindow(); }, [this] { EndProgram(); }});
    LayoutWindow();
}

MainWindow::~MainWindow() {
    Game.Port = UiPort();
}

void MainWindow::MakeClient() {
    QWidget* client = new QWidget(this);
    client->setObjectName(QStringLiteral("Client"));
    client->setMouseTracking(true);
    setCentralWidget(client);
}

void MainWindow::ConnectBoardMouse() {
    Board->SquareDown = [this](Long view, MouseButton button) {
        Run([=, this] { SquareMouseDown(Game, view, button); });
    };
    Board->SquareMove = [this](Long view, Long x, Long y) { Run([=, this] { SquareMouseMove(Game, view, x, y); }); };
    Board->SquareUp = [this](Long view, MouseButton button, Long x, Long y) {
        Run([=, this] { SquareMouseUp(Game, view, button, x, y); });
    };
    Board->OutsideMove = [this] { FormMouseMove(Game); };
}

void MainWindow::ConnectPanel() {
    Panel.List1->Clicked = Panel.List1->Entered = [this] { RunInput(GoToSelectedLine); };
    Panel.List2->Clicked = Panel.List2->Entered = [this] {
        if (Panel.List2->currentRow() >= 0) RunInput(ClickLegalMove);
    };
    Panel.List3->Clicked = Panel.List3->Entered = [this] {
        if (Panel.List3->currentRow() >= 0) RunInput(ClickCandidateMove);
    };
    const auto submit = [this] { RunInput(SubmitTypedMove); };
    connect(Panel.Text2, &QLineEdit::returnPressed, this, submit);
    connect(Panel.Command1, &QPushButton::clicked, this, submit);
    for (QWidget* widget :
         std::initializer_list<QWidget*>{Panel.List1, Panel.List2, Panel.List3, Panel.Text1, Panel.Text2})
        widget->installEventFilter(this);
}

// When a list is greyed the focus goes on to the next control: to another list or the board, never to a text field.
void MainWindow::SetFocusOrder() {
    QWidget* order[] = {Board, Panel.Text2, Panel.Command1, Panel.Text1, Panel.List1, Panel.List2, Panel.List3};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i) setTabOrder(order[i], order[i + 1]);
    setTabOrder(Panel.List3, Board);
    Board->setFocus();
}

void MainWindow::LayoutWindow() {
    const WindowGeometry& geometry = GeometryOfSkin(Game.Settings.SkinMode, Board->Pictures.BoardCustomSize);
    bool extraPieces = Game.Pos.Rules.canContract == 1;
    for (const ControlPlace& control : geometry.Controls) {
        QString name = QString::fromUtf8(control.Name.data(), static_cast<qsizetype>(control.Name.size()));
        QWidget* widget = centralWidget()->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
        const Place place = PlaceOf(geometry, control.Name, extraPieces);
        widget->setGeometry(place.Left, place.Top, place.Width, place.Height);
    }
    for (std::size_t i = 10; i < Panel.Labels.size(); ++i) Panel.Labels[i]->setVisible(extraPieces);
    Board->SetGeometry(geometry);

    const QSize whole(geometry.Width, geometry.Height); // with the menu bar, from below which the places are counted
    const bool resized = size() != whole;
    setFixedSize(whole);
    // A window of the same size stays where the user has moved it.
    if (QScreen* on = screen(); on != nullptr && resized) {
        QRect frame = frameGeometry();
        frame.moveCenter(on->availableGeometry().center());
        // On a screen that is too small the title bar stays in reach.
        move(std::max(frame.left(), on->availableGeometry().left()),
             std::max(frame.top(), on->availableGeometry().top()));
    }
    for (QLabel* panel : Panel.StatusPanels) panel->clear();
    Panel.StatusPanels[0]->setText(QStringLiteral(" Tavlon12  ") + QLatin1String(kMakersNotice));
}

void MainWindow::RunInput(void (*procedure)(Session&)) {
    Run([this, procedure] {
        EndBoardInput(Game);
        procedure(Game);
    });
}

void MainWindow::RunCommand(Command command) {
    const CommandRow& row = RowOf(command);
    Run(
        [&] {
            EndBoardInput(Game);
            if (command == Command::Exit) {
                close();
            } else {
                row.Procedure(Game);
            }
        },
        row.WhileThinking);
}

void MainWindow::Run(const std::function<void()>& procedure, bool nested) {
    if (Game.Quitting || (Running > 0 && !nested)) return;
    ++Running;
    procedure();
    --Running;
    if (Running == 0 && Game.Quitting && !ClosingForGood) {
        ClosingForGood = true;
        close();
    }
}

void MainWindow::EndProgram() {
    ExitCode = 1;
    ClosingForGood = true;
    close();
}

// While a procedure is under way the window only notes that it is to close: what runs still uses it.
bool MainWindow::MayClose() {
    if (ClosingForGood) return true;
    if (AskingToClose || Game.Quitting) return false;
    const QScopedValueRollback asking(AskingToClose, true);
    return CloseRequested(Game) && Running == 0;
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!MayClose()) {
        event->ignore();
        return;
    }
    ClosingForGood = true;
    event->accept();
    if (!std::exchange(Closed, true)) CloseMainWindow(Game);
}

bool MainWindow::IsShortcut(const QKeyEvent& key) const {
    return std::ranges::any_of(
        Bar.Actions, [&](const QAction* action) { return action->shortcut() == QKeySequence(key.keyCombination()); });
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // Lists and fields have keys of their own that are shortcuts of the window; the window's go first.
        QKeyEvent& key = *static_cast<QKeyEvent*>(event);
        const bool letter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
        if (key.modifiers() == Qt::ControlModifier && letter && IsShortcut(key)) {
            const bool field = watched == Panel.Text1 || watched == Panel.Text2;
            key.setAccepted(field && EditsText(key.key()));
            return true;
        }
    }
    // Also while the computer thinks: a comment belongs to the position before its move.
    if (watched == Panel.Text1 && event->type() == QEvent::KeyPress) Run([this] { CommentKey(Game); }, true);
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::mouseMoveEvent(QMouseEvent* event) {
    FormMouseMove(Game);
    QMainWindow::mouseMoveEvent(event);
}

} // namespace tavlon12
