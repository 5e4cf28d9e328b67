#include "session/navigation.h"

#include "session/players.h"
#include "session/record_move.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tavlon12 {
namespace {

using namespace support;

/// What must be there again whenever a position of the game is shown.
std::string Look(SessionFixture& fixture) {
    const GameTree& tree = fixture.Pos->Tree;
    InitGameTree(*fixture.Pos);
    std::ostringstream text;
    text << PositionString(fixture.Pos->Board) << " side " << tree.SideToMove << " value " << tree.PlyValue[0] << " of "
         << tree.PlyMaterial[0] << " off " << tree.WhiteOffBoard << " " << tree.BlackOffBoard << " moves "
         << NameToMove(fixture.Game) << " " << fixture.Screen.Texts[Control::Text1] << ":";
    // The move that ends a game leaves the greyed list as it was.
    if (fixture.Game.Game.GameOver) return text.str();
    for (const std::string& line : fixture.Screen.List(ListId::List2).Lines) text << " " << line;
    return text.str();
}

/// What play has shown and said after a half-move; nothing is shown where the computer has replied at once.
struct Seen {
    std::string Shown;
    Long DrawReason = 0;
    bool GameOver = false;
};

/// A game on a recording screen together with what was shown after each of its half-moves.
struct RecordedGame : SessionFixture {
    explicit RecordedGame(Long playMode) {
        Game.Settings.PlayMode = playMode;
        Game.Settings.Limits = {0, 1, 1, 1};
        Game.Settings.ChessDraws = Game.Settings.KingVersusKing = 1;
        Game.Settings.MoveLimitCode = 2;
    }

    Long Index() const { return Pos->Tree.TreeIndex; }

    /// Writes a comment to the position on the board and notes what is shown.
    void Note() {
        Screen.Texts[Control::Text1] = "comment " + std::to_string(Index());
        CommentKey(Game);
        History.resize(static_cast<std::size_t>(Index()));
        History.push_back({Look(*this), Game.Game.DrawReason, Game.Game.GameOver});
    }

    void PlayRandomly(Random& random, Long halfMoves) {
        while (!Game.Game.GameOver && Index() < halfMoves && PlayRandomMove(Game, random)) Note();
        Keys.clear();
        for (Long i = 0; i < Index(); ++i) Keys.push_back(Pos->PositionKeys[i]);
    }

    /// Compares the screen with what it showed when this position was first reached.
    void Check(const std::string& where, bool forward) {
        SCOPED_TRACE(where + ", half-move " + std::to_string(Index()));
        const Seen& seen = History.at(static_cast<std::size_t>(Index()));
        if (!seen.Shown.empty()) {
            EXPECT_EQ(Look(*this), seen.Shown);
            EXPECT_EQ(Game.Game.DrawReason, forward ? seen.DrawReason : 0);
        }
        EXPECT_EQ(Game.Game.GameOver, forward && seen.GameOver);
        EXPECT_EQ(Pos->Tree.PlyValue[0], Pos->Tree.GameValue[Index()]);
        EXPECT_EQ(Screen.List(ListId::List1).Selected, Index() - 1);
        EXPECT_EQ(static_cast<Long>(Screen.List(ListId::List1).Lines.size()), Game.Record.LastMoveIndex);
        for (Command command : {Command::First, Command::Moveback}) EXPECT_EQ(Screen.Enabled[command], Index() > 0);
        for (Command command : {Command::MoveForward, Command::Last})
            EXPECT_EQ(Screen.Enabled[command], Index() < Game.Record.LastMoveIndex);
        for (Long i = 0; i < Index(); ++i) EXPECT_TRUE(Keys[static_cast<std::size_t>(i)] == Pos->PositionKeys[i]) << i;
    }

    /// Goes to a half-move by its line and checks it.
    void SelectHalfMove(Long halfMove) {
        const bool forward = halfMove > Index();
        const bool moves = halfMove != Index();
        Screen.List(ListId::List1).Selected = halfMove - 1;
        GoToSelectedLine(Game);
        ASSERT_EQ(Index(), halfMove);
        if (moves) Check("line", forward);
    }

