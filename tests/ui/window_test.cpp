#include "session/program_files.h"
#include "session/screen.h"
#include "support.h"
#include "ui/shown_text.h"

#include <QToolButton>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

/// Whether an icon is drawn anew for every pixel ratio, and looks different when it is disabled.
bool IsCrispIcon(const QIcon& icon) {
    const QSize size(20, 20);
    for (int edge : {20, 25, 30, 40, 60}) {
        const QImage shown = icon.pixmap(size, edge / 20.0).toImage();
        if (shown != icon.pixmap(QSize(edge, edge), 1.0).toImage()) return false;
        if (shown == icon.pixmap(size, edge / 20.0, QIcon::Disabled).toImage()) return false;
    }
    return true;
}

QImage Picture(MainWindow& window, qreal ratio) {
    QImage image(window.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    window.render(&image);
    return image;
}

/// All controls lie inside the window, and none on another.
void CheckPlaces(const MainWindow& window) {
    std::vector<QWidget*> shown;
    for (QWidget* widget : window.centralWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (widget->isVisible() && !widget->objectName().startsWith("Shape")) shown.push_back(widget);
    }
    for (QWidget* a : shown) {
        QVERIFY2(window.centralWidget()->rect().contains(a->geometry()), qPrintable(a->objectName()));
        for (QWidget* b : shown) {
            QVERIFY2(a == b || !a->geometry().intersects(b->geometry()),
                     qPrintable(a->objectName() + " " + b->objectName()));
        }
    }
}

} // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    void SizesOfTheWindow() {
        const struct {
            const char* Skin;
            QSize Size;
            int Edge;
        } rows[] = {{"Classic Small", {896, 689}, 38}, {"Classic Medium", {1087, 883}, 54}};
        for (const auto& [skin, size, edge] : rows) {
            GameWindow game(skin);
            MainWindow& window = *game.Window;
            QCOMPARE(window.size(), size);
            QCOMPARE(window.minimumSize(), window.maximumSize());
            auto corner = [&](Long view) {
                return window.Board->mapTo(window.centralWidget(), window.Board->SquareRect(view).topLeft());
            };
            QCOMPARE(corner(0), QPoint(25, 32));
            QCOMPARE(corner(143), QPoint(25 + 11 * edge, 32 + 11 * edge));
            for (const char* rules : {"", "canContract=1"}) {
                game.Place(rules, "W: c3; B: d8");
                CheckPlaces(window);
            }
        }
    }

    void EachCommandStandsInTheMenusOnceAndOnItsButton() {
        GameWindow game;
        CommandBar& bar = game.Window->Bar;
        QVERIFY(IsCrispIcon(game.Window->windowIcon()));
        for (const CommandRow& row : AllCommands()) {
            QAction& action = bar.ActionOf(row.Id);
            int menus = 0;
            int buttons = 0;
            for (QObject* owner : action.associatedObjects()) {
                if (qobject_cast<QMenu*>(owner) != nullptr) ++menus;
                if (qobject_cast<QToolButton*>(owner) != nullptr) ++buttons;
            }
            QVERIFY2(menus == 1 && buttons == (row.Button != 0 ? 1 : 0), row.Name);
            QCOMPARE(action.shortcut().toString(QKeySequence::PortableText), row.Shortcut);
            if (row.Button == 0) continue;
            // With the separators the buttons stand at the places of the table.
            QCOMPARE(bar.Toolbar1->actions().indexOf(&action) + 1, row.Button);
            auto* button = bar.Toolbar1->findChild<QToolButton*>(QLatin1String(row.Key));
            QVERIFY2(button != nullptr && button->defaultAction() == &action && button->isVisible(), row.Name);
            QVERIFY2(bar.Toolbar1->rect().contains(button->geometry()) && IsCrispIcon(action.icon()), row.Name);
        }
        QCOMPARE(bar.Menus.back()->objectName(), "Help");
    }

    void EveryCommandDoesSomethingAndCanBeGreyed() {
        GameWindow game;
        for (const CommandRow& row : AllCommands()) {
            game.Game.Port.Commands.SetCommandEnabled(row.Id, true);
            QVERIFY2(game.IsOn(row.Id) && (row.Procedure != nullptr || row.Id == Command::Exit), row.Name);
            game.Game.Port.Commands.SetCommandEnabled(row.Id, false);
            QVERIFY2(!game.IsOn(row.Id), row.Name);
        }
    }

    void StartShowsTheGame() {
        GameWindow game("Classic Small", kPlayerComputer);
        MainWindow& window = *game.Window;
        QCOMPARE(window.windowTitle(), " Tavlon12 1.13");
        QCOMPARE(game.Status(), " Tavlon12  free draughts on 12 by 12, by the Tavlon12 team");
        QCOMPARE(window.Panel.Labels[8]->text(), "Canadian Checkers");
        QCOMPARE(window.Panel.Labels[3]->text() + window.Panel.Labels[4]->text(), "WhiteBlack");
        QCOMPARE(window.Panel.Labels[5]->text() + window.Panel.Labels[6]->text(), "3030");
        QCOMPARE(window.Panel.Labels[9]->text(), "no calculation");
        QCOMPARE(window.Panel.List2->count(), 11);
        QVERIFY(!window.Panel.List3->isEnabled());
        QVERIFY(!game.IsOn(Command::mnu_Play_Cancel) && !game.IsOn(Command::Moveback) && game.IsOn(Command::Compute));
        QVERIFY(qobject_cast<QLineEdit*>(window.focusWidget()) == nullptr);
        QVERIFY(qobject_cast<QPlainTextEdit*>(window.focusWidget()) == nullptr);
    }

    void Coordinates() {
        const std::tuple<Byte, bool, const char*, const char*> rows[] = {
            {kAlgebraic, false, "abcdefghijkl", "1 2 3 4 5 6 7 8 9 0 a b"},
            {kAlgebraic, true, "lkjihgfedcba", "b a 0 9 8 7 6 5 4 3 2 1"},
            {kNumeric, false, "676869707172", "67 61 55 49 43 37 31 25 19 13 7 1"},
            {kNumeric, true, "654321", "6 12 18 24 30 36 42 48 54 60 66 72"},
            {kNoLabels, false, "", "           "}};
        for (const auto& [notation, turned, columns, numbers] : rows) {
            std::string across;
            QStringList up;
            for (Long i = 1; i <= 12; ++i) {
                across += ColumnLabel(i, notation, turned, false);
                up << Shown(RowLabel(i, notation, turned, false));
            }
            QCOMPARE(across, columns);
            QCOMPARE(up.join(" "), numbers);
        }
    }

    // Each square is one picture of exactly its size in device pixels, and the next begins where it ends.
    void NoSeamsAtAnyRatio() {
        for (double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25}) {
            GameWindow game(ratio < 1.6 ? "Classic Small" : "Classic Medium");
            BoardView& board = *game.Window->Board;
            QImage image = Picture(*game.Window, ratio).convertToFormat(QImage::Format_RGB32);
            image.setDevicePixelRatio(1);
            auto toDevice = [&](QPoint point) {
                QPointF exact = QPointF(board.mapTo(game.Window.get(), point)) * ratio;
                return QPoint(qRound(exact.x()), qRound(exact.y()));
            };
            for (Long view = 0; view < 144; ++view) {
                QRect square = board.SquareRect(view);
                QPoint corner = toDevice(square.topLeft());
                QPoint end = toDevice(square.bottomRight() + QPoint(1, 1));
                QSize size(end.x() - corner.x(), end.y() - corner.y());
                const QPixmap& picture =
                    SquarePixmap(board.Pictures, board.ShownImage(view), size.width(), size.height());
                QCOMPARE(image.copy(QRect(corner, size)), picture.toImage().convertToFormat(QImage::Format_RGB32));
            }
        }
    }

    void BytesAreShownAsUtf8OrWindows1252() {
        QCOMPARE(Shown("c3-d4"), "c3-d4");
        QCOMPARE(Shown("caf\xC3\xA9"), QString::fromUtf8("caf\xC3\xA9"));
        QCOMPARE(Shown("caf\xE9 \x80"), QString::fromUtf8("caf\xC3\xA9 \xE2\x82\xAC"));
        QCOMPARE(BytesOf(Shown("caf\xE9")), "caf\xC3\xA9");
        QCOMPARE(Shown(""), "");
    }

    void MissingVariantEndsTheProgram() {
        QTemporaryDir empty;
        GameWindow game;
        game.Game.ProgramFolder = empty.path().toStdString();
        game.Game.InstalledFolder.clear();
        game.ClickButton("New Game");
        QCOMPARE(game.Boxes.Seen, std::vector{ErrorBox("Error found! Tavlon12 will exit")});
        QVERIFY(!game.Window->isVisible());
    }

    void ClosingKeepsTheSettings() {
        GameWindow game;
        game.ClickButton("TurnBoard");
        QVERIFY(game.Window->close());
        const auto kept = ReadFileWith(game.Folder.Path / kSettingsFile, ReadSettings);
        QVERIFY(kept && kept->User.BoardTurned == game.Game.Settings.BoardTurned);
        QVERIFY(kept->User.BoardTurned != UserSettings().BoardTurned);
    }
};

TAVLON12_TEST_MAIN(WindowTest)
#include "window_test.moc"
