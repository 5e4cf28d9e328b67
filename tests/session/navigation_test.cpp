#include "session/navigation.h"

#include "rules/generate_moves.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/players.h"
#include "session/record_move.h"
#include "session/reset_game.h"
#include "session/screen.h"
#include "support/session_play.h"

#include <gtest/gtest.h>

#include <map>

namespace tavlon12 {
namespace {

/// What must be there again whenever a position of the game is shown.
struct Shown {
    BoardCells Board{};
    Long SideToMove = 0;
    Long Value = 0;
    Long Material = 0;
    Long WhiteOffBoard = 0;
    Long BlackOffBoard = 0;
    std::vector<std::string> LegalMoves;
    std::string NameToMove;
    std::string Comment;

    bool operator==(const Shown&) const = default;
};

Shown Look(SessionFixture& fixture) {
    const GameTree& tree = fixture.Pos->Tree;
    InitGameTree(*fixture.Pos);
    // The move that ends a game leaves the greyed list as it was.
    auto legalMoves = fixture.Screen.List(ListId::List2).Lines;
    if (fixture.Game.Game.GameOver) legalMoves.clear();
    return {fixture.Pos->Board,  tree.SideToMove,          tree.PlyValue[0],
            tree.PlyMaterial[0], tree.WhiteOffBoard,       tree.BlackOffBoard,
            legalMoves,          NameToMove(fixture.Game), fixture.Screen.Texts[Control::Text1]};
}

/// A game on a recording screen together with what was shown after each of its half-moves.
struct RecordedGame : SessionFixture {
    explicit RecordedGame(Long playMode) {
        Game.Settings.PlayMode = playMode;
        Game.Settings.Limits.FixedDepth = 1;
        Game.Settings.Limits.DepthLimit = 1;
        Game.Settings.ChessDraws = 0;
    }

    Long Index() const { return Pos->Tree.TreeIndex; }

    /// Writes a comment to the position on the board and notes what is shown.
    void Note() {
        Screen.Texts[Control::Text1] = "comment " + std::to_string(Index());
        CommentKey(Game);
        Seen.resize(static_cast<std::size_t>(Index()));
        Seen.push_back(Look(*this));
    }

    void PlayRandomly(std::mt19937& random, Long halfMoves) {
        while (!Game.Game.GameOver && Index() < halfMoves) {
            std::string text = RandomMoveText(Game, random);
            ASSERT_TRUE(Play(Game, text)) << text;
            // A computer's reply leaves no moment to note the position between the two moves.
            if (Index() == static_cast<Long>(Seen.size()) + 1) Seen.emplace_back();
            Note();
        }
        Keys.assign(Pos->PositionKeys.begin(), Pos->PositionKeys.begin() + Index());
    }

    /// Compares the screen with what it showed when this position was first reached.
    void Check(const std::string& where) {
        SCOPED_TRACE(where + ", half-move " + std::to_string(Index()));
        const Shown& seen = Seen.at(static_cast<std::size_t>(Index()));
        Shown now = Look(*this);
        if (seen.NameToMove.empty()) {
            EXPECT_EQ(now.NameToMove, Seen.front().NameToMove);
        } else {
            EXPECT_TRUE(now == seen);
            EXPECT_EQ(PositionString(now.Board), PositionString(seen.Board));
            EXPECT_EQ(now.LegalMoves, seen.LegalMoves);
            EXPECT_EQ(now.Value, seen.Value);
            EXPECT_EQ(now.Material, seen.Material);
            EXPECT_EQ(now.NameToMove, seen.NameToMove);
        }
        EXPECT_EQ(now.Value, Pos->Tree.GameValue[Index()]);
        EXPECT_EQ(Screen.List(ListId::List1).Selected, Index() - 1);
        EXPECT_EQ(static_cast<Long>(Screen.List(ListId::List1).Lines.size()), Game.Record.LastMoveIndex);
        EXPECT_EQ(Screen.Enabled[Command::First], Index() > 0);
        EXPECT_EQ(Screen.Enabled[Command::Moveback], Index() > 0);
        EXPECT_EQ(Screen.Enabled[Command::MoveForward], Index() < Game.Record.LastMoveIndex);
        EXPECT_EQ(Screen.Enabled[Command::Last], Index() < Game.Record.LastMoveIndex);
        for (std::size_t i = 0; i < static_cast<std::size_t>(Index()); ++i) {
            EXPECT_TRUE(Pos->PositionKeys[i] == Keys[i]) << "key " << i;
        }
    }

    void SelectHalfMove(Long halfMove) {
        Screen.List(ListId::List1).Selected = halfMove - 1;
        GoToSelectedLine(Game);
    }

