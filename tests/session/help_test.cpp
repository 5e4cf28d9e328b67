#include "session/help.h"

#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using Texts = std::vector<std::string>;

TEST(ShowRules, OpensTheDocumentOfTheCommandElseTheWindow) {
    const struct {
        const char* Help;
        const char* Link;
        const char* QuickLink;
        bool Quick;
        const char* Opened; ///< "" where the window is shown, with
        const char* Text;
        const char* ShownLink;
    } rows[] = {
        {"Jump.\r\nRun.", "", "", false, "", "Frisian\r\n\r\nJump.\r\nRun.", ""},
        {"", "http://a.org", "", true, "", "No help available", "http://a.org"},
        {"", "http://a.org", "", false, "http://a.org", "", ""},
        {"", "http://a.org", "q.html", true, "q.html", "", ""},
        {"", "http://a.org/~Tavlon12Team/b", "", true, "", "No help available", ""},
    };
    for (const auto& row : rows) {
        SessionFixture fixture;
        fixture.Game.Variant.VariantName = "Frisian";
        fixture.Game.Variant.Texts = {row.Help, row.Link, row.QuickLink};
        fixture.Game.Input.MovablesBoxed = true;
        (row.Quick ? ShowQuickRules : ShowRules)(fixture.Game);
        EXPECT_EQ(fixture.Screen.Opened, *row.Opened != '\0' ? Texts{row.Opened} : Texts());
        EXPECT_EQ(fixture.Screen.Rules.empty(), *row.Opened != '\0');
        EXPECT_EQ(fixture.Game.Input.MovablesBoxed, *row.Opened != '\0');
        if (fixture.Screen.Rules.empty()) continue;
        EXPECT_EQ(fixture.Screen.Rules[0].Title, " Rules for Frisian");
        EXPECT_EQ(fixture.Screen.Rules[0].Text, row.Text);
        EXPECT_EQ(fixture.Screen.Rules[0].Link, row.ShownLink);
    }
}

} // namespace
} // namespace tavlon12
