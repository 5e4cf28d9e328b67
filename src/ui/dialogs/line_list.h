#pragma once

#include "session/ui_port.h"

#include <QComboBox>

#include <vector>

namespace tavlon12 {

/// Fills a list with lines to choose from. One whose file cannot be used stands there greyed, with the reason as its
/// tool tip.
void ShowLines(QComboBox& combo, const std::vector<ListLine>& lines);

} // namespace tavlon12
