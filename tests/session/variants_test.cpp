#include "engine/evaluation_tables.h"
#include "rules/families.h"
#include "rules/rule_keys.h"
#include "session/book_lookup.h"
#include "session/load_game.h"
#include "session/load_variant.h"
#include "session/navigation.h"
#include "session/play_modes.h"
#include "session/program_files.h"
#include "session/record_move.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tavlon12 {
namespace {

using namespace support;

/// Starts a game by a shipped definition, as if it had been chosen.
void StartVariant(SessionFixture& fixture, const std::string& name) {
    Session& game = fixture.Game;
    game.Variant.VariantFile = name;
    ASSERT_FALSE(LoadVariant(game, VariantPath(game))) << name;
    game.Pos.Rules = game.Variant.DefinedRules;
    AdoptMovements(game.Pos);
    ASSERT_TRUE(ResetGame(game)) << name;
}

std::string AllValues(const RuleSet& rules) {
    std::string text;
    for (const RuleKey& key : RuleKeys()) text += RuleValueText(rules, key) + ";";
    return text;
}

/// Whether a man of a side can come to a square of promotion by steps and jumps over anything.
bool ManCanPromote(const Position& position, Long side) {
    const Long type = PieceType(side * kMan);
    std::set<Long> reached;
    std::vector<Long> open;
    for (Long square = 0; square < kBoardCells; ++square)
        if (position.Board[square] == side * kMan) open.push_back(square);
    const PromotionList& goals = side == kWhite ? position.Rules.PromoW : position.Rules.PromoB;
    while (!open.empty()) {
        const Long square = open.back();
        open.pop_back();
        if (square < 0 || square >= kBoardCells || position.Board[square] == kBorder || !reached.insert(square).second)
            continue;
        if (std::ranges::find(goals, square) != goals.end()) return true;
        for (Long row : {type, type + 4})
            for (Long step : position.DirTable[row]) {
                if (step == kEndOfSteps) break;
                open.push_back(row < 4 ? square + step : square + 2 * step);
            }
    }
    return false;
}

TEST(Variants, AreGamesOfTheirOwnThatBeginAsTheirFilesSay) {
    EXPECT_GE(ShippedRules().size(), 100u);
    std::map<std::string, std::string> seen;
    for (const auto& [name, rules] : ShippedRules()) {
        SCOPED_TRACE(name);
        SessionFixture fixture;
        Session& game = fixture.Game;
        ASSERT_NO_FATAL_FAILURE(StartVariant(fixture, name));
        const std::string shown = fixture.Screen.Texts[Control::Label8];
        EXPECT_EQ(shown, name.ends_with(" 12x12") ? name.substr(0, name.size() - 6) : name) << "not modified";
        const std::string& help = game.Variant.Texts.VariantHelp;
        EXPECT_GT(help.find("\r\n\r\nStart: "), 10u) << "the help begins with what is special";
        const auto [other, isNew] = seen.emplace(AllValues(rules), name);
        EXPECT_TRUE(isNew) << "same rules as " << other->second;
        for (Long side : {kWhite, kBlack}) {
            game.Pos.Tree.SideToMove = side;
            EXPECT_GT(GenerateLegalMoves(game.Pos), 0);
            const PromotionList& goals = side == kWhite ? game.Pos.Rules.PromoW : game.Pos.Rules.PromoB;
            const bool hasMen = std::ranges::count(game.Pos.Board, side * kMan) > 0;
            if (hasMen && goals[0] != kUnusedSlot) {
                EXPECT_TRUE(ManCanPromote(game.Pos, side)) << side;
            }
        }
    }
}

TEST(Variants, TheFourFamiliesAreRecognised) {
    for (const auto& [name, family] :
         {std::pair("American Checkers 12x12", Family::American), std::pair("Italian Draughts 12x12", Family::Italian),
          std::pair("Canadian Checkers", Family::German), std::pair("Russian Draughts 12x12", Family::Russian)}) {
        SessionFixture fixture;
        ASSERT_NO_FATAL_FAILURE(StartVariant(fixture, name));
        // The draw rule of the Russian game lies beside those of a family.
        EXPECT_EQ(fixture.Search->Tables.VariantFamily, family) << name;
    }
}

TEST(VariantsSlow, RandomGamesStayFarFromTheLimits) {
    Random random(11);
    for (const NamedRules& variant : ShippedRules()) {
        const auto start = StartPosition(variant.Rules);
        for (Long round = 0; round < Scaled(100); ++round) {
            const auto position = std::make_unique<Position>(*start);
            PlayAtRandom(*position, 400, random);
            ASSERT_FALSE(position->Fault.Passed()) << variant.Name << "\n" << DescribePosition(*position);
        }
    }
}

/// Plays every move that the book offers from the position on the board. Counts them.
void WalkBook(Session& game, Long& moves) {
    const BookAnswer answer = ConsultBook(game, false);
    ASSERT_EQ(answer.InBook, moves > 0);
    ASSERT_EQ(answer.OpeningName.empty(), moves == 0);
    for (const std::string& key : answer.BookCandidates) {
        const auto square = [&](std::size_t at) {
            return SquareNumber(key.substr(at, 2), kNumeric, game.Pos.Rules.PiecesOnBlack);
        };
        const MoveAnswer made = InputSquares(game, {square(0), square(2)});
        ASSERT_TRUE(std::holds_alternative<MadeMove>(made)) << key << " is not legal behind " << moves;
        EnterHalfMove(game, std::get<MadeMove>(made), {kByPerson, 0, "2"});
        ++moves;
        ASSERT_NO_FATAL_FAILURE(WalkBook(game, moves)) << key;
        GoToMove(game, 1, true, true);
    }
}

TEST(BooksSlow, OfferOnlyLegalMoves) {
    const std::pair<const char*, Long> books[] = {{"Canadian Checkers", 2000},
                                                  {"American Checkers 12x12", 500},
                                                  {"Italian Draughts 12x12", 500},
                                                  {"Russian Draughts 12x12", 500}};
    for (const auto& [name, least] : books) {
        SCOPED_TRACE(name);
        SessionFixture fixture;
        fixture.Game.Settings.PlayMode = kPlayerPlayer;
        ASSERT_NO_FATAL_FAILURE(StartVariant(fixture, name));
        Long moves = 0;
        WalkBook(fixture.Game, moves);
        ASSERT_GE(moves, least);

        LimitDepth(fixture, 1);
        fixture.Game.Settings.OpeningBook = 1;
        ComputeCommand(fixture.Game);
        ASSERT_EQ(fixture.Screen.List(ListId::List1).Lines.size(), 1u);
        EXPECT_TRUE(fixture.Screen.List(ListId::List1).Lines[0].ends_with("b"));
        EXPECT_TRUE(fixture.Screen.SearchLine.ends_with("Main: Book"));
    }
}

TEST(BooksSlow, EveryOpeningIsLegalInTheVariantsThatItServes) {
    std::set<std::string> served;
    for (const auto& [name, rules] : ShippedRules()) {
        SessionFixture fixture;
        ASSERT_NO_FATAL_FAILURE(StartVariant(fixture, name));
        if (rules.ManCapMoveKing == 1) continue; // men capture from afar: no quiet move is legal for long
        std::size_t openings = 1;
        for (std::size_t opening = 1; opening <= openings; ++opening) {
            fixture.Screen.Choice = PdnChoice{static_cast<Long>(opening), 0};
            LoadGame(fixture.Game, LoadSource::Opening);
            if (fixture.Screen.Choosers.empty()) break; // the file does not serve this start
            served.insert(name);
            const auto& rows = fixture.Screen.Choosers.back().Rows;
            openings = rows.size();
            EXPECT_GE(openings, 40u);
            const std::string& moves = rows[opening - 1][0];
            EXPECT_EQ(fixture.Game.Record.LastMoveIndex, 1 + std::ranges::count(moves, ' ')) << name << ": " << moves;
        }
        EXPECT_TRUE(fixture.Screen.Messages.empty()) << name << ": " << fixture.Screen.Messages[0].Text;
    }
    EXPECT_GE(served.size(), 20u);
}

TEST(LoadVariant, TakesRulesTextsAndStartOverOrNothing) {
    ProgramFolder folder;
    SessionFixture fixture(folder.Path);
    Position& position = *fixture.Pos;
    PlaceClassicStart(position);
    fixture.Game.Variant.VariantFile = "Test";
    fixture.Game.Variant.VariantName = "before";
    const std::filesystem::path variants = folder.Path / "variants";
    const BoardCells before = position.Board;
    WriteFile(variants / "TEST.ini", "Title\r\nMulJumps=0\r\nSetup=3001\r\nHelp=x\r\n");
    const auto failure = LoadVariant(fixture.Game, VariantPath(fixture.Game));
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Message(), (variants / "TEST.ini").string() + ": ends too early: no line \"END\"");
    EXPECT_EQ(position.Board, before);
    EXPECT_EQ(fixture.Game.Variant.DefinedRules, RuleSet());
    EXPECT_EQ(fixture.Game.Variant.VariantName, "before");
    EXPECT_EQ(fixture.Game.Variant.Texts.VariantHelp, "");

    WriteFile(variants / "TEST.ini", "Title\r\nMulJumps=0\r\nSetup=3001\r\nBlackStarts=0\r\nHelp=x\r\nEND\r\n");
    ASSERT_FALSE(LoadVariant(fixture.Game, VariantPath(fixture.Game)));
    EXPECT_EQ(PositionString(position.Board), "3001" + std::string(140, '0'));
    EXPECT_EQ(position.InitialBoard, position.Board);
    EXPECT_EQ(position.WhiteMen, 1);
    EXPECT_EQ(position.PieceSum, 3);
    EXPECT_EQ(position.Tree.PlyValue[0], 300) << "White to move, three men ahead";
    EXPECT_EQ(position.Tree.GameValue[0], 300);
    EXPECT_EQ(position.Rules.MulJumps, 1) << "the rules in force are not the file's business";
    EXPECT_EQ(fixture.Game.Variant.DefinedRules.MulJumps, 0);
    EXPECT_EQ(fixture.Game.Variant.VariantName, "Test");
    EXPECT_EQ(fixture.Game.Variant.Texts.VariantHelp, "x");
}

} // namespace
} // namespace tavlon12
