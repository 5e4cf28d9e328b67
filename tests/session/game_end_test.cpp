#include "session/game_end.h"
#include "session/human_move.h"
#include "session/navigation.h"
#include "session/play_modes.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using namespace support;

/// Everything that goes on with a game is shut, and a typed move is answered with the end.
void ExpectEnded(SessionFixture& fixture, std::string_view text, std::string_view result) {
    RecordingPort& screen = fixture.Screen;
    EXPECT_TRUE(fixture.Game.Game.GameOver);
    EXPECT_EQ(fixture.Game.Game.ResultText, result);
    EXPECT_EQ(screen.Status[1], text);
    for (Command command : {Command::Compute, Command::Analyze, Command::Offerdraw, Command::Resign, Command::Hint,
                            Command::mnu_Play_Ccomputer})
        EXPECT_FALSE(screen.Enabled.at(command)) << static_cast<int>(command);
    EXPECT_FALSE(screen.List(ListId::List2).Enabled);
    EXPECT_EQ(screen.Mark, PlayerMark::None);
    const auto messages = screen.Messages;
    screen.Status[1] = "";
    screen.Texts[Control::Text2] = "c3-d4";
    SubmitTypedMove(fixture.Game);
    EXPECT_EQ(screen.Texts[Control::Text2], "");
    EXPECT_EQ(screen.Status[1], text);
    EXPECT_EQ(screen.Messages, messages);
}

struct EndCase : NamedCase {
    std::string_view Rules;
    std::string_view Placement;
    Long SideToMove;
    std::string_view Moves;  ///< of two persons; without them the computer thinks about its own
    std::string_view Text;   ///< empty when the game goes on
    std::string_view Result; ///< "1-0": the side that began has won
};

class EndOfGame : public testing::TestWithParam<EndCase> {};

TEST_P(EndOfGame, IsToldOnceWithItsResult) {
    const EndCase& test = GetParam();
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 4);
    game.Settings.UserName = "Ada";
    game.Settings.PlayMode = test.Moves.empty() ? kPlayerComputer : kPlayerPlayer;
    game.Settings.KingVersusKing = 1;
    StartGame(fixture, test.Rules, test.Placement, test.SideToMove);
    game.Port.Time.Wait = [&, wait = game.Port.Time.Wait](double seconds) {
        EXPECT_TRUE(game.Busy) << "nothing else is done in a pause";
        wait(seconds);
    };
    if (test.Moves.empty()) {
        ComputeCommand(game);
    } else {
        Play(game, test.Moves);
    }
    const bool thought = test.Moves.empty() && game.Pos.Tree.TreeIndex == 1;
    EXPECT_EQ(fixture.Screen.Waited, (thought ? 0.5 : 0) + (test.Text.empty() ? 0 : 0.5));
    if (test.Text.empty()) {
        EXPECT_FALSE(game.Game.GameOver);
        EXPECT_TRUE(fixture.Screen.Messages.empty());
        EXPECT_TRUE(fixture.Screen.Enabled.at(Command::Compute));
        EXPECT_TRUE(fixture.Screen.List(ListId::List2).Enabled);
        return;
    }
    const RecordedMessage expected{std::string(test.Text), "Congratulations", MessageKind::Exclamation};
    EXPECT_EQ(fixture.Screen.Messages, std::vector{expected}) << testing::PrintToString(Texts(fixture.Screen.Messages));
    ExpectEnded(fixture, test.Text, test.Result);
}

