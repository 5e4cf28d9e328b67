#include "fuzz/reader_checks.h"

#include <cstddef>
#include <cstdint>

// Drives one reader of files, named by the build, with any bytes. A check that throws ends the run as a crash.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto& reader = tavlon12::support::FindReaderCheck(TAVLON12_READER);
    reader.Check({reinterpret_cast<const char*>(data), size});
    return 0;
}
