#pragma once

#include "session/ui_port.h"
#include "ui/widgets.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>

#include <array>

namespace tavlon12 {

/// The controls beside and under the board, and the panels of the status bar, each under its object name. They belong
/// to the window.
struct SidePanel {
    std::array<QLabel*, 15> Labels{}; ///< from 1: `Label1` to `Label14`
    GameList* List1 = nullptr;
    GameList* List2 = nullptr;
    GameList* List3 = nullptr;
    QLineEdit* Text2 = nullptr;
    QPushButton* Command1 = nullptr;
    QPlainTextEdit* Text1 = nullptr;
    QProgressBar* Progress = nullptr;
    std::array<QLabel*, 3> StatusPanels{};

    GameList& ListOf(ListId list) const {
        return list == ListId::List1 ? *List1 : list == ListId::List2 ? *List2 : *List3;
    }
};

/// Makes them as children of `client`, without a place and not yet connected to anything.
SidePanel MakeSidePanel(QWidget* client, QStatusBar& statusBar);

} // namespace tavlon12
