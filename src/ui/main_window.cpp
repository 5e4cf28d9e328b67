#include "ui/main_window.h"

#include "session/board_input.h"
#include "session/exit.h"
#include "session/human_move.h"
#include "session/navigation.h"
#include "ui/art.h"
#include "ui/shown_text.h"
#include "ui/window_port.h"

#include <QCloseEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QLayout>
#include <QMenuBar>
#include <QPainter>
#include <QScreen>
#include <QStatusBar>
#include <QStyleFactory>
#include <QToolButton>

namespace tavlon12 {

namespace {

constexpr int kFontPixels = 12; ///< the places of the controls are pixels, so the letters are too
constexpr const char* kProductLine = " Tavlon12  free draughts on 12 by 12, by the Tavlon12 team";

const QColor kGround(240, 235, 226);
const QColor kPaper(255, 253, 249);
const QColor kInk(43, 36, 30);
const QColor kLine(201, 191, 176);
const QColor kAccent(122, 78, 42);

QFont FontOfSize(int pixels, bool fixedPitch = false) {
    QFont font = fixedPitch ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QApplication::font();
    font.setPixelSize(pixels);
    if (fixedPitch) font.setStyleHint(QFont::Monospace);
    return font;
}

QPalette LookPalette() {
    QPalette palette(kGround, kGround);
    palette.setColor(QPalette::Window, kGround);
    palette.setColor(QPalette::WindowText, kInk);
    palette.setColor(QPalette::Base, kPaper);
    palette.setColor(QPalette::AlternateBase, QColor(247, 243, 235));
    palette.setColor(QPalette::Text, kInk);
    palette.setColor(QPalette::Button, QColor(232, 225, 213));
    palette.setColor(QPalette::ButtonText, kInk);
    palette.setColor(QPalette::BrightText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(255, 250, 232));
    palette.setColor(QPalette::ToolTipText, kInk);
    palette.setColor(QPalette::PlaceholderText, QColor(150, 140, 128));
    palette.setColor(QPalette::Highlight, kAccent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(24, 88, 140));
    palette.setColor(QPalette::Light, QColor(255, 252, 246));
    palette.setColor(QPalette::Midlight, QColor(240, 233, 222));
    palette.setColor(QPalette::Mid, QColor(190, 180, 165));
    palette.setColor(QPalette::Dark, QColor(150, 140, 126));
    palette.setColor(QPalette::Shadow, QColor(90, 80, 70));
    QColor grey(160, 151, 140);
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, grey);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(205, 196, 182));
    palette.setColor(QPalette::Disabled, QPalette::HighlightedText, kInk);
    // The selected line of a list stays as clear when the focus goes elsewhere.
    palette.setColor(QPalette::Inactive, QPalette::Highlight, kAccent);
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::white);
    return palette;
}

/// Paper with a thin frame that is whole at any scale factor.
QString Framed(const char* widget, int radius) {
    return QStringLiteral("%1 { background: %2; border: 1px solid %3; border-radius: %4px; }")
        .arg(QLatin1String(widget), kPaper.name(), kLine.name())
        .arg(radius);
}

void SetPlace(QWidget& widget, const Place& place) {
    widget.setGeometry(place.Left, place.Top, place.Width, place.Height);
}

/// Of the shortcuts only these edit a text, as they do everywhere.
bool EditsText(int key) {
    return key == Qt::Key_A || key == Qt::Key_C || key == Qt::Key_V || key == Qt::Key_X;
}

} // namespace

void ApplyLook(QApplication& application) {
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    application.setPalette(LookPalette());
}

void GameList::mousePressEvent(QMouseEvent* event) {
    PressCounts = event->button() == Qt::LeftButton;
    if (PressCounts) QListWidget::mousePressEvent(event);
}

// The second half of a double click chooses nothing: it would play a move of the list that has come meanwhile.
void GameList::mouseDoubleClickEvent(QMouseEvent*) {
    PressCounts = false;
}

void GameList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (!PressCounts || event->button() != Qt::LeftButton || itemAt(event->position().toPoint()) == nullptr) return;
    // After the event, as with a release over the board.
    QMetaObject::invokeMethod(
        this, [this] { Clicked(); }, Qt::QueuedConnection);
}

void GameList::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QListWidget::keyPressEvent(event);
        return;
    }
    Entered();
}

void ShortLabel::paintEvent(QPaintEvent* event) {
    QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    if (shown == text()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(contentsRect(), static_cast<int>(alignment()), shown);
}

bool ShortLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        bool whole = fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
        setToolTip(whole ? QString() : text());
    }
    return QLabel::event(event);
}

void VectorPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QSizeF size = QSizeF(Renderer.defaultSize()).scaled(QSizeF(this->size()), Qt::KeepAspectRatio);
    QRectF target(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
    Renderer.render(&painter, target);
}

