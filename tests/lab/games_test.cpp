#include "lab/lab_support.h"

namespace tavlon12::lab {
namespace {

TEST(LabGames, ListsAFileAndLoadsAndSavesWhatItHolds) {
    TemporaryFolder folder;
    const std::string pdn = (folder.Path / "club.pdn").string();
    const std::string tvl = (folder.Path / "club.tvl").string();
    WriteFile(
        pdn,
        "[Event \"A\"]\n[Black \"Ada\"]\n\n1. 25-31 {quick\\} 44-38 1-0\n\n[Event \"B\"]\n\n1. 26-32 2-2 3. 1-2 *\n");
    const auto games = LinesOf(OutputOf("games '" + pdn + "'"));
    EXPECT_EQ(games.size(), 2u);

    const std::string loaded = OutputOf("load '" + pdn + "' --notation 1 --save '" + tvl + "'");
    EXPECT_NE(loaded.find("variant Canadian Checkers"), std::string::npos) << loaded;
    EXPECT_NE(loaded.find("\nmove 1 2531 "), std::string::npos) << loaded;
    EXPECT_NE(loaded.find("\ncomment 1 quick\\\\\nmove 2 4438 "), std::string::npos) << loaded;
    EXPECT_NE(loaded.find("\nover 0\nposition "), std::string::npos) << loaded;
    EXPECT_TRUE(loaded.ends_with(" black\n")) << loaded;

    // What was saved comes back the same, but for the names, which a game file does not keep.
    const auto from = [](const std::string& text) { return text.substr(text.find("\nstart ")); };
    EXPECT_EQ(from(OutputOf("load '" + tvl + "'")), from(loaded));

    const ToolRun broken = RunLine("load '" + pdn + "' --game 2");
    EXPECT_EQ(broken.Status, 1);
    EXPECT_TRUE(broken.Output.starts_with("message Error: DBDB: Illegal move!\n")) << broken.Output;
    EXPECT_EQ(RunLine("load '" + pdn + "' --game 3").Status, 2);
    EXPECT_EQ(RunLine("load nothing.pdn").Status, 1);
}

} // namespace
} // namespace tavlon12::lab
