#pragma once

#include "session/session.h"

#include <string>

namespace tavlon12 {

/// A web page in ASCII of the position on the board as the screen shows it, with its comment; lines end with CR LF. The
/// pictures are named, not held.
std::string DiagramText(const Session& session, const std::string& comment);

/// Writes "diagram.html" into the program folder, over an earlier one, and its pictures in the skin in force into the
/// folder "pieces" beside it. A page in a folder of the user's is opened.
void CreateDiagram(Session& session);

} // namespace tavlon12
