#pragma once

#include "session/ui_port.h"

#include <QWidget>

namespace tavlon12 {

/// The tags of a game in fields. `apply` gets them at OK and at Apply.
void EditDetails(QWidget* parent, const DetailsForm& form, const std::function<void(const DetailsForm&)>& apply);

} // namespace tavlon12
