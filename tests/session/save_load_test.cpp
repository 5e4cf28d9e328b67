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

} // namespace
} // namespace tavlon12
