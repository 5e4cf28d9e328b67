#include "files/variant_file.h"

#include "rules/rule_keys.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <tuple>

namespace tavlon12 {
namespace {

using Kind = FileFailure::Kind;

/// Everything that reading a definition may change.
auto StateOf(const Position& position, const VariantTexts& texts) {
    return std::tuple(position.VariantName, position.Rules, position.DefinedRules, position.Board,
                      position.InitialBoard, position.WhiteMen, position.BlackMen, position.PieceSum,
                      position.Tree.PlyValue[0], position.Tree.GameValue[0], texts.VariantHelp, texts.HelpLink,
                      texts.QuickHelpLink);
}

struct VariantFileTest : testing::Test {
    VariantFileTest() : Pos(std::make_unique<Position>()) {
        PlaceClassicStart(*Pos);
        Pos->VariantFile = "Test";
    }

    std::optional<FileFailure> Load(std::string_view text) {
        WriteFile(Folder.Path / "Test.ini", text);
        return LoadVariant(Folder.Path, *Pos, Texts);
    }

    /// Loads a title, the lines and "END".
    std::optional<FileFailure> LoadLines(const std::string& lines) { return Load("Title\r\n" + lines + "END\r\n"); }

    TemporaryFolder Folder;
    std::unique_ptr<Position> Pos;
    VariantTexts Texts;
};

TEST_F(VariantFileTest, ReadsEveryRuleKey) {
    for (const RuleKey& key : RuleKeys()) {
        SCOPED_TRACE(key.Name);
        for (const char* text : {"0", "1", "7", "C5D6", "NW WW", "normal"}) {
            RuleSet expected = Pos->DefinedRules;
            ASSERT_TRUE(SetRuleValue(expected, key, text));
            ASSERT_FALSE(LoadLines(std::string(key.Name) + "=" + text + "\r\n"));
            EXPECT_EQ(Pos->DefinedRules, expected) << text;
        }
    }
    EXPECT_EQ(Pos->Rules, RuleSet()) << "the rules in force are not the file's business";
}

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
        Pos->DefinedRules = RuleSet();
        ASSERT_FALSE(LoadLines(row.Lines)) << row.Lines;
        EXPECT_EQ(Pos->DefinedRules.MulJumps, row.MulJumps) << row.Lines;
    }
}

TEST_F(VariantFileTest, SkipsTheTitleAndWhatFollowsTheEnd) {
    ASSERT_FALSE(Load("MulJumps=9\r\nMaxCapMove=7\r\nEND\r\nMaxCapMove=5\r\nLongKings=300\r\n"));
    EXPECT_EQ(Pos->DefinedRules.MulJumps, 1);
    EXPECT_EQ(Pos->DefinedRules.MaxCapMove, 7);
    EXPECT_EQ(Load("END\r\n")->Reason, Kind::EndTooEarly) << "the title is no end";
}

TEST_F(VariantFileTest, AddsHelpUp) {
    ASSERT_FALSE(LoadLines("Help=one\r\nHelp=two\r\nHelp=<br>\r\nHelp=<br> three\r\nHelp= four\r\nhelp=five\r\n"
                           "HelpLink=a.htm\r\nQuickHelpLink=b.htm\r\n"));
    EXPECT_EQ(Texts.VariantHelp, "onetwo\r\n<br> three four");
    EXPECT_EQ(Texts.HelpLink, "a.htm");
    EXPECT_EQ(Texts.QuickHelpLink, "b.htm");
}

TEST_F(VariantFileTest, ReadsPromotionSquaresIntoAllSlots) {
    ASSERT_FALSE(LoadLines("PromoW=BbDBz1c3A0\r\nPromoB=\r\n"));
    PromotionList expected;
    expected.fill(kUnusedSlot);
    expected[0] = 184;
    expected[1] = 186;
    expected[4] = 155; // the two before it are no squares
    EXPECT_EQ(Pos->DefinedRules.PromoW, expected);
    expected.fill(kUnusedSlot);
    EXPECT_EQ(Pos->DefinedRules.PromoB, expected);
}

TEST_F(VariantFileTest, PlacesTheSetup) {
    std::string digits(144, '0');
    digits[0] = '1';
    digits[13] = '3';
    digits[143] = '2';
    ASSERT_FALSE(LoadLines("Setup=" + digits + "\r\n"));
    EXPECT_EQ(PositionString(Pos->Board), digits);
    EXPECT_EQ(Pos->InitialBoard, Pos->Board);
    EXPECT_EQ(Pos->WhiteMen, 1);
    EXPECT_EQ(Pos->BlackMen, 1);
    EXPECT_EQ(Pos->PieceSum, 4);
    EXPECT_EQ(Pos->Tree.PlyValue[0], -200);

    Pos->VariantFile = "Test";
    ASSERT_FALSE(LoadLines("Setup=31\r\n")) << "cells without a digit are empty";
    EXPECT_EQ(PositionString(Pos->Board), "31" + std::string(142, '0'));

    BoardCells before = Pos->Board;
    ASSERT_FALSE(LoadLines("Setup=normal\r\n"));
    EXPECT_EQ(Pos->Board, before) << "the normal start is the one that stands there";
}

