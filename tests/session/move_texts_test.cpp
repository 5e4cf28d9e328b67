#include "session/move_texts.h"

#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

TEST(DisplayMove, WritesTheThreeTexts) {
    MoveRecord quiet{59, 74, {}, 0};
    MoveRecord capture{59, 87, {}, 0};
    capture.Captures.Add(73, kMan);
    MoveRecord promotion{171, 184, {}, 2};
    MoveRecord home{59, 59, capture.Captures, 0};
    MoveRecord placement{kOffBoard, 184, {}, 0};
    struct Row {
        MoveRecord Move;
        Byte Notation;
        std::string CaptureChar;
        std::string Shown;
        std::string Key;
        std::string Plain;
    };
    const Row rows[] = {
        {quiet, kAlgebraic, "x", "c3-d4", "c3d4", "c3-d4"},   {quiet, kNumeric, "x", "56-50", "5650", "56-50"},
        {quiet, kNoLabels, "x", "56-50", "5650", "56-50"},    {capture, kAlgebraic, "x", "c3xc5", "c3c5", "c3xc5"},
        {capture, kAlgebraic, ":", "c3:c5", "c3c5", "c3:c5"}, {promotion, kAlgebraic, "x", "ca-bbK", "cabb", "ca-bbK"},
        {promotion, kNumeric, "x", " 8- 1K", " 8 1", "8-1K"}, {home, kAlgebraic, "x", "c3xc3", "c3c3", "c3xc3"},
        {placement, kAlgebraic, "x", "bb", "bb", "bb"},       {placement, kNumeric, "x", " 1", " 1", "1"},
    };
    SessionFixture fixture;
    Session& game = fixture.Game;
    for (const Row& row : rows) {
        game.Settings.Notation = row.Notation;
        game.Game.CaptureChar = row.CaptureChar;
        const MoveTexts texts = DisplayMove(game, row.Move);
        EXPECT_EQ(texts.MoveTextShown, row.Shown);
        EXPECT_EQ(texts.MoveTextKey, row.Key);
        EXPECT_EQ(texts.MoveTextPlain, row.Plain);
    }
}

TEST(GameLine, AlignsThePairNumbers) {
    const std::pair<Long, std::string> rows[] = {{1, "   1. c3-d4"},  {2, "      c3-d4"},   {3, "   2. c3-d4"},
                                                 {19, "  10. c3-d4"}, {999, " 500. c3-d4"}, {1000, "      c3-d4"}};
    for (const auto& [halfMove, line] : rows) EXPECT_EQ(GameLine(halfMove, "c3-d4", false), line);
}

TEST(ShowCandidates, WritesOneLineForEachFilledRow) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    RecordedList& list = fixture.Screen.List(ListId::List3);
    game.Thought.RootMoves[0] = {59, 74, 15};
    game.Thought.RootMoves[1] = {171, 184, -7};
    game.Thought.RootMoves[2] = {kOffBoard, 29, kNotFilled};
    ShowCandidates(game, game.Thought.RootMoves[0].From);
    EXPECT_EQ(list.Lines, (std::vector<std::string>{"c3d4  15", "cabb -7", "a1  n/a"}));
    game.Settings.Notation = kNumeric;
    ShowCandidates(game, game.Thought.RootMoves[0].From);
    EXPECT_EQ(list.Lines, (std::vector<std::string>{"5650  15", "0801 -7", "67  n/a"}));
    ShowCandidates(game, 0);
    ShowCandidates(game, kNotFilled);
    EXPECT_EQ(list.Lines.size(), 3u);
}

TEST(RewriteGameTexts, ThereAndBackIsTheIdentity) {
    support::Random random(7);
    for (const support::NamedRules& named : support::NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.PlayMode = kPlayerPlayer;
        support::StartGame(fixture, named.Rules);
        for (int i = 0; i < 30 && !game.Game.GameOver; ++i) support::PlayRandomMove(game, random);
        const Long last = game.Record.LastMoveIndex;
        ASSERT_GT(last, 2);
        const auto cells = game.Record.GameRows;
        const RecordedList list = fixture.Screen.List(ListId::List1);

        RewriteGameTexts(game, kNumeric);
        EXPECT_EQ(game.Settings.Notation, kNumeric);
        // The texts are those that the moves would have been given in that notation.
        for (Long halfMove = 1; halfMove <= last; ++halfMove) {
            const MoveTexts texts = DisplayMove(game, game.Record.MoveHistory[halfMove]);
            EXPECT_EQ(game.Record.GameRows[RowOfHalfMove(halfMove)][TextColumn(halfMove)],
                      texts.MoveTextKey + " " + texts.MoveTextShown);
            const std::string& line = fixture.Screen.List(ListId::List1).Lines[static_cast<std::size_t>(halfMove - 1)];
            EXPECT_EQ(line.substr(6), texts.MoveTextShown);
        }
        const bool numbers = game.Pos.Rules.PiecesOnBlack < 2;
        EXPECT_EQ(fixture.Screen.List(ListId::List1) == list, !numbers);

        RewriteGameTexts(game, kAlgebraic);
        EXPECT_TRUE(game.Record.GameRows == cells);
        EXPECT_EQ(fixture.Screen.List(ListId::List1), list);
    }
}

TEST(InputMove, RefusesWhatIsNoMove) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    ASSERT_TRUE(ResetGame(game));
    for (const char* text : {"", "A", "A5B", "A5A5", "B8A7", "ZZZZ", "5143", "\xFF\xFE??"})
        EXPECT_TRUE(std::holds_alternative<Refusal>(InputMove(game, text))) << text;
    EXPECT_EQ(game.Pos.Board, game.Pos.InitialBoard);
    EXPECT_EQ(game.Pos.Tree.TreeIndex, 0);
}

TEST(InputMove, ANewMoveIsJudgedAtTheRoot) {
    // The rule on the piece moved last holds at the root alone: the move before must have become part of the game.
    SessionFixture fixture;
    Session& game = fixture.Game;
    support::StartGame(fixture, "LastCap=1 | MaxCapMove=0", "W: c3 i3 h2; B: e5 j4 b0", kBlack);
    ASSERT_TRUE(std::holds_alternative<MadeMove>(InputMove(game, "E5D4")));
    EXPECT_EQ(std::get<Refusal>(InputMove(game, "I3K5")), Refusal::NeedsToJump);
    EXPECT_TRUE(std::holds_alternative<MadeMove>(InputMove(game, "C3E5")));
}

} // namespace
} // namespace tavlon12