MainWindow::MainWindow(Session& session) : Game(session) {
    setWindowIcon(ArtIcon(QStringLiteral("icon")));
    setFont(FontOfSize(kFontPixels));
    QWidget* client = new QWidget(this);
    client->setObjectName(QStringLiteral("Client"));
    client->setMouseTracking(true);
    setCentralWidget(client);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::NoContextMenu);

    MakeActions();
    MakeMenus();
    MakeToolbar();
    MakeBoard();
    MakeSidePanel();
    MakeStatusBar();
    // When a list is greyed the focus goes on to the next control: to another list or the board, never to a text field.
    QWidget* order[] = {Board, Text2, Command1, Text1, List1, List2, List3};
    for (std::size_t i = 0; i + 1 < std::size(order); ++i) setTabOrder(order[i], order[i + 1]);
    setTabOrder(List3, Board);
    Board->setFocus();

    ConnectPort(*this);
    LayoutWindow();
}

MainWindow::~MainWindow() {
    Game.Port = UiPort();
    Game.Search.Yield = [] {};
}

void MainWindow::MakeActions() {
    for (const CommandRow& row : AllCommands()) {
        QAction* action = new QAction(QLatin1String(row.Caption), this);
        action->setObjectName(QLatin1String(row.Name));
        action->setToolTip(QLatin1String(row.Tip));
        action->setIconVisibleInMenu(false);
        action->setMenuRole(QAction::NoRole);
        if (*row.Shortcut != '\0') action->setShortcut(QKeySequence(QLatin1String(row.Shortcut)));
        if (*row.Icon != '\0') action->setIcon(ArtIcon(QStringLiteral("toolbar/") + QLatin1String(row.Icon)));
        action->setCheckable(row.Checkable);
        action->setEnabled(row.Procedure != nullptr && row.Id != Command::mnu_Play_Cancel);
        Command id = row.Id;
        connect(action, &QAction::triggered, this, [this, action, id] {
            // The toolkit has moved the mark already; only the command itself may.
            if (action->isCheckable()) action->setChecked(Checked[static_cast<std::size_t>(id)]);
            RunCommand(id);
        });
        Actions[static_cast<std::size_t>(id)] = action;
    }
}

void MainWindow::MakeMenus() {
    menuBar()->setNativeMenuBar(false);
    QMenu* menu = nullptr;
    QMenu* open = nullptr;
    std::size_t count = 0;
    for (const MenuLine& line : MenuTree()) {
        switch (line.What) {
        case MenuLine::Kind::Menu:
            menu = open = menuBar()->addMenu(QLatin1String(line.Caption));
            menu->setObjectName(QLatin1String(line.Name));
            Menus[count++] = menu;
            break;
        case MenuLine::Kind::Submenu:
            open = menu->addMenu(QLatin1String(line.Caption));
            open->setObjectName(QLatin1String(line.Name));
            break;
        case MenuLine::Kind::SubmenuEnd: open = menu; break;
        case MenuLine::Kind::Entry: open->addAction(&ActionOf(line.Id)); break;
        case MenuLine::Kind::Dash: open->addSeparator(); break;
        }
    }

    mnuSetup = new QMenu(this);
    mnuSetup->setObjectName(QStringLiteral("mnuSetup"));
    for (const SetupMenuLine& line : SetupMenu()) {
        if (*line.Name == '\0') {
            mnuSetup->addSeparator();
            continue;
        }
        QAction* action = mnuSetup->addAction(QLatin1String(line.Caption));
        action->setObjectName(QLatin1String(line.Name));
        action->setCheckable(true);
        action->setEnabled(false);
    }
}

void MainWindow::MakeToolbar() {
    Toolbar1 = new QToolBar(centralWidget());
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setIconSize(QSize(20, 20));
    Toolbar1->setMovable(false);
    Toolbar1->layout()->setContentsMargins(2, 1, 2, 1);
    Toolbar1->layout()->setSpacing(0);
    Toolbar1->setToolButtonStyle(Qt::ToolButtonIconOnly);
    for (int place = 1; place <= kToolbarPlaces; ++place) {
        const CommandRow* found = nullptr;
        for (const CommandRow& row : AllCommands()) {
            if (row.Button == place) found = &row;
        }
        if (found == nullptr) {
            Toolbar1->addSeparator();
            continue;
        }
        QAction& action = ActionOf(found->Id);
        Toolbar1->addAction(&action);
        QWidget* button = Toolbar1->widgetForAction(&action);
        button->setObjectName(QLatin1String(found->Key));
        button->setFixedSize(28, 27);
        button->setFocusPolicy(Qt::NoFocus);
    }
}