    std::vector<Seen> History;
    std::vector<PositionKey> Keys;
};

/// Walks about in a whole game, by every command.
void WalkAbout(RecordedGame& game, Random& random) {
    const Long last = game.Game.Record.LastMoveIndex;
    const auto lines = game.Screen.List(ListId::List1).Lines;
    while (game.Index() > 0) {
        GoBack(game.Game);
        game.Check("back", false);
    }
    while (game.Index() < last) {
        GoForward(game.Game);
        game.Check("forward", true);
    }
    const BoardCells end = game.Pos->Board;
    for (Long count : {last, -last}) {
        GoToMove(game.Game, count, true, true);
        EXPECT_EQ(game.Pos->Tree.Ply, 0) << "in silence";
        EXPECT_EQ(game.Pos->Board, count > 0 ? game.Pos->InitialBoard : end);
    }
    GoFirst(game.Game);
    ASSERT_EQ(game.Index(), 0);
    game.Check("first", false);
    game.Pos->PositionKeys.Fill(KeyOf(EmptyBoard())); // as a search from here may leave them
    GoLast(game.Game);
    ASSERT_EQ(game.Index(), last);
    game.Check("last", true);
    for (int jump = 0; jump < 8; ++jump) game.SelectHalfMove(1 + Draw(random, last));
    EXPECT_EQ(game.Screen.List(ListId::List1).Lines, lines);
}

TEST(Navigation, ShowsEveryPositionOfAGameOfTwoPersonsAgainAndChangesNoVerdict) {
    Random random(20261123);
    Long ended = 0;
    for (const NamedRules& named : NamedRuleSets()) {
        SCOPED_TRACE(named.Name);
        RuleSet rules = named.Rules;
        rules.ThreeKings = 1;
        rules.TwoKings = 1;
        rules.NumberKings = 2;
        rules.NumberKings2 = 2;
        RecordedGame game(kPlayerPlayer);
        StartGame(game, rules, random);
        game.Note();
        game.PlayRandomly(random, 80);
        const Long last = game.Index();
        if (last < 4 || game.Game.Quitting) continue;
        ended += game.Game.Game.GameOver;
        WalkAbout(game, random);

        // Another move from an earlier position replaces what came after it.
        game.SelectHalfMove(last / 2);
        game.PlayRandomly(random, last / 2 + 1);
        ASSERT_EQ(game.Index(), last / 2 + 1);
        EXPECT_EQ(game.Game.Record.LastMoveIndex, game.Index());
        EXPECT_EQ(game.Game.Record.MoveComments[game.Index() + 1], "");
        EXPECT_EQ(game.Game.Record.MoveHistory[game.Index() + 1].From, 0);
        WalkAbout(game, random);
    }
    EXPECT_GT(ended, 10);
}

TEST(Navigation, LeavesThePersonToMoveInAGameAgainstTheComputer) {
    Random random(5);
    RecordedGame game(kPlayerComputer);
    StartGame(game, RulesWith(""));
    game.Note();
    game.PlayRandomly(random, 16);
    WalkAbout(game, random);
    EXPECT_EQ(NameToMove(game.Game), "Player");
}

TEST(Navigation, MakesTheRouteThatWasPlayedAgain) {
    // Two ways from c3 to c7: over d4 and d6, or over b4 and b6.
    RecordedGame game(kPlayerPlayer);
    std::vector<MoveRecord> routes;
    StartGame(game, "MulJumps=0 | MaxCapMove=0", "W: c3; B: d4 d6 b4 b6 k0");
    for (Long slot = 0; slot < GenerateLegalMoves(*game.Pos); ++slot) {
        if (game.Pos->Moves[slot].To == SquareOf("c7")) routes.push_back(game.Pos->Moves[slot]);
    }
    ASSERT_EQ(routes.size(), 2u);

    for (const MoveRecord& route : routes) {
        const MadeMove made = InputRecord(game.Game, route);
        EnterHalfMove(game.Game, made, {kByComputer, 0, ""});
        ShowHalfMove(game.Game, LineOfHalfMove(game.Game, made, false));
        InitGameTree(*game.Pos);
        const BoardCells after = game.Pos->Board;

        GoBack(game.Game);
        EXPECT_EQ(game.Pos->Board, game.Pos->InitialBoard);
        GoForward(game.Game);
        EXPECT_EQ(game.Pos->Board, after);
        GoBack(game.Game);
        EXPECT_EQ(game.Pos->Board, game.Pos->InitialBoard);
    }
}

TEST(Navigation, AGameOfAThousandHalfMovesIsFullAndCanBeWalked) {
    RecordedGame game(kPlayerPlayer);
    game.Game.Settings.KingVersusKing = 0;
    StartGame(game, "", "W: Ka1; B: Kk1");
    game.Game.Settings.ChessDraws = 0;
    for (Long i = 0; i < kMaxHalfMoves / 4; ++i) Play(game.Game, "a1b2 k1l2 b2a1 l2k1");
    EXPECT_TRUE(GameIsFull(game.Game));
    const BoardCells end = game.Pos->Board;
    EXPECT_EQ(std::get<Refusal>(InputMove(game.Game, "A1B2")), Refusal::GameFull);
    EXPECT_EQ(game.Pos->Board, end);
    ShowRefusal(game.Game, Refusal::GameFull);
    EXPECT_EQ(game.Screen.Messages.back(), (RecordedMessage{"This game is full: a record holds 1000 half-moves.",
                                                            "Error", MessageKind::Exclamation}));

    const auto lines = game.Screen.List(ListId::List1).Lines;
    EXPECT_EQ(lines[999], "      l2-k1");
    GoFirst(game.Game);
    EXPECT_FALSE(GameIsFull(game.Game));
    GoLast(game.Game);
    EXPECT_EQ(game.Index(), kMaxHalfMoves);
    EXPECT_EQ(game.Pos->Board, end);
    GoBack(game.Game);
    EXPECT_NO_THROW(Play(game.Game, "l2k1"));
    EXPECT_EQ(game.Screen.List(ListId::List1).Lines, lines);
}

} // namespace
} // namespace tavlon12
