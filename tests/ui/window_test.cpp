#include "session/screen.h"
#include "support.h"
#include "ui/shown_text.h"

#include <QFontDatabase>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolButton>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

constexpr int kOpen = -1; ///< the place is free here

struct Expected {
    const char* Name;
    int Left, Top, Width, Height;
};

// Widths and heights of the lists follow from the columns beside them.
const std::vector<Expected> kSmallPlaces{
    {"List1", 512, 93, kOpen, 396},        {"List2", 656, 93, kOpen, 396},       {"List3", 744, 93, kOpen, 396},
    {"Label3", 512, kOpen, kOpen, kOpen},  {"Label4", 512, kOpen, kOpen, kOpen}, {"Label1", 552, kOpen, kOpen, kOpen},
    {"Label2", 552, kOpen, kOpen, kOpen},  {"Label5", 656, kOpen, kOpen, kOpen}, {"Label6", 656, kOpen, kOpen, kOpen},
    {"Label8", 696, kOpen, kOpen, kOpen},  {"Label7", 712, kOpen, kOpen, kOpen}, {"Text2", 512, 517, kOpen, kOpen},
    {"Command1", 703, 517, kOpen, kOpen},  {"Text1", 512, 550, kOpen, 57},       {"Progress", 8, 517, 489, kOpen},
    {"Label9", 16, 525, 473, kOpen},       {"Label10", 512, 541, kOpen, kOpen},  {"Label11", 585, 541, kOpen, kOpen},
    {"Label12", 619, 541, kOpen, kOpen},   {"Label13", 645, 541, kOpen, kOpen},  {"Label14", 679, 541, kOpen, kOpen},
    {"Picture11", 776, 518, kOpen, kOpen},
};
const std::vector<Expected> kMediumPlaces{
    {"List1", 706, 91, kOpen, 591},        {"List2", 850, 91, kOpen, 591},       {"List3", 938, 91, kOpen, 591},
    {"Label3", 706, kOpen, kOpen, kOpen},  {"Label4", 706, kOpen, kOpen, kOpen}, {"Label1", 746, kOpen, kOpen, kOpen},
    {"Label2", 746, kOpen, kOpen, kOpen},  {"Label5", 850, kOpen, kOpen, kOpen}, {"Label6", 850, kOpen, kOpen, kOpen},
    {"Label8", 890, kOpen, kOpen, kOpen},  {"Label7", 906, kOpen, kOpen, kOpen}, {"Text2", 712, 710, kOpen, kOpen},
    {"Command1", 904, 710, kOpen, kOpen},  {"Text1", 712, 743, kOpen, 57},       {"Progress", 8, 712, 683, kOpen},
    {"Label9", 16, 720, 667, kOpen},       {"Label10", 712, 735, kOpen, kOpen},  {"Label11", 785, 735, kOpen, kOpen},
    {"Label12", 819, 735, kOpen, kOpen},   {"Label13", 845, 735, kOpen, kOpen},  {"Label14", 879, 735, kOpen, kOpen},
    {"Picture11", 980, 709, kOpen, kOpen},
};

bool Agrees(int expected, int found) {
    return expected == kOpen || expected == found;
}

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

QString MenuText(const QMenu& menu) {
    QStringList lines;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) {
            lines << "-";
        } else if (action->menu() != nullptr) {
            lines << action->menu()->objectName() + " " + action->text() + " [" + MenuText(*action->menu()) + "]";
        } else {
            QString line = action->objectName() + " " + action->text();
            if (!action->shortcut().isEmpty()) line += " " + action->shortcut().toString(QKeySequence::PortableText);
            lines << line;
        }
    }
    return lines.join("; ");
}

