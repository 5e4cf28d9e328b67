#include "support.h"

#include <QMenuBar>

using namespace tavlon12;
using namespace tavlon12::support;

class PlayTest : public QObject {
    Q_OBJECT

private slots:
    void TypedMoves() {
        GameWindow game;
        game.TypeMove("C5-d6");
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. c5-d6");
        QVERIFY(game.Boxes.Seen.empty());
        game.TypeMove("c5-d6");
        QCOMPARE(game.Boxes.Seen, std::vector{ErrorBox("Illegal move")});
        QVERIFY(game.Window->Panel.Text2->isEnabled() && game.Window->Panel.Text2->text().isEmpty());
        game.Window->Panel.Text2->setText("b8a7");
        game.Click(game.PointOf(*game.Window->Panel.Command1, game.Window->Panel.Command1->rect().center()));
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. c5-d6|      b8-a7");
    }

    void AClickInTheLegalMovesPlays() {
        GameWindow game;
        game.ClickLine(*game.Window->Panel.List2, 2);
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. c5-d6");
        QVERIFY(game.Window->Panel.List2->hasFocus());
        // Black's moves stand there now; a click below the last line plays nothing.
        QCOMPARE(game.Window->Panel.List2->count(), 11);
        game.Click(game.PointOf(*game.Window->Panel.List2, QPoint(20, 380)));
        QCOMPARE(game.Window->Panel.List1->count(), 1);
        QTest::keyClick(game.Window->Panel.List2, Qt::Key_Home);
        QTest::keyClick(game.Window->Panel.List2, Qt::Key_Return);
        QCOMPARE(game.Window->Panel.List1->count(), 2);
    }

    void TheComputerAnswers() {
        GameWindow game("Classic Small", kPlayerComputer);
        game.Drag("c5", "d6");
        const SidePanel& panel = game.Window->Panel;
        QVERIFY(panel.List1->isEnabled() && panel.List2->isEnabled() && panel.List3->isEnabled());
        QCOMPARE(panel.List1->count(), 2);
        QCOMPARE(panel.List1->currentRow(), 1);
        QCOMPARE(panel.Labels[1]->text() + panel.Labels[2]->text(), "PlayerComputer");
        QVERIFY(panel.Labels[9]->text().startsWith("Depth: 1   Best: "));
        QVERIFY(game.Window->menuBar()->actions()[2]->isEnabled() && !game.IsOn(Command::mnu_Play_Cancel));
    }

    void AClickInTheCandidatesReplacesTheComputersMove() {
        GameWindow game("Classic Small", kPlayerComputer);
        game.Drag("c5", "d6");
        GameList& list = *game.Window->Panel.List3;
        QVERIFY(list.count() > 1);
        const QString played = game.Window->Panel.List1->item(1)->text().trimmed().remove('-');
        const int other = played == list.item(1)->text().left(4) ? 0 : 1;
        const QString key = list.item(other)->text().left(4);
        game.ClickLine(list, other);
        QCOMPARE(game.Window->Panel.List1->count(), 2);
        QCOMPARE(game.Window->Panel.List1->item(1)->text(), "      " + key.left(2) + "-" + key.mid(2));
        QCOMPARE(game.Window->Panel.Labels[1]->text(), "Player");
        QVERIFY(game.Boxes.Seen.empty());
    }

