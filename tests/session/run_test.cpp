#include "files/rating_file.h"
#include "files/settings.h"
#include "rules/rule_keys.h"
#include "session/book_lookup.h"
#include "session/exit.h"
#include "session/load_game.h"
#include "session/navigation.h"
#include "session/new_game.h"
#include "session/play_modes.h"
#include "session/program_files.h"
#include "session/rating.h"
#include "session/start_up.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavlon12 {
namespace {

using namespace support;

// Starts and ends of the program

TEST(Run, KeepsSettingsRatingAndGameFromOneStartToTheNext) {
    TemporaryFolder folder;
    for (Long start = 0; start < 3; ++start) {
        SCOPED_TRACE(start);
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.ProgramFolder = folder.Path;
        ASSERT_TRUE(StartUp(game));
        EXPECT_TRUE(fixture.Screen.Messages.empty());
        EXPECT_EQ(game.Rating, 1200 + 10 * start);
        EXPECT_EQ(game.Settings.Limits.TimeLimit, 2 + start);
        EXPECT_EQ(game.Record.LastMoveIndex, start);
        game.Settings.PlayMode = kPlayerPlayer;
        game.Settings.AutoSave = 1;
        game.Settings.Limits.TimeLimit = static_cast<Integer>(3 + start);
        game.Rating += 10;
        Play(game, start == 0 ? "c5d6" : start == 1 ? "b8a7" : "e5f6");
        fixture.Screen.Answers = {false, true};
        EXPECT_FALSE(CloseRequested(game));
        EXPECT_TRUE(CloseRequested(game));
        CloseMainWindow(game);
        const std::string text = ReadFile(folder.Path / kSettingsFile);
        EXPECT_EQ(std::ranges::count(text, '\n'), 84);
        EXPECT_EQ(SettingsText(*ReadSettings(text)), text);
    }
}

TEST(Run, AFileThatIsNoneIsReplacedAndAWrongValueEndsTheProgram) {
    for (const auto& [name, bytes, starts] :
         {std::tuple(kSettingsFile, "TAVLON120.88\r\n 0 \r\n", true), std::tuple(kSettingsFile, "", true),
          std::tuple(kSettingsFile, "TAVLON120.89\r\n 99999999999 \r\n", false),
          std::tuple(kRatingFile, "99999999999\r\n", false)}) {
        SessionFixture fixture;
        WriteFile(fixture.Folder.Path / name, bytes);
        EXPECT_EQ(StartUp(fixture.Game), starts) << bytes;
        EXPECT_EQ(fixture.Screen.Ended, starts ? 0 : 1);
        CloseMainWindow(fixture.Game);
        if (!starts) {
            EXPECT_EQ(ReadFile(fixture.Folder.Path / name), bytes) << "nothing is repaired";
        } else {
            EXPECT_TRUE(ReadSettings(ReadFile(fixture.Folder.Path / name)));
        }
    }
}

TEST(StartRules, RemoveMenAndPlayMoves) {
    for (Byte number : {Byte(3), Byte(200)}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Pos.Rules.RemoveMen = game.Pos.Rules.DoMoves = 1;
        game.Pos.Rules.NumberMen = number;
        game.Pos.Rules.NumberMoves = 3;
        NewGame(game);
        const PieceCensus start = CountPieces(game.Pos.InitialBoard);
        EXPECT_EQ(start.WhiteSum, number == 3 ? 27 : 1);
        EXPECT_EQ(start.BlackSum, number == 3 ? 27 : 1);
        EXPECT_FALSE(game.Game.RateableGame);
        if (number == 3) {
            EXPECT_EQ(game.Record.LastMoveIndex, 3);
        }
        EXPECT_FALSE(std::filesystem::exists(fixture.Folder.Path / kAutomaticMovesFile));
        EXPECT_TRUE(fixture.Screen.Messages.empty());
    }
}

// PDN of other programs

TEST(Pdn, OpensWhatOtherProgramsWriteAndTellsWhatIsWrong) {
    struct Row {
        std::string_view Name;
        std::string Bytes;
        std::string_view Lines; ///< of `List1`, or the message
        std::string_view Status;
    };
    const std::string head = "[Event \"Club\"]\n[Black \"Ada\"]\n[Result \"0-1\"]\n\n";
    // Without tags of ours it is the American game: Black begins, on 25 to 30.
    const Row rows[] = {
        {"LF", head + "1. 25-31 44-38 2. 26-32 0-1\n", "   1. 25-31|      44-38|   2. 26-32", "0-1;  no comments"},
        {"no final line end", head + "1. 25-31 44-38\n2. 26-32 0-1", "   1. 25-31", "0-1;  no comments"},
        {"comment", head + "1. {caf\xC3\xA9} 25-31 44-38 *\n", "   1. 25-31|      44-38", "0-1"},
        {"result alone", head + "1-0\n", "", "0-1;  no comments"},
        {"FEN", "[Event \"x\"]\n[FEN \"W:W44,K1:B29\"]\n\n1. 44-38 29-35 *\n", "   1. 44-38|      29-35",
         "*;  no comments"},
        {"second of two", head + "*\n\n" + head + "1. 26-32 44-38 *\n", "   1. 26-32|      44-38", "0-1;  no comments"},
        {"no tag", "1. 25-31 *\n", "game.pdn is not a PDN file", ""},
        {"no game", "[Event \"x\"]\n", "No games found!", ""},
        {"FEN that is none", "[Event \"x\"]\n[FEN \"?\"]\n\n1. 25-31 *\n", "Illegal Setup!", ""},
        {"illegal", head + "1. 25-31 44-38 2. 1-2 *\n", " 1 2: Illegal move!", ""},
        {"no move", head + "1. 25-31 what 2. 1-2 *\n", "Error in loading PDN file!", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        SessionFixture fixture;
        Session& game = fixture.Game;
        game.Settings.Notation = kNumeric;
        game.Settings.PlayMode = kPlayerPlayer;
        ASSERT_TRUE(ResetGame(game));
        fixture.Screen.File = fixture.Folder.Path / "game.pdn";
        fixture.Screen.Choice = PdnChoice{row.Name == "second of two" ? 2 : 1, 0};
        WriteFile(fixture.Screen.File, row.Bytes);
        OpenCommand(game);
        EXPECT_FALSE(game.Busy || game.Quitting);
        EXPECT_TRUE(fixture.Screen.List(ListId::List2).Enabled);
        if (row.Status.empty()) {
            EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{std::string(row.Lines)});
            continue;
        }
        EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>());
        std::string lines;
        for (const std::string& line : fixture.Screen.List(ListId::List1).Lines)
            lines += (lines.empty() ? "" : "|") + line;
        EXPECT_EQ(lines, row.Lines);
        EXPECT_EQ(fixture.Screen.Status[1], row.Status);
    }
}

