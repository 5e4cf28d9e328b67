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
#include <set>

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
        if (start == 0) {
            EXPECT_EQ(ReadFile(folder.Path / kSettingsFile), DefaultSettingsText());
        }
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
          std::tuple(kRatingFile, "", true), std::tuple(kSettingsFile, "TAVLON120.89\r\n 99999999999 \r\n", false),
          std::tuple(kRatingFile, "99999999999\r\n", false)}) {
        SessionFixture fixture;
        WriteFile(fixture.Folder.Path / name, bytes);
        EXPECT_EQ(StartUp(fixture.Game), starts) << bytes;
        EXPECT_EQ(fixture.Screen.Ended, starts ? 0 : 1);
        EXPECT_EQ(fixture.Game.Rating, name == kRatingFile && starts ? 0 : 1200);
        CloseMainWindow(fixture.Game);
        if (!starts) {
            EXPECT_EQ(ReadFile(fixture.Folder.Path / name), bytes) << "nothing is repaired";
        } else {
            EXPECT_TRUE(ReadSettings(ReadFile(fixture.Folder.Path / kSettingsFile)));
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

        game.ProgramFolder = fixture.Folder.Path / "missing";
        NewGame(game);
        EXPECT_EQ(fixture.Screen.Messages.size(), 1u) << "the moves cannot be written";
        EXPECT_EQ(game.Record.LastMoveIndex, 0);
        EXPECT_EQ(game.Pos.Board, game.Pos.InitialBoard);
    }
}

TEST(StartRules, TheMovesPlayedEndBeforeADraw) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    game.Settings.KingVersusKing = 1;
    game.Pos.Rules.RemoveMen = game.Pos.Rules.DoMoves = 1;
    game.Pos.Rules.NumberMen = 200;
    game.Pos.Rules.NumberMoves = 60;
    for (Long round = 0; round < 20; ++round) {
        fixture.Screen.Now += 1; // the seed of a game
        NewGame(game);
        EXPECT_EQ(game.Game.EndText, "") << round;
    }
}

// PDN of other programs

const std::string kTwoOpenings = "[Event \"A\"]\r\n\r\n1. 44-38 *\r\n\r\n[Event \"B\"]\r\n\r\n1. 44-38 25-31 *\r\n";

TEST(Openings, ServeTheClassicStartAlone) {
    const ProgramFolder folder;
    SessionFixture fixture(folder.Path);
    Session& game = fixture.Game;
    game.Settings.ChooseOpening = 1;
    game.Settings.PlayMode = kPlayerPlayer;
    NewGame(game);
    EXPECT_TRUE(fixture.Screen.Choosers.empty()) << "there is no file";
    WriteFile(folder.Path / "opening.pdn", kTwoOpenings);
    fixture.Screen.Choice = PdnChoice{2, 0};
    NewGame(game);
    ASSERT_EQ(fixture.Screen.Choosers.size(), 1u);
    EXPECT_EQ(fixture.Screen.Choosers[0].Title, " Choose Opening");
    EXPECT_EQ(game.Record.LastMoveIndex, 2);
    EXPECT_EQ(game.Game.GameFileName, "");
    EXPECT_EQ(game.Variant.VariantName, kDefaultVariant);
    game.Settings.BookRandom = 1;
    std::set<Long> drawn;
    for (Long round = 0; round < 12; ++round) {
        fixture.Screen.Now += 1; // the seed of a game
        NewGame(game);
        drawn.insert(game.Record.LastMoveIndex);
    }
    EXPECT_EQ(drawn, (std::set<Long>{1, 2}));
    EXPECT_EQ(fixture.Screen.Choosers.size(), 1u);
    game.Pos.Rules.AntiMode = 1;
    NewGame(game);
    EXPECT_EQ(game.Record.LastMoveIndex, 0);
}

