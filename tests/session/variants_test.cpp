#include "engine/evaluation_tables.h"
#include "rules/families.h"
#include "rules/rule_keys.h"
#include "session/computer_move.h"
#include "session/load_variant.h"
#include "session/program_files.h"
#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tavlon12 {
namespace {

std::vector<std::string> Names() {
    SessionFixture fixture;
    return VariantNames(fixture.Game);
}

/// Starts a game by a shipped definition, as if it had been chosen.
void StartVariant(SessionFixture& fixture, const std::string& name) {
    Session& game = fixture.Game;
    game.Variant.VariantFile = name;
    ASSERT_FALSE(LoadVariant(game, VariantPath(game))) << name;
    game.Pos.Rules = game.Variant.DefinedRules;
    AdoptMovements(game.Pos);
    ASSERT_TRUE(ResetGame(game)) << name;
}

std::string AllValues(const RuleSet& rules, const BoardCells& start) {
    std::string text = PositionString(start);
    for (const RuleKey& key : RuleKeys())
        if (key.Name != "Setup") text += RuleValueText(rules, key) + ";";
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
    const std::vector<std::string> names = Names();
    EXPECT_GE(names.size(), 100u);
    std::map<std::string, std::string> seen;
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        SessionFixture fixture;
        Session& game = fixture.Game;
        ASSERT_NO_FATAL_FAILURE(StartVariant(fixture, name));
        const std::string shown = fixture.Screen.Texts[Control::Label8];
        EXPECT_EQ(shown, name.ends_with(" 12x12") ? name.substr(0, name.size() - 6) : name) << "not modified";
        const std::string& help = game.Variant.Texts.VariantHelp;
        EXPECT_GT(help.find("\r\n\r\nStart: "), 10u) << "the help begins with what is special";
        const auto [other, isNew] = seen.emplace(AllValues(game.Variant.DefinedRules, game.Pos.InitialBoard), name);
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

class EachVariantSlow : public testing::TestWithParam<std::string> {};
INSTANTIATE_TEST_SUITE_P(Shipped, EachVariantSlow, testing::ValuesIn(Names()),
                         [](const auto& test) { return support::TestName(test.param); });

TEST_P(EachVariantSlow, PlaysWithoutMeetingALimit) {
    SessionFixture fixture;
    ASSERT_NO_FATAL_FAILURE(StartVariant(fixture, GetParam()));
    support::Random random(11);
    const auto start = std::make_unique<Position>(*fixture.Pos);
    for (Long round = 0; round < support::Scaled(100); ++round) {
        *fixture.Pos = *start;
        support::PlayAtRandom(*fixture.Pos, 400, random);
        ASSERT_FALSE(fixture.Pos->Fault.Passed()) << support::DescribePosition(*fixture.Pos);
    }

    constexpr Long kLongestComputerGame = 150;
    SessionFixture computer;
    Session& game = computer.Game;
    ASSERT_NO_FATAL_FAILURE(StartVariant(computer, GetParam()));
    // Where every move is a capture the search follows all of them down.
    const bool capturesAlone = game.Pos.DirTable[PieceType(kMan)][0] == kEndOfSteps;
    support::LimitDepth(computer, capturesAlone ? 1 : support::Scaled(10) > 1 ? 3 : 2);
    game.Settings.Search.ExtendedSearch = capturesAlone ? 0 : 1;
    game.Settings.PlayMode = kComputerComputer;
    game.Busy = true;
    while (!game.Game.GameOver && game.Pos.Tree.TreeIndex < kLongestComputerGame) {
        ThinkComputerMove(game);
        ASSERT_EQ(computer.Screen.Ended, 0);
    }
}

} // namespace
} // namespace tavlon12