    std::vector<Shown> Seen;
    std::vector<PositionKey> Keys;
};

/// Walks about in a whole game, by every command, and branches off from it.
void WalkAbout(RecordedGame& game, std::mt19937& random) {
    const Long last = game.Game.Record.LastMoveIndex;
    const auto lines = game.Screen.List(ListId::List1).Lines;
    while (game.Index() > 0) {
        GoBack(game.Game);
        game.Check("back");
    }
    while (game.Index() < last) {
        GoForward(game.Game);
        game.Check("forward");
    }
    GoFirst(game.Game);
    ASSERT_EQ(game.Index(), 0);
    game.Check("first");
    game.Pos->PositionKeys.fill(KeyOf(EmptyBoard())); // as a search from here may leave them
    GoLast(game.Game);
    ASSERT_EQ(game.Index(), last);
    game.Check("last");
    for (int jump = 0; jump < 8 && last > 0; ++jump) {
        Long target = 1 + static_cast<Long>(random() % static_cast<unsigned>(last));
        game.SelectHalfMove(target);
        ASSERT_EQ(game.Index(), target);
        game.Check("line");
    }
    EXPECT_EQ(game.Screen.List(ListId::List1).Lines, lines);
}

TEST(Navigation, ShowsEveryPositionOfAGameOfTwoPersonsAgain) {
    for (const RulesRow& row : VariedRules()) {
        SCOPED_TRACE(row.Name);
        for (unsigned seed = 1; seed <= 3; ++seed) {
            std::mt19937 random(seed);
            RecordedGame game(kPlayerPlayer);
            UseRules(*game.Pos, row);
            StartFromRandom(game.Game, random, 14);
            game.Note();
            game.PlayRandomly(random, 40);
            WalkAbout(game, random);
            if (game.Game.Record.LastMoveIndex < 4) continue;

            // Another move from an earlier position replaces what came after it.
            Long branch = game.Game.Record.LastMoveIndex / 2;
            game.SelectHalfMove(branch);
            game.PlayRandomly(random, branch + 1);
            ASSERT_EQ(game.Index(), branch + 1);
            EXPECT_EQ(game.Game.Record.LastMoveIndex, branch + 1);
            EXPECT_EQ(game.Game.Record.MoveComments[branch + 2], "");
            EXPECT_EQ(game.Game.Record.MoveHistory[branch + 2].From, 0);
            game.Check("branch");
            WalkAbout(game, random);
        }
    }
}

TEST(Navigation, LeavesThePersonToMoveInAGameAgainstTheComputer) {
    int walked = 0;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::mt19937 random(seed);
        RecordedGame game(kPlayerComputer);
        if (seed % 2 == 0) {
            StartFromRandom(game.Game, random, 14);
        } else {
            ASSERT_TRUE(ResetGame(game.Game));
        }
        game.Note();
        EXPECT_EQ(game.Seen.front().NameToMove, "Player");
        game.PlayRandomly(random, 16);
        if (game.Game.Game.GameOver && game.Index() % 2 != 0) continue; // the person has made the last move
        WalkAbout(game, random);
        EXPECT_EQ(NameToMove(game.Game), "Player");
        walked += game.Index() >= 10;
    }
    EXPECT_GE(walked, 4);
}

TEST(Navigation, MakesTheRouteThatWasPlayedAgain) {
    // Two ways from c3 to c7: over d4 and d6, or over b4 and b6.
    RecordedGame game(kPlayerPlayer);
    UseRules(*game.Pos, {"free stops", {{"MulJumps", "0"}, {"MaxCapMove", "0"}}});
    std::vector<MoveRecord> routes;
    StartFrom(game.Game, {{"C3"}, {}, {"D4", "D6", "B4", "B6", "K0"}, {}});
    for (Long slot = 0; slot < GenerateLegalMoves(*game.Pos); ++slot) {
        if (game.Pos->Moves[slot].To == SquaresOfKey(game.Game, "C7").To) routes.push_back(game.Pos->Moves[slot]);
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
    StartFrom(game.Game, {{}, {"A1"}, {}, {"K1"}});
    const char* const round[] = {"A1B2", "K1L2", "B2A1", "L2K1"};
    for (Long i = 0; i < kMaxHalfMoves; ++i) ASSERT_TRUE(Play(game.Game, round[i % 4])) << i;
    EXPECT_TRUE(GameIsFull(game.Game));
    const BoardCells end = game.Pos->Board;
    EXPECT_EQ(std::get<Refusal>(InputMove(game.Game, "A1B2")), Refusal::GameFull);
    EXPECT_EQ(game.Pos->Board, end);
    ShowRefusal(game.Game, Refusal::GameFull);
    EXPECT_EQ(game.Screen.Messages.back(), (RecordedMessage{"This game is full: a record holds 1000 half-moves.",
                                                            "Error", MessageKind::Exclamation}));

    auto lines = game.Screen.List(ListId::List1).Lines;
    EXPECT_EQ(lines[999], "      l2-k1");
    GoFirst(game.Game);
    EXPECT_EQ(game.Index(), 0);
    EXPECT_FALSE(GameIsFull(game.Game));
    GoLast(game.Game);
    EXPECT_EQ(game.Index(), kMaxHalfMoves);
    EXPECT_EQ(game.Pos->Board, end);
    RewriteGameTexts(game.Game, kNumeric);
    RewriteGameTexts(game.Game, kAlgebraic);
    EXPECT_EQ(game.Screen.List(ListId::List1).Lines, lines);
    GoBack(game.Game);
    EXPECT_TRUE(Play(game.Game, "L2K1"));
}

} // namespace
} // namespace tavlon12
