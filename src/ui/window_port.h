#pragma once

#include "ui/main_window.h"

namespace tavlon12 {

/// Fills the session's port with this window. The window must outlive its use.
void ConnectPort(MainWindow& window);

} // namespace tavlon12
