#include "support.h"

#include <QMenuBar>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {} // namespace

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
        game.ClickLine(*game.Window->Panel.List2, 0);
        QCOMPARE(game.Window->Panel.List1->count(), 2);
    }

    void TheComputerAnswers() {
        GameWindow game("Classic Small", kPlayerComputer);
        game.Drag("c5", "d6");
        QCOMPARE(game.Window->Panel.List1->count(), 2);
        QCOMPARE(game.Game.Record.LastMoveIndex, 2);
        QVERIFY(!game.Game.Busy);
        QVERIFY(game.Window->Panel.List1->isEnabled() && game.Window->Panel.List2->isEnabled() &&
                game.Window->Panel.List3->isEnabled());
        QCOMPARE(game.Window->Panel.List1->currentRow(), 1);
        QCOMPARE(game.Window->Panel.Labels[1]->text(), "Player");
        QCOMPARE(game.Window->Panel.Labels[2]->text(), "Computer");
        QVERIFY(game.Window->Panel.Labels[9]->text().startsWith("Depth: 1   Best: "));
        QVERIFY(game.Window->Panel.Labels[9]->text().contains("\nMain: "));
        QVERIFY(game.Window->menuBar()->actions()[2]->isEnabled());
        QVERIFY(!game.IsOn(Command::mnu_Play_Cancel));
    }

    void AClickInTheCandidatesReplacesTheComputersMove() {
        GameWindow game("Classic Small", kPlayerComputer);
        game.Drag("c5", "d6");
        QVERIFY(game.Window->Panel.List3->count() > 1);
        std::string played = game.Window->Panel.List1->item(1)->text().trimmed().toStdString();
        int other =
            played.substr(0, 2) + played.substr(3, 2) == game.Window->Panel.List3->item(1)->text().left(4).toStdString()
                ? 0
                : 1;
        QString key = game.Window->Panel.List3->item(other)->text().left(4);
        game.ClickLine(*game.Window->Panel.List3, other);
        QCOMPARE(game.Window->Panel.List1->count(), 2);
        QCOMPARE(game.Window->Panel.List1->item(1)->text(), "      " + key.left(2) + "-" + key.mid(2));
        QCOMPARE(game.Pos->Tree.SideToMove, kWhite);
        QCOMPARE(game.Window->Panel.Labels[1]->text(), "Player");
        QVERIFY(game.Window->Panel.List2->count() > 0);
        QVERIFY(!game.Game.Busy);
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
        game.ClickButton("Back");
        QVERIFY(at(2));
        game.Key(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(at(3));
        game.ClickButton("First");
        QVERIFY(at(0));
        game.ClickButton("Forward");
        QVERIFY(at(1));
        game.ClickButton("Last");
        QVERIFY(at(4));
        game.ClickLine(list, 1);
        QVERIFY(at(2));
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
        auto checked = [&] {
            return std::array{game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Chess).isChecked(),
                              game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Checkers).isChecked(),
                              game.Window->Bar.ActionOf(Command::Nonotation).isChecked()};
        };
        QVERIFY((checked() == std::array{true, false, false}));
        game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Checkers).trigger();
        QVERIFY((checked() == std::array{false, true, false}));
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. 44-38");
        // A second time on the same entry the mark stays.
        game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Checkers).trigger();
        QVERIFY((checked() == std::array{false, true, false}));
        game.Window->Bar.ActionOf(Command::Nonotation).trigger();
        QVERIFY((checked() == std::array{false, false, true}));
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. 44-38");
        game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Chess).trigger();
        QVERIFY((checked() == std::array{true, false, false}));
        QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. c5-d6");

        game.Place("PiecesOnBlack=2 | WhiteManMovement=N;W;E N;W;E", "W: c3; B: j8");
        game.Window->Bar.ActionOf(Command::mnu_Board_Notation_Checkers).trigger();
        QVERIFY((checked() == std::array{true, false, false}));
    }

    void NewGameAsksOnlyWhenOneIsRunning() {
        GameWindow game;
        game.Key(Qt::Key_N, Qt::ControlModifier);
        QVERIFY(game.Boxes.Seen.empty());
        game.Drag("c5", "d6");
        game.Boxes.Answer = QMessageBox::No;
        game.Key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(game.Window->Panel.List1->count(), 1);
        game.Boxes.Answer = QMessageBox::Yes;
        game.Key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(game.Window->Panel.List1->count(), 0);
        SeenBox question{"Confirmation", "Quit current game?", QMessageBox::Question};
        QCOMPARE(game.Boxes.Seen, (std::vector{question, question}));
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
