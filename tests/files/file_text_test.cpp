#include "files/file_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using Lines = std::vector<std::string>;

TEST(ReadLines, EndsLinesAtLineFeedsWithOrWithoutCarriageReturn) {
    struct Row {
        std::string Bytes;
        Lines Expected;
    };
    const Row rows[] = {
        {"", {}},
        {"\r\n", {""}},
        {"\n\r\n", {"", ""}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\nb", {"a", "b"}},
        {"a\r\n\r\nb\r", {"a", "", "b"}},
        {"a\rb\r\n", {"a\rb"}},
        {std::string("a\0b\r\n", 5), {std::string("a\0b", 3)}},
        {"\xE9\xFF\r\n", {"\xE9\xFF"}},
    };
    TemporaryFolder folder;
    for (const Row& row : rows) {
        WriteFile(folder.Path / "text", row.Bytes);
        Lines lines = {"left over"};
        ASSERT_TRUE(ReadLines(folder.Path / "text", lines));
        EXPECT_EQ(lines, row.Expected) << row.Bytes;
    }
}

TEST(ReadLines, RefusesWhatIsNoFile) {
    TemporaryFolder folder;
    Lines lines;
    EXPECT_FALSE(ReadLines(folder.Path / "missing", lines));
    EXPECT_FALSE(ReadLines(folder.Path, lines));
}

} // namespace
} // namespace tavlon12
