#pragma once

#include "lab/options.h"
#include "lab/workbench.h"

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12::lab {

/// Cuts a line into words as a shell does: at blanks and tabs; '...' keeps everything, "..." all but \" \\ \$ \`, and
/// \ keeps the next character. Nothing is expanded.
Failure SplitWords(std::string_view line, std::vector<std::string>& words);

/// Carries out the command lines of `in`. Behind the output of each, or its line "error REASON", stands a line ".", so
/// that there are as many of them as lines. Lines end in LF or CR LF; one of more than a million bytes is refused.
void RunBatch(Lab& lab, std::istream& in, std::ostream& out);

} // namespace tavlon12::lab
