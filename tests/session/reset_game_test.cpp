#include "session/reset_game.h"

#include "session/exit.h"
#include "session/new_game.h"
#include "session/start_up.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tavlon12 {
namespace {

using namespace support;
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
void PlayAGame(SessionFixture& fixture, Random& random) {
    Session& game = fixture.Game;
    while (!game.Game.GameOver && game.Pos.Tree.TreeIndex < 40 && PlayRandomMove(game, random)) {
    }
    game.Game.GameOver = game.Game.MateAnnounced = game.Game.BookFailureTold = true;
    game.Game.Stagnation = game.Game.LastDrawAsk = game.Game.TouchedCell = game.Game.DrawReason = 29;
    game.Record.MoveComments[0] = game.ResultShown = "1-0";
    game.Pos.Tree.TreeLastMan[5] = game.Pos.Tree.TreeKingMan[5] = 29;
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
    Random random(2);
    for (const NamedRules& named : NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        SessionFixture used, fresh;
        for (SessionFixture* fixture : {&used, &fresh}) {
            LimitDepth(*fixture, 1);
            fixture->Pos->Rules = named.Rules;
            AdoptMovements(*fixture->Pos);
            NewGame(fixture->Game);
        }
        PlayAGame(used, random);
        NewGame(used.Game);
        ExpectSamePosition(*used.Pos, *fresh.Pos);
        const Session& a = used.Game;
        const Session& b = fresh.Game;
        const auto all = [](const Session& s) {
            return std::tie(s.Variant, s.Record, s.Game, s.Thought, s.Players, s.Input, s.ResultShown);
        };
        EXPECT_TRUE(all(a) == all(b));
        const auto flags = [](const Session& s) {
            return std::vector<Long>{
                s.EqualKingsOnly,    s.Busy, s.Quitting, s.Search.NoMovesDraw, s.Search.SearchAborted,
                s.Search.RepeatCount};
        };
        EXPECT_EQ(flags(a), flags(b));
        const auto screen = [](const RecordingPort& s) { return std::tie(s.Lists, s.Status, s.Texts, s.Mark); };
        EXPECT_TRUE(screen(used.Screen) == screen(fresh.Screen));
        for (const auto& [command, on] : fresh.Screen.Enabled) EXPECT_EQ(used.Screen.Enabled[command], on);
    }
}

} // namespace
} // namespace tavlon12
