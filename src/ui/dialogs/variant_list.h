#pragma once

#include "session/ui_port.h"

#include <QComboBox>

#include <vector>

namespace tavlon12 {

/// Fills a list with variants. One whose definition cannot be read stands there greyed, with the reason as its tool
/// tip.
void ShowVariantList(QComboBox& combo, const std::vector<VariantLine>& variants);

} // namespace tavlon12
