#include "lab/lab_support.h"

namespace tavlon12::lab {
namespace {

struct BadLine {
    const char* Line;
    const char* Reason; ///< the whole of it
};

void PrintTo(const BadLine& row, std::ostream* stream) {
    *stream << row.Line;
}

class BadUsage : public testing::TestWithParam<BadLine> {};

TEST_P(BadUsage, TellsOneLineAndPrintsNothing) {
    ToolRun run = RunLine(GetParam().Line);
    EXPECT_EQ(run.Status, 2);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Error, std::string("tavlon12-lab: ") + GetParam().Reason + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Words, BadUsage,
    testing::Values(
        BadLine{"", "no command, must be moves, perft, eval, search, bench, games, load or batch"},
        BadLine{"moves now", "unknown argument \"now\""}, BadLine{"moves --depth 3", "--depth is no option of moves"},
        BadLine{"perft", "--depth is missing"}, BadLine{"perft --depth", "--depth has no value"},
        BadLine{"perft --depth 2 --depth 2", "--depth is given twice"},
        BadLine{"search --depth 2 --general --fast", "--fast cannot stand beside --general"},
        BadLine{"perft --depth 0", "--depth \"0\": must be a whole number from 1 to 20"},
        BadLine{"perft --depth 99999999999999999999",
                "--depth \"99999999999999999999\": must be a whole number from 1 to 20"},
        BadLine{"search --depth 2 --bruteforce -1", "--bruteforce \"-1\": must be a whole number from 0 to 1"},
        BadLine{"moves --turn White", "--turn \"White\": must be white or black"},
        BadLine{"moves --offboard 1,2,3",
                "--offboard \"1,2,3\": must be two whole numbers from 0 on with a comma between them"},
        BadLine{"moves --last 42", "--last \"42\": must be the index of a square, 29 to 194 without the border, or 0"},
        BadLine{"moves --setup 12", "--setup \"12\": has 2 digits, must have 144"},
        BadLine{"moves --setup 015", "--setup \"015\": character 3 is \"5\", must be a digit from 0 to 4"},
        BadLine{"moves --variant ''", "--variant \"\": must name a definition"},
        BadLine{"moves --rule MulJumps", "--rule \"MulJumps\": must have the form KEY=VALUE"},
        BadLine{"moves --rule Notation=1", "--rule \"Notation=1\": no key of a definition"},
        BadLine{"moves --rule MulJumps=256", "--rule \"MulJumps=256\": the number must lie from 0 to 255"},
        BadLine{"moves --fast --rule AntiMode=1", "--fast: these rules have no fast generator"},
        BadLine{"moves --play 'c5d6 c5d6'", "--play: move 2, \"c5d6\", is not legal"},
        BadLine{"moves --play 'C5D6 c5-d6'", "--play \"C5D6 c5-d6\": move 2, \"c5-d6\", is no move key such as c3d4"}));

TEST(BadFiles, NameFileLineAndReason) {
    TemporaryFolder folder;
    WriteFile(folder.Path / "Wrong.ini", "Title\r\nMulJumps=1\r\nMaxCapMove=300\r\nEND\r\n");
    WriteFile(folder.Path / "Open.ini", "Title\r\nMulJumps=1\r\n");
    const std::string options = " --variants '" + folder.Path.string() + "' --variant ";
    const std::string file = folder.Path.string() + "/";

    for (const std::string name : {"Open", "Missing", "Wrong"}) {
        ToolRun run = RunLine("moves" + options + name);
        EXPECT_EQ(run.Status, 2);
        EXPECT_EQ(run.Output, "");
        const std::string place = name == "Wrong" ? ".ini, line 3: value out of range: MaxCapMove=300" : ".ini: ";
        EXPECT_TRUE(run.Error.starts_with("tavlon12-lab: " + file + name + place)) << run.Error;
        EXPECT_EQ(LinesOf(run.Error).size(), 1u);
    }
}

TEST(BadUsageText, KeepsControlCharactersAndLongTextsOut) {
    std::vector<std::string> words = {"moves", std::string("a\nb\x1b") + std::string(5000, 'x')};
    auto lab = MakeLab();
    std::istringstream in;
    std::ostringstream out, err;
    EXPECT_EQ(RunTool(*lab, words, in, out, err), 2);
    EXPECT_TRUE(err.str().starts_with("tavlon12-lab: unknown argument \"a?b?xxx")) << err.str();
    EXPECT_EQ(LinesOf(err.str()).size(), 1u);
    EXPECT_LT(err.str().size(), 200u);
}

} // namespace
} // namespace tavlon12::lab
