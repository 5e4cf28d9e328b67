#include "session/reset_game.h"

#include "session/exit.h"
#include "session/new_game.h"
#include "session/start_up.h"
#include "support/game_setup.h"

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

/// A game of random moves against the computer, with whatever may be left of one.
void PlayAGame(SessionFixture& fixture, support::Random& random) {
    Session& game = fixture.Game;
    while (!game.Game.GameOver && game.Pos.Tree.TreeIndex < 40 && support::PlayRandomMove(game, random)) {
    }
    game.Game.GameOver = game.Game.MateAnnounced = game.Game.BookFailureTold = true;
    game.Game.Stagnation = game.Game.LastDrawAsk = game.Game.TouchedCell = 29;
    game.Record.MoveComments[0] = game.ResultShown = "1-0";
    game.Input.DragSource = game.Input.RightPressed = 3;
    game.Pos.StopFlag = kStopCancel;
    game.Pos.LastCapAnyPly = game.Search.NoMovesDraw = game.Search.SearchAborted = true;
    game.Search.RepeatCount = 1;
}

/// What the search keeps for itself stays: killers, best lines, moves, captures, the lazy margin, chance.
void ExpectSamePosition(const Position& a, const Position& b) {
    EXPECT_EQ(a.Rules, b.Rules);
    EXPECT_EQ(a.Board, b.Board);
    EXPECT_EQ(a.InitialBoard, b.InitialBoard);
    EXPECT_EQ(a.Sums, b.Sums);
    EXPECT_TRUE(a.PositionKeys == b.PositionKeys);
    EXPECT_EQ(a.Tree.TreeTo, b.Tree.TreeTo);
    EXPECT_EQ(a.Tree.TreeLastMan, b.Tree.TreeLastMan);
    EXPECT_EQ(a.Tree.TreeKingMan, b.Tree.TreeKingMan);
    const auto numbers = [](const Position& p) {
        const GameTree& t = p.Tree;
        return std::vector<Long>{p.PieceSum,      p.WhiteMen,       p.BlackMen,       p.StopFlag,
                                 p.LastCapAnyPly, p.Fault.Passed(), p.JumpLimit,      t.Ply,
                                 t.TreeIndex,     t.SideToMove,     t.NextMoveSlot,   t.PlyFirstMove[0],
                                 t.PlyValue[0],   t.GameValue[0],   t.PlyMaterial[0], t.GameMaterial[0],
                                 t.WhiteOffBoard, t.BlackOffBoard,  t.PlyLastTo[0],   t.PlyForcing[0]};
    };
    EXPECT_EQ(numbers(a), numbers(b));
}

TEST(NewGame, ASecondGameEqualsAFreshOne) {
    support::Random random(2);
    for (const support::NamedRules& named : support::NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        SessionFixture used, fresh;
        for (SessionFixture* fixture : {&used, &fresh}) {
            support::LimitDepth(*fixture, 1);
            fixture->Pos->Rules = named.Rules;
            AdoptMovements(*fixture->Pos);
            NewGame(fixture->Game);
        }
        PlayAGame(used, random);
        NewGame(used.Game);
        ExpectSamePosition(*used.Pos, *fresh.Pos);
        const Session& a = used.Game;
        const Session& b = fresh.Game;
        EXPECT_TRUE(a.Variant == b.Variant);
        EXPECT_TRUE(a.Record == b.Record);
        EXPECT_TRUE(a.Game == b.Game);
        EXPECT_TRUE(a.Thought == b.Thought);
        EXPECT_TRUE(a.Players == b.Players);
        EXPECT_TRUE(a.Input == b.Input);
        EXPECT_EQ(a.ResultShown, b.ResultShown);
        const auto flags = [](const Session& s) {
            return std::vector<Long>{
                s.EqualKingsOnly,    s.Busy, s.Quitting, s.Search.NoMovesDraw, s.Search.SearchAborted,
                s.Search.RepeatCount};
        };
        EXPECT_EQ(flags(a), flags(b));
        EXPECT_EQ(used.Screen.Lists, fresh.Screen.Lists);
        EXPECT_EQ(used.Screen.Status, fresh.Screen.Status);
        EXPECT_EQ(used.Screen.Texts, fresh.Screen.Texts);
        EXPECT_EQ(used.Screen.Mark, fresh.Screen.Mark);
        for (const auto& [command, on] : fresh.Screen.Enabled) EXPECT_EQ(used.Screen.Enabled[command], on);
    }
}

} // namespace
} // namespace tavlon12
