#include "session/options.h"

#include "session/start_up.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using Names = std::vector<std::string>;

struct Options : testing::Test {
    Options() { StartUp(Game); }

    /// Opens the dialog, and what the user does before it closes.
    void Use(const std::function<void(const OptionsForm&, const OptionsEvents&)>& use) {
        Fixture.Screen.BoardCalls.clear();
        Fixture.Screen.UseOptions = use;
        ShowOptions(Game);
    }

    /// The texts of the settings named, entered and applied.
    SettingTexts Apply(const SettingTexts& entered) {
        SettingTexts taken;
        Use([&](const OptionsForm&, const OptionsEvents& events) { taken = events.Apply(entered); });
        return taken;
    }

    SessionFixture Fixture;
    Session& Game = Fixture.Game;
};

TEST_F(Options, NumbersAreDrawnIntoTheirRange) {
    const struct {
        const char* Name;
        const char* Entered;
        const char* Taken;
    } rows[] = {
        {"Plys", "7", "6"},
        {"Plys", "0", "1"},
        {"Plys", "4", "4"},
        {"Plys", "", "1"},
        {"Plys", "six", "1"},
        {"Plys", " 2 or so", "2"},
        {"Balance", "0", "1"},
        {"Balance", "751", "750"},
        {"Balance", "99999999999999", "750"},
        {"PlyValueDepth", "-3", "1"},
        {"PlyValueDepth", "21", "20"},
    };
    for (const auto& row : rows) EXPECT_EQ(Apply({{row.Name, row.Entered}})[row.Name], row.Taken) << row.Entered;
}

TEST_F(Options, FormAndSettingsAreTheSameValues) {
    Game.Settings.OpeningBook = 7; // from a file
    Use([&](const OptionsForm& form, const OptionsEvents& events) {
        EXPECT_EQ(form.Values.at("UserName"), "Player");
        EXPECT_EQ(form.Values.at("Balance"), "150");
        EXPECT_EQ(form.Values.at("OpeningBook"), "0");
        EXPECT_EQ(events.Apply(form.Values), form.Values);
    });
    EXPECT_EQ(Game.Settings.OpeningBook, 0);
}

TEST_F(Options, SkinAndRatingCountWithoutOk) {
    Game.InstalledFolder.clear(); // with its own skins
    WriteFile(Fixture.Folder.Path / "Skins" / "Oak.INI", "");
    WriteFile(Fixture.Folder.Path / "Skins" / "ash.ini", "");
    Game.Port.Board.SkinProblem = [](const std::string& name) { return name == "ash" ? "torn" : ""; };
    Game.Rating = 1500;
    Use([&](const OptionsForm& form, const OptionsEvents& events) {
        Names names;
        for (const ListLine& line : form.Skins) names.push_back(line.Name + line.Problem);
        EXPECT_EQ(names, (Names{"Classic Small", "Classic Medium", "ashtorn", "Oak"}));
        EXPECT_EQ(form.Rating, 1500);
        EXPECT_EQ(events.ResetRating(), 1200);
        events.PickSkin("Oak");
        EXPECT_TRUE(Fixture.Screen.BoardCalls.empty());
    });
    EXPECT_EQ(Game.Rating, 1200);
    EXPECT_EQ(Game.Settings.SkinName, "Oak");
    EXPECT_EQ(Fixture.Screen.BoardCalls, (Names{"LoadSkin", "LayoutWindow"}));
    Use([](const OptionsForm&, const OptionsEvents&) {});
    EXPECT_TRUE(Fixture.Screen.BoardCalls.empty());
}

TEST_F(Options, TheScreenFollowsWhenTheDialogIsGone) {
    for (const bool blackStarts : {false, true}) {
        support::StartGame(Fixture, "", "W: c3; B: d4 Klb");
        Game.Pos.Rules.BlackStarts = blackStarts;
        Game.Settings.PlayMode = kPlayerComputer;
        Apply({{"FixedDepth", "1"},
               {"DepthLimit", "4"},
               {"StrengthStep", "3"},
               {"UserName", "A"},
               {"ColonCapture", "1"}});
        EXPECT_EQ(Fixture.Screen.StrengthLine, "Strength: 7   Depth: 4 ply");
        EXPECT_EQ(Fixture.Screen.List(ListId::List2).Lines, Names{"c3:e5"});
        // White has the move, so it is the user's; Label1 shows who has begun.
        EXPECT_EQ(Fixture.Screen.Texts[blackStarts ? Control::Label2 : Control::Label1], "A");
        EXPECT_EQ(Fixture.Screen.Texts[blackStarts ? Control::Label1 : Control::Label2], "Computer");
        Game.Settings.PlayMode = kPlayerPlayer;
        Apply({{"FixedDepth", "0"}, {"TimeLimit", "30"}});
        EXPECT_EQ(Fixture.Screen.StrengthLine, "Strength: 7   Time: 30 sec");
        EXPECT_EQ(Fixture.Screen.Texts[Control::Label1], "A");
        EXPECT_EQ(Fixture.Screen.Texts[Control::Label2], "A");
    }
}

} // namespace
} // namespace tavlon12
