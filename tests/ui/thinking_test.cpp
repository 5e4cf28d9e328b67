#include "support.h"

#include <QClipboard>
#include <QMimeData>
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
            for (const auto& [command, name] :
                 {std::pair(Command::Rules, "frmRules"), {Command::mnu_Help_About, "frmAbout"}}) {
                const DialogUser reader(name, [](QDialog& window) { QTest::keyClick(&window, Qt::Key_Escape); });
                game.Window->Bar.ActionOf(command).trigger();
                QVERIFY2(reader.Used, name);
            }
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
                Count += event->type() == QEvent::Paint;
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
    }

    void ClosingWhileItThinks() {
        for (const auto& [yes, byCommand] : {std::pair(true, false), {false, false}, {true, true}, {false, true}}) {
            GameWindow game("Classic Small", kPlayerComputer);
            game.Boxes.Answer = yes ? QMessageBox::Yes : QMessageBox::No;
            // Another try to close while the question is open must not ask again.
            game.Boxes.BeforeAnswer = [&] { game.Window->close(); };
            WhileThinking thinking(game, [&game, byCommand = byCommand] {
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
            QCOMPARE(game.Game.Record.LastMoveIndex, yes ? 1 : 2);
            QCOMPARE(game.Window->ExitCode, 0);
        }
    }

    void FieldsKeepTheKeysOfEditing() {
        for (const char* field : {"Text2", "Text1"}) {
            GameWindow game("Classic Small", kPlayerComputer);
            auto* widget = game.Window->findChild<QWidget*>(QLatin1String(field));
            auto text = [&] { return widget->property(widget == game.Window->Panel.Text2 ? "text" : "plainText"); };
            game.Click(game.PointOf(*widget, QPoint(30, 10)));
            QApplication::clipboard()->setMimeData(new QMimeData); // nothing to paste
            game.Key(Qt::Key_V, Qt::ControlModifier);
            for (char letter : std::string("abc")) QTest::keyClick(game.Window->windowHandle(), letter);
            for (Qt::Key key : {Qt::Key_A, Qt::Key_C}) game.Key(key, Qt::ControlModifier);
            QCOMPARE(QApplication::clipboard()->text(), "abc");
            for (Qt::Key key : {Qt::Key_X, Qt::Key_V, Qt::Key_V}) game.Key(key, Qt::ControlModifier);
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
            QVERIFY(widget->hasFocus());
            game.Key(Qt::Key_N, Qt::ControlModifier);
            QCOMPARE(game.Boxes.Seen.size(), std::size_t{1});
        }
    }

    void CancelPlaysTheBestMoveSoFarWhereverTheFocusIs() {
        for (const char* name : {"Text2", "Text1", "List1", "Board", "Command1", "Cancel"}) {
            GameWindow game("Classic Small", kPlayerComputer);
            auto* widget = game.Window->findChild<QWidget*>(QLatin1String(name));
            WhileThinking thinking(game, [&] {
                QVERIFY(game.IsOn(Command::mnu_Play_Cancel));
                if (std::string_view(name) == "Cancel") game.ClickButton(name);
                widget->setEnabled(true);
                widget->setFocus();
            });
            game.ClickButton("Compute");
            QVERIFY2(thinking.Ran, name);
            QCOMPARE(game.Window->Panel.List1->count(), 1);
            QVERIFY(!game.Game.Busy && !game.IsOn(Command::mnu_Play_Cancel));
        }
    }
};

TAVLON12_TEST_MAIN(ThinkingTest)
#include "thinking_test.moc"
