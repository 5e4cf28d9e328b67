#include "fuzz/reader_checks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <random>

namespace tavlon12 {
namespace {

// The seeds of the fuzzer, whole, cut and with damaged bytes: what must hold for any bytes holds for these.

std::string Damaged(std::string bytes, std::mt19937& random) {
    for (int i = 0; i < 6 && !bytes.empty(); ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    if (random() % 4 == 0) bytes.resize(random() % (bytes.size() + 1));
    return bytes;
}

TEST(Readers, HoldWhatTheyPromiseForSeedsAndDamagedSeeds) {
    std::mt19937 random(12);
    for (const support::ReaderCheck& reader : support::ReaderChecks()) {
        SCOPED_TRACE(reader.Name);
        const std::filesystem::path fuzz = std::filesystem::path(TAVLON12_SOURCE_DIR) / "tests" / "fuzz";
        int seeds = 0;
        for (const auto& entry : std::filesystem::directory_iterator(fuzz / (std::string(reader.Name) + "_seeds"))) {
            SCOPED_TRACE(entry.path().filename());
            const std::string bytes = ReadFile(entry.path());
            ASSERT_NO_THROW(reader.Check(bytes));
            for (int round = 0; round < 200; ++round) ASSERT_NO_THROW(reader.Check(Damaged(bytes, random)));
            ++seeds;
        }
        EXPECT_GT(seeds, 0);
    }
}

} // namespace
} // namespace tavlon12
