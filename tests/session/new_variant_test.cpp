#include "session/variants.h"

#include "rules/rule_keys.h"
#include "session/load_variant.h"
#include "session/new_game.h"
#include "session/program_files.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tavlon12 {
namespace {

using namespace support;

/// What two games that begin by the same rules have in common, in words.
std::string Shown(SessionFixture& fixture) {
    const Position& position = *fixture.Pos;
    std::ostringstream text;
    for (const RuleKey& key : RuleKeys()) text << key.Name << "=" << RuleValueText(position.Rules, key) << "\n";
    text << PositionString(position.Board) << "\n" << PositionString(position.InitialBoard) << "\n";
    for (const DirectionRow& row : position.DirTable)
        for (Long step : row) text << step << " ";
    for (const auto& values : fixture.Search->Tables.SquareValue)
        for (Long value : values) text << value << " ";
    const GameTree& tree = position.Tree;
    text << "\n"
         << position.PieceSum << " " << tree.PlyValue[0] << " " << tree.GameValue[0] << " " << tree.PlyMaterial[0]
         << " " << tree.SideToMove << " " << tree.WhiteOffBoard << " "
         << static_cast<int>(fixture.Search->Tables.VariantFamily) << "\n"
         << int{fixture.Game.Settings.Notation} << fixture.Screen.Status[1] << "\n";
    for (const std::string& line : fixture.Screen.List(ListId::List2).Lines) text << line << " ";
    text << "\n" << fixture.Screen.Texts[Control::Label3] << fixture.Screen.Texts[Control::Label8];
    return text.str();
}

bool BeginsByChance(const RuleSet& rules) {
    return rules.RndColor == 1 || rules.RemoveMen == 1 || rules.DoMoves == 1;
}

/// A new game of a variant whose rules are in force already.
std::string FreshGame(const std::string& name, Byte notation) {
    SessionFixture fixture;
    fixture.Game.Variant.VariantFile = name;
    fixture.Game.Settings.Notation = notation;
    PromotionLists shown;
    EXPECT_FALSE(ReadVariantForDialog(fixture.Game, name, 1, shown));
    fixture.Pos->Rules.PromoW = shown[0];
    fixture.Pos->Rules.PromoB = shown[1];
    AdoptMovements(*fixture.Pos);
    NewGame(fixture.Game);
    return Shown(fixture);
}

TEST(NewVariant, PlaysWhatANewGameOfTheVariantPlays) {
    SessionFixture fixture;
    std::string before = "Canadian Checkers";
    for (const std::string& name : VariantNames(fixture.Game)) {
        SCOPED_TRACE(name);
        fixture.Screen.UseVariants = [&](VariantsForm form, const VariantsEvents& events) {
            events.PickVariant(form, before);
            events.PickVariant(form, name);
            EXPECT_TRUE(events.Apply(form, true, [](VariantsBox box) { ADD_FAILURE() << box.Key << box.Index; }));
        };
        const Byte notation = fixture.Pos->Rules.PiecesOnBlack == 2 ? kAlgebraic : kNumeric;
        fixture.Game.Settings.Notation = notation;
        NewVariant(fixture.Game);
        if (!BeginsByChance(fixture.Pos->Rules)) {
            EXPECT_EQ(Shown(fixture), FreshGame(name, notation));
        }
        before = name;
    }
    EXPECT_EQ(fixture.Screen.Ended, 0);
}

TEST(NewVariant, CancelKeepsWhatAPickHasRead) {
    ProgramFolder folder;
    folder.WriteVariant("Test", "CapRequired=0\r\nHelpLink=rules.html\r\nPromoW=Bb\r\nPromoB=A1\r\n");
    SessionFixture fixture(folder.Path);
    fixture.Screen.UseVariants = [](VariantsForm form, const VariantsEvents& events) {
        events.PickVariant(form, "Test");
        EXPECT_EQ(form.HelpLink, "rules.html");
        EXPECT_EQ(form.Values.at("PromoW")[0] + form.Values.at("PromoW")[1], "bb");
    };
    NewVariant(fixture.Game);
    EXPECT_EQ(fixture.Pos->Rules.CapRequired, 0);
    EXPECT_EQ(fixture.Pos->Rules.PromoW, RuleSet().PromoW) << "the squares come with OK alone";
    EXPECT_EQ(fixture.Game.Variant.DefinedRules.PromoW[1], kUnusedSlot);
    EXPECT_EQ(fixture.Game.Variant.VariantFile, "Test");
}

TEST(VariantPicked, AFlagThatIsNotNamedStaysInForceAndIsDefinedByItsDefault) {
    ProgramFolder folder;
    folder.WriteVariant("A", "AntiMode=1\r\nKingWin=1\r\nWhiteKingMovement=E E\r\n");
    WriteFile(folder.Path / "variants" / "B.ini", "Title\r\nEND\r\n");
    SessionFixture fixture(folder.Path);
    fixture.Screen.UseVariants = [](VariantsForm form, const VariantsEvents& events) {
        for (const char* name : {"A", "B"}) events.PickVariant(form, name);
        EXPECT_FALSE(form.ColourOpen) << "kings move sideways";
    };
    NewVariant(fixture.Game);
    const RuleSet& rules = fixture.Pos->Rules;
    const RuleSet& defined = fixture.Game.Variant.DefinedRules;
    EXPECT_EQ(std::pair(rules.KingWin, defined.KingWin), std::pair(Byte{1}, Byte{0}));
    EXPECT_EQ(std::pair(rules.AntiMode, defined.AntiMode), std::pair(Byte{1}, Byte{1}));
    EXPECT_EQ(fixture.Screen.Texts[Control::Label8], "B (M)");
}

TEST(ApplyVariant, ASidewaysStepOpensAllSquares) {
    SessionFixture fixture;
    ASSERT_TRUE(ResetGame(fixture.Game));
    VariantsForm form = FormOfRules(fixture.Game);
    const auto apply = [&] { return ApplyVariant(fixture.Game, form, false, [](VariantsBox) {}); };
    form.Values["WhiteManMovement"] = {"N;E;W", "N"};
    EXPECT_TRUE(form.ColourOpen && apply());
    EXPECT_FALSE(form.ColourOpen);
    EXPECT_EQ(fixture.Pos->Rules.PiecesOnBlack, 2);
    form.Values["PromoW"][0] = "ab";
    EXPECT_TRUE(apply()) << "a light square";
}

TEST(NewVariant, BalanceIsThatOfTheSideThatBegins) {
    const std::string setup = "Setup=" + std::string(24, '0') + "1111" + std::string(80, '0') + "22\r\n";
    for (Long blackStarts : {0, 1}) {
        ProgramFolder folder;
        folder.WriteVariant("Test", setup + "BlackStarts=" + std::to_string(blackStarts) + "\r\n");
        SessionFixture fixture(folder.Path);
        for (bool picks : {true, false}) {
            fixture.Screen.UseVariants = [&](VariantsForm form, const VariantsEvents& events) {
                if (!picks) return;
                events.PickVariant(form, "Test");
                EXPECT_EQ(fixture.Pos->Tree.PlyValue[0], -200) << "as Black sees it, whoever begins";
            };
            NewVariant(fixture.Game);
            EXPECT_EQ(fixture.Pos->Tree.PlyValue[0], blackStarts == 1 ? -200 : 200);
            EXPECT_EQ(fixture.Pos->Tree.GameValue[0], fixture.Pos->Tree.PlyValue[0]);
        }
    }
}

TEST(FolderPicked, TheVariantInForceAlwaysHasADefinition) {
    ProgramFolder folder;
    SessionFixture fixture(folder.Path);
    Session& game = fixture.Game;
    ASSERT_TRUE(ResetGame(game));
    VariantsForm form = FormOfRules(game);
    FolderPicked(game, form, 0);
    EXPECT_EQ(form.UseClassic, 0);
    EXPECT_EQ(form.Variant, "Canadian Checkers");
    EXPECT_EQ(game.Settings.UseClassic, 1) << "no variant of the user's";

    const std::filesystem::path own = folder.Path / "variants" / "uservariants";
    WriteFile(own / "A no end.ini", "Title\r\n");
    WriteFile(own / "B ends early.ini", "END\r\nMulJumps=0\r\n");
    WriteFile(own / "C key in the title.ini", "MulJumps=999\r\nEND\r\n");
    WriteFile(own / "D good.ini", "MulJumps=0\r\nEND\r\nEND\r\n");
    FolderPicked(game, form, 0);
    std::vector<bool> readable;
    for (const ListLine& line : form.Variants) readable.push_back(line.Problem.empty());
    EXPECT_EQ(readable, (std::vector<bool>{false, false, false, true}));
    EXPECT_EQ(form.Variants[2].Problem,
              (own / "C key in the title.ini").string() + ", line 1: value out of range: MulJumps=999");
    EXPECT_EQ(form.Variant, "D good");
    EXPECT_EQ(game.Settings.UseClassic, 0);
    EXPECT_EQ(game.Variant.VariantFile, "D good");
    EXPECT_EQ(game.Pos.Rules.MulJumps, 0) << "in the dialog the first line counts";

    EXPECT_FALSE(VariantPicked(game, form, "B ends early")) << "its next game would not begin";
    EXPECT_EQ(fixture.Screen.Messages.size(), 1u);
    EXPECT_EQ(game.Variant.VariantFile, "D good");
    EXPECT_EQ(fixture.Screen.Ended, 0);
}

struct EntryCase : NamedCase {
    std::string_view Key;
    std::size_t Index;
    const char* Text;
    bool Good;
    const char* Rules = "";
};

class Entries : public testing::TestWithParam<EntryCase> {};

TEST_P(Entries, AreTakenOrMarked) {
    const EntryCase& row = GetParam();
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Pos.Rules = RulesWith(row.Rules);
    const DirectionTable before = DirectionsOf(game.Pos.Rules);
    VariantsForm form = FormOfRules(game);
    form.Variant = "Mine";
    form.Values.at("CapRequired")[0] = "0";
    form.Values.at("WhiteManMovement") = {"NN", ""};
    form.Values.at(row.Key)[row.Index] = row.Text;
    std::vector<VariantsBox> marked;
    EXPECT_EQ(ApplyVariant(game, form, true, [&](VariantsBox box) { marked.push_back(box); }), row.Good);
    EXPECT_EQ(game.Variant.VariantName, "Mine");
    EXPECT_EQ(game.Pos.Rules.CapRequired, 0) << "what was copied before stays";
    if (row.Good) {
        EXPECT_TRUE(marked.empty());
        VariantsForm after = FormOfRules(game);
        const std::string shown = row.Key.starts_with("Promo") ? LowerCase(row.Text) : row.Text;
        EXPECT_EQ(after.Values.at(row.Key)[row.Index], shown);
        EXPECT_EQ(game.Pos.DirTable, DirectionsOf(game.Pos.Rules));
        return;
    }
    EXPECT_EQ(marked, (std::vector<VariantsBox>{{row.Key, row.Index}}));
    EXPECT_EQ(fixture.Screen.Messages,
              (std::vector<RecordedMessage>{{"Illegal entry!", "Error", MessageKind::Exclamation}}));
    EXPECT_EQ(game.Pos.DirTable, before);
    EXPECT_EQ(DirectionsOf(game.Pos.Rules), before) << "all four strings stay";
}

INSTANTIATE_TEST_SUITE_P(ApplyVariant, Entries,
                         testing::ValuesIn(std::vector<EntryCase>{
                             {{"gap"}, "PromoW", 2, "", true},
                             {{"capitals"}, "PromoW", 19, "LB", true},
                             {{"light square"}, "PromoB", 3, "b1", false},
                             {{"light square on all"}, "PromoB", 3, "b1", true, "PiecesOnBlack=2"},
                             {{"no square"}, "PromoB", 0, "m1", false},
                             {{"blank"}, "PromoW", 5, " ", false},
                             {{"double steps"}, "BlackKingMovement", 1, "WW;NN", true},
                             {{"no steps"}, "BlackKingMovement", 0, "", true},
                             {{"unknown step"}, "BlackKingMovement", 1, "NW;XX", false},
                             {{"small letters"}, "BlackManMovement", 0, "nw", false},
                             {{"semicolon at the end"}, "WhiteKingMovement", 0, "NW;", false},
                             {{"blank between"}, "WhiteKingMovement", 0, "NW NE", false},
                             {{"number too large"}, "NumberMen", 0, "256", false},
                             {{"unlimited"}, "NumberFriends", 0, "-1", true},
                         }),
                         kNameOfCase);

TEST(ColourPicked, MovesThePromotionSquaresOntoTheColour) {
    SessionFixture fixture;
    VariantsForm form = FormOfRules(fixture.Game);
    const auto before = form.Values;
    form.Values.at("PromoB")[1] = "?";
    ColourPicked(fixture.Game, form, false);
    EXPECT_EQ(form.Values.at("PromoW")[0] + form.Values.at("PromoB")[0] + form.Values.at("PromoB")[1], "abb1?");
    EXPECT_EQ(fixture.Pos->Rules.PiecesOnBlack, 0);
    EXPECT_EQ(fixture.Game.Variant.DefinedRules.PiecesOnBlack, 0);
    ColourPicked(fixture.Game, form, true);
    form.Values.at("PromoB")[1] = "c1";
    EXPECT_EQ(form.Values.at("PromoW"), before.at("PromoW"));
    EXPECT_EQ(form.Values.at("PromoB"), before.at("PromoB"));
}

TEST(RandomRules, CanBeTakenOver) {
    SessionFixture fixture;
    ASSERT_TRUE(ResetGame(fixture.Game));
    VariantsForm form = FormOfRules(fixture.Game);
    for (int round = 0; round < 20; ++round) {
        RandomRules(fixture.Game, form);
        EXPECT_TRUE(ApplyVariant(fixture.Game, form, true, [](VariantsBox) {}));
    }
}

TEST(RandomRules, DrawsInItsOrder) {
    for (const char* rules : {"PiecesOnBlack=1", "PiecesOnBlack=2 | MulJumps=0 | NumberPieces=5"}) {
        SessionFixture fixture;
        RuleSet expected = fixture.Pos->Rules = RulesWith(rules);
        VariantsForm form = FormOfRules(fixture.Game);
        form.Values.at("PromoW")[7] = "typed";
        form.Values.at("NumberPieces")[0] = "8";
        fixture.Search->Random.seed(5);
        RandomRules(fixture.Game, form);

        std::mt19937 random(5);
        const auto set = [&](const std::string& key, int value) {
            EXPECT_TRUE(SetRuleValue(expected, *FindRuleKey(key), std::to_string(value)));
        };
        std::istringstream flags("MaxCapMove MulJumps BlackStarts RndColor PiecesOnBlack AntiMode WinAtPromo KingWin "
                                 "MaxCapMoveKings MaxCapMoveK ManCapKing CapRequired KingCapMove ManContJump LongKings "
                                 "ManContJumpCrowned RemovePieces KingFirst ManCapMoveKing NoLegalDraw RemoveMen "
                                 "LastCap ManKing KingMan CapReverse DoMoves ChangeSide ThreeKings");
        for (std::string key; flags >> key;) {
            if (key != "PiecesOnBlack" || expected.PiecesOnBlack != 2) set(key, std::bernoulli_distribution()(random));
        }
        set("NumberMen", std::uniform_int_distribution(1, 10)(random));
        set("NumberMoves", std::uniform_int_distribution(1, 10)(random));
        set("NumberKings", std::uniform_int_distribution(1, 20)(random));
        EXPECT_EQ(fixture.Pos->Rules, expected);
        EXPECT_EQ(form.Values.at("ThreeKings")[0], std::to_string(expected.ThreeKings));
        EXPECT_EQ(form.Values.at("NumberPieces")[0], std::to_string(expected.NumberPieces));
        EXPECT_EQ(form.Values.at("PromoW")[7], "typed");
    }
}

} // namespace
} // namespace tavlon12
