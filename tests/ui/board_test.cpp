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

    void TheSkinsThatComeWithTheProgramAreWhole() {
        const QDir folder(TAVLON12_DATA_DIR "/skins", "*.ini");
        QVERIFY(folder.count() >= 8);
        GameWindow game;
        for (const QString& file : folder.entryList()) {
            game.Game.Settings.SkinName = file.chopped(4).toStdString();
            Skin skin;
            QVERIFY2(LoadSkin(game.Game, skin), qPrintable(file));
            const bool small = file.endsWith("Small.ini");
            QCOMPARE(skin.BoardCustomSize, small ? 0 : 2);
            for (const QImage& image : skin.Images) QCOMPARE(image.size(), small ? QSize(38, 38) : QSize(54, 54));
            for (const PieceCursor& cursor : skin.Cursors) QVERIFY(!cursor.Picture.isNull());
        }
    }

    void ADragMovesAMan() {
        for (Long turned : {1, 0}) {
            GameWindow game;
            game.Game.Settings.BoardTurned = turned;
            DrawBoard(game.Game, 0);
            game.Drag("c5", "d6");
            QCOMPARE(game.Window->Board->ShownImage(game.ViewOf("d6")), SquareImage::DarkWhiteMan);
            QCOMPARE(game.Status(), "Player-Player mode");
            game.Drag("b8", "a7");
            QCOMPARE(game.Lines(*game.Window->Panel.List1), "   1. c5-d6|      b8-a7");
            QVERIFY(game.Boxes.Seen.empty());
        }
    }

    // The piece hangs at the pointer until it is dropped, also outside the board; then it is back.
    void ARefusedMovePutsThePieceBack() {
        GameWindow game;
        for (QPoint end : {QPoint(600, 400), QPoint(-50, -50), game.PointOf("c6"), game.PointOf("e5")}) {
            game.PressOn("c5");
            QVERIFY(game.Window->Board->ShowsEmptySquare(game.ViewOf("c5")));
            QCOMPARE(game.Window->Board->cursor().shape(), Qt::BitmapCursor);
            game.MoveMouse(end);
            game.Release();
            QCOMPARE(game.Window->Board->ShownImage(game.ViewOf("c5")), SquareImage::DarkWhiteMan);
            QCOMPARE(game.Window->Board->cursor().shape(), Qt::ArrowCursor);
        }
        QCOMPARE(game.Boxes.Seen, std::vector{ErrorBox("Illegal move: that square is not empty")});
        QCOMPARE(game.Window->Panel.List1->count(), 0);
    }
};

TAVLON12_TEST_MAIN(BoardTest)
#include "board_test.moc"
