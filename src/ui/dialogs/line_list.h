#pragma once

#include "session/ui_port.h"

#include <QComboBox>

#include <vector>

namespace tavlon12 {

/// Fills a list with lines to choose from. One whose file cannot be used stands there greyed, with the reason as its
/// tool tip.
void ShowLines(QComboBox& combo, const std::vector<ListLine>& lines);

/// Shows a name as the one chosen, in either case; one that is not in the list stands there alone.
void ShowChosen(QComboBox& combo, const QString& name);

} // namespace tavlon12
