#include "lab/lab_support.h"
#include "support/positions.h"

#include <fstream>

namespace tavlon12::lab {
namespace {

// Move lists, evaluations and searches as the plain version of the program gave them, before anything was made faster.
// Each entry of the file: "= " with the position options, then what `moves`, `eval` and `search --depth 5` print, each
// closed by ".".

std::string RestOfAnswer(std::istream& file) {
    std::string answer;
    for (std::string line; std::getline(file, line) && line != ".";) answer += line + "\n";
    return answer;
}

TEST(Golden, EveryAnswerIsThatOfThePlainVersion) {
    std::ifstream file(TAVLON12_SOURCE_DIR "/tests/data/golden.txt");
    ASSERT_TRUE(file.is_open());
    const Long step = support::Scaled(10) == 10 ? 1 : 10; // a tenth of them where every check is on
    Long entries = 0;
    Long compared = 0;
    std::string rules;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("# ")) rules = line;
        if (!line.starts_with("= ")) continue;
        SCOPED_TRACE(rules + line);
        const std::string options = line.substr(2);
        const bool wanted = entries++ % step == 0;
        compared += wanted;
        for (const char* command : {"moves ", "eval ", "search --depth 5 "}) {
            const std::string expected = RestOfAnswer(file);
            if (wanted) {
                ASSERT_EQ(OutputOf(command + options), expected);
            }
        }
    }
    EXPECT_EQ(entries, 393);
    EXPECT_GE(compared, entries / step);
}

} // namespace
} // namespace tavlon12::lab