// The opening book

TEST(Book, MarksItsMovesAndPlaysThemForTheComputer) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    LimitDepth(fixture, 2);
    game.Settings.OpeningBook = 1;
    ASSERT_TRUE(ResetGame(game));
    std::string book = "TAVLON12 Version=0.89\r\nVariant=Canadian Checkers\r\nSetup=" + PositionString(ClassicStart());
    for (const RuleKey& key : RuleKeys())
        if (key.Name != "Setup") book.append("\r\n").append(key.Name).append("=" + RuleValueText(RuleSet(), key));
    book += "\r\nstart\r\n4438w2531b4339w\r\nnames\r\n4438 2531'The Test'\r\nend\r\n";
    WriteFile(fixture.Folder.Path / "books" / "Canadian Checkers.bok", book);
    RefreshLegalMoves(game);
    std::vector<std::string> marked;
    for (const std::string& line : fixture.Screen.List(ListId::List2).Lines)
        if (line.ends_with("b")) marked.push_back(line);
    EXPECT_EQ(marked, std::vector<std::string>{"c5-d6b"});
    ComputeCommand(game);
    ComputeCommand(game);
    const auto& lines = fixture.Screen.List(ListId::List1).Lines;
    EXPECT_EQ(lines[0], "   1. c5-d6b");
    EXPECT_EQ(lines[1], "      b8-a7b");
    EXPECT_EQ(fixture.Screen.Status[3], "The Test");
    EXPECT_EQ(game.Record.GameRows[1][kStrengthColumn], "1");
    EXPECT_TRUE(fixture.Screen.SearchLine.ends_with("\nMain: Book"));
    GoBack(game);
    EXPECT_EQ(fixture.Screen.Status[3], "");
    GoForward(game);
    EXPECT_EQ(fixture.Screen.Status[3], "The Test");

    WriteFile(fixture.Folder.Path / "books" / "Canadian Checkers.bok", "no book\r\n");
    for (Long again = 0; again < 2; ++again) ConsultBook(game, false);
    EXPECT_EQ(Texts(fixture.Screen.Messages),
              std::vector<std::string>{"Canadian Checkers.BOK is not an Tavlon12 Book file"});
}

TEST(Rating, FollowsTheScaleOfElo) {
    struct Row {
        Long Rating, Depth;
        double Score;
        Long New;
    };
    for (const Row& row : {Row{1200, 5, 1, 1215}, Row{1200, 5, 0.5, 1200}, Row{1200, 5, 0, 1185},
                           Row{2000, 13, 1, 2015}, Row{2100, 14, 1, 2112}, Row{2100, 14, 0, 2088},
                           Row{2400, 17, 1, 2405}, Row{2401, 17, 1, 2406}, Row{800, 0, 1, 815}}) {
        SessionFixture fixture;
        Session& game = fixture.Game;
        StartGame(fixture, "", "W: c3; B: j8");
        game.Pos.Tree.TreeIndex = 2;
        game.Record.GameRows[1] = {"c3d4", "j8k7", kByPerson, kByComputer, std::to_string(row.Depth)};
        if (row.Depth == 0) game.Record.GameRows[1] = {"", "", "", kByComputer, ""}, game.Pos.Tree.TreeIndex = 0;
        game.Game.RateableGame = true;
        game.Rating = row.Rating;
        const std::string note = UpdateRating(game, row.Score);
        EXPECT_EQ(game.Rating, row.New) << row.Rating << " " << row.Score;
        EXPECT_EQ(note.starts_with("  Great game\n\nYour previous rating was"), row.Score == 1) << note;
        game.Settings.UseRating = 0;
        EXPECT_EQ(UpdateRating(game, 1), "");
    }
}

} // namespace
} // namespace tavlon12