QImage Picture(MainWindow& window, qreal ratio) {
    QImage image(window.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::black);
    window.render(&image);
    return image;
}

} // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    void FontsAreInstalled() { QVERIFY(!QFontDatabase::families().isEmpty()); }

    void PlacesOfControls_data() {
        QTest::addColumn<QString>("skin");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("edge");
        QTest::newRow("small") << "Classic Small" << 896 << 689 << 38;
        QTest::newRow("medium") << "Classic Medium" << 1087 << 883 << 54;
    }

    void PlacesOfControls() {
        QFETCH(QString, skin);
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, edge);
        GameWindow game(skin.toStdString());
        MainWindow& window = *game.Window;
        QCOMPARE(window.width(), width);
        QCOMPARE(window.height(), height);
        QCOMPARE(window.centralWidget()->height() + window.statusBar()->height() + window.menuBar()->height(), height);
        QCOMPARE(window.minimumSize(), window.maximumSize());

        const std::vector<Expected>& places = edge == 38 ? kSmallPlaces : kMediumPlaces;
        for (const Expected& expected : places) {
            auto* control = window.findChild<QWidget*>(QLatin1String(expected.Name));
            QVERIFY2(control != nullptr, expected.Name);
            QCOMPARE(control->parentWidget(), window.centralWidget());
            QRect place = control->geometry();
            QVERIFY2(Agrees(expected.Left, place.left()) && Agrees(expected.Top, place.top()) &&
                         Agrees(expected.Width, place.width()) && Agrees(expected.Height, place.height()),
                     expected.Name);
            QVERIFY2(window.centralWidget()->rect().contains(place), expected.Name);
        }
        QPoint corner = window.Board->mapTo(window.centralWidget(), window.Board->SquareRect(0).topLeft());
        QCOMPARE(corner, QPoint(25, 32));
        QPoint last = window.Board->mapTo(window.centralWidget(), window.Board->SquareRect(143).topLeft());
        QCOMPARE(last, QPoint(25 + 11 * edge, 32 + 11 * edge));
        QCOMPARE(window.StatusPanels[2]->width(), 133);
        QVERIFY(window.Toolbar1->geometry().bottom() < 32);
    }

    void ControlsDoNotOverlap_data() { PlacesOfControls_data(); }

    void ControlsDoNotOverlap() {
        QFETCH(QString, skin);
        GameWindow game(skin.toStdString());
        for (const char* rules : {"", "canContract=1"}) {
            game.Place(rules, "W: c3; B: d8");
            std::vector<QWidget*> shown;
            for (QWidget* widget : game.Window->centralWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                if (widget->isVisible() && !widget->objectName().startsWith("Shape")) shown.push_back(widget);
            }
            for (QWidget* a : shown) {
                for (QWidget* b : shown) {
                    QVERIFY2(a == b || !a->geometry().intersects(b->geometry()),
                             qPrintable(a->objectName() + " " + b->objectName()));
                }
            }
        }
    }

    void Menus() {
        GameWindow game;
        QStringList found;
        for (const QAction* action : game.Window->menuBar()->actions()) {
            found << action->menu()->objectName() + " " + action->text() + ": " + MenuText(*action->menu());
        }
        const QStringList expected{
            "mnuGame &Game: New1 New Game Ctrl+N; NewVariant New Variant... Ctrl+V; -; Open1 Open... Ctrl+O; "
            "Save Save... Ctrl+S; -; Details Details... Ctrl+D; -; Exit Exit Ctrl+X",
            "mnuPlay &Play: Compute Compute Ctrl+C; mnu_Play_Cancel Cancel Ctrl+E; -; First First; Moveback Back "
            "Ctrl+B; "
            "MoveForward Forward Ctrl+F; Last Last; -; Offerdraw Offer draw; Resign Resign; Hint Hint; -; "
            "Cplayer Player-Computer; Pplayer Player-Player; mnu_Play_Ccomputer Computer-Computer; -; Options "
            "Options...; -; "
            "Analyze Analyze Ctrl+A",
            "mnu_Board1 &Board: Turn Turn Board Ctrl+T; Notation1 Notation [Nonotation None; mnu_Board_Notation_Chess "
            "Algebraic; "
            "mnu_Board_Notation_Checkers Numeric]; -; CreateHtml Create Diagram...",
            "view &View: calculation Calculation; -; rating Rating...",
            "extra &Extra: plyvaluetable Show Ply Value Table",
            "Help &Help: QuickRules Quick Rules; Rules Rules F1; -; mnu_Help_About About",
        };
        QCOMPARE(found, expected);
        QCOMPARE(MenuText(*game.Window->mnuSetup),
                 QString("mnu_PopUp_ClearBoard Clear Board; -; empty1 Empty; mnu_PopUp_BlackChecker Black Checker; "
                         "mnu_PopUp_BlackKing Black King; Whitechecker White Checker; Whiteking White King; -; "
                         "mnu_PopUp_BlackM Black moves; WhiteM White moves"));
    }

    void ToolbarButtons() {
        GameWindow game;
        QVERIFY(IsCrispIcon(game.Window->windowIcon()));
        QStringList found;
        for (QAction* action : game.Window->Toolbar1->actions()) {
            if (action->isSeparator()) {
                found << "-";
                continue;
            }
            QWidget* button = game.Window->Toolbar1->widgetForAction(action);
            found << button->objectName() + "/" + action->toolTip() + "/" + action->objectName();
            QVERIFY2(button->isVisible() && IsCrispIcon(action->icon()), qPrintable(button->objectName()));
            QVERIFY(game.Window->Toolbar1->rect().contains(button->geometry()));
        }
        const QStringList expected{"New Game/New Game/New1",
                                   "New Variant/New Variant/NewVariant",
                                   "-",
                                   "Open/Open/Open1",
                                   "Save/Save/Save",
                                   "-",
                                   "Compute/Compute/Compute",
                                   "Cancel/Cancel Computing/mnu_Play_Cancel",
                                   "-",
                                   "First/Back to First Move/First",
                                   "Back/Move Back/Moveback",
                                   "Forward/Move Forward/MoveForward",
                                   "Last/Forward to Last Move/Last",
                                   "-",
                                   "Draw/Offer Draw/Offerdraw",
                                   "Resign/Resign/Resign",
                                   "Hint/Hint/Hint",
                                   "-",
                                   "ComputerPlayer/Computer-Player/Cplayer",
                                   "PlayerPlayer/Player-Player/Pplayer",
                                   "ComputerComputer/Computer-Computer/mnu_Play_Ccomputer",
                                   "-",
                                   "Options/Options/Options",
                                   "-",
                                   "Analyze/Analyze/Analyze",
                                   "-",
                                   "TurnBoard/Turn Board/Turn"};
        QCOMPARE(found, expected);
    }

    void CommandsWithoutProcedureStayGrey() {
        GameWindow game;
        for (const CommandRow& row : AllCommands()) {
            game.Game.Port.Commands.SetCommandEnabled(row.Id, true);
            QCOMPARE(game.IsOn(row.Id), row.Procedure != nullptr);
            game.Game.Port.Commands.SetCommandEnabled(row.Id, false);
            QVERIFY2(!game.IsOn(row.Id), row.Name);
        }
    }

    void StartShowsTheGame() {
        GameWindow game("Classic Small", kPlayerComputer);
        MainWindow& window = *game.Window;
        QCOMPARE(window.windowTitle(), " Tavlon12 1.13");
        QCOMPARE(game.Status(), " Tavlon12  free draughts on 12 by 12, by the Tavlon12 team");
        QCOMPARE(window.Labels[8]->text(), "Canadian Checkers");
        QCOMPARE(window.Labels[3]->text() + window.Labels[4]->text(), "WhiteBlack");
        QCOMPARE(window.Labels[5]->text() + window.Labels[6]->text(), "3030");
        QCOMPARE(window.Labels[9]->text(), "no calculation");
        QCOMPARE(window.List2->count(), 11);
        QVERIFY(!window.List3->isEnabled());
        QVERIFY(!game.IsOn(Command::mnu_Play_Cancel) && !game.IsOn(Command::Moveback) && game.IsOn(Command::Compute));
        QVERIFY(qobject_cast<QLineEdit*>(window.focusWidget()) == nullptr);
        QVERIFY(qobject_cast<QPlainTextEdit*>(window.focusWidget()) == nullptr);
    }

    void Coordinates() {
        struct Row {
            Byte Notation;
            bool Turned;
            const char *Columns, *Rows;
        };
        const Row rows[] = {
            {kAlgebraic, false, "abcdefghijkl", "1 2 3 4 5 6 7 8 9 0 a b"},
            {kAlgebraic, true, "lkjihgfedcba", "b a 0 9 8 7 6 5 4 3 2 1"},
            {kNumeric, false, "676869707172", "67 61 55 49 43 37 31 25 19 13 7 1"},
            {kNumeric, true, "654321", "6 12 18 24 30 36 42 48 54 60 66 72"},
            {kNoLabels, false, "", "           "},
        };
        for (const Row& row : rows) {
            std::string across;
            QStringList up;
            for (Long i = 1; i <= 12; ++i) {
                across += ColumnLabel(i, row.Notation, row.Turned, false);
                up << Shown(RowLabel(i, row.Notation, row.Turned, false));
            }
            QCOMPARE(across, row.Columns);
            QCOMPARE(up.join(" "), row.Rows);
        }
    }

    void NoSeamsAtAnyRatio_data() {
        QTest::addColumn<double>("ratio");
        for (double ratio : {1.0, 1.25, 1.5, 1.75, 2.0, 2.25})
            QTest::newRow(qPrintable(QString::number(ratio))) << ratio;
    }

    // Each square is one picture of exactly its size in device pixels, and the next begins where it ends.
    void NoSeamsAtAnyRatio() {
        QFETCH(double, ratio);
        for (const char* skin : {"Classic Small", "Classic Medium"}) {
            GameWindow game(skin);
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
};

TAVLON12_TEST_MAIN(WindowTest)
#include "window_test.moc"
