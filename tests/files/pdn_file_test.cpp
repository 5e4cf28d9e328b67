#include "files/pdn_file.h"

#include "files/pdn_moves.h"
#include "rules/families.h"
#include "rules/notation.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavlon12 {
namespace {

using Kind = FileFailure::Kind;

TEST(PdnText, TakesOtherLineEndsOver) {
    const std::string fill(998, 'x');
    struct Row {
        std::string Bytes, Text;
    };
    const Row rows[] = {
        {"a\r\nb\r\nc", "a\r\nb\r\nc"},
        {"a\nb\n", "a\r\nb\r\n"},
        {"a\nb", "a\r\n"},
        {"a", ""},
        {"a\nb\r\nc", "a\r\nb\r\nc"},
        {"a\rb\n", "a\rb\r\n"},
        {"a\r\nb\nc\n", "a\r\nb\nc\n"}, // the first line end decides
        {fill + "\nyz\n", fill + "\r\nyz\r\n"},
        {std::string("ab\0cd\n", 6) + "e\n", ""},
        {std::string("ab\0", 3) + std::string(997, 'c') + "d\ne\n", "abd\r\ne\r\n"},
        {fill + "\n" + std::string(1, '\0') + "y\n", fill + "\r\ny\r\n"},
        {fill + "\n1\r\n", fill + "\r\n1\r\n"}, // a CR behind the first 1000 bytes
    };
    for (const Row& row : rows) EXPECT_EQ(PdnText(row.Bytes), row.Text) << row.Bytes;
}

TEST(PdnText, IsToldByItsFirstTag) {
    for (const char* text : {"[Event \"x\"]", "\r\n\r\n[fen ", "[Ram x", "[Tavlon12 \"\"]"}) {
        EXPECT_TRUE(IsPdnText(text)) << text;
    }
    for (const char* text : {"1. 9-14 *", "", " [Event \"x\"]", "[event \"x\"]", "[Event", "[]", "\n[Event \"x\"]",
                             "[TVersion \"1.00\"]", "[Other \"x\"]"}) {
        EXPECT_FALSE(IsPdnText(text)) << text;
    }
    std::string pairs;
    for (int i = 0; i < 38; ++i) pairs += "\r\n";
    EXPECT_FALSE(IsPdnText(pairs + "[Rem ")) << "behind the first 80 bytes";
}

TEST(PdnFile, ReadsTags) {
    struct Row {
        const char* Line;
        std::string PdnTags::*Field;
        const char* Value;
    };
    const Row rows[] = {
        {"[Event \"a \"b\"]", &PdnTags::Event, "a \"b"}, {"[Event \"x\"] y", &PdnTags::Event, "x\"]"},
        {"[Event  \"x\"]", &PdnTags::Event, ""},         {"[Event \"", &PdnTags::Event, ""},
        {"[Event \"\"]", &PdnTags::Event, ""},           {"[event \"x\"]", &PdnTags::Event, ""},
        {"[Year \"1999\"]", &PdnTags::Date, "1999"},     {"[Setup \"1\"]", &PdnTags::SetUp, "1"},
        {"[fen \"W:.\"]", &PdnTags::Fen, "W:."},         {"[ECO \"A1\"]", &PdnTags::Eco, "A1"},
        {"[Result \"1-0\"]", &PdnTags::Result, "1-0"},   {"[Tavlon12 \"*V* 1\"]", &PdnTags::OwnTag, "*V* 1"},
    };
    for (const Row& row : rows) {
        PdnTags tags;
        ParsePdnTag(row.Line, tags);
        EXPECT_EQ(tags.*row.Field, row.Value) << row.Line;
    }
    PdnTags tags;
    for (const char* line : {"[Comment \"x\"]", "[TVersion \"1\"]", "[", "[\"x\"]", ""}) ParsePdnTag(line, tags);
    EXPECT_EQ(tags, PdnTags());
}

/// The moves of each game of a text, behind its event.
std::vector<std::string> Games(const std::string& bytes) {
    const std::string text = PdnText(bytes);
    PdnReader reader(text);
    std::vector<std::string> games;
    while (auto game = NextPdnGame(reader)) games.push_back(game->Tags.Event + "|" + PdnMoveText(reader, *game));
    return games;
}

TEST(PdnFile, FindsTheGames) {
    using List = std::vector<std::string>;
    EXPECT_EQ(Games("junk\r\n\r\n [Event \"A\"] \r\n\r\n[Site \"x\"]\r\n 1. 9-14 22-\r\n 18  2. 5x 14x\t x  23 *\r\n"
                    "11-15\r\n  \r\n12-16\r\n[Event \"B\"]\r\n*\r\n[Event \"C\"]\r\n"),
              (List{"A|1. 9-14 22-18  2. 5x14x\t x23 * 11-15", "B|*"}));
    EXPECT_EQ(Games("[Event \"A\"]\n\n1. 9-14 *\n[Date \"x\"]\n*\n\nlost"), (List{"A|1. 9-14 *", "|*"}));
    EXPECT_EQ(Games("[Event \"A\"]\n\n1. 9-14\n22-18 *"), List{"A|1. 9-14"}) << "what follows the last LF is lost";
    EXPECT_EQ(Games("[Event \"A\"]\r\n\r\n1. 9-14\r\n22-18 *"), List{"A|1. 9-14 22-18 *"});
    EXPECT_EQ(Games("[Event \"A\"]\r\n\r\n"), List{});
}

// The own tag

TEST(PdnOwnTag, IsWrittenInItsOrder) {
    RuleSet rules;
    rules.WhiteManMovement = "NW;NE ";
    rules.BlackKingMovement = "NW  NE";
    rules.ManContJumpCrowned = 9;
    rules.NumberFriends = -1;
    const std::string value = OwnTagText({"A B", "0123", rules});
    EXPECT_EQ(value, "*A B* 0123 1 1 0 BBDBFBHBJBLB A1C1E1G1I1K1 1 0 0 0 1 0 1 1 1 0 0 0 1 1 0 0 0 0 0 0 0 0 0 0 0 0 0 "
                     "0 -1 0 0 0 0 0 0 0 0 0 NW;NE  NW;NE NW;NE;SE;SW  NW;NE;SE;SW NW;NE;SE;SW  NW  9");
    for (std::size_t size = 0; size < value.size() - 1; ++size) {
        auto cut = ReadOwnTag(value.substr(0, size));
        ASSERT_EQ(static_cast<bool>(cut), size == value.size() - 1 || size > value.rfind("  ") + 1) << size;
    }
    EXPECT_EQ(ReadOwnTag("*A* 0 256" + value.substr(10)).Failure().Reason, Kind::BadValue);
    EXPECT_EQ(ReadOwnTag("A* 0 1").Failure().Reason, Kind::EndTooEarly);
}

TEST(PdnOwnTag, Reads16SquaresOfBlack) {
    RuleSet full;
    for (Long i = 0; i < kPromotionSlots; ++i) full.PromoW[i] = full.PromoB[i] = kFirstSquare + i % 12;
    const auto read = ReadOwnTag(OwnTagText({"V", "0", full}));
    EXPECT_EQ(read->Rules.PromoW, full.PromoW);
    EXPECT_EQ(std::ranges::count(read->Rules.PromoB, kUnusedSlot), 4);
}

TEST(PdnFile, AGameWithoutOwnTagIsAmericanOnTheSquaresInForce) {
    RuleSet inForce;
    EXPECT_EQ(FamilyOfRules(PlainPdnRules(inForce)), Family::American);
    EXPECT_EQ(PlainPdnRules(inForce).LongKings, 0);
    inForce.PromoB = PromotionRow(30);
    EXPECT_EQ(PlainPdnRules(inForce).PromoB, inForce.PromoB);
}

// Positions

TEST(PdnFile, ReadsPositions) {
    struct Row {
        const char* Value;
        Long BlackStarts;
        const char* Pieces; ///< signed values behind their squares, in the order of the squares
    };
    const Row rows[] = {
        {"B:W18,K24:B12,16.", 1, "151=2 162=-1 166=1 179=-1 "},
        {"w:W1:Bk72", 0, "39=-2 184=1 "},
        {"W:W1,K2", 0, "184=1 186=2 "},
        {"W:W:B12", 0, "179=-1 "},
        {"W:B1:W 2, K3.B4", 0, "184=-1 186=1 188=2 "},
        {"W:W1,2:w3", 0, "184=1 186=1 188=-1 "}, // any other letter is Black
        {"W:W0,73,x,K,a1", 0, ""},
        {"B:", 1, ""},
        {"B:W::5", 1, "192=-1 "},
    };
    for (const Row& row : rows) {
        auto fen = ReadFen(row.Value, 1);
        ASSERT_TRUE(fen) << row.Value;
        EXPECT_EQ(fen->BlackStarts, row.BlackStarts) << row.Value;
        std::string pieces;
        for (Long square = 0; square < kBoardCells; ++square) {
            const Long piece = fen->Board[square];
            if (piece == kEmpty || piece == kBorder) continue;
            pieces += std::to_string(square) + "=" + std::to_string(piece) + " ";
        }
        EXPECT_EQ(pieces, row.Pieces) << row.Value;
    }
    EXPECT_EQ(ReadFen("W:W1", 0)->Board[183], kMan);
    for (const char* value : {"", "W", "W::.", "w::.", " W:W1", "X:W1", "?:"}) EXPECT_FALSE(ReadFen(value, 1)) << value;
    EXPECT_TRUE(ReadFen("B::.", 1));
}

// Writing

TEST(PdnFile, WritesAGame) {
    PdnTags tags;
    tags.Event = "Club";
    tags.Date = "11/18/2026";
    tags.Result = "1-0";
    tags.Round = "never written";
    const PdnHalfMove moves[] = {{{172, 160}, false, ""},
                                 {{128, 166}, false, ""},
                                 {{160, 135}, true, "sharp}\r\nor not"},
                                 {{kOffBoard, 29}, false, ""}};
    EXPECT_EQ(PdnGameText(tags, moves, kNumeric),
              "[Event \"Club\"]\r\n[Date \"11/18/2026\"]\r\n[Result \"1-0\"]\r\n\r\n"
              "1. 8-15 25-18 2. {sharp)  or not} 15x29 67 1-0\r\n\r\n");
    tags = {};
    tags.Result = "white {wins.";
    tags.Site = "a\nb";
    tags.Black = "B";
    tags.White = "W";
    tags.OwnTag = "*V*";
    EXPECT_EQ(PdnGameText(tags, std::span(moves).first(1), kAlgebraic),
              "[Date \"\"]\r\n[Black \"B\"]\r\n[White \"W\"]\r\n[Site \"a b\"]\r\n[Result \"white {wins.\"]\r\n"
              "[TVersion \"1.00\"]\r\n[Tavlon12 \"*V*\"]\r\n\r\n1. da-f0 whitewins.\r\n\r\n");
    EXPECT_TRUE(PdnGameText({}, {}, kNumeric).ends_with("[Result \"*\"]\r\n\r\n*\r\n\r\n"));
    EXPECT_EQ(WithGameAdded("x", "g"), "x\r\ng");
    EXPECT_EQ(WithGameAdded("x\n", "g"), "x\ng");
    EXPECT_EQ(WithGameAdded("", "g"), "g");
}

TEST(PdnFile, BreaksALineBehindMoreThan70Characters) {
    std::vector<PdnHalfMove> moves(100, {{29, 43}, false, ""});
    moves[50].CommentBefore = std::string(80, 'c');
    const std::string text = PdnGameText({}, moves, kNumeric);
    const std::vector<std::string_view> lines = SplitLines(std::string_view(text).substr(text.find("1. ")));
    for (std::size_t i = 0; i + 2 < lines.size(); ++i) {
        const bool commented = lines[i].find('c') != std::string_view::npos;
        EXPECT_TRUE(lines[i].size() > 70 && (lines[i].size() <= 80 || commented) && lines[i].ends_with(' '));
    }
    EXPECT_TRUE(lines[lines.size() - 2].ends_with(" *") && lines.back().empty());
}

// Moves

std::string ItemText(const PdnItem& item) {
    switch (item.What) {
    case PdnItem::Kind::Comment: return "{" + item.Text + "}";
    case PdnItem::Kind::Move: return item.Text;
    case PdnItem::Kind::End: return "end";
    case PdnItem::Kind::Error: return "error " + item.Text;
    }
    return "";
}

/// All items of a text, "|" between two.
std::string Items(std::string_view text, PdnMoveSettings settings = {.Notation = kNumeric}) {
    PdnMoveReader reader{text, settings};
    std::string items;
    for (;;) {
        const PdnItem item = NextPdnItem(reader);
        items += ItemText(item);
        if (item.What == PdnItem::Kind::End || item.What == PdnItem::Kind::Error) return items;
        items += "|";
    }
}

TEST(PdnMoves, AreEatenFromTheFront) {
    struct Row {
        const char *Text, *Items;
    };
    const Row rows[] = {
        {"", "end"},
        {"1-0", "end"},
        {"1. 9-14 22-18", " 914|end"},
        {"1. 9-14 22-18 *", " 914|2218|end"},
        {"1.9-14 22-18 2.11-15 *", " 914|2218|1115|end"},
        {"9-14   22-18   11x5 *", " 914|2218|11 5|end"},
        {"1. 5x14x23 5-9 -1 *", " 523| 5 9|1|end"},
        {"{a} {b}{c d} 1. {e} 9-14 {f} 22-18 {g} 1-0", "{a\r\nb\r\nc d}|{e}| 914|{f}|2218|{g}|end"},
        {"1. {e} {f} 9-14 *", "{e}|error "},
        {"1. 9-14{good} 22-18 *", " 914|{good}|2218|end"},
        {"1. 9-14{very good} 22-18 *", " 914|error good}"},
        {"1. 9-14 22-18{good} 2. 11-15 *", " 914|2218|1115|end"},
        {"1. 9-14 {} 22-18 {x}", " 914|{}|2218|{x}|end"},
        {"1... 9-14 *", "error .."},
        {"1. 9-14 1... 22-18 *", " 914|error 1..."},
        {"{no end 9-14 *", "error {no end 9-14 *"},
        {"1. {no end 9-14 *", "error {no end 9-14 *"},
        {"1. 9:14 *", "error 9:14"},
        {"1. 9-14+ 22-18? *", " 914|2218|end"},
        {"1-0 {end of it}", " 1 0|{end of it}|end"},
        {"1. 12 22-18 *", "error 12"},
    };
    for (const Row& row : rows) EXPECT_EQ(Items(row.Text), row.Items) << row.Text;
}

TEST(PdnMoves, AreGivenInTheNotationInForce) {
    struct Row {
        PdnMoveSettings Settings;
        const char *Text, *Items;
    };
    const Row rows[] = {
        {{.Notation = kAlgebraic}, "c3-d4 9-14 5x1 *", "C3D4|EAD0|JBBB|end"},
        {{.Notation = kNumeric}, "bb-aa 9-14 *", " 1 7| 914|end"},
        {{.Notation = kNoLabels}, "bb-aa 9-14 *", " 1 7| 914|end"},
        {{.Notation = kNumeric, .PiecesOnBlack = 0}, "ab-ba *", " 1 7|end"},
        {{.Notation = kNumeric},
         "z9-d4 *",
         "--"
         "50|end"},
        {{.Notation = kNumeric, .OwnTag = true}, "bb-aa 9-14 *", " 1 7| 914|end"},
        {{.Notation = kAlgebraic, .PiecesOnBlack = 2, .OwnTag = true}, "bb-ab 9-14 *", "BBAB| 914|end"},
        {{.Notation = kNumeric, .AsVariant = true}, "1. c3xe5 9-14 *", "C3E5| 914|end"},
        {{.Notation = kAlgebraic, .AsVariant = true}, "1. 9-14 c3-d4 *", " 914|c3d4|end"},
        {{.Notation = kNumeric, .Placements = true}, "1. 5 12 2. 9-14 a0 *", " 5|12| 914|13|end"},
        {{.Notation = kAlgebraic, .Placements = true}, "1. h8 H9 m1 *", "H8|H9|error m1"},
        {{.Notation = kNumeric, .Placements = true}, "1. 73 *", "error 73"},
    };
    for (const Row& row : rows) EXPECT_EQ(Items(row.Text, row.Settings), row.Items) << row.Text;
}

} // namespace
} // namespace tavlon12