void MainWindow::MakeBoard() {
    Board = new BoardView(Game, centralWidget());
    Board->SquareDown = [this](Long view, MouseButton button) {
        Run([=, this] { SquareMouseDown(Game, view, button); });
    };
    Board->SquareMove = [this](Long view, Long x, Long y) { Run([=, this] { SquareMouseMove(Game, view, x, y); }); };
    Board->SquareUp = [this](MouseButton button) { Run([=, this] { SquareMouseUp(Game, button); }); };
    Board->OutsideMove = [this] { FormMouseMove(Game); };
}

void MainWindow::MakeSidePanel() {
    QWidget* client = centralWidget();
    auto name = [](QWidget* widget, const QString& text) { widget->setObjectName(text); };

    for (int i = 1; i <= 2; ++i) {
        QFrame* shape = new QFrame(client);
        name(shape, QStringLiteral("Shape%1").arg(i));
        shape->setStyleSheet(Framed("QFrame", 3));
    }
    for (int i = 1; i <= 3; ++i) {
        QFrame* line = new QFrame(client);
        name(line, QStringLiteral("Line%1").arg(i));
        line->setAutoFillBackground(true);
        QPalette colours = line->palette();
        colours.setColor(QPalette::Window, kLine);
        line->setPalette(colours);
    }
    for (std::size_t i = 1; i < Labels.size(); ++i) {
        QLabel* label = i == 9 ? new QLabel(client) : new ShortLabel(client);
        name(label, QStringLiteral("Label%1").arg(i));
        label->setTextFormat(Qt::PlainText);
        Labels[i] = label;
    }
    for (int i : {1, 2}) {
        Labels[i]->setAutoFillBackground(true);
        Labels[i]->setAlignment(Qt::AlignCenter);
    }
    for (int i : {3, 4}) Labels[i]->setContentsMargins(5, 0, 0, 0);
    for (int i : {3, 4, 7}) Labels[i]->setFont(FontOfSize(kFontPixels - 1));
    for (int i : {10, 11, 12, 13, 14}) Labels[i]->setFont(FontOfSize(kFontPixels - 2));
    for (int i : {5, 6}) Labels[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont bold = FontOfSize(kFontPixels);
    bold.setBold(true);
    for (int i : {1, 2, 8}) Labels[i]->setFont(bold);
    Labels[7]->setText(QStringLiteral("Depth:"));
    Labels[9]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    Labels[9]->setWordWrap(true);
    Labels[10]->setText(QStringLiteral("Extra Pieces:"));
    Labels[11]->setText(QStringLiteral("Black"));
    Labels[13]->setText(QStringLiteral("White"));

    for (int i = 1; i <= 3; ++i) {
        GameList* list = new GameList(client);
        name(list, QStringLiteral("List%1").arg(i));
        list->setFont(FontOfSize(kFontPixels, true));
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        list->setUniformItemSizes(true);
        list->setTextElideMode(Qt::ElideNone);
        list->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list->setStyleSheet(Framed("QListWidget", 0) + QStringLiteral("QListWidget::item { padding: 1px 3px; }"));
        list->installEventFilter(this);
        (i == 1 ? List1 : i == 2 ? List2 : List3) = list;
    }
    List1->setToolTip(QStringLiteral("The game. A click goes to the position after the move."));
    List2->setToolTip(QStringLiteral("The legal moves. A click plays the move."));
    List3->setToolTip(QStringLiteral("The computer's candidates with their values. A click plays one instead."));
    List1->Clicked = List1->Entered = [this] { RunInput(GoToSelectedLine); };
    List2->Clicked = [this] {
        if (List2->currentRow() >= 0) RunInput(ClickLegalMove);
    };
    List3->Clicked = [this] {
        if (List3->currentRow() >= 0) RunInput(ClickCandidateMove);
    };

    Text2 = new QLineEdit(client);
    name(Text2, QStringLiteral("Text2"));
    Text2->setPlaceholderText(QStringLiteral("Type a move"));
    Text2->installEventFilter(this);
    Command1 = new QPushButton(QStringLiteral("Move"), client);
    name(Command1, QStringLiteral("Command1"));
    auto submit = [this] { RunInput(SubmitTypedMove); };
    connect(Text2, &QLineEdit::returnPressed, this, submit);
    connect(Command1, &QPushButton::clicked, this, submit);

    Text1 = new QPlainTextEdit(client);
    name(Text1, QStringLiteral("Text1"));
    Text1->setPlaceholderText(QStringLiteral("Comment"));
    Text1->setTabChangesFocus(true);
    Text1->setStyleSheet(Framed("QPlainTextEdit", 0));
    Text1->installEventFilter(this);

    Progress = new QProgressBar(client);
    name(Progress, QStringLiteral("Progress"));
    Progress->setTextVisible(false);
    Progress->setValue(0);
    Progress->setStyleSheet(QStringLiteral("QProgressBar { background: %1; border: none; border-radius: 3px; }"
                                           "QProgressBar::chunk { background: %2; border-radius: 3px; }")
                                .arg(QColor(222, 214, 201).name(), QColor(166, 112, 58).name()));

    name(new VectorPicture(QStringLiteral(":/art/emblem.svg"), client), QStringLiteral("Picture11"));
}

void MainWindow::MakeStatusBar() {
    statusBar()->setObjectName(QStringLiteral("StatusBar1"));
    statusBar()->setSizeGripEnabled(false);
    for (std::size_t i = 0; i < StatusPanels.size(); ++i) {
        QLabel* panel = new QLabel;
        panel->setObjectName(QStringLiteral("StatusPanel%1").arg(i + 1));
        panel->setTextFormat(Qt::PlainText);
        panel->setContentsMargins(6, 0, 6, 2);
        StatusPanels[i] = panel;
        statusBar()->addWidget(panel, i == 0 ? 1 : 0);
    }
    // A long text must not push the other panels out.
    StatusPanels[0]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    StatusPanels[1]->setFixedWidth(kStatusPanel2Width);
    StatusPanels[2]->setFixedWidth(kStatusPanel3Width);
}

GameList& MainWindow::ListOf(ListId list) {
    return list == ListId::List1 ? *List1 : list == ListId::List2 ? *List2 : *List3;
}

QWidget& MainWindow::WidgetOf(Control control) {
    if (control >= Control::Label1 && control <= Control::Label14) {
        return *Labels[1 + static_cast<std::size_t>(control) - static_cast<std::size_t>(Control::Label1)];
    }
    if (control >= Control::mnuGame) {
        return *Menus[static_cast<std::size_t>(control) - static_cast<std::size_t>(Control::mnuGame)];
    }
    if (control == Control::Text1) return *Text1;
    if (control == Control::Text2) return *Text2;
    if (control == Control::Command1) return *Command1;
    return *Toolbar1;
}

void MainWindow::LayoutWindow() {
    const WindowGeometry& geometry = GeometryOfSkin(Game.Settings.SkinMode, Board->Pictures.BoardCustomSize);
    bool extraPieces = Game.Pos.Rules.canContract == 1;
    for (const ControlPlace& control : geometry.Controls) {
        QString name = QString::fromUtf8(control.Name.data(), static_cast<qsizetype>(control.Name.size()));
        QWidget* widget = centralWidget()->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
        SetPlace(*widget, PlaceOf(geometry, control.Name, extraPieces));
    }
    for (std::size_t i = 10; i < Labels.size(); ++i) Labels[i]->setVisible(extraPieces);
    Board->SetGeometry(geometry);

    setFixedSize(geometry.Width, geometry.Height); // the menu bar is part of it, the places are counted from below it
    if (QScreen* on = screen()) {
        QRect frame = frameGeometry();
        frame.moveCenter(on->availableGeometry().center());
        // On a screen that is too small the title bar stays in reach.
        move(std::max(frame.left(), on->availableGeometry().left()),
             std::max(frame.top(), on->availableGeometry().top()));
    }
    for (QLabel* panel : StatusPanels) panel->clear();
    StatusPanels[0]->setText(QLatin1String(kProductLine));
}

void MainWindow::RunInput(void (*procedure)(Session&)) {
    Run([this, procedure] {
        EndBoardInput(Game);
        procedure(Game);
    });
}

void MainWindow::RunCommand(Command command) {
    const CommandRow& row = RowOf(command);
    if (row.Procedure == nullptr) return;
    Run(
        [&] {
            EndBoardInput(Game);
            row.Procedure(*this);
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
void MainWindow::closeEvent(QCloseEvent* event) {
    if (ClosingForGood) {
        event->accept();
        return;
    }
    event->ignore();
    if (AskingToClose || Game.Quitting) return;
    AskingToClose = true;
    bool yes = CloseRequested(Game);
    AskingToClose = false;
    if (!yes || Running > 0) return;
    ClosingForGood = true;
    event->accept();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // Lists and fields have keys of their own that are shortcuts of the window; the window's go first.
        QKeyEvent* key = static_cast<QKeyEvent*>(event);
        bool field = watched == Text1 || watched == Text2;
        if (key->modifiers() == Qt::ControlModifier && key->key() >= Qt::Key_A && key->key() <= Qt::Key_Z) {
            for (const CommandRow& row : AllCommands()) {
                if (ActionOf(row.Id).shortcut() != QKeySequence(key->keyCombination())) continue;
                key->setAccepted(field && EditsText(key->key()));
                return true;
            }
        }
    }
    // Also while the computer thinks: a comment belongs to the position before its move.
    if (watched == Text1 && event->type() == QEvent::KeyPress) Run([this] { CommentKey(Game); }, true);
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::mouseMoveEvent(QMouseEvent* event) {
    FormMouseMove(Game);
    QMainWindow::mouseMoveEvent(event);
}

} // namespace tavlon12