TEST_F(VariantFileTest, AFailureChangesNothing) {
    struct Row {
        const char* Text;
        Kind Reason;
        Long Line;
    };
    const Row rows[] = {
        {"", Kind::EndTooEarly, 0},
        {"Title\r\nMulJumps=0\r\nSetup=12\r\nHelp=x\r\n", Kind::EndTooEarly, 0},
        {"Title\r\nMulJumps=0\r\nEND \r\nend\r\n END\r\n", Kind::EndTooEarly, 0},
        {"Title\r\nSetup=12\r\nBlackStarts=0\r\nMulJumps=256\r\nEND\r\n", Kind::BadValue, 4},
        {"Title\r\nNumberFriends=3000000000\r\nEND\r\n", Kind::BadValue, 2},
        {"Title\r\nMulJumps=1e999\r\nEND\r\n", Kind::BadValue, 2},
    };
    Texts = {"help", "link", "quick"};
    auto before = StateOf(*Pos, Texts);
    for (const Row& row : rows) {
        auto failure = Load(row.Text);
        ASSERT_TRUE(failure) << row.Text;
        EXPECT_EQ(failure->Reason, row.Reason) << row.Text;
        EXPECT_EQ(failure->Line, row.Line) << row.Text;
        EXPECT_NE(failure->Message().find("Test.ini"), std::string::npos);
        EXPECT_EQ(failure->Message().find('\n'), std::string::npos);
        EXPECT_TRUE(StateOf(*Pos, Texts) == before) << row.Text;
    }
    Pos->VariantFile = "No such variant";
    EXPECT_EQ(LoadVariant(Folder.Path, *Pos, Texts)->Reason, Kind::CannotOpen);
    EXPECT_TRUE(StateOf(*Pos, Texts) == before);
}

TEST_F(VariantFileTest, ACutFileIsReadWholeOrNotAtAll) {
    const std::string text = ReadFile(ShippedDefaultVariant());
    const std::size_t complete = text.rfind("END") + 3;
    ASSERT_FALSE(Load(text));
    EXPECT_EQ(Pos->DefinedRules, RuleSet());
    Pos->DefinedRules.NumberMen = 77;
    auto before = StateOf(*Pos, Texts);
    for (std::size_t size = text.size(); size-- > 0;) {
        std::filesystem::resize_file(Folder.Path / "Test.ini", size);
        auto failure = LoadVariant(Folder.Path, *Pos, Texts);
        ASSERT_EQ(failure.has_value(), size < complete) << size;
        if (failure) {
            ASSERT_TRUE(StateOf(*Pos, Texts) == before) << size;
        } else {
            EXPECT_EQ(Pos->DefinedRules, RuleSet()) << size;
            Pos->DefinedRules.NumberMen = 77;
        }
    }
}

TEST_F(VariantFileTest, DamagedBytesNeverBreakTheReader) {
    const std::string text = ReadFile(ShippedDefaultVariant());
    std::mt19937 random(12);
    for (int round = 0; round < 150; ++round) {
        std::string damaged = text;
        for (int byte = 0; byte < 8; ++byte) damaged[random() % damaged.size()] = static_cast<char>(random());
        auto before = StateOf(*Pos, Texts);
        if (Load(damaged)) {
            ASSERT_TRUE(StateOf(*Pos, Texts) == before);
        }
        for (const PromotionList& list : {Pos->DefinedRules.PromoW, Pos->DefinedRules.PromoB}) {
            for (Long square : list) ASSERT_TRUE(square == kUnusedSlot || IsSquare(square));
        }
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

bool IsConsumed(const std::string& line) {
    std::string key = line.substr(0, line.find('='));
    return line.find('=') != std::string::npos &&
           (key == "Help" || key == "HelpLink" || key == "QuickHelpLink" || FindRuleKey(key) != nullptr);
}

TEST(ShippedVariants, AreReadAndEveryLineOfThemIsUsed) {
    auto files = ShippedVariants();
    ASSERT_FALSE(files.empty());
    for (const auto& file : files) {
        SCOPED_TRACE(file.filename());
        auto position = std::make_unique<Position>();
        VariantTexts texts;
        position->VariantFile = file.stem().string();
        auto failure = LoadVariant(file.parent_path(), *position, texts);
        ASSERT_FALSE(failure) << failure->Message();
        EXPECT_FALSE(texts.VariantHelp.empty());

        const std::string bytes = ReadFile(file);
        for (char c : bytes) EXPECT_TRUE((c >= ' ' && c <= '~') || c == '\r' || c == '\n');
        std::vector<std::string> lines;
        ASSERT_TRUE(ReadLines(file, lines));
        EXPECT_EQ(static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\r')), lines.size());
        EXPECT_EQ(lines.back(), "END");
        std::set<std::string> keys;
        for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
            EXPECT_TRUE(IsConsumed(lines[i])) << "line " << i + 1 << ": " << lines[i];
            keys.insert(lines[i].substr(0, lines[i].find('=')));
        }
        for (const RuleKey& key : RuleKeys()) EXPECT_TRUE(keys.contains(std::string(key.Name))) << key.Name;
    }
}

} // namespace
} // namespace tavlon12
