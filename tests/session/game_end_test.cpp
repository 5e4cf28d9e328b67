#include "session/game_end.h"
#include "session/human_move.h"
#include "session/input_move.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using support::StartGame;
using support::Texts;

/// Plays moves of two persons, "c3d4 h8g7".
void PlayAll(Session& game, std::string_view moves) {
    for (std::size_t at = 0; at < moves.size(); at += 5) {
        const MoveAnswer answer = InputMove(game, moves.substr(at, 4));
        ASSERT_TRUE(std::holds_alternative<MadeMove>(answer)) << moves.substr(at, 4);
        CommitHumanMove(game, std::get<MadeMove>(answer), MovePath::Board);
    }
}

struct EndCase {
    std::string_view Name;
    std::string_view Rules;
    std::string_view Placement;
    Long SideToMove;
    std::string_view Moves;
    std::string_view Text;   ///< empty when the game goes on
    std::string_view Result; ///< "1-0": the side that began has won
};

void PrintTo(const EndCase& test, std::ostream* stream) {
    *stream << test.Name;
}

class EndOfGame : public testing::TestWithParam<EndCase> {};

TEST_P(EndOfGame, IsToldOnceWithItsResult) {
    const EndCase& test = GetParam();
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    game.Settings.KingVersusKing = 1;
    StartGame(fixture, test.Rules, test.Placement, test.SideToMove);
    PlayAll(game, test.Moves);
    EXPECT_EQ(game.Game.ResultText, test.Result);
    if (test.Text.empty()) {
        EXPECT_FALSE(game.Game.GameOver);
        EXPECT_TRUE(fixture.Screen.Messages.empty());
        return;
    }
    EXPECT_TRUE(game.Game.GameOver);
    const RecordedMessage expected{std::string(test.Text), "Congratulations", MessageKind::Exclamation};
    EXPECT_EQ(fixture.Screen.Messages, std::vector{expected}) << testing::PrintToString(Texts(fixture.Screen.Messages));
    EXPECT_EQ(fixture.Screen.Status[1], test.Text);
    EXPECT_EQ(fixture.Screen.Waited, 0.5);
    for (Command command : {Command::Compute, Command::Analyze, Command::Offerdraw, Command::Resign, Command::Hint,
                            Command::mnu_Play_Ccomputer})
        EXPECT_FALSE(fixture.Screen.Enabled.at(command)) << static_cast<int>(command);
    EXPECT_FALSE(fixture.Screen.List(ListId::List2).Enabled);
}

INSTANTIATE_TEST_SUITE_P(
    Table, EndOfGame,
    testing::Values(
        EndCase{"GoesOn", "", "W: c3; B: h8", kWhite, "c3d4", "", ""},
        EndCase{"LastPieceTaken", "", "W: c3; B: d4", kWhite, "c3e5", "White wins!", "1-0"},
        EndCase{"LastPieceTakenByBlackWhoBegan", "", "W: d4; B: e5", kBlack, "e5c3", "Black wins!", "1-0"},
        EndCase{"LastPieceTakenByTheSecond", "", "W: c3; B: a5 l8", kWhite, "c3b4 a5c3", "Black wins!", "0-1"},
        EndCase{"Blocked", "", "W: b2 c1 e3; B: a3", kWhite, "e3f4", "White wins!", "1-0"},
        EndCase{"BlockedIsDraw", "NoLegalDraw=1", "W: b2 c1 e3; B: a3", kWhite, "e3f4", "It's a draw!", "1/2-1/2"},
        EndCase{"NoPiecesIsNoDraw", "NoLegalDraw=1", "W: c3; B: d4", kWhite, "c3e5", "White wins!", "1-0"},
        EndCase{"AntiTakesLast", "AntiMode=1", "W: c3; B: d4", kWhite, "c3e5", "Black wins!", "0-1"},
        EndCase{"AntiBlocked", "AntiMode=1", "W: b2 c1 e3; B: a3", kWhite, "e3f4", "Black wins!", "0-1"},
        EndCase{"FirstKing", "KingWin=1", "W: aa c1; B: h8 h6", kWhite, "aabb", "White wins!", "1-0"},
        EndCase{"FirstKingOfBlack", "KingWin=1", "W: h2 f2; B: b2 c9", kBlack, "b2a1", "Black wins!", "1-0"},
        EndCase{"KingComesHome", "WinAtPromo=1", "W: Kb2 d2; B: j8 h6", kWhite, "b2a1", "White wins!", "1-0"},
        EndCase{"FewPieces", "NumberPieces=2 | MaxCapMove=0", "W: c3 e1 g1; B: d4 h8 ka", kWhite, "c3e5", "White wins!",
                "1-0"},
        EndCase{"TwoKingsRuleOff", "", "W: Ka1 Kb2; B: Kl2", kWhite, "b2c3 l2k1", "", ""}),
    [](const auto& test) { return std::string(test.param.Name); });

