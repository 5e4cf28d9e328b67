#include "session/screen.h"
#include "support.h"
#include "ui/skin.h"

#include <QTemporaryDir>

using namespace tavlon12;
using namespace tavlon12::support;

class BoardTest : public QObject {
    Q_OBJECT

private slots:
    void ASkinFileBringsItsImages() {
        QTemporaryDir program;
        QDir().mkpath(program.filePath("skins/Plain"));
        QImage square(10, 10, QImage::Format_RGB32);
        square.fill(QColor(10, 200, 30));
        square.save(program.filePath("skins/Plain/green.png"));
        auto position = std::make_unique<Position>();
        SearchState search;
        Session session(*position, search);
        session.ProgramFolder = program.path().toStdString();
        session.Settings.SkinName = "Plain";
        const struct {
            const char* Lines;
            bool Loads;
        } files[] = {
            {"a title\r\nBoardCustomSize=2\r\ndark_highlight=255\r\ndark_square=green.png\r\nEND\r\nlight_square=x",
             true},
            {"dark_square=green.png\r\n", false},
            {"dark_square=missing.png\r\nEND\r\n", false},
        };
        for (const auto& row : files) {
            QFile file(program.filePath("skins/Plain.ini"));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(row.Lines);
            file.close();
            session.Quitting = false;
            Skin skin;
            QCOMPARE(LoadSkin(session, skin), row.Loads);
            QCOMPARE(session.Quitting, !row.Loads);
            if (!row.Loads) continue;
            QCOMPARE(session.Settings.SkinMode, 4);
            QCOMPARE(skin.BoardCustomSize, 2);
            QCOMPARE(skin.DarkHighlight, QColor(255, 0, 0));
            QCOMPARE(SquarePixmap(skin, SquareImage::DarkSquare, 54, 54).toImage().pixelColor(27, 27),
                     QColor(10, 200, 30));
        }
    }

    void ADragMovesAMan() {
        for (Long turned : {1, 0}) {
            GameWindow game;
            game.Game.Settings.BoardTurned = turned;
            DrawBoard(game.Game, 0);
            game.Drag("c5", "d6");
            QCOMPARE(game.Cell("c5"), kEmpty);
            QCOMPARE(game.Cell("d6"), kMan);
            QCOMPARE(game.Lines(*game.Window->List1), "   1. c5-d6");
            QCOMPARE(game.Window->List1->currentRow(), 0);
            QCOMPARE(game.Status(), "Player-Player mode");
            game.Drag("b8", "a7");
            QCOMPARE(game.Lines(*game.Window->List1), "   1. c5-d6|      b8-a7");
            QVERIFY(game.Boxes.Seen.empty());
        }
    }

    void RefusedMoves_data() {
        struct Row {
            const char *Name, *Placement, *From, *To, *Message;
        };
        const char* quiet = "W: c3 d4 g3; B: c9 f8";
        const char* oneJump = "W: c3 g3; B: d4 j8";
        const Row rows[] = {
            {"the opponent's piece", quiet, "c9", "d8", "White moves"},
            {"a piece that is shut in", "W: c3 b4 d4 a5 c5 e5; B: j8", "c3", "b4", "You cannot move that piece"},
            {"a piece beside a capture", oneJump, "g3", "h4", "You cannot move that piece"},
            {"too far", quiet, "c3", "c5", "Illegal move"},
            {"backwards", quiet, "c3", "b2", "Illegal move"},
            {"onto a piece", quiet, "c3", "d4", "Illegal move: that square is not empty"},
            {"a step instead of a jump", oneJump, "c3", "b4", "Illegal move: you need to jump"},
            {"the shorter capture", "W: e3; B: f4 d4 d6 j8", "e3", "g5", "Illegal move: you cannot jump that way"},
            {"off the board", "W: a3 g3; B: c9", "a3", "", ""},
            {"onto a light square", quiet, "c3", "c4", ""},
        };
        QTest::addColumn<QString>("placement");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("message");
        for (const Row& row : rows) {
            QTest::newRow(row.Name) << QString(row.Placement) << QString(row.From) << QString(row.To)
                                    << QString(row.Message);
        }
    }