INSTANTIATE_TEST_SUITE_P(
    Table, EndOfGame,
    testing::Values(
        EndCase{"LastPieceTaken", "", "W: c3; B: d4", kWhite, "c3e5", "White wins!", "1-0"},
        EndCase{"LastPieceTakenByTheSecond", "", "W: c3; B: a5 l8", kWhite, "c3b4 a5c3", "Black wins!", "0-1"},
        EndCase{"Blocked", "", "W: b2 c1 e3; B: a3", kWhite, "e3f4", "White wins!", "1-0"},
        EndCase{"BlockedIsDraw", "NoLegalDraw=1", "W: b2 c1 e3; B: a3", kWhite, "e3f4", "It's a draw!", "1/2-1/2"},
        EndCase{"AntiTakesLast", "AntiMode=1", "W: c3; B: d4", kWhite, "c3e5", "Black wins!", "0-1"},
        EndCase{"FirstKing", "KingWin=1", "W: aa c1; B: h8 h6", kWhite, "aabb", "White wins!", "1-0"},
        EndCase{"KingComesHome", "WinAtPromo=1", "W: Kb2 d2; B: j8 h6", kWhite, "b2a1", "White wins!", "1-0"},
        EndCase{"FewPieces", "NumberPieces=2 | MaxCapMove=0", "W: c3 e1 g1; B: d4 h8 ka", kWhite, "c3e5", "White wins!",
                "1-0"},
        EndCase{"TwoKingsRuleOff", "", "W: Ka1 Kb2; B: Kl2", kWhite, "b2c3 l2k1", "", ""},
        // The computer has nothing to think about
        EndCase{"ByComputerNoMoves", "", "W: a3; B: b4 c5", kWhite, "", "Ada wins!", "0-1"},
        EndCase{"ByComputerNoPieces", "", "B: h8", kWhite, "", "Ada wins!", "0-1"},
        EndCase{"ByComputerAntiNoMoves", "AntiMode=1", "W: a3; B: b4 c5", kWhite, "", "Computer wins!", "1-0"},
        EndCase{"ByComputerAlreadyWon", "", "W: c3", kWhite, "", "Computer wins!", "1-0"},
        EndCase{"ByComputerBlockedDraw", "NoLegalDraw=1", "W: a3; B: b4 c5", kWhite, "", "It's a draw!", "1/2-1/2"},
        // Its move ends the game
        EndCase{"ByComputerTakesTheLast", "", "W: c3; B: d4", kWhite, "", "Computer wins!", "1-0"},
        EndCase{"ByComputerFirstKing", "KingWin=1", "W: aa c1; B: h8 h6", kWhite, "", "Computer wins!", "1-0"},
        EndCase{"ByComputerKingComesHome", "WinAtPromo=1", "W: Kb2 d2; B: j8 h6", kWhite, "", "Computer wins!", "1-0"},
        EndCase{"ByComputerAntiGivesTheLast", "AntiMode=1", "W: c3; B: d4", kWhite, "", "Ada wins!", "0-1"},
        EndCase{"ByComputerKingsDraw", "LongKings=0", "W: Ka1; B: Klb", kWhite, "", "It's a draw! King versus King",
                "1/2-1/2"}),
    kNameOfCase);

/// White's king walks about on a1 to d4 and Black's on bb to f8, where they never meet: in rounds of 4 half-moves, or
/// of 40, so that no position comes a third time before half-move 41.
std::string Shuffle(Long halfMove, bool longRound) {
    const std::string_view white = longRound ? "a1c3 c3b2 b2d4 d4a1" : "a1b2 b2a1";
    const std::string_view black = longRound ? "bbca cad0 d0e9 e9f8 f8bb" : "bbca cabb";
    const std::string_view moves = halfMove % 2 == 0 ? white : black;
    const std::size_t at = static_cast<std::size_t>(halfMove / 2) * 5 % (moves.size() + 1);
    return std::string(moves.substr(at, 4));
}

struct DrawCase : NamedCase {
    std::string_view Rules;
    std::string_view Placement;
    void (*Adjust)(UserSettings&);
    Long EndsAt; ///< half-move, 0 for no end within 70
    std::string_view Text;
};

class DrawRules : public testing::TestWithParam<DrawCase> {};

