#include "files/opening_book.h"

#include "rules/families.h"
#include "rules/notation.h"
#include "rules/rule_keys.h"

#include <gtest/gtest.h>

#include <set>

namespace tavlon12 {
namespace {

using Kind = FileFailure::Kind;

const std::string kHeader = "TAVLON12 Version=0.89\r\n";

/// A head that names every rule.
std::string HeadOf(const RuleSet& rules, const std::string& variant) {
    std::string head = "Variant=" + variant + "\r\nSetup=" + PositionString(ClassicStart()) + "\r\n";
    for (const RuleKey& key : RuleKeys()) {
        if (key.Name != "Setup") head += std::string(key.Name) + "=" + RuleValueText(rules, key) + "\r\n";
    }
    return head;
}

struct OpeningBook : testing::Test {
    std::string Section(const std::string& body) { return HeadOf(Rules, "Test") + "start\r\n" + body + "end\r\n"; }

    /// The answer to the game of these keys, in the notation of the book, divided by blanks.
    Outcome<BookAnswer> Ask(const std::string& bytes, std::string_view game, bool wantMove = false) {
        std::vector<SquarePair> moves;
        const Byte notation = Rules.PiecesOnBlack < 2 ? kNumeric : kAlgebraic;
        for (; !game.empty(); game.remove_prefix(std::min<std::size_t>(5, game.size()))) {
            const auto square = [&](std::size_t at) {
                return SquareNumber(UpperCase(game.substr(at, 2)), notation, Rules.PiecesOnBlack);
            };
            moves.push_back({square(0), square(2)});
        }
        const Long first = Rules.BlackStarts == 1 ? kBlack : kWhite;
        const std::string digits = PositionString(Start);
        return AskBook(
            bytes, {Rules, VariantName, digits, moves, moves.size() % 2 == 0 ? first : -first, CanadianBook, wantMove},
            Random);
    }

