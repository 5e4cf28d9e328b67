#include "support.h"

#include <QClipboard>
#include <QWindow>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

/// Runs `act` from the event loop once the computer has been thinking for a moment, and then lets it play.
struct WhileThinking {
    WhileThinking(GameWindow& game, std::function<void()> act) : Game(game), Act(std::move(act)) {
        game.ThinkLong();
        QObject::connect(&Timer, &QTimer::timeout, [this] {
            if (Game.Search->NodeCount == 0 || !Game.Game.Busy || Ran) return;
            Ran = true;
            Act();
            if (!Game.Game.Quitting) Game.Key(Qt::Key_E, Qt::ControlModifier);
        });
        Timer.start(30);
    }

    GameWindow& Game;
    std::function<void()> Act;
    QTimer Timer;
    bool Ran = false;
};

} // namespace

class ThinkingTest : public QObject {
    Q_OBJECT

private slots:
    void CancelPlaysTheBestMoveSoFar() {
        for (bool byButton : {false, true}) {
            GameWindow game("Classic Small", kPlayerComputer);
            QElapsedTimer clock;
            clock.start();
            WhileThinking thinking(game, [&] {
                QVERIFY(game.IsOn(Command::mnu_Play_Cancel));
                QCOMPARE(game.Window->Panel.List1->count(), 1);
                if (byButton) game.ClickButton("Cancel");
            });
            game.Drag("c5", "d6");
            QVERIFY(thinking.Ran);
            // It may think for three minutes.
            QVERIFY(clock.elapsed() < 60000);
            QCOMPARE(game.Window->Panel.List1->count(), 2);
            QVERIFY(!game.IsOn(Command::mnu_Play_Cancel));
            QVERIFY(!game.Game.Busy);
        }
    }

    void EverythingElseIsShutMeanwhile() {
        GameWindow game("Classic Small", kPlayerComputer);
        game.Drag("g5", "h6");
        Long halfMoves = game.Game.Record.LastMoveIndex;
        WhileThinking thinking(game, [&] {
            for (const CommandRow& row : AllCommands()) {
                QVERIFY2(game.IsOn(row.Id) == row.WhileThinking, row.Name);
            }
            QVERIFY(game.Window->Bar.Menus[3]->isEnabled() && game.Window->Bar.Menus[5]->isEnabled());
            game.Window->Panel.List2->addItem("c5-d6");
            game.Window->Panel.Text2->setText("i5-j6");
            game.ClickLine(*game.Window->Panel.List2, 0);
            game.ClickLine(*game.Window->Panel.List1, 0);
            game.Drag("a5", "b6");
            game.Click(game.PointOf(*game.Window->Panel.Command1, game.Window->Panel.Command1->rect().center()));
            QVERIFY(game.Game.Busy);
            QCOMPARE(game.Game.Record.LastMoveIndex, halfMoves + 1);
            bool on = game.Game.Settings.CalculationOn == 1;
            game.Window->Bar.ActionOf(Command::calculation).trigger();
            QCOMPARE(game.Game.Settings.CalculationOn == 1, !on);
        });
        game.ClickLine(*game.Window->Panel.List2, 0);
        QVERIFY(thinking.Ran);
        QCOMPARE(game.Game.Record.LastMoveIndex, halfMoves + 2);
        QVERIFY(game.Boxes.Seen.empty());
    }

    void TheWindowIsPaintedMeanwhile() {
        GameWindow game("Classic Small", kPlayerComputer);
        struct Painted : QObject {
            int Count = 0;
            bool eventFilter(QObject*, QEvent* event) override {
                if (event->type() == QEvent::Paint) ++Count;
                return false;
            }
        } painted;
        game.Window->Board->installEventFilter(&painted);
        WhileThinking thinking(game, [&] {
            painted.Count = 0;
            game.Window->Board->update();
            QTest::qWait(20);
            QVERIFY(painted.Count > 0);
            QVERIFY(game.Status().starts_with("Thinking"));
        });
        game.ClickButton("Compute");
        QVERIFY(thinking.Ran);
        QCOMPARE(game.Window->Panel.List1->count(), 1);
        QCOMPARE(game.Window->Panel.Labels[2]->text(), "Player");
    }