    void RefusedMoves() {
        QFETCH(QString, placement);
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, message);
        GameWindow game;
        game.Place("", placement.toStdString());
        BoardCells before = game.Pos->Board;
        std::string legal = game.Lines(*game.Window->List2);
        std::string square = from.toStdString();
        if (to.isEmpty()) {
            game.PressOn(square);
            game.MoveMouse(QPoint(600, 400));
            game.Release();
        } else {
            game.Drag(square, to.toStdString());
        }
        std::vector<SeenBox> expected;
        if (!message.isEmpty()) expected.push_back(ErrorBox(message));
        QCOMPARE(game.Boxes.Seen, expected);
        QCOMPARE(game.Pos->Board, before);
        QCOMPARE(game.Lines(*game.Window->List2), legal);
        QCOMPARE(game.Window->List1->count(), 0);
        QCOMPARE(game.Game.Input.DragSource, -1);
        QVERIFY(!game.Window->Board->ShowsEmptySquare(game.ViewOf(square)));
        QCOMPARE(game.Window->Board->cursor().shape(), Qt::ArrowCursor);
    }

    void CaptureOfSeveralJumpsIsOneDrag() {
        GameWindow game;
        game.Place("", "W: e3; B: f4 d4 d6 j8");
        game.Drag("e3", "e7");
        QCOMPARE(game.Lines(*game.Window->List1), "   1. e3xe7");
        QCOMPARE(game.Cell("e7"), kMan);
        QCOMPARE(game.Cell("d4"), kEmpty);
        QCOMPARE(game.Cell("d6"), kEmpty);
        QCOMPARE(game.Cell("f4"), -kMan);
        QCOMPARE(game.Window->Labels[6]->text(), "2");
        QVERIFY(game.Boxes.Seen.empty());
    }

    void ACaptureMustBeMade() {
        GameWindow game;
        game.Place("", "W: c3 g3; B: d4 j8");
        QCOMPARE(game.Lines(*game.Window->List2), "c3xe5");
        game.Drag("c3", "e5");
        QCOMPARE(game.Lines(*game.Window->List1), "   1. c3xe5");
    }

    void ACaptureThatEndsWhereItBeganIsADropOnTheSameSquare() {
        GameWindow game;
        game.Place("", "W: e3; B: f4 f6 d6 d4 j0");
        QCOMPARE(game.Lines(*game.Window->List2), "e3xe3|e3xe3");
        game.PressOn("e3");
        game.Release();
        QCOMPARE(game.Lines(*game.Window->List1), "   1. e3xe3");
        QCOMPARE(game.Cell("e3"), kMan);
        QCOMPARE(game.Window->Labels[6]->text(), "1");
    }

    void AManIsCrowned() {
        GameWindow game;
        game.Place("", "W: ca; B: j8");
        game.Drag("ca", "db");
        QCOMPARE(game.Lines(*game.Window->List1), "   1. ca-dbK");
        QCOMPARE(game.Cell("db"), kKing);
        QCOMPARE(game.Window->Board->ShownImage(game.ViewOf("db")), SquareImage::DarkWhiteKing);
    }

    void MovablePiecesAreBoxed() {
        GameWindow game;
        game.Place("", "W: c3 b2 g3; B: d8");
        auto boxes = [&] {
            std::string boxed;
            for (Long view = 143; view >= 0; --view) {
                if (game.Window->Board->ShowsBox(view))
                    boxed += NameOf(CellOfView(view, game.Game.Settings.BoardTurned)) + " ";
            }
            return boxed;
        };
        QCOMPARE(boxes(), "");
        game.MoveMouse("l7");
        QCOMPARE(boxes(), "c3 g3 b2 ");
        // The piece that is pressed, and where it can go.
        game.PressOn("c3");
        QCOMPARE(boxes(), "b4 d4 c3 ");
        game.MoveMouse(QPoint(600, 400));
        game.Release();
        QCOMPARE(boxes(), "");
        game.MoveMouse("l7");
        QCOMPARE(boxes(), "c3 g3 b2 ");
        game.Game.Settings.ShowAvailableMoves = 0;
        game.Drag("c3", "d4");
        QCOMPARE(boxes(), "");
    }

    void TouchMove() {
        GameWindow game;
        game.Game.Settings.TouchMove = 1;
        game.PressOn("c5");
        game.Release();
        QCOMPARE(game.Game.Game.TouchedCell, SquareOf("c5"));
        game.Drag("g5", "h6");
        QCOMPARE(game.Boxes.Seen, std::vector{ErrorBox("Illegal move")});
        game.Drag("c5", "d6");
        QCOMPARE(game.Lines(*game.Window->List1), "   1. c5-d6");
        QCOMPARE(game.Game.Game.TouchedCell, 0);
    }
};

TAVLON12_TEST_MAIN(BoardTest)
#include "board_test.moc"
