#pragma once

#include "session/session.h"

namespace tavlon12 {

inline constexpr const char* kMakersNotice = "free draughts on 12 by 12, by the Tavlon12 team";

/// The tags of the game in a dialog.
void ShowDetails(Session& session);

// The rules of the variant: the document that its definition names for the command, else its help text in a window.
void ShowQuickRules(Session& session);
void ShowRules(Session& session);

/// What the program is.
void ShowAbout(Session& session);

} // namespace tavlon12