TEST_P(DrawRules, EndTheGameAtTheirHalfMoveAndSayTheSameWhenItIsWalkedThrough) {
    const DrawCase& test = GetParam();
    const std::string text = test.EndsAt == 0 ? "" : "It's a draw! " + std::string(test.Text);
    SessionFixture fixture;
    Session& game = fixture.Game;
    const Long& index = fixture.Pos->Tree.TreeIndex;
    game.Settings.PlayMode = kPlayerPlayer;
    StartGame(fixture, test.Rules, test.Placement);
    game.Settings.ChessDraws = 0;
    test.Adjust(game.Settings);
    std::vector<Long> reasons{0};
    while (!game.Game.GameOver && index < 70) {
        Play(game, Shuffle(index, test.Text == "50 Moves Rule"));
        reasons.push_back(game.Game.DrawReason);
    }
    EXPECT_EQ(game.Game.GameOver ? index : 0, test.EndsAt);
    EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>(test.EndsAt == 0 ? 0 : 1, text));
    EXPECT_EQ(game.Game.ResultText, test.EndsAt == 0 ? "" : "1/2-1/2");

    const Long last = index;
    const auto expectVerdict = [&] {
        EXPECT_EQ(game.Game.DrawReason, reasons[static_cast<std::size_t>(index)]) << index;
        EXPECT_EQ(game.Game.GameOver, index == test.EndsAt) << index;
    };
    for (; index > 0; GoBack(game)) {
        GoBack(game);
        EXPECT_FALSE(game.Game.GameOver) << index;
        GoForward(game);
        expectVerdict();
    }
    GoLast(game);
    EXPECT_EQ(index, last);
    expectVerdict();
}

constexpr std::string_view kMany = "W: Ka1 Kd2 Kj2; B: Kbb Kl8 Kl6";

INSTANTIATE_TEST_SUITE_P(
    Table, DrawRules,
    testing::Values(
        // The placement after half-move 1 stands there again after 5 and 9; whose turn it is plays no part.
        DrawCase{"Repetition", "", kMany, [](UserSettings& s) { s.ChessDraws = 1; }, 9, "Triple Repetition"},
        DrawCase{"MoveLimit", "", kMany, [](UserSettings& s) { s.ChessDraws = 1, s.MoveLimitCode = 2; }, 32,
                 "50 Moves Rule"},
        DrawCase{"RepetitionOff", "", kMany, [](UserSettings&) {}, 0, ""},
        DrawCase{"KingVersusKing", "", "W: Ka1; B: Kbb", [](UserSettings& s) { s.KingVersusKing = 1; }, 1,
                 "King versus King"},
        // The first list holds quiet moves too where captures are free.
        DrawCase{"KingVersusKingWithFreeCaptures", "CapRequired=0", "W: Ka1; B: Kbb",
                 [](UserSettings& s) { s.KingVersusKing = 1; }, 0, ""},
        // From half-move 1 on: 30 - 1 + 2 exceeds 30.
        DrawCase{"ThreeKings", "ThreeKings=1 | NumberKings=15", "W: Ka1 Kf2 Kh2; B: Kbb", [](UserSettings&) {}, 30,
                 "3 Kings versus 1 King"},
        DrawCase{"ThreeKingsOfBlack", "ThreeKings=1 | NumberKings=2", "W: Ka1; B: Kbb Kl8 Kl6", [](UserSettings&) {}, 4,
                 "3 Kings versus 1 King"},
        DrawCase{"TwoKings", "TwoKings=1 | NumberKings2=5", "W: Ka1 Kh2; B: Kbb", [](UserSettings&) {}, 10,
                 "2 Kings versus 1 King"},
        DrawCase{"TwoKingsForEver", "TwoKings=1 | NumberKings2=2000000000", "W: Ka1 Kh2; B: Kbb", [](UserSettings&) {},
                 0, ""},
        DrawCase{"AManStopsTheCount", "TwoKings=1 | NumberKings2=5", "W: Ka1 e1 g1; B: Kbb", [](UserSettings&) {}, 0,
                 ""}),
    kNameOfCase);

/// Plays half-moves of two kings that do not capture, through the record alone.
void PretendQuietHalfMoves(Session& game, Long count) {
    game.Pos.Tree.TreeIndex = game.Record.LastMoveIndex = count;
    for (Long i = 1; i <= count; ++i) game.Record.MoveHistory[i] = {29, 44, {}, 0};
    while (game.Port.Lists.ListCount(ListId::List1) < count) game.Port.Lists.ListAdd(ListId::List1, "");
}

