#include "session/start_up.h"
#include "ui/look.h"
#include "ui/main_window.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <memory>

namespace {

/// The folder of the program, where it can be written to; otherwise a folder of the user's, and that of the program
/// behind it.
void UseProgramFolder(tavlon12::Session& session) {
    const QString installed = QCoreApplication::applicationDirPath();
    if (QFileInfo(installed).isWritable()) {
        session.ProgramFolder = installed.toStdString();
        return;
    }
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    QDir().mkpath(own);
    session.ProgramFolder = own.toStdString();
    session.InstalledFolder = installed.toStdString();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavlon12"));
    QApplication::setDesktopFileName(QStringLiteral("tavlon12"));
    tavlon12::ApplyLook(application);

    // The position is large: it lives on the heap, as the session and the window use it by reference.
    auto position = std::make_unique<tavlon12::Position>();
    auto search = std::make_unique<tavlon12::SearchState>();
    auto session = std::make_unique<tavlon12::Session>(*position, *search);
    UseProgramFolder(*session);

    tavlon12::MainWindow window(*session);
    if (!tavlon12::StartUp(*session)) return 1;
    window.show();
    QApplication::exec();
    return window.ExitCode;
}