    RuleSet Rules = RulesOfFamily(Family::American);
    std::string VariantName = "Test";
    BoardCells Start = ClassicStart();
    bool CanadianBook = false;
    std::mt19937 Random{5};
};

std::string Joined(const BookAnswer& answer) {
    std::string text = answer.InBook ? "in" : "out";
    for (const std::string& candidate : answer.BookCandidates) text += " " + candidate;
    return text + (answer.OpeningName.empty() ? "" : " '" + answer.OpeningName + "'");
}

const char* const kTree = "0913b2217w1115b\r\n"
                          "          1014b2925w\r\n"
                          "     2318w\r\n"
                          "\r\n"
                          "1115b2217w\r\n"
                          "names\r\n"
                          "0913'First'\r\n"
                          "0913 2217'Some Name'\r\n"
                          "0913 'Needs a reply'\r\n"
                          "0913 2217 1014'It''s long'\r\n";

TEST_F(OpeningBook, FollowsTheGameThroughTheTree) {
    const std::string bytes = kHeader + Section(kTree);
    struct Row {
        const char *Game, *Answer;
    };
    const Row rows[] = {
        {"", "out 0913 1115"},
        {"0913", "in 2217 2318 'First'"},
        {"0913 2217", "in 1115 1014 'Needs a reply'"},
        {"0913 2217 1014", "in 2925 'It''s long'"},
        {"0913 2217 1014 2925", "in 'It''s long'"},
        {"0913 2318", "in 'Needs a reply'"},
        {"1115 2217", "in"},
        {"1115 2217 0913", "out"}, // the same position by another order
        {"0914", "out"},
        {"0913 2217 1115 2925", "out 'Needs a reply'"},
    };
    for (const Row& row : rows) {
        auto answer = Ask(bytes, row.Game);
        ASSERT_TRUE(answer) << row.Game;
        EXPECT_EQ(Joined(*answer), row.Answer) << row.Game;
        EXPECT_EQ(answer->Move, SquarePair());
    }
    Rules.BlackStarts = 0; // then the fields of Black are not those of the side to move
    EXPECT_EQ(Joined(*Ask(kHeader + Section(kTree), "")), "out");
}

TEST_F(OpeningBook, DrawsAMoveAndNamesThePositionBehindIt) {
    const std::string bytes = kHeader + Section(kTree);
    std::set<std::pair<Long, Long>> drawn;
    for (int i = 0; i < 50; ++i) {
        auto answer = Ask(bytes, "", true);
        ASSERT_TRUE(answer);
        drawn.insert({answer->Move.From, answer->Move.To});
        EXPECT_EQ(answer->OpeningName, answer->Move.From == 173 ? "First" : "");
    }
    EXPECT_EQ(drawn, (std::set<std::pair<Long, Long>>{{173, 156}, {177, 160}})) << "9-13 and 11-15";
    EXPECT_EQ(Ask(bytes, "0913 2318", true)->Move, SquarePair());
    EXPECT_EQ(Ask(kHeader + Section("names\r\n'Start'\r\n"), "", true)->OpeningName, "Start");
}

TEST_F(OpeningBook, ReadsLettersWhereAllSquaresArePlayedOn) {
    Rules = RuleSet();
    Rules.PiecesOnBlack = 2;
    const std::string bytes = kHeader + Section("c3d4w\r\n     la0bb\r\nnames\r\nc3d4'Name'\r\n");
    EXPECT_EQ(Ask(bytes, "", true)->Move, (SquarePair{59, 74}));
    auto answer = Ask(bytes, "c3d4");
    EXPECT_EQ(Joined(*answer), "in la0b 'Name'");
    EXPECT_TRUE(IsBookCandidate(answer->BookCandidates, {180, 0}, 2) == false);
    EXPECT_TRUE(IsBookCandidate(std::vector<std::string>{"c3d4"}, {59, 74}, 2));
    EXPECT_TRUE(IsBookCandidate(std::vector<std::string>{"0913"}, {173, 156}, 1));
    EXPECT_TRUE(IsBookCandidate(std::vector<std::string>{" 913"}, {173, 156}, 1));
    EXPECT_FALSE(IsBookCandidate(std::vector<std::string>{"0914", ""}, {173, 156}, 1));
}

TEST_F(OpeningBook, UsesTheFirstSectionWhoseHeadMatches) {
    const std::string body = "0913b\r\n";
    const auto candidates = [&](const std::string& bytes) { return Ask(bytes, "")->BookCandidates.size(); };
    const std::string good = Section(body);
    ASSERT_EQ(candidates(kHeader + good), 1U);
    const std::string other = "start\r\n0914b\r\n0915b\r\nend\r\n";
    RuleSet changed = Rules;
    changed.NumberMen = 3;
    EXPECT_EQ(candidates(kHeader + HeadOf(changed, "Test") + other + good), 1U);
    EXPECT_EQ(candidates(kHeader + HeadOf(Rules, "Test") + other + good), 2U);
    EXPECT_EQ(candidates(kHeader + HeadOf(Rules, "Other") + other), 0U);
    EXPECT_EQ(candidates(kHeader + "Variant=Test\r\n" + other), 0U) << "a head without movements";
    EXPECT_EQ(candidates(kHeader + good.substr(good.find("Setup"))), 0U) << "a head without a name";
    EXPECT_EQ(candidates(kHeader + HeadOf(Rules, "Test") + "MulJumps=1.5\r\n" + other), 0U);
    EXPECT_EQ(candidates(kHeader + HeadOf(Rules, "Test") + "MulJumps=300\r\n" + other), 0U);
    EXPECT_EQ(candidates(kHeader + HeadOf(Rules, "Test") + "muljumps=0\r\nSetup=x\r\n" + other), 0U);
    for (const RuleKey& key : RuleKeys()) {
        if (key.Name == "Setup") continue;
        const RuleSet kept = Rules;
        ASSERT_TRUE(SetRuleValue(Rules, key, "7"));
        EXPECT_EQ(candidates(kHeader + good), 0U) << key.Name;
        Rules = kept;
    }
    Rules.PromoW[12] = 100;
    EXPECT_EQ(candidates(kHeader + good), 1U) << "only the first 12 promotion squares count";
    Start[29] = kEmpty;
    EXPECT_EQ(candidates(kHeader + good), 0U);
}

TEST_F(OpeningBook, ServesTheClassicStartWithTheColoursExchanged) {
    const std::string bytes =
        kHeader + HeadOf(Rules, "American Checkers 12x12") + "start\r\n" + kTree + "end\r\n" + Section("0101b\r\n");
    Rules = RuleSet();
    VariantName = "Any";
    CanadianBook = true;
    // 9-13 of Black is 64-60 of White
    EXPECT_EQ(MirrorSquare(29), 194);
    auto answer = Ask(bytes, "", true);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->BookCandidates, (std::vector<std::string>{"6460", "6258"})) << "as the list of moves has them";
    const bool first = answer->Move == SquarePair{MirrorSquare(173), MirrorSquare(156)};
    EXPECT_TRUE(first || answer->Move == (SquarePair{MirrorSquare(177), MirrorSquare(160)}));
    EXPECT_EQ(Joined(*Ask(bytes, "6460")), "in 5156 5055 'First'");
    EXPECT_EQ(Joined(*Ask(bytes, "6460 5156")), "in 6258 6359 'Needs a reply'");
    Rules.BlackStarts = 1;
    EXPECT_EQ(Joined(*Ask(bytes, "0913")), "in 2217 2318 'First'") << "as it stands where Black begins";
    Rules.AntiMode = 1;
    EXPECT_EQ(Joined(*Ask(bytes, "0913")), "out");
    EXPECT_EQ(BookPath("Any", true), "books/Canadian Checkers.bok");
    EXPECT_EQ(BookPath("Any", false), "books/Any.bok");
}

TEST_F(OpeningBook, TellsWhatIsWrong) {
    const std::string head = HeadOf(Rules, "Test") + "start\r\n";
    EXPECT_EQ(Ask("", "").Failure().Reason, Kind::NotThisKind);
    EXPECT_EQ(Ask("TAVLON12 Version=0.9\r\n" + head, "").Failure().Reason, Kind::OtherVersion);
    EXPECT_TRUE(Ask(kHeader, ""));
    EXPECT_EQ(Joined(*Ask(kHeader + head + "0913b", "")), "out 0913") << "the end of the file ends a section";
    std::string tree;
    for (int i = 0; i < 11; ++i) tree += "0913b\r\n";
    EXPECT_EQ(Ask(kHeader + Section(tree), "")->BookCandidates.size(), 11U);
    EXPECT_EQ(Ask(kHeader + Section(tree + "0913b\r\n"), "").Failure().Reason, Kind::BadValue);
    auto nameless = Ask(kHeader + head + "names\r\n0914'a'\r\n\r\nend\r\nno name\r\n", "");
    EXPECT_EQ(nameless.Failure().Line, 2 + 49 + 4);
    EXPECT_EQ(Joined(*Ask(kHeader + head + "names\r\n'\r\n", "")), "out");
    EXPECT_EQ(Joined(*Ask(kHeader + head + "names\r\n'a' \r\n", "")), "out 'a''");
    const SquarePair placement[] = {{kOffBoard, 173}};
    const std::string digits = PositionString(Start);
    EXPECT_FALSE(AskBook(kHeader + Section("0909b0909w\r\n"),
                         {Rules, VariantName, digits, placement, kWhite, false, false}, Random)
                     ->InBook);
}

} // namespace
} // namespace tavlon12
