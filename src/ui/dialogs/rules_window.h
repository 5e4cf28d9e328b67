#pragma once

#include "session/ui_port.h"

#include <QWidget>

namespace tavlon12 {

/// The help text of a variant, with its link. `open` gets the link when it is clicked.
void ShowRulesWindow(QWidget* parent, const RulesText& text, const OpenAddress& open);

} // namespace tavlon12
