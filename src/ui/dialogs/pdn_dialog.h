#pragma once

#include "session/ui_port.h"

#include <QWidget>

#include <optional>

namespace tavlon12 {

/// The chooser of a game in a PDN file: a list that is sorted by a click on a column and narrowed by typing, and the
/// variant to open the game as. A double click chooses too. Nothing when the user cancels.
std::optional<PdnChoice> ChoosePdnGame(QWidget* parent, const PdnChooser& chooser);

} // namespace tavlon12
