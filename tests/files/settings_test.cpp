#include "files/settings.h"

#include "rules/rule_keys.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace tavlon12 {
namespace {

using Kind = FileFailure::Kind;

/// The bytes of 84 lines from texts with one blank between two; numbers get their blanks.
std::string FileOf(std::string_view texts) {
    std::istringstream words{std::string(texts)};
    std::string bytes;
    for (std::string word; words >> word;) {
        const bool number = word.find_first_not_of("-0123456789") == std::string::npos;
        for (char& c : word) c = c == '_' ? ' ' : c;
        bytes += (number ? (word[0] == '-' ? word : " " + word) + " " : word) + "\r\n";
    }
    return bytes;
}

const char* const kDefaults =
    "TAVLON120.89 0 1 2 0 1 1 1 1 0 Canadian_Checkers 1 0 0 2 0 1 0 1 0 Player 0 1 0 1 1 1 0 1 "
    "BbDbFbHbJbLb A1C1E1G1I1K1 NW;NE_NW;NE;SE;SW NW;NE_NW;NE;SE;SW NW;NE;SE;SW_NW;NE;SE;SW "
    "NW;NE;SE;SW_NW;NE;SE;SW 0 1 1 0 0 0 0 0 0 1 3 150 1 0 0 1 2 0 0 0 0 0 0 0 0 0 0 0 "
    "Classic_Small 0 0 0 0 0 0 5 1 0 0 0 0 0 0 0 0 0 0 0 0";

TEST(Settings, ANewFileHasThe84LinesOfTheDefaults) {
    EXPECT_EQ(DefaultSettingsText(), FileOf(kDefaults));
    std::string saved = kDefaults;
    saved.replace(saved.find("BbDb"), 12, "BBDBFBHBJBLB");
    EXPECT_EQ(SettingsText(StoredSettings()), FileOf(saved));
    EXPECT_EQ(SettingsText(*ReadSettings(DefaultSettingsText())), FileOf(saved));
}

/// The defaults with one line, counted from 1, put in the place of another.
std::string WithLine(std::size_t number, const std::string& line) {
    const std::string defaults = DefaultSettingsText();
    std::string bytes;
    std::size_t at = 0;
    for (std::string_view old : SplitLines(defaults)) bytes.append(++at == number ? line : old).append("\r\n");
    return bytes;
}

TEST(Settings, EveryLineGoesToItsOwnMember) {
    std::string numbered = "TAVLON120.89\r\n";
    for (int line = 2; line <= 84; ++line) numbered += std::to_string(line) + "\r\n";
    auto stored = ReadSettings(numbered);
    ASSERT_TRUE(stored);
    const UserSettings& user = stored->User;
    EXPECT_EQ(std::tuple(user.PlayMode, user.Limits.StrengthStep, user.Limits.DepthLimit, user.Notation),
              std::tuple(2, 3, 4, 5));
    EXPECT_EQ(std::tuple(stored->VariantFile, user.Limits.TimeLimit, user.Limits.FixedDepth, user.UserName),
              std::tuple("11", 15, 16, "21"));
    EXPECT_EQ(std::tuple(user.OpeningBook, user.CanadianBook, user.Search.BruteForce, user.ColonCapture),
              std::tuple(36, 39, 40, 43));
    EXPECT_EQ(std::tuple(user.AutoSave, user.UseSound, user.SkinName, user.TouchMove), std::tuple(61, 62, "64", 73));
    const RuleSet& rules = stored->Rules;
    EXPECT_EQ(std::tuple(rules.MaxCapMove, rules.MulJumps, rules.WhiteKingMovement, rules.ContractB2),
              std::tuple(7, 8, "34", 84));
}

// A line with a random value, by the kind of its member.

template <typename Number> std::string RandomLine(const Number&, bool, std::mt19937& random) {
    const std::string number = std::to_string(static_cast<Number>(random()));
    return (number[0] == '-' ? "" : " ") + number + " ";
}

std::string RandomLine(const PromotionList&, bool, std::mt19937& random) {
    std::string text;
    for (std::size_t squares = random() % 21; squares > 0; --squares) {
        text += {"ABCDEFGHIJKL"[random() % 12], "1234567890AB"[random() % 12]};
    }
    return text;
}

std::string RandomLine(const std::string&, bool wholeLine, std::mt19937& random) {
    return (wholeLine ? " \"," : "n\xC3\xA9\xE9 \"") + std::to_string(random());
}

std::string RandomLine(const SettingRow& row, StoredSettings& stored, std::mt19937& random) {
    if (row.ValueIn != nullptr) {
        return std::visit([&](auto* value) { return RandomLine(*value, row.WholeLine, random); }, row.ValueIn(stored));
    }
    return std::visit([&](auto member) { return RandomLine(stored.Rules.*member, false, random); },
                      FindRuleKey(row.Name)->Member);
}

TEST(Settings, EveryValueSurvives) {
    std::mt19937 random(7);
    StoredSettings kinds;
    for (int round = 0; round < 100; ++round) {
        std::string bytes = "TAVLON120.89\r\n";
        for (const SettingRow& row : SettingRows()) bytes += RandomLine(row, kinds, random) + "\r\n";
        auto read = ReadSettings(bytes);
        ASSERT_TRUE(read) << read.Failure().Message();
        ASSERT_EQ(SettingsText(*read), bytes);
    }
}

TEST(Settings, ReadsItemsToTheirEnd) {
    struct Row {
        std::size_t Line;
        const char *Text, *Read;
    };
    const Row rows[] = {{21, "Smith, John", "Smith"},     {21, "  Ann ", "Ann "}, {21, "\"A, B\" C", "A, B"},
                        {21, "\"open, end", "open, end"}, {21, "", ""},           {11, " a, \"b\" ", " a, \"b\" "},
                        {64, "Oak, old", "Oak, old"}};
    for (const Row& row : rows) {
        auto stored = ReadSettings(WithLine(row.Line, row.Text));
        ASSERT_TRUE(stored) << row.Text;
        EXPECT_EQ(std::get<std::string*>(SettingRows()[row.Line - 2].ValueIn(*stored))[0], row.Read) << row.Text;
    }
    for (const auto& [text, value] : {std::pair(" 7 8", 7), {"9,5", 9}, {"", 0}, {"x", 0}, {"2.5", 2}, {"-3", -3}}) {
        EXPECT_EQ(ReadSettings(WithLine(15, text))->User.Limits.TimeLimit, value) << text;
    }
    EXPECT_EQ(ReadSettings(WithLine(30, "BBz9Db"))->Rules.PromoW[2], 186);
}

TEST(Settings, TellsAnUnusableFileFromABadValue) {
    const std::string good = DefaultSettingsText();
    EXPECT_EQ(ReadSettings("").Failure().Reason, Kind::OtherVersion);
    EXPECT_EQ(ReadSettings(WithLine(1, "TAVLON120.88")).Failure().Reason, Kind::OtherVersion);
    EXPECT_EQ(ReadSettings(good.substr(0, good.size() - 5)).Failure().Reason, Kind::EndTooEarly) << "83 lines";
    EXPECT_TRUE(ReadSettings(good + "more\r\n"));
    for (const auto& [line, text] :
         {std::pair(3, " 256 "), {5, "-1"}, {15, "32768"}, {47, "-32769"}, {52, "3e9"}, {84, "-3000000000"}}) {
        auto read = ReadSettings(WithLine(static_cast<std::size_t>(line), text));
        ASSERT_FALSE(read) << line;
        EXPECT_EQ(read.Failure().Reason, Kind::BadValue) << line;
        EXPECT_EQ(read.Failure().Line, line);
    }
}

} // namespace
} // namespace tavlon12
