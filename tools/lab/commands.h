#pragma once

#include "lab/options.h"
#include "lab/workbench.h"

#include <cstdint>
#include <iosfwd>
#include <span>
#include <string>

namespace tavlon12::lab {

/// What a command has done, beside what it prints.
struct Report {
    std::string Output;      ///< whole lines; nothing of it counts when the command fails
    std::uint64_t Nodes = 0; ///< sequences of the full depth, or calls of search members
    int Status = 0;          ///< of the process: 1 for a game that has not got through
};

/// Carries out one command that is no batch: everything from its words to its output.
Failure RunCommand(Lab& lab, std::span<const std::string> words, Report& report);

/// Carries out the command of the options on a workbench made for it.
Failure RunPrepared(Lab& lab, const Options& options, Report& report);

/// The whole program: 0 or the status of the report, or 2 after a line on `err` and nothing on `out`. `batch` reads its
/// command lines from `in`.
int RunTool(Lab& lab, std::span<const std::string> words, std::istream& in, std::ostream& out, std::ostream& err);

} // namespace tavlon12::lab
