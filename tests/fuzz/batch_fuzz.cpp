#include "lab/batch.h"
#include "lab/workbench.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

// Drives the batch with any bytes. Searches and counts that a line may rightly ask for, but that would take hours, are
// cut off. Beside crashes it finds a batch that loses count of its lines.

namespace {

constexpr auto kTimePerInput = std::chrono::milliseconds(100);

std::ptrdiff_t LinesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n') + (text.empty() || text.back() == '\n' ? 0 : 1);
}

std::ptrdiff_t EndMarksOf(const std::string& output) {
    std::istringstream lines(output);
    std::ptrdiff_t marks = 0;
    for (std::string line; std::getline(lines, line);) marks += line == "." ? 1 : 0;
    return marks;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto lab = std::make_unique<tavlon12::lab::Lab>();
    lab->ProgramFolder = TAVLON12_DATA_DIR;
    const auto end = std::chrono::steady_clock::now() + kTimePerInput;
    lab->Interrupted = [end] { return std::chrono::steady_clock::now() > end; };

    const std::string input(reinterpret_cast<const char*>(data), size);
    std::istringstream in(input);
    std::ostringstream out;
    tavlon12::lab::RunBatch(*lab, in, out);
    if (EndMarksOf(out.str()) != LinesOf(input)) {
        std::cerr << "lines and end marks differ\n" << out.str();
        std::abort();
    }
    return 0;
}