    void ClosingWhileItThinks_data() {
        QTest::addColumn<bool>("yes");
        QTest::addColumn<bool>("byCommand");
        QTest::newRow("yes") << true << false;
        QTest::newRow("no") << false << false;
        QTest::newRow("yes, by the command Exit") << true << true;
        QTest::newRow("no, by the command Exit") << false << true;
    }

    void ClosingWhileItThinks() {
        QFETCH(bool, yes);
        QFETCH(bool, byCommand);
        GameWindow game("Classic Small", kPlayerComputer);
        game.Boxes.Answer = yes ? QMessageBox::Yes : QMessageBox::No;
        // Another try to close while the question is open must not ask again.
        game.Boxes.BeforeAnswer = [&] { game.Window->close(); };
        WhileThinking thinking(game, [&] {
            if (byCommand) {
                game.Key(Qt::Key_X, Qt::ControlModifier);
            } else {
                game.Window->windowHandle()->close();
            }
            // The search below still uses the window.
            QVERIFY(game.Window->isVisible());
        });
        game.Drag("c5", "d6");
        QVERIFY(thinking.Ran);
        SeenBox question{"Confirmation", "Are you sure you want to exit?", QMessageBox::Question};
        QCOMPARE(game.Boxes.Seen, std::vector{question});
        QCOMPARE(game.Window->isVisible(), !yes);
        QCOMPARE(game.Game.Quitting, yes);
        QCOMPARE(game.Game.Record.LastMoveIndex, yes ? 1 : 2);
        QCOMPARE(game.Window->ExitCode, 0);
    }

    void FieldsKeepTheKeysOfEditing_data() {
        QTest::addColumn<QString>("field");
        QTest::newRow("the move") << "Text2";
        QTest::newRow("the comment") << "Text1";
    }

    void FieldsKeepTheKeysOfEditing() {
        QFETCH(QString, field);
        GameWindow game("Classic Small", kPlayerComputer);
        auto* widget = game.Window->findChild<QWidget*>(field);
        auto text = [&] {
            return field == "Text2" ? game.Window->Panel.Text2->text() : game.Window->Panel.Text1->toPlainText();
        };
        game.Click(game.PointOf(*widget, QPoint(30, 10)));
        for (char letter : std::string("abc")) QTest::keyClick(game.Window->windowHandle(), letter);
        QCOMPARE(text(), "abc");
        game.Key(Qt::Key_A, Qt::ControlModifier);
        game.Key(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QApplication::clipboard()->text(), "abc");
        game.Key(Qt::Key_X, Qt::ControlModifier);
        QCOMPARE(text(), "");
        game.Key(Qt::Key_V, Qt::ControlModifier);
        game.Key(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(text(), "abcabc");
        // No command has run: no question, no computer's move.
        QVERIFY(game.Boxes.Seen.empty());
        QCOMPARE(game.Window->Panel.List1->count(), 0);

        // Every other shortcut is the window's.
        game.Key(Qt::Key_T, Qt::ControlModifier);
        QCOMPARE(game.Game.Settings.BoardTurned, 0);
        game.Drag("c5", "d6");
        game.Click(game.PointOf(*widget, QPoint(30, 10)));
        game.Key(Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(game.Pos->Tree.TreeIndex, 1);
        game.Key(Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(game.Pos->Tree.TreeIndex, 2);
        QVERIFY(widget->hasFocus());
        game.Key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(game.Window->Panel.List1->count(), 0);
        QCOMPARE(game.Boxes.Seen.size(), std::size_t{1});
    }

    void CancelWorksWhereverTheFocusIs() {
        for (const char* name : {"Text2", "Text1", "List1", "Board", "Command1"}) {
            GameWindow game("Classic Small", kPlayerComputer);
            auto* widget = game.Window->findChild<QWidget*>(QLatin1String(name));
            WhileThinking thinking(game, [&] {
                widget->setEnabled(true);
                widget->setFocus();
            });
            game.ClickButton("Compute");
            QVERIFY2(thinking.Ran, name);
            QCOMPARE(game.Window->Panel.List1->count(), 1);
        }
    }
};

TAVLON12_TEST_MAIN(ThinkingTest)
#include "thinking_test.moc"
