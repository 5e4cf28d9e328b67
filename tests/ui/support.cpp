#include "support.h"

#include "session/program_files.h"
#include "session/reset_game.h"
#include "session/screen.h"
#include "ui/look.h"
#include "ui/shown_text.h"

#include <QToolButton>
#include <QWindow>

namespace tavlon12::support {

BoxWatcher::BoxWatcher() {
    connect(&Timer, &QTimer::timeout, this, [this] { Look(); });
    Timer.start(5);
}

void BoxWatcher::Look() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr || !box->isVisible() || Inside) return;
    Inside = true;
    Seen.push_back({box->windowTitle(), box->text(), box->icon()});
    BeforeAnswer();
    bool question = box->icon() == QMessageBox::Question;
    QTest::mouseClick(box->button(question ? Answer : QMessageBox::Ok), Qt::LeftButton);
    Inside = false;
}

DialogUser::DialogUser(const char* name, std::function<void(QDialog&)> use) {
    connect(&Timer, &QTimer::timeout, this, [this, name, use] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isActiveWindow() || dialog->objectName() != QLatin1String(name)) return;
        Timer.stop();
        Used = true;
        use(*dialog);
        if (!dialog->isVisible()) return;
        if (!QTest::currentTestFailed()) QTest::qFail("the dialog was left open", __FILE__, __LINE__);
        dialog->reject();
    });
    Timer.start(5);
}

GameWindow::GameWindow(const std::string& skinName, Long playMode)
    : Pos(std::make_unique<Position>()), Search(std::make_unique<SearchState>()), Game(*Pos, *Search) {
    Game.ProgramFolder = Folder.Path;
    Game.InstalledFolder = TAVLON12_DATA_DIR;
    ThinkShortly();
    StoredSettings stored{Game.Settings, {}};
    stored.User.SkinName = skinName;
    stored.User.PlayMode = playMode;
    stored.User.UseRating = 0;
    WriteFile(Folder.Path / kSettingsFile, SettingsText(stored));
    Window = std::make_unique<MainWindow>(Game);
    Game.Port.Time.Wait = [](double) { QCoreApplication::processEvents(); };
    Started = StartUp(Game);
    if (!Started) return;
    Window->show();
    Window->activateWindow();
    QCoreApplication::processEvents();
}

void GameWindow::Place(std::string_view changedKeys, std::string_view placement) {
    Pos->Rules = RulesWith(changedKeys);
    AdoptMovements(*Pos);
    Game.Variant.DefinedRules = Pos->Rules;
    Pos->Board = BoardOf(placement);
    Pos->Tree.SideToMove = kWhite;
    AdoptBoard(*Pos);
    Game.Variant.CustomSetup = true;
    ResetGame(Game);
    Game.Variant.CustomSetup = false;
    Window->LayoutWindow();
    Game.Port.Status.SetStatusText(1, "");
    DrawBoard(Game, 0);
}

Long GameWindow::ViewOf(std::string_view square) const {
    return ViewOfCell(SquareOf(square), Game.Settings.BoardTurned);
}

QPoint GameWindow::PointOf(std::string_view square) const {
    return PointOf(*Window->Board, Window->Board->SquareRect(ViewOf(square)).center());
}

void GameWindow::MoveMouse(QPoint point) {
    Mouse = point;
    QTest::mouseMove(Window->windowHandle(), point);
}

void GameWindow::Press() {
    QTest::mousePress(Window->windowHandle(), Qt::LeftButton, {}, Mouse);
}

void GameWindow::Release() {
    QTest::mouseRelease(Window->windowHandle(), Qt::LeftButton, {}, Mouse);
    QCoreApplication::processEvents();
}

void GameWindow::PressOn(std::string_view square) {
    MoveMouse(square);
    Press();
}

void GameWindow::Drag(std::string_view from, std::string_view to) {
    PressOn(from);
    QPoint end = PointOf(to);
    MoveMouse((Mouse + end) / 2);
    MoveMouse(end);
    Release();
}

void GameWindow::Click(QPoint point) {
    MoveMouse(point);
    Press();
    Release();
}

void GameWindow::ClickLine(GameList& list, int line) {
    Click(PointOf(*list.viewport(), list.visualItemRect(list.item(line)).center()));
}

void GameWindow::ClickButton(const char* key) {
    auto* button = Window->Bar.Toolbar1->findChild<QToolButton*>(QLatin1String(key));
    Click(PointOf(*button, button->rect().center()));
}

void GameWindow::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    // Without a window manager nobody gives the window its focus back when a box has closed.
    Window->activateWindow();
    QTest::keyClick(Window->windowHandle(), key, modifiers);
    QCoreApplication::processEvents();
}

void GameWindow::TypeMove(const QString& text) {
    Click(PointOf(*Window->Panel.Text2, Window->Panel.Text2->rect().center()));
    for (QChar letter : text) QTest::keyClick(Window->windowHandle(), letter.toLatin1());
    Key(Qt::Key_Return);
}

std::string GameWindow::Lines(const GameList& list) const {
    std::string lines;
    for (int i = 0; i < list.count(); ++i) lines += (i == 0 ? "" : "|") + BytesOf(list.item(i)->text());
    return lines;
}

int RunTests(QObject& test, int argc, char** argv) {
    ApplyLook(*qApp);
    // Each test closes its window; the next one needs its event loops.
    QApplication::setQuitOnLastWindowClosed(false);
    return QTest::qExec(&test, argc, argv);
}

} // namespace tavlon12::support
