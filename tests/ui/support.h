#pragma once

#include "session/start_up.h"
#include "support/positions.h"
#include "support/temporary_folder.h"
#include "ui/main_window.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace QTest {
template <> inline char* toString(const std::string& text) {
    return qstrdup(("\"" + text + "\"").c_str());
}
} // namespace QTest

namespace tavlon12::support {

struct SeenBox {
    QString Title;
    QString Text;
    QMessageBox::Icon Icon;

    bool operator==(const SeenBox&) const = default;
};

inline SeenBox ErrorBox(const QString& text) {
    return {QStringLiteral("Error"), text, QMessageBox::Warning};
}

/// Notes every message box that opens, and answers it: OK, or `Answer` where it is a question.
class BoxWatcher : public QObject {
public:
    BoxWatcher();

    std::vector<SeenBox> Seen;
    QMessageBox::StandardButton Answer = QMessageBox::Yes;
    std::function<void()> BeforeAnswer = [] {}; ///< runs while the box is open

private:
    void Look();

    QTimer Timer;
    bool Inside = false;
};

/// Runs `use` once a dialog of this name is open and has the keys. `use` must close it: one that is left open is a
/// failure, and is closed.
class DialogUser : public QObject {
public:
    DialogUser(const char* name, std::function<void(QDialog&)> use);

    bool Used = false;

private:
    QTimer Timer;
};

/// A control of a dialog by its name.
template <typename Widget = QWidget> Widget& Find(const QDialog& dialog, const QString& name) {
    return *dialog.findChild<Widget*>(name);
}

/// A click on a control as a mouse makes it: on a check box or button, on what is drawn.
inline void ClickOn(QWidget& widget) {
    const bool box = qobject_cast<QCheckBox*>(&widget) || qobject_cast<QRadioButton*>(&widget);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, box ? QPoint(10, widget.height() / 2) : widget.rect().center());
}

inline void ClickOn(const QDialog& dialog, const QString& name) {
    ClickOn(Find(dialog, name));
}

/// Types a text in the place of what a field holds.
inline void Type(const QDialog& dialog, const QString& name, const QString& text) {
    QLineEdit& field = Find<QLineEdit>(dialog, name);
    ClickOn(field);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
}

/// The whole program but its `main`: a session in its window, started from the project's data folder and shown. Between
/// moves it does not pause.
struct GameWindow {
    explicit GameWindow(const std::string& skinName = "Classic Small", Long playMode = kPlayerPlayer);

    /// Starts a game of White's from a placement under the default rules with some keys changed.
    void Place(std::string_view changedKeys, std::string_view placement);

    /// The computer thinks until it is stopped, or no longer than it takes to search one ply.
    void ThinkLong() { Game.Settings.Limits = {0, 20, 0, 180}; }
    void ThinkShortly() { Game.Settings.Limits = {0, 1, 1, 2}; }

    // Events of the mouse go to the window, which finds the widget, as those of a real mouse do. Squares are named as
    // in "c3".
    QPoint PointOf(const QWidget& widget, QPoint inside) const { return widget.mapTo(Window.get(), inside); }
    QPoint PointOf(std::string_view square) const;
    void MoveMouse(QPoint point);
    void MoveMouse(std::string_view square) { MoveMouse(PointOf(square)); }
    void Press();
    void Release();
    void PressOn(std::string_view square);
    void Drag(std::string_view from, std::string_view to);
    void Click(QPoint point);
    void ClickLine(GameList& list, int line);
    void ClickButton(const char* key);
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void TypeMove(const QString& text);

    Long ViewOf(std::string_view square) const;
    std::string Lines(const GameList& list) const; ///< joined by "|"
    std::string Status() const { return Game.Port.Status.GetStatusText(1); }
    Long Cell(std::string_view square) const { return Pos->Board[static_cast<std::size_t>(SquareOf(square))]; }
    bool IsOn(Command command) const { return Window->Bar.ActionOf(command).isEnabled(); }

    TemporaryFolder Folder; ///< of the files that the program writes
    std::unique_ptr<Position> Pos;
    std::unique_ptr<SearchState> Search;
    Session Game;
    std::unique_ptr<MainWindow> Window;
    bool Started = false;
    BoxWatcher Boxes;

private:
    QPoint Mouse;
};

/// Runs a test class in the program's look.
int RunTests(QObject& test, int argc, char** argv);

} // namespace tavlon12::support

#define TAVLON12_TEST_MAIN(TestClass)                                                                                  \
    int main(int argc, char** argv) {                                                                                  \
        QApplication application(argc, argv);                                                                          \
        TestClass test;                                                                                                \
        return tavlon12::support::RunTests(test, argc, argv);                                                          \
    }
