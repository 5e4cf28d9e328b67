#include "session/reset_game.h"

#include "session/exit.h"
#include "session/start_up.h"
#include "support/session_fixture.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {
const RecordedMessage kFatal = {"Error found! Tavlon12 will exit", "Error", MessageKind::Exclamation};

TEST(StartUp, EndsWithItsMessageWhereTheDefinitionCannotBeRead) {
    const std::pair<const char*, const char*> rows[] = {{"missing", nullptr},
                                                        {"empty", ""},
                                                        {"no end", "Title\r\nMulJumps=1\r\n"},
                                                        {"range", "Title\r\nMulJumps=999\r\nEND\r\n"}};
    for (const auto& [name, text] : rows) {
        SCOPED_TRACE(name);
        ProgramFolder folder;
        std::filesystem::remove(folder.DefaultVariant());
        if (text != nullptr) WriteFile(folder.DefaultVariant(), text);
        SessionFixture fixture(folder.Path);
        EXPECT_FALSE(StartUp(fixture.Game));
        EXPECT_EQ(fixture.Screen.Messages, std::vector<RecordedMessage>{kFatal});
        EXPECT_EQ(fixture.Screen.Ended, 1);
        EXPECT_TRUE(fixture.Screen.Questions.empty());
        EXPECT_TRUE(CloseRequested(fixture.Game)) << "the window closes without a question";
        EXPECT_TRUE(fixture.Screen.Questions.empty());
    }
}

TEST(ResetGame, ADefinitionWithoutAKeyFallsBackOnTheDefaultsOfTheNamedTen) {
    ProgramFolder folder;
    WriteFile(folder.DefaultVariant(), "Title\r\nEND\r\n");
    SessionFixture fixture(folder.Path);
    RuleSet& defined = fixture.Game.Variant.DefinedRules;
    defined.MulJumps = defined.KingWin = defined.LongKings = 5;
    defined.PromoW = defined.PromoB;
    ASSERT_TRUE(ResetGame(fixture.Game));
    EXPECT_EQ(defined.MulJumps, 1);
    EXPECT_EQ(defined.KingWin, 0);
    EXPECT_EQ(defined.PromoW, RuleSet().PromoW);
    EXPECT_EQ(defined.LongKings, 5) << "no default is told for this one";
}

} // namespace
} // namespace tavlon12
