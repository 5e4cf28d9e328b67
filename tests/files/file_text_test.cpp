#include "files/file_text.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace tavlon12 {
namespace {

namespace fs = std::filesystem;
using Kind = FileFailure::Kind;
using Lines = std::vector<std::string_view>;

TEST(SplitLines, EndsLinesAtLineFeedsWithOrWithoutCarriageReturn) {
    struct Row {
        std::string_view Bytes;
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
        {std::string_view("a\0b\r\n", 5), {std::string_view("a\0b", 3)}},
        {"\xE9\xFF\r\n", {"\xE9\xFF"}},
    };
    for (const Row& row : rows) EXPECT_EQ(SplitLines(row.Bytes), row.Expected) << row.Bytes;
}

TEST(ReadWholeFile, GivesTheBytesOrNamesTheFile) {
    TemporaryFolder folder;
    const std::string bytes("\0\r\n\xFF\x1A", 5);
    WriteFile(folder.Path / "file", bytes);
    EXPECT_EQ(*ReadWholeFile(folder.Path / "file"), bytes);
    for (const fs::path& none : {folder.Path / "missing", folder.Path}) {
        auto outcome = ReadWholeFile(none);
        ASSERT_FALSE(outcome);
        EXPECT_EQ(outcome.Failure().Message(), none.string() + ": cannot be read");
    }
}

Lines NamesIn(const fs::path& folder, std::vector<std::string>& held) {
    held.clear();
    for (const auto& entry : fs::directory_iterator(folder)) held.push_back(entry.path().filename().string());
    return {held.begin(), held.end()};
}

TEST(ReplaceFile, WritesNewAndOldFilesAndLeavesNothingBeside) {
    TemporaryFolder folder;
    std::vector<std::string> held;
    const fs::path file = folder.Path / "text";
    for (const std::string& bytes : {std::string("one\r\n"), std::string(300000, 'x'), std::string()}) {
        ASSERT_FALSE(ReplaceFile(file, bytes));
        EXPECT_EQ(ReadFile(file), bytes);
        EXPECT_EQ(NamesIn(folder.Path, held), Lines{"text"});
    }
}

TEST(ReplaceFile, KeepsLinksAndPermissions) {
    TemporaryFolder folder;
    WriteFile(folder.Path / "deep" / "text", "old");
    fs::permissions(folder.Path / "deep" / "text", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("deep/text", folder.Path / "link");
    fs::create_symlink("link", folder.Path / "chain");
    fs::create_symlink("deep/missing", folder.Path / "dangling");
    ASSERT_FALSE(ReplaceFile(folder.Path / "chain", "new"));
    EXPECT_TRUE(fs::is_symlink(folder.Path / "link"));
    EXPECT_EQ(ReadFile(folder.Path / "deep" / "text"), "new");
    EXPECT_EQ(fs::status(folder.Path / "deep" / "text").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_FALSE(ReplaceFile(folder.Path / "dangling", "new"));
    EXPECT_EQ(ReadFile(folder.Path / "deep" / "missing"), "new");
}

TEST(ReplaceFile, TellsFileAndReasonAndKeepsTheOldFile) {
    TemporaryFolder folder;
    std::vector<std::string> held;
    fs::create_directory(folder.Path / "folder");
    WriteFile(folder.Path / "file", "old");
    fs::create_symlink("circle", folder.Path / "circle");
    struct Row {
        const char *Name, *Reason;
    };
    const Row rows[] = {{"folder", "it is a folder"},
                        {"missing/file", "the folder does not exist"},
                        {"file/file", "a part of its path is no folder"},
                        {"circle", "its links lead nowhere"}};
    for (const Row& row : rows) {
        const fs::path file = folder.Path / row.Name;
        auto failure = ReplaceFile(file, "new");
        ASSERT_TRUE(failure) << row.Name;
        EXPECT_EQ(failure->Message(), file.string() + ": cannot be written: " + row.Reason);
        EXPECT_EQ(ReadFile(folder.Path / "file"), "old");
        EXPECT_EQ(NamesIn(folder.Path, held).size(), 3u);
    }
}

TEST(FindFile, FindsNamesInAnyCaseAndTheExactOneFirst) {
    TemporaryFolder folder;
    for (const char* name : {"Skins/Wood/a.PNG", "skins/Wood/b.png", "skins/Wood/B.PNG"}) {
        WriteFile(folder.Path / name, "");
    }
    struct Row {
        const char *Asked, *Found;
    };
    const Row rows[] = {{"\\Skins\\wood\\A.png", "Skins/Wood/a.PNG"},
                        {"skins\\WOOD/a.png", "Skins/Wood/a.PNG"},
                        {"skins/wood/b.png", "skins/Wood/b.png"},
                        {"SKINS//wood\\b.Png", "skins/Wood/B.PNG"},
                        {"skins/../skins/WOOD", "skins/../skins/Wood"}};
    for (const Row& row : rows) EXPECT_EQ(FindFile(folder.Path, row.Asked), folder.Path / row.Found) << row.Asked;
    EXPECT_FALSE(FindFile(folder.Path, "skins/wood/c.png"));
    EXPECT_FALSE(FindFile(folder.Path / "missing", "a"));
}

TEST(FileNames, ListsTheNamesWithoutExtension) {
    TemporaryFolder folder;
    for (const char* name : {"b.ini", "A.INI", "c.txt", "d.ini.bak", "Ca.ini"}) WriteFile(folder.Path / name, "");
    EXPECT_EQ(FileNames(folder.Path, ".ini"), (std::vector<std::string>{"A", "b", "Ca"}));
    EXPECT_TRUE(FileNames(folder.Path / "missing", ".ini").empty());
}

} // namespace
} // namespace tavlon12
