#include "support.h"

#include "ui/study_windows.h"

#include <QMenu>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

/// Does something once, as soon as the event loop finds that it can be done.
struct WhenReady {
    WhenReady(std::function<bool()> ready, std::function<void()> act) {
        QObject::connect(&Timer, &QTimer::timeout, [this, ready, act] {
            if (Done || !ready()) return;
            Done = true;
            act();
        });
        Timer.start(5);
    }

    QTimer Timer;
    bool Done = false;
};

QMenu* OpenMenu() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

/// Right click on a square, and a click on an entry of the menu that opens; on none closes it.
void SetUp(GameWindow& game, const char* square, const char* entry) {
    const WhenReady chosen([] { return OpenMenu() != nullptr; },
                           [entry] {
                               QMenu& menu = *OpenMenu();
                               auto* action = menu.findChild<QAction*>(QLatin1String(entry));
                               if (action == nullptr)
                                   QTest::keyClick(&menu, Qt::Key_Escape);
                               else
                                   QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
                           });
    game.MoveMouse(square);
    QTest::mousePress(game.Window->windowHandle(), Qt::RightButton, {}, game.PointOf(square));
    QTest::mouseRelease(game.Window->windowHandle(), Qt::RightButton, {}, game.PointOf(square));
    QCoreApplication::processEvents();
    QVERIFY2(chosen.Done, entry);
}

void Trigger(GameWindow& game, Command command) {
    game.Window->Bar.ActionOf(command).trigger();
    QCoreApplication::processEvents();
}

/// Three white men give two and take three.
void PlaceShot(GameWindow& game) {
    game.Place("", "W: g7 i5 j6 i1 k3 k1; B: ea l6 d0 j8 h6 ka");
    game.Game.Settings.PlayMode = kPlayerPlayer;
}

} // namespace

class StudyTest : public QObject {
    Q_OBJECT

private slots:
    void APositionIsSetUpByTheMenu() {
        GameWindow game;
        SetUp(game, "e5", "mnu_PopUp_ClearBoard");
        SetUp(game, "c3", "Whitechecker");
        SetUp(game, "j8", "mnu_PopUp_BlackKing");
        SetUp(game, "j8", "nothing");
        SetUp(game, "a1", "WhiteM");
        // The pointer stands where the menu was: a press before it moves is none.
        QTest::mouseClick(game.Window->Board, Qt::LeftButton, {},
                          game.Window->Board->SquareRect(game.ViewOf("j8")).center());
        QVERIFY(game.Boxes.Seen.empty());
        QCOMPARE(game.Cell("c3"), kMan);
        QCOMPARE(game.Cell("j8"), -kKing);
        QVERIFY(game.Window->Panel.Labels[8]->text().endsWith(QStringLiteral(" (M)")));
        game.Drag("c3", "d4");
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. c3-d4");
        QVERIFY(game.Boxes.Seen.empty());
    }

    void TheTableIsSortedAndItsWindowOutlivesTheSearch() {
        GameWindow game;
        PlaceShot(game);
        game.Game.Settings.PlyValueDepth = 4;
        Trigger(game, Command::plyvaluetable);
        auto* window = game.Window->findChild<QDialog*>(QStringLiteral("frmPV"));
        QVERIFY(window != nullptr && window->isVisible() && !window->isModal());
        auto* text = window->findChild<QPlainTextEdit*>(QStringLiteral("Text1"));
        auto* orders = window->findChild<QComboBox*>(QStringLiteral("Combo1"));
        QVERIFY(orders->isEnabled());
        QCOMPARE(orders->count(), 5);
        QVERIFY(text->toPlainText().contains(QStringLiteral("   1.    k3-j4    ")));
        QVERIFY(text->toPlainText().contains(QStringLiteral("  10.    ")));
        orders->setFocus();
        QTest::keyClick(orders, Qt::Key_End);
        QVERIFY(!text->toPlainText().contains(QStringLiteral("  10.    ")));
        QVERIFY(game.IsOn(Command::Compute));
        QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QVERIFY(!window->isVisible());

        Trigger(game, Command::problems);
        auto* problems = game.Window->findChild<QDialog*>(QStringLiteral("frmProblem"));
        QVERIFY(problems != nullptr && problems->isVisible());
        QVERIFY(problems->findChild<QPlainTextEdit*>()->toPlainText().contains(QStringLiteral("k3-j4  Score:")));
    }

    void APositionWithoutMovesIsStudiedAtOnce() {
        GameWindow game;
        game.Place("", "W: a1; B: b2 c3");
        game.Game.Settings.PlayMode = kPlayerPlayer;
        Trigger(game, Command::problems);
        QVERIFY2(game.Window->Panel.Progress->maximum() > 0, "else it runs for ever");
        Trigger(game, Command::plyvaluetable);
        const auto* bar = game.Window->findChild<QDialog*>(QStringLiteral("frmPV"))->findChild<QProgressBar*>();
        QVERIFY(bar->maximum() > 0);
        QCOMPARE(bar->value(), bar->maximum());
    }

    void ALongStudyCanBeCancelledAndTheProgramClosed() {
        for (const char* end : {"Command2", "Esc", "close"}) {
            GameWindow game;
            game.Game.Settings.PlyValueDepth = 20;
            const WhenReady ended([&] { return game.Game.Busy && game.Search->NodeCount > 20000; },
                                  [&] {
                                      auto* window = game.Window->findChild<QDialog*>(QStringLiteral("frmPV"));
                                      QVERIFY(!game.IsOn(Command::New1) && !game.IsOn(Command::plyvaluetable));
                                      if (auto* button = window->findChild<QPushButton*>(QLatin1String(end)))
                                          QTest::mouseClick(button, Qt::LeftButton);
                                      else if (end == std::string_view("Esc"))
                                          QTest::keyClick(window, Qt::Key_Escape);
                                      else
                                          game.Window->close();
                                  });
            Trigger(game, Command::plyvaluetable);
            QVERIFY(ended.Done);
            QVERIFY(!game.Game.Busy);
            QCOMPARE(game.Pos->Tree.TreeIndex, 0);
            QCOMPARE(game.Window->isVisible(), std::string_view(end) != "close");
        }
    }

    void HintAnalysisAndTheComputerAgainstItself() {
        GameWindow game;
        PlaceShot(game);
        game.ClickButton("Hint");
        QCOMPARE(game.Boxes.Seen, (std::vector{SeenBox{"Hint", "Try k3-j4", QMessageBox::Information}}));
        QVERIFY(game.Window->Bar.Toolbar1->isEnabled());

        game.Game.Settings.Limits = {0, 3, 1, 2};
        game.Key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(game.Window->Panel.List3->count(), 10);
        QCOMPARE(game.Window->Panel.List1->count(), 0);

        game.ThinkShortly();
        const WhenReady cancelled([&] { return game.Game.Record.LastMoveIndex >= 3; },
                                  [&] { game.Key(Qt::Key_E, Qt::ControlModifier); });
        game.ClickButton("ComputerComputer");
        QVERIFY(cancelled.Done);
        QVERIFY(!game.Game.Busy);
        QVERIFY(game.Window->Bar.ActionOf(Command::Cplayer).isChecked());
        QVERIFY(game.Game.Game.GameOver || game.IsOn(Command::Compute));
    }
};

TAVLON12_TEST_MAIN(StudyTest)
#include "study_test.moc"
