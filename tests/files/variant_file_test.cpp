#include "files/variant_file.h"

#include "files/key_lines.h"
#include "rules/rule_keys.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tavlon12 {
namespace {

using Kind = FileFailure::Kind;

struct VariantFileTest : testing::Test {
    Outcome<VariantDefinition> Read(std::string_view text) { return ReadVariant(text, Kept, Texts); }

    /// What a title, the lines and "END" give.
    VariantDefinition ReadLines(const std::string& lines) {
        auto definition = Read("Title\r\n" + lines + "END\r\n");
        EXPECT_TRUE(definition) << lines;
        return definition ? *definition : VariantDefinition();
    }

    RuleSet Kept;
    VariantTexts Texts;
};

TEST_F(VariantFileTest, KnowsItsKeysByExactSpelling) {
    struct Row {
        const char* Lines;
        Byte MulJumps;
    };
    const Row rows[] = {
        {"MulJumps=9\r\n", 9},
        {"mulJumps=9\r\n", 1},
        {" MulJumps=9\r\n", 1},
        {"MulJumpsX=9\r\n", 1},
        {"MulJumps\r\n", 1},
        {"MulJumps= 1 yes\r\n", 1},
        {"MulJumps=yes\r\n", 0},
        {"MulJumps=2.5\r\n", 2},
        {"MulJumps=3.5\r\n", 4},
        {"MulJumps=8\r\nMulJumps=6\r\n", 6},
        {"=9\r\n\r\n;MulJumps=9\r\n", 1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ReadLines(row.Lines).Rules.MulJumps, row.MulJumps) << row.Lines;
    }
}

TEST_F(VariantFileTest, SkipsTheTitleAndWhatFollowsTheEnd) {
    const std::string text = "MulJumps=9\r\nMaxCapMove=7\r\nEND\r\nMaxCapMove=5\r\nLongKings=300\r\n";
    auto definition = Read(text);
    ASSERT_TRUE(definition);
    EXPECT_EQ(definition->Rules.MulJumps, 1);
    EXPECT_EQ(definition->Rules.MaxCapMove, 7);
    EXPECT_EQ(ReadVariant(text, Kept, Texts, FirstLine::Key)->Rules.MulJumps, 9);
    EXPECT_EQ(Read("END\r\n").Failure().Reason, Kind::EndTooEarly) << "the title is no end";
}

TEST_F(VariantFileTest, AddsHelpUpAndKeepsLinks) {
    Texts = {"old", "old.htm", "old.txt"};
    const VariantTexts read = ReadLines("Help=one\r\nHelp=two\r\nHelp=<br>\r\nHelp=<br> three\r\nHelp= four\r\n"
                                        "help=five\r\nHelpLink=a.htm\r\n")
                                  .Texts;
    EXPECT_EQ(read.VariantHelp, "onetwo\r\n<br> three four");
    EXPECT_EQ(read.HelpLink, "a.htm");
    EXPECT_EQ(read.QuickHelpLink, "old.txt");
}

TEST_F(VariantFileTest, ReadsPromotionSquaresIntoAllSlots) {
    const RuleSet read = ReadLines("PromoW=BbDBz1c3A0\r\nPromoB=\r\n").Rules;
    PromotionList expected;
    expected.fill(kUnusedSlot);
    EXPECT_EQ(read.PromoB, expected);
    expected[0] = 184;
    expected[1] = 186;
    expected[4] = 155; // the two before it are no squares
    EXPECT_EQ(read.PromoW, expected);
}

TEST_F(VariantFileTest, TellsHowSetupAndBeginnerFollowEachOther) {
    struct Row {
        const char* Lines;
        std::optional<std::string> Digits;
        bool Negated;
    };
    const Row rows[] = {
        {"Setup=normal\r\n", {}, false},
        {"Setup=31\r\nSetup=normal\r\n", "31", false},
        {"Setup=31\r\nBlackStarts=0\r\n", "31", true},
        {"BlackStarts=0\r\nSetup=31\r\n", "31", false},
        {"Setup=31\r\nBlackStarts=1\r\n", "31", false},
        {"BlackStarts=0\r\nBlackStarts=0\r\n", {}, false},
    };
    for (const Row& row : rows) {
        const VariantDefinition read = ReadLines(row.Lines);
        EXPECT_EQ(read.StartDigits, row.Digits) << row.Lines;
        EXPECT_EQ(read.BalanceNegated, row.Negated) << row.Lines;
    }
}

TEST_F(VariantFileTest, TellsWhatIsWrong) {
    struct Row {
        const char* Text;
        Kind Reason;
        Long Line;
    };
    const Row rows[] = {
        {"", Kind::EndTooEarly, 0},
        {"Title\r\nMulJumps=0\r\nEND \r\nend\r\n END\r\n", Kind::EndTooEarly, 0},
        {"Title\r\nSetup=12\r\nBlackStarts=0\r\nMulJumps=256\r\nEND\r\n", Kind::BadValue, 4},
        {"Title\r\nMulJumps=-1\r\nEND\r\n", Kind::BadValue, 2},
        {"Title\r\nNumberFriends=3000000000\r\nEND\r\n", Kind::BadValue, 2},
        {"Title\r\nMulJumps=1e999\r\nEND\r\n", Kind::BadValue, 2},
    };
    for (const Row& row : rows) {
        auto definition = Read(row.Text);
        ASSERT_FALSE(definition) << row.Text;
        EXPECT_EQ(definition.Failure().Reason, row.Reason) << row.Text;
        EXPECT_EQ(definition.Failure().Line, row.Line) << row.Text;
    }
}

// The files of data/variants, each checked as its author would wish: it can be read, and no line is lost on a misspelt
// key.

std::vector<std::filesystem::path> ShippedVariants() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ShippedDefaultVariant().parent_path())) {
        if (entry.path().extension() == ".ini") files.push_back(entry.path());
    }
    return files;
}

bool IsConsumed(std::string_view text) {
    auto line = SplitKeyLine(text);
    if (!line) return false;
    return line->Key == "Help" || line->Key == "HelpLink" || line->Key == "QuickHelpLink" || FindRuleKey(line->Key);
}

TEST(ShippedVariants, AreReadAndEveryLineOfThemIsUsed) {
    auto files = ShippedVariants();
    ASSERT_FALSE(files.empty());
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename());
        const std::string bytes = ReadFile(file);
        auto definition = ReadVariant(bytes, RuleSet(), VariantTexts());
        ASSERT_TRUE(definition) << definition.Failure().Message();
        EXPECT_FALSE(definition->Texts.VariantHelp.empty());

        for (char c : bytes) EXPECT_TRUE((c >= ' ' && c <= '~') || c == '\r' || c == '\n');
        const std::vector<std::string_view> lines = SplitLines(bytes);
        EXPECT_EQ(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\r')), lines.size());
        EXPECT_EQ(lines.back(), "END");
        std::set<std::string> keys;
        for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
            EXPECT_TRUE(IsConsumed(lines[i])) << "line " << i + 1 << ": " << lines[i];
            keys.emplace(lines[i].substr(0, lines[i].find('=')));
        }
        for (const RuleKey& key : RuleKeys()) EXPECT_TRUE(keys.contains(std::string(key.Name))) << key.Name;
    }
}

} // namespace
} // namespace tavlon12