TEST(MoveLimit, ComesAtTheLimitOfItsCode) {
    constexpr Long kLimits[] = {64, 100, 32, 40, 80};
    for (Byte code = 0; code < 5; ++code) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        StartGame(fixture, "", kMany);
        game.Settings.MoveLimitCode = code;
        for (Long count : {kLimits[code] - 1, kLimits[code]}) {
            PretendQuietHalfMoves(game, count);
            UpdateDrawStatus(game);
            EXPECT_EQ(game.Game.DrawReason, count == kLimits[code] ? 2 : 0) << int(code) << ", half-move " << count;
            EXPECT_EQ(CheckMoveLimit(game, count - 1), count == kLimits[code]);
        }
    }
}

TEST(DrawStatus, ADrawRuleThatIsOffStillMakesAGameWithoutMovesADraw) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    StartGame(fixture, "", "W: b2 c1 e3; B: a3");
    game.Settings.ChessDraws = 0;
    PretendQuietHalfMoves(game, 110);
    Play(game, "e3f4");
    EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{"It's a draw! 50 Moves Rule"});
    EXPECT_EQ(game.Game.ResultText, "1/2-1/2");
}

TEST(Agreement, EndsTheGameAsAnyEndDoes) {
    for (bool resigns : {true, false}) {
        SessionFixture fixture;
        StartGame(fixture, "", kMany);
        EXPECT_NE(fixture.Screen.Mark, PlayerMark::None);
        OfferDraw(fixture.Game);
        EXPECT_FALSE(fixture.Game.Game.GameOver) << "no move has been made";
        fixture.Screen.Messages.clear();
        Session& game = fixture.Game;
        game.Game.GameTouched = game.Game.RateableGame = true;
        game.Settings.UseRating = 1;
        game.Rating = 800; // as strong as the computer at depth 1
        game.Record.GameRows[1][KindColumn(2)] = kByComputer;
        (resigns ? Resign : OfferDraw)(game);
        EXPECT_EQ(game.Rating, resigns ? 785 : 800);
        const std::string text = resigns ? "Computer wins!" : "It's a draw!";
        ASSERT_EQ(fixture.Screen.Messages.size(), 1u);
        EXPECT_TRUE(fixture.Screen.Messages[0].Text.starts_with("OK... " + text + "\n\nYour previous rating was 800"));
        ExpectEnded(fixture, text, resigns ? "" : "1/2-1/2");
    }
}

TEST(Rating, RisesWithAWinOfTheUserAndFallsWithALoss) {
    constexpr std::string_view kAnti = "AntiMode=1";
    const struct {
        std::string_view Rules, Placement;
        Byte PlayMode; ///< the person makes the last move in a game of two persons, the computer in its own
        Long Rating;
    } rows[] = {{"", "W: c3; B: d4", kPlayerPlayer, 815},
                {kAnti, "W: c3; B: d4", kPlayerPlayer, 785},
                {"", "W: c3; B: d4", kPlayerComputer, 785},
                {kAnti, "W: c3; B: d4", kPlayerComputer, 815},
                {"", "W: a3; B: b4 c5", kPlayerComputer, 815},
                {kAnti, "W: a3; B: b4 c5", kPlayerComputer, 785},
                {"NoLegalDraw=1", "W: a3; B: b4 c5", kPlayerComputer, 800}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Placement);
        SessionFixture fixture;
        Session& game = fixture.Game;
        LimitDepth(fixture, 1);
        game.Settings.PlayMode = row.PlayMode;
        StartGame(fixture, row.Rules, row.Placement);
        // As after a move of the computer at depth 1, which makes it as strong as the user.
        game.Settings.UseRating = 1;
        game.Game.RateableGame = true;
        game.Rating = 800;
        game.Record.GameRows[1][KindColumn(2)] = kByComputer;
        if (row.PlayMode == kPlayerPlayer) {
            game.Players.WhitePlayerName = kComputerName;
            Play(game, "c3e5");
        } else {
            ComputeCommand(game);
        }
        EXPECT_TRUE(game.Game.GameOver);
        EXPECT_EQ(game.Rating, row.Rating);
    }
}

} // namespace
} // namespace tavlon12