/// White's king walks between a1 and b2, Black's between bb and ca, where they never meet.
std::string Shuffle(Long halfMoves) {
    constexpr std::string_view kMoves[] = {"a1b2 ", "bbca ", "b2a1 ", "cabb "};
    std::string text;
    for (Long i = 0; i < halfMoves; ++i) text += kMoves[i % 4];
    return text;
}

struct DrawCase {
    std::string_view Name;
    std::string_view Rules;
    std::string_view Placement;
    void (*Adjust)(UserSettings&);
    Long EndsAt; ///< half-move, 0 for no end within 70
    std::string_view Text;
};

void PrintTo(const DrawCase& test, std::ostream* stream) {
    *stream << test.Name;
}

class DrawRules : public testing::TestWithParam<DrawCase> {};

TEST_P(DrawRules, EndTheGameAtTheirHalfMove) {
    const DrawCase& test = GetParam();
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.PlayMode = kPlayerPlayer;
    StartGame(fixture, test.Rules, test.Placement);
    game.Settings.ChessDraws = 0;
    test.Adjust(game.Settings);
    const std::string moves = Shuffle(70);
    while (!game.Game.GameOver && fixture.Pos->Tree.TreeIndex < 70)
        PlayAll(game, std::string_view(moves).substr(static_cast<std::size_t>(fixture.Pos->Tree.TreeIndex) * 5, 5));
    EXPECT_EQ(game.Game.GameOver ? fixture.Pos->Tree.TreeIndex : 0, test.EndsAt);
    const std::vector<std::string> expected(test.EndsAt == 0 ? 0 : 1, std::string(test.Text));
    EXPECT_EQ(Texts(fixture.Screen.Messages), expected);
    EXPECT_EQ(game.Game.ResultText, test.EndsAt == 0 ? "" : "1/2-1/2");
}

constexpr std::string_view kMany = "W: Ka1 Kd2 Kj2; B: Kbb Kl8 Kl6";

INSTANTIATE_TEST_SUITE_P(
    Table, DrawRules,
    testing::Values(
        // The placement after half-move 1 stands there again after 5 and 9; whose turn it is plays no part.
        DrawCase{"Repetition", "", kMany, [](UserSettings& s) { s.ChessDraws = 1; }, 9,
                 "It's a draw! Triple Repetition"},
        DrawCase{"RepetitionOff", "", kMany, [](UserSettings&) {}, 0, ""},
        DrawCase{"KingVersusKing", "", "W: Ka1; B: Kbb", [](UserSettings& s) { s.KingVersusKing = 1; }, 1,
                 "It's a draw! King versus King"},
        DrawCase{"KingVersusKingOff", "", "W: Ka1; B: Kbb", [](UserSettings&) {}, 0, ""},
        // The first list holds quiet moves too where captures are free.
        DrawCase{"KingVersusKingWithFreeCaptures", "CapRequired=0", "W: Ka1; B: Kbb",
                 [](UserSettings& s) { s.KingVersusKing = 1; }, 0, ""},
        // From half-move 1 on: 30 - 1 + 2 exceeds 30.
        DrawCase{"ThreeKings", "ThreeKings=1 | NumberKings=15", "W: Ka1 Kf2 Kh2; B: Kbb", [](UserSettings&) {}, 30,
                 "It's a draw! 3 Kings versus 1 King"},
        DrawCase{"ThreeKingsOfBlack", "ThreeKings=1 | NumberKings=2", "W: Ka1; B: Kbb Kl8 Kl6", [](UserSettings&) {}, 4,
                 "It's a draw! 3 Kings versus 1 King"},
        DrawCase{"ThreeKingsOff", "NumberKings=15", "W: Ka1 Kf2 Kh2; B: Kbb", [](UserSettings&) {}, 0, ""},
        DrawCase{"TwoKings", "TwoKings=1 | NumberKings2=5", "W: Ka1 Kh2; B: Kbb", [](UserSettings&) {}, 10,
                 "It's a draw! 2 Kings versus 1 King"},
        DrawCase{"AManStopsTheCount", "TwoKings=1 | NumberKings2=5", "W: Ka1 e1 g1; B: Kbb", [](UserSettings&) {}, 0,
                 ""}),
    [](const auto& test) { return std::string(test.param.Name); });

/// Plays half-moves of two kings that do not capture, through the record alone.
void PretendQuietHalfMoves(Session& game, Long count) {
    game.Pos.Tree.TreeIndex = game.Record.LastMoveIndex = count;
    for (Long i = 1; i <= count; ++i) game.Record.MoveHistory[i] = {29, 44, {}, 0, 0};
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
            EXPECT_EQ(game.Game.DrawReason, count == kLimits[code] ? 2 : 0)
                << "code " << int(code) << ", half-move " << count;
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
    PlayAll(game, "e3f4");
    EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{"It's a draw! 50 Moves Rule"});
    EXPECT_EQ(game.Game.ResultText, "1/2-1/2");
}

} // namespace
} // namespace tavlon12
