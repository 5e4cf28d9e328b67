#include "engine/reference_search.h"

#include "engine/evaluate.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace tavlon12 {
namespace {

using namespace support;

template <typename Table> bool SameBytes(const Table& one, const Table& two) {
    static_assert(std::is_trivially_copyable_v<Table>);
    return std::memcmp(&one, &two, sizeof(Table)) == 0;
}

/// A game some moves old under a random rule set, and a copy of it.
struct Twins {
    Engine Real;
    Engine Reference;

    explicit Twins(Random& random) : Real(NewGame(random)), Reference(std::make_unique<Position>(*Real.Pos)) {
        SetManThresholds(*Real.Pos, *Real.State);
        SearchOptions& options = Real.State->Options;
        options.Plys = static_cast<Byte>(1 + Draw(random, 3));
        options.ExtendedSearch = DrawOneIn(random, 4) ? 0 : 1;
        options.BruteForce = DrawOneIn(random, 5) ? 1 : 0;
        options.Balance = static_cast<Integer>(1 + Draw(random, 300));
        *Reference.State = *Real.State;
        // As large trees are of no use here, both stop at the same node.
        std::uint64_t stopAt = DrawOneIn(random, 2) ? 3000 : static_cast<std::uint64_t>(1 + Draw(random, 1000));
        for (Engine* engine : {&Real, &Reference}) {
            engine->State->Yield = [state = engine->State.get(), position = engine->Pos.get(), stopAt] {
                if (state->NodeCount == stopAt) position->StopFlag = kStopCancel;
            };
        }
    }

    static Engine NewGame(Random& random) {
        std::unique_ptr<Position> position;
        if (DrawOneIn(random, 4)) {
            // The four families: German (the default rules), Russian, American and Italian.
            constexpr std::array families = {
                "", "MaxCapMove=0 | ManContJumpCrowned=1 | ThreeKings=1 | NumberKings=15",
                "MaxCapMove=0 | ManContJump=0 | LongKings=0 | RemovePieces=0 | BlackStarts=1 | "
                "WhiteManMovement=NW;NE NW;NE | BlackManMovement=NW;NE NW;NE",
                "PiecesOnBlack=0 | PromoW=AbCbEbGbIbKb | PromoB=B1D1F1H1J1L1 | MaxCapMoveKings=1 | KingCapMove=1 | "
                "ManCapKing=0 | ManContJump=0 | LongKings=0 | RemovePieces=0 | "
                "WhiteManMovement=NW;NE NW;NE | BlackManMovement=NW;NE NW;NE"};
            position = StartPosition(RulesWith(families[static_cast<std::size_t>(Draw(random, 4))]));
            PlayAtRandom(*position, 10 + Draw(random, 110), random);
        } else if (DrawOneIn(random, 2)) {
            const NamedRules& named =
                NamedRuleSets()[static_cast<std::size_t>(Draw(random, static_cast<Long>(NamedRuleSets().size())))];
            RuleSet rules = RulesWith(named.Changed);
            DrawGoal(rules, random);
            position = StartPosition(rules);
            PlayAtRandom(*position, 10 + Draw(random, 80), random);
        } else {
            RuleSet rules = RandomRules(random);
            DrawGoal(rules, random);
            position = MakePosition(rules, "");
            PlacePiecesAtRandom(*position, random);
            PlayAtRandom(*position, Draw(random, 6), random);
        }
        position->SidewaysManyMen = DrawOneIn(random, 2);
        // What the game has seen, so that some moves repeat it.
        for (Long i = 0; i < position->Tree.TreeIndex; ++i) position->PositionKeys[i] = KeyOf(position->Board);
        return Engine(std::move(position));
    }

    static void DrawGoal(RuleSet& rules, Random& random) {
        rules.AntiMode = DrawOneIn(random, 4) ? 1 : 0;
        rules.KingWin = DrawOneIn(random, 5) ? 1 : 0;
        rules.NumberPieces = DrawOneIn(random, 4) ? 3 : 0;
    }

