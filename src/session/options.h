#pragma once

#include "session/session.h"

namespace tavlon12 {

/// The command Options: the user's settings in a dialog. The skin and the rating change as soon as they are chosen,
/// everything else with OK or Apply.
void ShowOptions(Session& session);

} // namespace tavlon12
