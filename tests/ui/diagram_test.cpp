#include "support.h"

#include <QPainter>
#include <QProcess>
#include <QStandardPaths>

using namespace tavlon12;
using namespace tavlon12::support;

namespace {

constexpr int kBrowserTime = 60000; // milliseconds, on a machine that has much else to do

QString Browser() {
    for (const char* name : {"chromium", "chromium-browser", "google-chrome"}) {
        const QString found = QStandardPaths::findExecutable(QLatin1String(name));
        if (!found.isEmpty()) return found;
    }
    return {};
}

/// What a browser without a window answers about the page of the game.
QByteArray Browse(const GameWindow& game, const QString& question) {
    const QString folder = QString::fromStdString(game.Folder.Path.string());
    QProcess browser;
    browser.setWorkingDirectory(folder);
    browser.start(Browser(),
                  {"--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars", "--force-color-profile=srgb",
                   "--force-device-scale-factor=1", "--window-size=900,900", "--user-data-dir=" + folder + "/profile",
                   question, "file://" + folder + "/diagram.html"});
    if (!browser.waitForFinished(kBrowserTime)) browser.kill();
    return browser.readAllStandardOutput();
}

/// The board of the window without its frame.
QImage BoardPicture(const GameWindow& game) {
    const BoardView& board = *game.Window->Board;
    const QRect grid = board.SquareRect(0).united(board.SquareRect(kSquareCount - 1));
    return game.Window->Board->grab(grid).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Whether a page shows the picture near its top left corner.
bool Shows(const QImage& page, const QImage& picture) {
    constexpr int kMargin = 40;
    for (int y = 0; y < kMargin; ++y) {
        for (int x = 0; x < kMargin; ++x) {
            if (page.pixel(x, y) == picture.pixel(0, 0) && page.copy(QRect({x, y}, picture.size())) == picture)
                return true;
        }
    }
    return false;
}

} // namespace

class DiagramTest : public QObject {
    Q_OBJECT

private slots:
    void TheBrowserShowsTheBoard_data() {
        QTest::addColumn<QString>("Keys");
        QTest::addColumn<QString>("Skin");
        QTest::addColumn<int>("Turned");
        QTest::addColumn<QString>("Comment");
        const QString comment = QString::fromUtf8("1 < 2 & \"caf\xC3\xA9\" \xE2\x99\x9B\n</BODY>\n");
        QTest::newRow("turned") << ""
                                << "Classic Small" << 1 << "";
        QTest::newRow("all squares, a comment") << "PiecesOnBlack=2"
                                                << "Walnut Medium" << 0 << comment;
    }

    void TheBrowserShowsTheBoard() {
        QFETCH(QString, Keys);
        QFETCH(QString, Skin);
        QFETCH(int, Turned);
        QFETCH(QString, Comment);
        GameWindow game(Skin.toStdString());
        game.Game.InstalledFolder.clear(); // the page is not opened in the user's browser
        game.Game.Settings.BoardTurned = Turned;
        game.Place(Keys.toStdString(), "W: c3 Ke5 a2 Kl9; B: d4 Kf6 e1 Kg3");
        game.Window->Panel.Text1->setPlainText(Comment);
        game.Window->Bar.ActionOf(Command::CreateHtml).trigger();
        QCOMPARE(game.Boxes.Seen, (std::vector<SeenBox>{{"Diagram", "DIAGRAM.HTML created", QMessageBox::Warning}}));
        if (Browser().isEmpty()) QSKIP("There is no browser without a window");

        Browse(game, "--screenshot");
        QImage page(QString::fromStdString((game.Folder.Path / "screenshot.png").string()));
        QVERIFY(!page.isNull());
        QVERIFY(Shows(page.convertToFormat(QImage::Format_RGB32), BoardPicture(game)));
        QString text = QString::fromUtf8(Browse(game, "--dump-dom"));
        for (const QString& line : Comment.split('\n'))
            QVERIFY2(text.contains(line.toHtmlEscaped().replace("&quot;", "\"")), qPrintable(text));
    }
};

TAVLON12_TEST_MAIN(DiagramTest)
#include "diagram_test.moc"
