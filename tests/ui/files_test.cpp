#include "support.h"

#include "session/program_files.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
#include <QTreeView>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

/// Types a path into a file dialog.
DialogUser Choose(const std::filesystem::path& file) {
    return {"FileDialog", [path = QString::fromStdString(file.string())](QDialog& dialog) {
                dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
                QMetaObject::invokeMethod(&dialog, "accept"); // typed keys go to the completer's list
            }};
}

} // namespace

class FilesTest : public QObject {
    Q_OBJECT

private slots:
    void AGameIsSavedAndOpened() {
        GameWindow game;
        game.Drag("g5", "h6");
        const std::string lines = game.Lines(*game.Window->Panel.List1);
        const std::filesystem::path file = game.Folder.Path / "club.tvl";
        {
            const DialogUser user = Choose(game.Folder.Path / "club");
            game.ClickButton("Save");
            QVERIFY(user.Used);
        }
        QVERIFY2(std::filesystem::exists(file), "the ending of the filter is added");
        QVERIFY(game.Window->windowTitle().endsWith("Beta - club.tvl"));

        game.ClickButton("New Game");
        QCOMPARE(game.Boxes.Seen.size(), 1u); // whether to quit the game
        {
            const DialogUser user = Choose("club.tvl"); // where the last file was
            game.ClickButton("Open");
        }
        QCOMPARE(game.Lines(*game.Window->Panel.List1), lines);
        QCOMPARE(game.Cell("h6"), kMan);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        game.Drag("b8", "a7");
        QCOMPARE(game.Game.Record.LastMoveIndex, 2);
    }

    void AGameIsChosenFromMany() {
        GameWindow game;
        std::string games;
        for (int i = 1; i <= 10000; ++i) {
            games += "[Event \"Cup\"]\r\n[White \"Player " + std::to_string(i) + "\"]\r\n\r\n1. " +
                     (i == 7777 ? "26-32" : "25-31") + " *\r\n\r\n";
        }
        WriteFile(game.Folder.Path / "many.pdn", games);
        QTimer clock;
        int ticks = 0; // while the games are listed and the one is loaded
        QObject::connect(&clock, &QTimer::timeout, &clock, [&] { ticks += QApplication::overrideCursor() != nullptr; });
        clock.start(1);
        const DialogUser file = Choose(game.Folder.Path / "many.pdn");
        const DialogUser chooser("dlgPDN", [](QDialog& dialog) {
            auto* list = dialog.findChild<QTreeView*>(QStringLiteral("ListView1"));
            QCOMPARE(list->model()->rowCount(), 10000);
            QTest::keyClicks(dialog.findChild<QLineEdit*>(QStringLiteral("Find")), QStringLiteral("player 7777"));
            QCOMPARE(list->model()->rowCount(), 1);
            QCOMPARE(dialog.findChild<QComboBox*>(QStringLiteral("Combo1"))->currentText(), QStringLiteral("DEFAULT"));
            const QRect row = list->visualRect(list->model()->index(0, 0));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row.center());
        });
        game.ClickButton("Open");
        QVERIFY(chooser.Used);
        QVERIFY2(ticks > 0, "the window lives meanwhile");
        QCOMPARE(game.Game.PdnGameChoice, 7777);
        QCOMPARE(game.Game.Players.WhitePlayerName, "Player 7777");
    }

    void WhatIsPlayedIsThereAtTheNextStart() {
        GameWindow game;
        game.Game.Settings.AutoSave = 1;
        game.Game.Settings.AskExit = 0;
        game.Game.Settings.UserName = "Ann";
        game.Game.Rating = 1234;
        game.Drag("g5", "h6");
        const std::string lines = game.Lines(*game.Window->Panel.List1);
        game.Window->close();

        auto position = std::make_unique<Position>();
        auto search = std::make_unique<SearchState>();
        Session session(*position, *search);
        session.ProgramFolder = game.Folder.Path;
        session.InstalledFolder = TAVLON12_DATA_DIR;
        MainWindow window(session);
        QVERIFY(StartUp(session));
        QCOMPARE(session.Settings.UserName, "Ann");
        QCOMPARE(session.Rating, 1234);
        QCOMPARE(game.Lines(*window.Panel.List1), lines);
        QVERIFY(ReadFile(game.Folder.Path / kLogFile).find("g5-h6") != std::string::npos);
    }
};

TAVLON12_TEST_MAIN(FilesTest)
#include "files_test.moc"
