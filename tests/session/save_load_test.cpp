#include "rules/rule_keys.h"
#include "session/exit.h"
#include "session/human_move.h"
#include "session/load_game.h"
#include "session/navigation.h"
#include "session/program_files.h"
#include "session/save_game.h"
#include "session/start_up.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using namespace support;

/// What comes back when a game is saved and loaded.
struct Kept {
    std::string Board, Start, Lines, Cells, Comments, Rules;
    Long SideToMove, LastMoveIndex, DrawReason, WhiteOffBoard, Value;
    bool GameOver, BookOpen;

    bool operator==(const Kept&) const = default;
};

void PrintTo(const Kept& kept, std::ostream* stream) {
    *stream << kept.Board << "\n"
            << kept.Start << "\n"
            << kept.Lines << "\n"
            << kept.Comments << "\n"
            << kept.Rules << "\nvalue " << kept.Value << " draw " << kept.DrawReason << " over " << kept.GameOver;
}

/// `withLastComment` false leaves the comment of the last position out, which PDN does not hold.
Kept Look(SessionFixture& fixture, bool withLastComment) {
    const Session& game = fixture.Game;
    const GameTree& tree = game.Pos.Tree;
    Kept kept{};
    kept.Board = PositionString(game.Pos.Board);
    kept.Start = PositionString(game.Pos.InitialBoard);
    kept.SideToMove = tree.SideToMove;
    kept.LastMoveIndex = game.Record.LastMoveIndex;
    kept.DrawReason = game.Game.DrawReason;
    kept.GameOver = game.Game.GameOver;
    kept.BookOpen = withLastComment && game.Game.BookOpen; // PDN does not hold it
    kept.WhiteOffBoard = tree.WhiteOffBoard;
    kept.Value = tree.PlyValue[tree.Ply];
    for (const std::string& line : fixture.Screen.List(ListId::List1).Lines) kept.Lines += line + "|";
    for (Long i = 0; i <= kept.LastMoveIndex; ++i) {
        if (i > 0) kept.Cells += game.Record.GameRows[RowOfHalfMove(i)][TextColumn(i)] + "|";
        if (withLastComment || i < kept.LastMoveIndex) kept.Comments += game.Record.MoveComments[i] + "|";
    }
    // PDN has no line breaks in a comment.
    for (std::size_t at = 0; !withLastComment && (at = kept.Comments.find("\r\n")) != std::string::npos;) {
        kept.Comments.replace(at, 2, "  ");
    }
    for (const RuleKey& key : RuleKeys()) {
        if (key.Name != "Setup") kept.Rules += RuleValueText(game.Pos.Rules, key) + ";";
    }
    return kept;
}

/// A few random moves of two persons, some with comments of several lines and other letters, and a branch cut off.
void PlaySome(SessionFixture& fixture, Random& random, bool comments) {
    Session& game = fixture.Game;
    for (Long i = 0; i < 14 && !game.Game.GameOver && !game.Quitting; ++i) {
        if (!PlayRandomMove(game, random)) break;
        if (comments && DrawOneIn(random, 3)) {
            game.Record.MoveComments[game.Pos.Tree.TreeIndex] = "caf\xC3\xA9 (" + std::to_string(i) + ")\r\nnext line";
        }
        if (i == 7 && !game.Game.GameOver) GoToMove(game, 2, false, false);
    }
}

struct Format {
    const char* Name;
    bool HoldsLastComment;
    Byte PdnAlgebraic;
};