    void BackAndForwardAndBranchingOff() {
        GameWindow game;
        GameList& list = *game.Window->Panel.List1;
        const char* moves[][2] = {{"c5", "d6"}, {"b8", "a7"}, {"g5", "h6"}, {"j8", "k7"}};
        std::vector<BoardCells> boards{game.Pos->Board};
        for (auto& move : moves) {
            game.Drag(move[0], move[1]);
            boards.push_back(game.Pos->Board);
        }
        QCOMPARE(list.count(), 4);
        auto at = [&](Long index) {
            return game.Pos->Tree.TreeIndex == index && game.Pos->Board == boards[static_cast<std::size_t>(index)] &&
                   list.currentRow() == index - 1 && list.selectedItems().size() == (index > 0 ? 1 : 0) &&
                   game.IsOn(Command::Moveback) == (index > 0) && game.IsOn(Command::First) == (index > 0) &&
                   game.IsOn(Command::MoveForward) == (index < 4) && game.IsOn(Command::Last) == (index < 4);
        };
        QVERIFY(at(4));
        game.Key(Qt::Key_B, Qt::ControlModifier);
        QVERIFY(at(3));
        game.ClickButton("First");
        QVERIFY(at(0));
        game.Key(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(at(1));
        game.ClickButton("Last");
        QVERIFY(at(4));
        game.ClickButton("Back");
        game.ClickLine(list, 1);
        QVERIFY(at(2));
        // The arrow keys choose a line, Enter goes there.
        list.setFocus();
        game.Key(Qt::Key_Down);
        QCOMPARE(game.Pos->Tree.TreeIndex, 2);
        game.Key(Qt::Key_Return);
        QVERIFY(at(3));

        game.ClickLine(list, 0);
        game.Drag("d8", "c7");
        QCOMPARE(game.Lines(list), "   1. c5-d6|      d8-c7");
        QVERIFY(!game.IsOn(Command::MoveForward));
        QVERIFY(game.Boxes.Seen.empty());
    }

    void NotationCommands() {
        GameWindow game;
        game.Drag("c5", "d6");
        const Command commands[] = {Command::mnu_Board_Notation_Chess, Command::mnu_Board_Notation_Checkers,
                                    Command::Nonotation};
        const auto checked = [&] {
            std::string marks;
            for (Command command : commands) marks += game.Window->Bar.ActionOf(command).isChecked() ? "x" : "-";
            return marks;
        };
        QCOMPARE(checked(), "x--");
        // A second time on the same entry the mark stays.
        for (int entry : {1, 1, 2, 0}) {
            game.Window->Bar.ActionOf(commands[entry]).trigger();
            QCOMPARE(checked().find('x'), std::size_t(entry));
            QCOMPARE(game.Lines(*game.Window->Panel.List1), entry == 0 ? "   1. c5-d6" : "   1. 44-38");
        }
        game.Place("PiecesOnBlack=2 | WhiteManMovement=N;W;E N;W;E", "W: c3; B: j8");
        game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Checkers).trigger();
        QCOMPARE(checked(), "x--");
    }

    void NewGameAsksOnlyWhenOneIsRunning() {
        GameWindow game;
        game.Key(Qt::Key_N, Qt::ControlModifier);
        QVERIFY(game.Boxes.Seen.empty());
        game.Drag("c5", "d6");
        for (int lines : {1, 0}) {
            game.Boxes.Answer = lines == 1 ? QMessageBox::No : QMessageBox::Yes;
            game.Key(Qt::Key_N, Qt::ControlModifier);
            QCOMPARE(game.Window->Panel.List1->count(), lines);
            QCOMPARE(game.Boxes.Seen.back(), (SeenBox{"Confirmation", "Quit current game?", QMessageBox::Question}));
        }
    }

    void AnAgreedEndShutsTheGameUntilItIsTakenBack() {
        for (const char* button : {"Draw", "Resign"}) {
            GameWindow game("Classic Small", kPlayerComputer);
            game.Drag("c5", "d6");
            game.Game.Game.LastScore = 0;
            game.ClickButton(button);
            QCOMPARE(game.Boxes.Seen.size(), 1u);
            QVERIFY(!game.IsOn(Command::Compute) && !game.IsOn(Command::Offerdraw) && !game.IsOn(Command::Resign));
            const Long moves = game.Game.Record.LastMoveIndex;
            game.Drag("g5", "h6");
            QCOMPARE(game.Game.Record.LastMoveIndex, moves);
            game.ClickButton("Back");
            QVERIFY(!game.Game.Game.GameOver && game.IsOn(Command::Compute));
        }
    }
};

TAVLON12_TEST_MAIN(PlayTest)
#include "play_test.moc"
