#include "files/game_file.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using Kind = FileFailure::Kind;
using enum GameFileLine::Kind;

/// The head of the default rules from `MulJumps` on, "|" for each line end.
const char* const kDefaultRuleLines =
    "MulJumps=1|MaxCapMove=1|BlackStarts=0|PromoW=bbdbfbhbjblb|PromoB=a1c1e1g1i1k1|PiecesOnBlack=1|AntiMode=0|"
    "WinAtPromo=0|MaxCapMoveKings=0|ManCapKing=1|KingCapMove=0|ManContJump=1|LongKings=1|RemovePieces=1|"
    "KingFirst=0|ManCapMoveKing=0|KingWin=0|MaxCapMoveK=1|CapRequired=1|NoLegalDraw=0|RemoveMen=0|NumberMen=0|"
    "DoMoves=0|NumberMoves=0|LastCap=0|ManKing=0|KingMan=0|ChangeSide=0|ThreeKings=0|NumberKings=0|CapReverse=0|"
    "RndColor=0|JumpFriend=0|NumberFriends=0|TwoKings=0|NumberKings2=0|NumberPieces=0|canContract=0|"
    "ContractNumber=0|ContractW1=0|ContractW2=0|ContractB1=0|ContractB2=0|UseClassic=1|Offset=|NW;NE NW;NE;SE;SW|"
    "NW;NE NW;NE;SE;SW|NW;NE;SE;SW NW;NE;SE;SW|NW;NE;SE;SW NW;NE;SE;SW|ManContJumpCrowned=0|PlayerName=Ann B|"
    "START|";

std::string WithLineEnds(const std::string& text) {
    std::string lines;
    for (char c : text) lines += c == '|' ? "\r\n" : std::string(1, c);
    return lines;
}

/// A file with these lines in its head, divided by ";" and read over the defaults.
Outcome<GameFile> ReadHead(std::string lines, const GameHead& kept = {}) {
    for (char& c : lines) c = c == ';' ? '\n' : c;
    return ReadGameFile("TAVLON12 Version=0.89\n" + lines + "\nSTART\n", kept);
}

TEST(GameFile, IsWrittenInItsOrder) {
    GameHead head;
    head.UserName = "Ann\nB";
    head.StartDigits = std::string(144, '0');
    head.BookOpen = 0;
    const GameFileLine lines[] = {{Comment, "", 0},
                                  {Comment, "one\r\ntwo\n{three}", 0},
                                  {Move, "c3d4", 0},
                                  {Move, "15 9", 1},
                                  {Comment, "end", 2}};
    EXPECT_EQ(GameFileText(head, lines), WithLineEnds("TAVLON12 Version=0.89|Variant=Canadian Checkers|Setup=" +
                                                      head.StartDigits + "|Book=0|Notation=0|" + kDefaultRuleLines +
                                                      "{one\xFF\xFFtwo\xFF\xFF{three}}|c3d4|15 9|{end}|"));
    head.Rules.PromoW[1] = kUnusedSlot;
    const std::string all = GameFileText(head, {}, PromotionSlots::All);
    EXPECT_NE(all.find("PromoW=BB--FBHBJBLB----------------------------\r\n"), std::string::npos);
    EXPECT_EQ(ReadGameFile(all, {})->Head.Rules.PromoW, head.Rules.PromoW) << "slots keep their places";
}

TEST(GameFile, TellsWhatIsWrong) {
    const std::string good = GameFileText({}, {});
    const std::string start = "TAVLON12 Version=0.89\r\n";
    struct Row {
        std::string Bytes;
        Kind Reason;
        Long Line;
    };
    const Row rows[] = {
        {"", Kind::NotThisKind, 1},
        {" " + good, Kind::NotThisKind, 1},
        {"TAVLON12 version=0.89\r\nSTART\r\n", Kind::NotThisKind, 1},
        {"TAVLON12 Version=0.88\r\nSTART\r\n", Kind::OtherVersion, 1},
        {"TAVLON12 Version=0.90\r\nSTART\r\n", Kind::OtherVersion, 1},
        {"TAVLON12 Version=\r\n0.89\r\nSTART\r\n", Kind::OtherVersion, 1},
        {start, Kind::EndTooEarly, 0},
        {start + "start\r\nSTART \r\n", Kind::EndTooEarly, 0},
        {start + "Offset=\r\n\r\n\r\n\r\nSTART\r\n", Kind::EndTooEarly, 0}, // START is the fourth movement
        {start + "AntiMode=1\r\nMulJumps=256\r\nSTART\r\n", Kind::BadValue, 3},
        {start + "PiecesOnBlack=-1\r\nPromoW=a1\r\nSTART\r\n", Kind::BadValue, 2},
        {start + "Book=3e9\r\nSTART\r\n", Kind::BadValue, 2},
        {start + "Notation=300\r\nSTART\r\n", Kind::BadValue, 2},
    };
    for (const Row& row : rows) {
        auto game = ReadGameFile(row.Bytes, {});
        ASSERT_FALSE(game) << row.Bytes;
        EXPECT_EQ(game.Failure().Reason, row.Reason) << row.Bytes;
        EXPECT_EQ(game.Failure().Line, row.Line) << row.Bytes;
    }
    EXPECT_TRUE(ReadGameFile("TAVLON12 Version= 0.890 x\nSTART", {}));
    for (std::size_t size = 0; size < good.size() - 2; ++size) {
        ASSERT_FALSE(ReadGameFile(std::string_view(good).substr(0, size), {})) << size;
    }
}

