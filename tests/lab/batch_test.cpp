#include "lab/lab_support.h"

#include <algorithm>
#include <random>

namespace tavlon12::lab {
namespace {

TEST(BatchWords, AreQuotedAsAShellDoes) {
    const std::vector<std::pair<const char*, std::vector<std::string>>> rows = {
        {"", {}},
        {"moves --play  x\t", {"moves", "--play", "x"}},
        {"a 'b c' \"d e\"", {"a", "b c", "d e"}},
        {"'' \"\" x", {"", "", "x"}},
        {"a'b'\"c\"d", {"abcd"}},
        {"'a\\b\"c'", {"a\\b\"c"}},
        {"\"a\\\"b\\\\c\\$d\\`e\\fg'h\"", {"a\"b\\c$d`e\\fg'h"}},
        {"a\\ b \\'c\\\\", {"a b", "'c\\"}},
        {"--rule=WhiteManMovement='NW;NE NW'", {"--rule=WhiteManMovement=NW;NE NW"}},
    };
    for (const auto& [line, expected] : rows) {
        std::vector<std::string> words = {"left over"};
        EXPECT_EQ(SplitWords(line, words), std::nullopt) << line;
        EXPECT_EQ(words, expected) << line;
    }
    std::vector<std::string> words;
    EXPECT_EQ(SplitWords("a 'b", words), "the quote ' is not closed");
    EXPECT_EQ(SplitWords("a \"b\\\"", words), "the quote \" is not closed");
    EXPECT_EQ(SplitWords("a \\", words), "a \\ stands at the end of the line");
}

TEST(Batch, AnswersEveryLineAndGoesOnAfterErrors) {
    using namespace std::string_literals;
    const std::string input = "perft --depth 1\n"
                              "nonsense\r\n"
                              "\n"
                              "batch\n"
                              "moves 'open\n"
                              "eval \0--side black\n"
                              "perft --depth 2\r\n"
                              "perft --depth 1 --fast"s;
    ToolRun run = RunLine("batch", input);
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Error, "");
    EXPECT_EQ(run.Output,
              "perft 1 11\n.\n"
              "error unknown command \"nonsense\", must be moves, perft, eval, search, bench, games, load or batch\n.\n"
              "error no command, must be moves, perft, eval, search, bench, games, load or batch\n.\n"
              "error a batch cannot run in a batch\n.\n"
              "error the quote ' is not closed\n.\n"
              "error the line holds a NUL byte\n.\n"
              "perft 1 11\nperft 2 121\n.\n"
              "perft 1 11\n.\n");
}

TEST(Batch, RefusesAVeryLongLineAndReadsTheNext) {
    std::string output = RunLine("batch", "moves " + std::string(3'000'000, 'x') + "\nperft --depth 1\n").Output;
    EXPECT_EQ(output, "error the line has more than 1000000 bytes\n.\nperft 1 11\n.\n");
}

/// Lines that would leave something behind, did a line not start as a process does: margins that grow, killers, best
/// lines, rules, a custom start, a passed limit, a full list, a game record.
std::vector<std::string> DiverseLines() {
    const std::string kings = Digits({{"a1", '3'}, {"c1", '3'}, {"j0", '4'}, {"f8", '2'}, {"d4", '1'}});
    return {
        "search --depth 5",
        "search --depth 4 --setup " + kings,
        "search --depth 4 --turn black --rule AntiMode=1 --setup " + kings,
        "search --depth 3 --rule PiecesOnBlack=2 --rule 'WhiteManMovement=N;E;W N;E;W' --rule 'BlackManMovement=N;E;W "
        "N;E;W'",
        "search --depth 4 --balance 750 --plys 6 --bruteforce 1 --extended 0 --setup " + kings,
        "eval --play 'c5d6 j8i7 d4c5'",
        "eval --setup " + kings + " --play 'a1b2 j0i9 b2a1 i9j0 a1b2'",
        "moves" + kRunaway,
        "perft --depth 3 --divide --rule MaxCapMove=0 --rule MulJumps=0 --setup " + kings,
        "moves --rule LastCap=1 --last 60 --setup " + kings,
        "eval --fast --side black --rule NumberFriends=0",
    };
}

TEST(Batch, ALineDoesNotDependOnThoseBefore) {
    const std::vector<std::string> lines = DiverseLines();
    std::vector<std::string> alone;
    for (const std::string& line : lines) {
        ToolRun run = RunLine(line);
        const std::string shown = "error " + run.Error.substr(std::min(run.Error.size(), sizeof "tavlon12-lab: " - 1));
        alone.push_back((run.Status == 0 ? run.Output : shown) + ".\n");
    }
    std::mt19937 random(7);
    std::string input, expected;
    for (int i = 0; i < 60; ++i) {
        std::size_t pick = random() % lines.size();
        input += lines[pick] + "\n";
        expected += alone[pick];
    }
    EXPECT_EQ(RunLine("batch", input).Output, expected);
}

} // namespace
} // namespace tavlon12::lab