    void ExpectSame() const {
        const SearchState& one = *Real.State;
        const SearchState& two = *Reference.State;
        ASSERT_EQ(one.NodeCount, two.NodeCount);
        ASSERT_EQ(one.SearchAborted, two.SearchAborted);
        ASSERT_EQ(Real.Pos->StopFlag, Reference.Pos->StopFlag);
        ASSERT_EQ(one.LazyMargin, two.LazyMargin);
        ASSERT_EQ(one.BackRankOn, two.BackRankOn);
        ASSERT_EQ(one.RepeatCount, two.RepeatCount);
        ASSERT_TRUE(SameBytes(Real.Pos->BestLine, Reference.Pos->BestLine));
        ASSERT_TRUE(SameBytes(Real.Pos->Killers, Reference.Pos->Killers));
        ASSERT_TRUE(Real.Pos->PositionKeys == Reference.Pos->PositionKeys);
    }
};

TEST(ReferenceSearch, EveryMemberVisitsTheSameNodes) {
    constexpr Long kGeneralMembers = 7; // those that search under any rules; the others under their family's
    Random random(51);
    std::array<Long, 5> families{};
    for (Long game = 0; game < 300; ++game) {
        Twins twins(random);
        auto member = static_cast<SearchMember>(game % kGeneralMembers);
        Family family = twins.Real.State->Tables.VariantFamily;
        ++families[static_cast<std::size_t>(family)];
        if (family != Family::None) {
            member = game % 2 == 0 ? SearchMemberOf(*twins.Real.Pos, *twins.Real.State)
                                   : ScoreMemberOf(*twins.Real.Pos, *twins.Real.State);
        }
        Long depth = 1 + Draw(random, 3);
        Long alpha = DrawOneIn(random, 2) ? -kWin : Draw(random, 400) - 200;
        Long beta = alpha == -kWin ? kWin : alpha + 1 + Draw(random, 200);
        twins.Real.State->ExtensionLimit = twins.Reference.State->ExtensionLimit = depth + 1;
        SCOPED_TRACE(DescribePosition(*twins.Real.Pos) + "\nmember " + std::to_string(static_cast<int>(member)) +
                     " to depth " + std::to_string(depth));
        ASSERT_EQ(RunSearch(member, *twins.Real.Pos, *twins.Real.State, alpha, beta, depth),
                  ReferenceSearch(twins.Reference, member, alpha, beta, depth));
        twins.ExpectSame();
        if (HasFatalFailure()) return;
    }
    for (Long count : families) EXPECT_GT(count, 8);
}

TEST(ReferenceSearch, TheRootSearchGoesTheSameWay) {
    Random random(52);
    Long reordered = 0;
    Long deepened = 0;
    for (Long game = 0; game < 200; ++game) {
        Twins twins(random);
        if (GenerateLegalMoves(*twins.Real.Pos) == 0) continue;
        GenerateLegalMoves(*twins.Reference.Pos);
        RootSearchInput input;
        input.Member = SearchMemberOf(*twins.Real.Pos, *twins.Real.State);
        input.DepthLimit = 2 + Draw(random, 5);
        input.MoveLimitHit = DrawOneIn(random, 10);
        input.DeepensShortLines = !DrawOneIn(random, 5);
        input.LastScore = 1234;
        const MoveRecord firstMove = twins.Real.Pos->Moves[0];
        const Long margin = twins.Real.State->LazyMargin;
        SCOPED_TRACE(DescribePosition(*twins.Real.Pos) + "\niterations " + std::to_string(input.DepthLimit));

        auto scores = std::make_unique<RootMoveTable>();
        auto expected = std::make_unique<RootMoveTable>();
        RootSearchResult result = SearchRoot(*twins.Real.Pos, *twins.Real.State, input, RootSearchHooks(), *scores);
        RootSearchResult reference = ReferenceRoot(twins.Reference, input, *expected);
        ASSERT_EQ(result.LastScore, reference.LastScore);
        ASSERT_EQ(result.BestDepth, reference.BestDepth);
        ASSERT_TRUE(SameBytes(*scores, *expected));
        for (Long i = 0; i < MoveCount(twins.Real.Pos->Tree); ++i) {
            ASSERT_EQ(MoveText(twins.Real.Pos->Moves[i]), MoveText(twins.Reference.Pos->Moves[i]));
        }
        twins.ExpectSame();
        if (HasFatalFailure()) return;
        const MoveRecord& best = twins.Real.Pos->Moves[0];
        if (best.From != firstMove.From || best.To != firstMove.To) ++reordered;
        if (twins.Real.State->LazyMargin != margin) ++deepened;
    }
    EXPECT_GT(reordered, 50);
    EXPECT_GT(deepened, 10);
}

} // namespace
} // namespace tavlon12