TEST(Pdn, TheWindowLivesWhileGamesAreListed) {
    SessionFixture fixture;
    Session& game = fixture.Game;
    ASSERT_TRUE(ResetGame(game));
    fixture.Screen.File = fixture.Folder.Path / "game.pdn";
    WriteFile(fixture.Screen.File, kTwoOpenings);
    Long yields = 0;
    fixture.Screen.OnYield = [&] { ++yields; };
    OpenCommand(game);
    EXPECT_EQ(yields, 2);
    EXPECT_EQ(fixture.Screen.Choosers.size(), 1u);
    EXPECT_FALSE(fixture.Screen.List(ListId::List2).Lines.empty()) << "nothing was chosen";
    fixture.Screen.OnYield = [&] { CloseRequested(game); };
    OpenCommand(game);
    EXPECT_EQ(fixture.Screen.Choosers.size(), 1u) << "the program ends";
}

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
        {"word", head + "1. 25-31 what 2. 1-2 *\n", "Error in loading PDN file!", ""},
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
        support::Play(game, "4438");
        game.Record.MoveComments[1] = "mine";
        OpenCommand(game);
        EXPECT_FALSE(game.Busy || game.Quitting);
        EXPECT_TRUE(fixture.Screen.List(ListId::List2).Enabled);
        EXPECT_FALSE(fixture.Screen.List(ListId::List2).Lines.empty());
        if (row.Status.empty()) {
            const bool kept = row.Name.starts_with("no ta") || row.Name.starts_with("no ga");
            EXPECT_EQ(game.Record.LastMoveIndex, kept ? 1 : 0);
            EXPECT_EQ(fixture.Screen.Texts[Control::Text1], kept ? "mine" : "");
            EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>{std::string(row.Lines)});
            continue;
        }
        EXPECT_EQ(Texts(fixture.Screen.Messages), std::vector<std::string>());
        std::string lines;
        for (const std::string& line : fixture.Screen.List(ListId::List1).Lines)
            lines += (lines.empty() ? "" : "|") + line;
        EXPECT_EQ(lines, row.Lines);
        EXPECT_EQ(fixture.Screen.Status[1], row.Status);
        EXPECT_EQ(fixture.Screen.Progress, fixture.Screen.ProgressMaximum);
        GoFirst(game);
        EXPECT_EQ(game.Pos.Board, game.Pos.InitialBoard);
        EXPECT_EQ(game.Pos.Tree.PlyValue[0], row.Name == "FEN" ? 200 : 0);
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
    const auto isMarked = [](const std::string& line) { return line.ends_with("b"); };
    std::vector<std::string> marked;
    std::ranges::copy_if(fixture.Screen.List(ListId::List2).Lines, std::back_inserter(marked), isMarked);
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

    // A book of Black's moves serves White, who begins: 25-31 turned by 180 degrees.
    WriteFile(fixture.Folder.Path / "books" / "Canadian Checkers.bok",
              "TAVLON12 Version=0.89\r\nVariant=American Checkers 12x12\r\nstart\r\n2531b4438w\r\nend\r\n");
    NewGame(game);
    EXPECT_TRUE(std::ranges::none_of(fixture.Screen.List(ListId::List2).Lines, isMarked)) << "another variant's";
    game.Settings.CanadianBook = 1;
    NewGame(game);
    ComputeCommand(game);
    EXPECT_EQ(lines, std::vector<std::string>{"   1. k5-l6b"});

    game.Settings.CanadianBook = 0;
    WriteFile(fixture.Folder.Path / "books" / "Canadian Checkers.bok", "no book\r\n");
    for (Long again = 0; again < 2; ++again) ConsultBook(game, false);
    EXPECT_EQ(Texts(fixture.Screen.Messages),
              std::vector<std::string>{"Canadian Checkers.BOK is not an Tavlon12 Book file"});
}

TEST(Rating, FollowsTheScaleOfElo) {
    struct Row {
        Long Rating;
        std::string_view Kinds; ///< of the half-moves: "1" computer, "2" person, "3" file
        Long Depth;
        double Score;
        Long New;
    };
    const Row rows[] = {
        {1200, "212", 5, 1, 1215},    {1200, "212", 5, 0.5, 1200},
        {1200, "212", 5, 0, 1185},    {2000, "212", 13, 1, 2015},
        {2100, "212", 14, 1, 2112},   {2100, "212", 14, 0, 2088},
        {2400, "212", 17, 1, 2405},   {2401, "212", 17, 1, 2406},
        {800, "21", 9, 1, 815},                                    // the last half-move is not counted
        {1200, "333212", 5, 1, 1215}, {1200, "21222", 5, 1, 1200}, // the players have changed
        {1200, "2222", 5, 1, 1200},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Kinds);
        SessionFixture fixture;
        Session& game = fixture.Game;
        StartGame(fixture, "", "W: c3; B: j8");
        for (const char kind : row.Kinds) {
            auto& cells = game.Record.GameRows[RowOfHalfMove(++game.Pos.Tree.TreeIndex)];
            cells[TextColumn(game.Pos.Tree.TreeIndex)] = "c3d4";
            cells[KindColumn(game.Pos.Tree.TreeIndex)] = kind;
            if (kind == '1') cells[kStrengthColumn] = std::to_string(row.Depth);
        }
        game.Game.RateableGame = true;
        game.Rating = static_cast<Integer>(row.Rating);
        const std::string note = UpdateRating(game, row.Score);
        EXPECT_EQ(game.Rating, row.New) << row.Rating << " " << row.Score;
        const bool praised = row.Score == 1 && row.New != row.Rating;
        EXPECT_EQ(note.starts_with("  Great game\n\nYour previous rating was"), praised) << note;
        game.Settings.UseRating = 0;
        EXPECT_EQ(UpdateRating(game, 1), "");
    }
}

} // namespace
} // namespace tavlon12
