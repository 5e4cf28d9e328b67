#pragma once

#include "session/ui_port.h"

#include <QWidget>

namespace tavlon12 {

/// What the program is, with links. `open` gets the one that is clicked.
void ShowAboutWindow(QWidget* parent, const AboutText& text, const OpenAddress& open);

} // namespace tavlon12
