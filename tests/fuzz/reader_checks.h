#pragma once

#include <span>
#include <string_view>

namespace tavlon12::support {

/// A reader of files with what must hold for any bytes. `Check` throws where it does not.
struct ReaderCheck {
    std::string_view Name; ///< its seeds lie in tests/fuzz/<name>_seeds
    void (*Check)(std::string_view bytes);
};

std::span<const ReaderCheck> ReaderChecks();

/// The check of this name; throws when there is none.
const ReaderCheck& FindReaderCheck(std::string_view name);

} // namespace tavlon12::support