TEST(SaveAndLoadSlow, AGameComesBackWhateverItsRulesAndNotation) {
    const Format formats[] = {{"game.tvl", true, 0}, {"game.pdn", false, 0}, {"game.pdn", false, 1}};
    Random random(7);
    Long ended = 0;
    for (Long round = 0; round < Scaled(400) && !testing::Test::HasFailure(); ++round) {
        RuleSet rules = RandomRules(random);
        const Long shift = rules.PiecesOnBlack == 0 ? 1 : 0; // numbers stand for the playing colour alone
        rules.PromoW = PromotionRow(184 - shift);
        rules.PromoB = PromotionRow(29 + shift);
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.PlayMode = kPlayerPlayer;
        game.Settings.KingVersusKing = 1;
        StartGame(fixture, rules);
        game.Variant.VariantFile = "A friend's own";
        game.Settings.Notation = game.Pos.Rules.PiecesOnBlack == 2 ? kAlgebraic : static_cast<Byte>(round % 3);
        PlaySome(fixture, random, true);
        if (game.Quitting) continue;
        game.Game.BookOpen = round % 2 == 0;
        if (game.Pos.Tree.TreeIndex < game.Record.LastMoveIndex) GoLast(game);
        ended += game.Game.GameOver;
        for (const Format& format : formats) {
            SCOPED_TRACE(std::string(format.Name) + " of round " + std::to_string(round));
            const std::filesystem::path file = fixture.Folder.Path / format.Name;
            std::filesystem::remove(file);
            game.Settings.PdnAlgebraic = format.PdnAlgebraic;
            fixture.Screen.File = file;
            fixture.Screen.Messages.clear();
            SaveCommand(game);
            const std::string saved = ReadFile(file);

            SessionFixture other;
            other.Game.Settings.PlayMode = kPlayerPlayer;
            other.Game.Settings.KingVersusKing = 1;
            ASSERT_TRUE(ResetGame(other.Game));
            other.Screen.File = file;
            other.Screen.Choice = PdnChoice{1, 0};
            OpenCommand(other.Game);
            // A game of PDN opens in numbers, or in the reader's notation; the texts are compared in that of the saver.
            const bool letters = game.Settings.Notation == kAlgebraic;
            if ((other.Game.Settings.Notation == kAlgebraic) != letters) {
                RewriteGameTexts(other.Game, letters ? kAlgebraic : kNumeric);
            }
            ASSERT_EQ(Look(other, format.HoldsLastComment), Look(fixture, format.HoldsLastComment)) << saved;
            EXPECT_FALSE(other.Game.Busy);
            if (!format.HoldsLastComment) continue;
            EXPECT_EQ(other.Game.Settings.Notation, game.Settings.Notation);
            other.Screen.File = other.Folder.Path / "again.tvl";
            SaveCommand(other.Game);
            EXPECT_EQ(ReadFile(other.Screen.File), saved) << "saved again it is the same file";
        }
    }
    EXPECT_GT(ended, 0) << "games that have ended must be among them";
}

TEST(Load, OpensAGameFileOrTellsWhy) {
    struct Row {
        std::string Body; ///< behind the head; a whole file that begins with "!"
        Long LastMoveIndex;
        std::string_view Message;
        Long Progress; ///< lines behind the head
    };
    const Row rows[] = {
        {"", 0, "", 1},
        {"c5d6\r\n{why}\r\nb8a7\r\n", 2, "", 3},
        {"c5d6\r\n\r\nb8a7\r\n", 1, "", 3},
        {"c5d6\r\nc5d6\r\n", 0, "C5D6: Illegal move!", 2},
        {"!no game", 3, "game.tvl is not an Tavlon12 file", 0},
        {"!TAVLON12 Version=0.88\r\nSTART\r\n", 3, "Incorrect game file!\nNeed version 0.89", 0},
        {"!TAVLON12 Version=0.89\r\nAntiMode=1\r\n", 3, "", 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Body);
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.PlayMode = kPlayerPlayer;
        ASSERT_TRUE(ResetGame(game));
        const std::string head = GameFileText(HeadOfGame(game), {});
        Play(game, "c5d6 b8a7 d6e7");
        game.Record.MoveComments[3] = "mine";
        fixture.Screen.File = fixture.Folder.Path / "game.tvl";
        WriteFile(fixture.Screen.File, row.Body.starts_with('!') ? row.Body.substr(1) : head + row.Body);
        OpenCommand(game);
        EXPECT_EQ(game.Record.LastMoveIndex, row.LastMoveIndex);
        EXPECT_EQ(Texts(fixture.Screen.Messages),
                  row.Message.empty() ? std::vector<std::string>() : std::vector{std::string(row.Message)});
        EXPECT_EQ(game.Pos.Rules.AntiMode, 0);
        EXPECT_FALSE(game.Busy);
        EXPECT_FALSE(fixture.Screen.List(ListId::List2).Lines.empty());
        EXPECT_EQ(fixture.Screen.Texts[Control::Text1], row.LastMoveIndex == 3 ? "mine" : "");
        if (row.Progress == 0) continue;
        EXPECT_EQ(fixture.Screen.ProgressMaximum, row.Progress);
        EXPECT_EQ(fixture.Screen.Progress, row.Message.empty() ? row.Progress : 0);
    }
}

TEST(Load, TheColourOfAGameIsDefinedWhereItsDefinitionNamesNone) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    ASSERT_TRUE(ResetGame(game));
    WriteFile(fixture.Folder.Path / "variants" / "Light.ini", "Title\r\nEND\r\n");
    GameHead head = HeadOfGame(game);
    head.VariantFile = "Light";
    head.Rules.PiecesOnBlack = 0;
    fixture.Screen.File = fixture.Folder.Path / "game.tvl";
    WriteFile(fixture.Screen.File, GameFileText(head, {}));
    OpenCommand(game);
    EXPECT_EQ(game.Variant.DefinedRules.PiecesOnBlack, 0);
}

} // namespace
} // namespace tavlon12
