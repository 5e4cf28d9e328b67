#include "lab/lab_support.h"

namespace tavlon12::lab {
namespace {

const std::string kGames = "[Event \"Cup\"]\n[Round \"2\"]\n[White \"Wim\"]\n[Black \"Bea\"]\n[Result \"1-0\"]\n[Site "
                           "\"Delft\"]\n[ECO \"E\"]\n[BlackElo \"1\"]\n[WhiteElo \"2\"]\n\n"
                           "1. {a\\b} 25-31 44-38 2. {c} 26-32 1-0\n\n"
                           "[Event \"Fen\"]\n[SetUp \"1\"]\n[FEN \"B:WK1:B29\"]\n\n1. 29-35 1-1 *\n";

TEST(GamesCommand, ListsTheColumnsOfTheChooser) {
    TemporaryFolder folder;
    const std::string file = (folder.Path / "two.pdn").string();
    WriteFile(file, kGames);
    EXPECT_EQ(OutputOf("games " + file), "game 1\tCup 2\t\tBea\tWim\t1-0\tDelft\t\tE\t1\t2\n"
                                         "game 2\tFen\t\t\t\t*\t\t1\t\t\t\n");
    WriteFile(file, "1. 25-31\n");
    const ToolRun none = RunLine("games " + file);
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(none.Output, "message Tavlon12: two.pdn is not a PDN file\n");
    EXPECT_EQ(RunLine("games " + (folder.Path / "no.pdn").string()).Output,
              "message Tavlon12: no.pdn does not exist\n");
}

TEST(LoadCommand, PrintsAndSavesTheGame) {
    TemporaryFolder folder;
    const auto path = [&](const char* name) { return (folder.Path / name).string(); };
    WriteFile(path("two.pdn"), kGames);
    const std::string output = OutputOf("load " + path("two.pdn") + " --notation 1 --save " + path("one.tvl"));
    const std::vector<std::string> lines = LinesOf(output);
    ASSERT_EQ(lines.size(), 11u) << output;
    EXPECT_EQ(lines[1], "names Wim | Bea");
    EXPECT_EQ(lines[2], "panel 1-0");
    EXPECT_TRUE(lines[3].starts_with("start ") && lines[3].ends_with(" black"));
    EXPECT_EQ(lines[4], "comment 0 a\\\\b");
    EXPECT_TRUE(lines[5].starts_with("move 1 2531 ") && lines[5].ends_with("    1. 25-31")) << lines[5];
    EXPECT_EQ(lines[7], "comment 2 c");
    EXPECT_EQ(lines[9], "over 0");
    EXPECT_TRUE(lines[10].ends_with(" white"));
    const std::string again = OutputOf("load " + path("one.tvl") + " --save " + path("one.pdn"));
    EXPECT_EQ(again.substr(again.find("start ")), output.substr(output.find("start ")))
        << "as a game file it is the same";
    const std::string third = OutputOf("load " + path("one.pdn") + " --notation 1");
    EXPECT_EQ(third.substr(third.find("start ")), output.substr(output.find("start ")));

    const ToolRun illegal = RunLine("load " + path("two.pdn") + " --game 2 --notation 1");
    EXPECT_EQ(illegal.Status, 1);
    EXPECT_TRUE(illegal.Output.starts_with("message Error:  1 1: Illegal move!\n")) << illegal.Output;
    EXPECT_EQ(RunLine("load " + path("two.pdn") + " --game 3").Status, 2);
    EXPECT_EQ(RunLine("load " + path("two.pdn") + " --as Nothing").Status, 2);
}

} // namespace
} // namespace tavlon12::lab
