#include "session/start_up.h"
#include "ui/main_window.h"

#include <QApplication>

#include <memory>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tavlon12"));
    QApplication::setDesktopFileName(QStringLiteral("tavlon12"));
    tavlon12::ApplyLook(application);

    // The position is large: it lives on the heap, as the session and the window use it by reference.
    auto position = std::make_unique<tavlon12::Position>();
    auto search = std::make_unique<tavlon12::SearchState>();
    auto session = std::make_unique<tavlon12::Session>(*position, *search);
    session->ProgramFolder = QCoreApplication::applicationDirPath().toStdString();

    tavlon12::MainWindow window(*session);
    if (!tavlon12::StartUp(*session)) return 1;
    window.show();
    QApplication::exec();
    return window.ExitCode;
}