TEST(GameFile, KeepsWhatItsHeadDoesNotName) {
    GameHead kept;
    kept.VariantFile = "Other";
    kept.StartDigits = "1";
    kept.UserName = "Bob";
    kept.Rules.NumberMen = 7;
    auto game = ReadHead("mulJumps=0; MulJumps=0;MulJumps =0;MulJumps;WhiteManMovement=N N;x;;AntiMode=1 yes", kept);
    ASSERT_TRUE(game);
    kept.Rules.AntiMode = 1;
    EXPECT_EQ(game->Head, kept);
    EXPECT_EQ(game->Keys, std::vector<std::string_view>{"AntiMode"});
    EXPECT_FALSE(game->AtUseClassic);
    EXPECT_TRUE(HasKey(*ReadHead("PromoB="), "PromoB"));
    EXPECT_EQ(ReadHead("Setup=normal", kept)->Head.StartDigits, "1");
}

TEST(GameFile, ReadsSquaresAsItsHeadCountsThem) {
    struct Row {
        const char* Lines;
        Long FirstW, SecondW;
    };
    const Row rows[] = {
        {"Notation=0;PromoW=BBdB", 184, 186},
        {"Notation=1;PromoW= 1 3", 184, 188},
        {"Notation=2;PromoW= 110", 184, 175},
        {"Notation=1;PromoW= 1 3;PiecesOnBlack=0", 183, 187},
        {"PiecesOnBlack=2;Notation=2;PromoW=abbb", 183, 184},
        {"PiecesOnBlack=2;Notation=1;PromoW= 1 2", 184, 186},
        {"PromoW= 1 2;Notation=1", kUnusedSlot, kUnusedSlot},
        {"Notation=0;PromoW=--m1bb", kUnusedSlot, kUnusedSlot},
    };
    for (const Row& row : rows) {
        auto game = ReadHead(row.Lines);
        ASSERT_TRUE(game) << row.Lines;
        EXPECT_EQ(game->Head.Rules.PromoW[0], row.FirstW) << row.Lines;
        EXPECT_EQ(game->Head.Rules.PromoW[1], row.SecondW) << row.Lines;
    }
}

TEST(GameFile, TellsWhatStoodWhereTheDefinitionIsLoaded) {
    auto game = ReadHead("Variant=First;BlackStarts=1;UseClassic=0;Variant=Second;Setup=12");
    ASSERT_TRUE(game && game->AtUseClassic);
    EXPECT_EQ(game->AtUseClassic->VariantFile, "First");
    EXPECT_EQ(game->AtUseClassic->UseClassic, 0);
    EXPECT_EQ(game->AtUseClassic->Rules.BlackStarts, 1);
    EXPECT_EQ(game->AtUseClassic->StartDigits, "");
    EXPECT_EQ(game->Head.StartDigits, "12");
}

TEST(GameFile, ReadsItsMovesUpToAnEmptyLine) {
    struct Row {
        const char* Body;
        std::vector<GameFileLine> Lines;
        Long Count;
    };
    const Row rows[] = {
        {"", {}, 0},
        {"c3d4", {{Move, "c3d4", 0}}, 1},
        {"c3d4\r\n\r\ne3f4\r\n", {{Move, "c3d4", 0}}, 3},
        {"{a}\n{b}\nh8\n", {{Comment, "a", 0}, {Comment, "b", 0}, {Move, "h8", 0}}, 3},
        {" \n15 9\n{", {{Move, " ", 0}, {Move, "15 9", 1}, {Comment, "", 2}}, 3},
        {"{no end\n{a\xFF\xFF\xFF\xFF\xFF}\n", {{Comment, "no en", 0}, {Comment, "a\r\n\r\n\xFF", 0}}, 2},
    };
    for (const Row& row : rows) {
        const std::string bytes = std::string("TAVLON12 Version=0.89\nSTART\n") + row.Body;
        EXPECT_EQ(ReadGameFile(bytes, {})->Lines, row.Lines) << row.Body;
        EXPECT_EQ(GameLineCount(bytes), row.Count) << row.Body;
    }
}

} // namespace
} // namespace tavlon12
