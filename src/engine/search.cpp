#include "engine/search.h"

#include "engine/evaluate.h"
#include "engine/fast_evaluate.h"
#include "engine/position_memory.h"
#include "rules/fast_generators.h"
#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "rules/register_moves.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <iterator>
#include <utility>

namespace tavlon12 {

// All members of the family are one negamax search with alpha-beta. What tells them apart stands in a table that is
// read at compile time, so that each member becomes a procedure of its own with its generator and evaluation called
// directly, and nothing is chosen at a node.
//
// Below depth 0 only captures are searched, down to the member's floor: there the side to move may also stand pat on
// the static value. Captures and promotions near the window, and positions lost by the pieces, are searched a ply
// deeper.

namespace {

/// The value of a node where the side to move has no move, at a depth above 0.
enum class NoMove {
    Loses,      ///< -32000, which the parent turns into a win that shrinks with the distance
    LosesByPly, ///< -(31999 - ply)
    Wins,       ///< 31999 - ply
};

using enum SearchMember;
using enum NoMove;

struct MemberTraits {
    SearchMember Member;
    Family Moves;        ///< whose generator and evaluation it calls
    Long DepthFloor;     ///< the lowest depth at which captures are still searched
    bool UnwindsAtEntry; ///< returns at once after any abort, otherwise only when a limit has been passed
    bool StopsOnTime;    ///< stops on any stop flag, not only on a cancel
    bool KnowsBruteForce;
    bool ExtendsBelowZero; ///< extends captures and promotions also below depth 0
    NoMove WithoutMoves;
    bool DeepensWithFullWindow;
};

// clang-format off
constexpr MemberTraits kMembers[] = {
    // member                family           floor entry  time   brute  below0 no move     window
    {SearchGeneral,          Family::None,     -4,  true,  true,  true,  true,  Loses,      false},
    {SearchAnti,             Family::None,     -4,  true,  true,  true,  false, Wins,       true},
    {SearchGoal,             Family::None,     -4,  true,  true,  true,  true,  LosesByPly, false},
    {ScoreGeneral,           Family::None,     -1,  false, false, false, true,  Loses,      false},
    {ScoreGeneralAllSquares, Family::None,      0,  false, false, false, true,  Loses,      false},
    {ScoreAnti,              Family::None,     -1,  false, false, false, true,  Wins,       false},
    {ScoreAntiAllSquares,    Family::None,      0,  false, false, false, true,  Wins,       false},
    {SearchAmerican,         Family::American, -4, true,  true,  true,  true,  Loses,      true},
    {SearchItalian,          Family::Italian,  -5, true,  false, true,  true,  Loses,      false},
    {SearchGerman,           Family::German,   -5, true,  false, true,  true,  Loses,      false},
    {SearchRussian,          Family::Russian,  -5, true,  false, true,  true,  Loses,      false},
    {ScoreAmerican,          Family::American,  0, false, false, false, true,  Loses,      false},
    {ScoreItalian,           Family::Italian,   0, false, false, false, true,  Loses,      false},
    {ScoreGerman,            Family::German,    0, false, false, false, true,  Loses,      false},
    {ScoreRussian,           Family::Russian,   0, false, false, false, true,  Loses,      false},
};
// clang-format on

constexpr const MemberTraits& TraitsOf(SearchMember member) {
    return kMembers[static_cast<std::size_t>(member)];
}

constexpr bool MembersStandInOrder() {
    for (std::size_t i = 0; i < std::size(kMembers); ++i) {
        if (kMembers[i].Member != static_cast<SearchMember>(i)) return false;
    }
    return true;
}
static_assert(MembersStandInOrder());

template <Family family> void GenerateAll(Position& position) {
    if constexpr (family == Family::None) {
        GenerateLegalMoves(position);
    } else {
        GenerateLegalFamilyMoves<family>(position);
    }
}

/// Moves at a depth of 0 or less, which is the generator's mode.
template <Family family> void GenerateCaptures(Position& position, Long depth) {
    if constexpr (family == Family::None) {
        GenerateMoves(position, depth);
    } else {
        GenerateFamilyMoves<family>(position, depth);
    }
}

template <Family family>
Long StaticValue(Position& position, SearchState& search, Long alpha, Long beta, bool wholeScore) {
    Long side = position.Tree.SideToMove;
    if constexpr (family == Family::None) {
        return Evaluate(position, search, alpha, beta, side, wholeScore);
    } else {
        return EvaluateFamily<family>(position, search, alpha, beta, side, wholeScore);
    }
}

template <NoMove kind> Long ValueWithoutMoves(Long ply) {
    if constexpr (kind == Loses) return -kWin;
    Long distant = kWin - 1 - ply;
    return kind == Wins ? distant : -distant;
}

/// Whether the node is searched one ply deeper than its depth says.
template <SearchMember member>
bool Extends(const Position& position, const SearchState& search, Long value, Long alpha, Long beta, Long depth) {
    const GameTree& tree = position.Tree;
    const SearchOptions& options = search.Options;
    Long reach = tree.Ply + depth;
    if (search.LostFlag && reach < search.ExtensionLimit + 1) return true;
    if (!TraitsOf(member).ExtendsBelowZero && depth < 0) return false;
    return tree.PlyForcing[tree.Ply] == 1 && options.ExtendedSearch == 1 && tree.Ply >= 2 &&
           reach < search.ExtensionLimit && value >= alpha - options.Balance && value <= beta + options.Balance;
}

/// Notes a cancel that is to wait. The flag is free again for what a generator has to say.
void DeferCancel(Position& position, SearchState& search) {
    const bool byUser = position.StopFlag == kStopCancel && !position.Fault.Passed();
    if (search.Cancel != CancelMode::Waits || !byUser) return;
    search.Cancel = CancelMode::HasCome;
    position.StopFlag = 0;
}

template <SearchMember member> Long Search(Position& position, SearchState& search, Long alpha, Long beta, Long depth) {
    constexpr const MemberTraits& traits = TraitsOf(member);
    GameTree& tree = position.Tree;
    const Long ply = tree.Ply;
    assert(ply >= 0 && ply <= kMaxPly);
    assert(tree.PlyFirstMove[ply] >= 0 && tree.PlyFirstMove[ply] < kMoveSlots);
    assert(alpha <= beta || search.Options.BruteForce != 0);
    assert(traits.Moves == Family::None || traits.Moves == search.Tables.VariantFamily);

    // 1. Let events be processed
    ++search.NodeCount;
    search.Yield();
    if (position.StopFlag != 0) DeferCancel(position, search);
    if (search.SearchAborted && (traits.UnwindsAtEntry || search.Unwind || position.Fault.Passed())) return 0;

    // 2. No best line yet
    position.BestLine[ply][ply].From = 0;

    // 3. Static value and extension. Above depth 1 the value serves the extension of a forcing move alone; otherwise it
    // is enough to know whether the position is won.
    const bool mayExtend = tree.PlyForcing[ply] == 1 && search.Options.ExtendedSearch == 1 && ply >= 2;
    const bool wholeScore = depth <= 1 || mayExtend || ply >= kMaxPly;
    const Long value = StaticValue<traits.Moves>(position, search, alpha, beta, wholeScore);
    if (Extends<member>(position, search, value, alpha, beta, depth)) ++depth;

    // 4. A won position, or the end of the search. The last ply of the stacks ends it too: it lies beyond any depth
    // that the limits allow.
    if (value == kWin - ply || depth < traits.DepthFloor || ply >= kMaxPly) return value;

    // 5. Stand pat
    const bool bruteForce = traits.KnowsBruteForce && search.Options.BruteForce != 0;
    if (value >= beta && depth + (search.LostFlag ? 1 : 0) <= 1 && !bruteForce) return value;

    // 6. Moves: all of them above depth 0, captures alone below
    Long best;
    if (depth > 0) {
        GenerateAll<traits.Moves>(position);
        best = -kWin;
    } else {
        GenerateCaptures<traits.Moves>(position, depth);
        best = value;
    }

    // 7. No move
    if (MoveCount(tree) == 0 && depth > 0) best = ValueWithoutMoves<traits.WithoutMoves>(ply);

    // 8. Stopped from outside, by a full move list or by a limit of the generator
    if (traits.StopsOnTime ? position.StopFlag != 0 : position.StopFlag != 0 && position.StopFlag != kStopTime) {
        search.SearchAborted = true;
        position.StopFlag = 0;
        return 0;
    }

    // 9. The moves, the best of them first
    MovePicker moves(position);
    for (Long slot = moves.Next(); slot >= 0; slot = moves.Next()) {
        PerformMove(position, slot);
        const Long score = -Search<member>(position, search, -beta, -alpha, depth - 1);
        TakeBackMove(position, slot);
        assert(tree.Ply == ply && slot < tree.PlyFirstMove[ply + 1]);

        if (score > best) best = score;
        if (score >= beta) {
            if (depth > 0) StoreBestLine(position, slot);
            if (!bruteForce) {
                StoreKiller(position, slot);
                break;
            }
        }
        if (score > alpha) {
            if (depth > 0) StoreBestLine(position, slot);
            alpha = score;
        }
    }

    // 10. A win by the opponent's lack of moves counts its distance from here on
    return best == kWin ? kWin - 1 - ply : best;
}

using SearchProcedure = Long (*)(Position&, SearchState&, Long, Long, Long);

template <std::size_t... members>
constexpr std::array<SearchProcedure, sizeof...(members)> ProceduresOf(std::index_sequence<members...>) {
    return {&Search<static_cast<SearchMember>(members)>...};
}

constexpr auto kProcedures = ProceduresOf(std::make_index_sequence<std::size(kMembers)>());

/// A family's member that chooses moves, or the one that only scores.
SearchMember FamilyMember(Family family, bool choosesMoves) {
    const auto row = std::ranges::find_if(kMembers, [&](const MemberTraits& traits) {
        return traits.Moves == family && traits.UnwindsAtEntry == choosesMoves;
    });
    return row->Member;
}

constexpr Long kUserMoveDepth = 3;
constexpr Long kFamilyUserMoveDepth = 1;

} // namespace

SearchMember SearchMemberOf(const Position& position, const SearchState& search) {
    if (search.Tables.VariantFamily != Family::None) return FamilyMember(search.Tables.VariantFamily, true);
    const RuleSet& rules = position.Rules;
    if (rules.AntiMode == 1) return SearchAnti;
    return rules.WinAtPromo != 1 && rules.KingWin != 1 ? SearchGeneral : SearchGoal;
}

SearchMember ScoreMemberOf(const Position& position, const SearchState& search) {
    if (search.Tables.VariantFamily != Family::None) return FamilyMember(search.Tables.VariantFamily, false);
    bool allSquares = position.Rules.PiecesOnBlack == 2;
    if (position.Rules.AntiMode == 1) return allSquares ? ScoreAntiAllSquares : ScoreAnti;
    return allSquares ? ScoreGeneralAllSquares : ScoreGeneral;
}

bool DeepensWithFullWindow(SearchMember member) {
    return TraitsOf(member).DeepensWithFullWindow;
}

Long RunSearch(SearchMember member, Position& position, SearchState& search, Long alpha, Long beta, Long depth) {
    return kProcedures[static_cast<std::size_t>(member)](position, search, alpha, beta, depth);
}

DepthScore ScoreUserMove(Position& position, SearchState& search) {
    bool family = search.Tables.VariantFamily != Family::None;
    return ScoreAtDepth(position, search, family ? kFamilyUserMoveDepth : kUserMoveDepth);
}

DepthScore ScoreAtDepth(Position& position, SearchState& search, Long depth) {
    bool family = search.Tables.VariantFamily != Family::None;
    if (!family && position.Rules.PiecesOnBlack == 2) --depth;
    const Lookahead lookahead(position);
    const Long score = -RunSearch(ScoreMemberOf(position, search), position, search, -kWin, kWin, depth);
    if (!search.Unwind && !lookahead.LimitPassed()) return {score};
    const bool stopped = std::exchange(search.Unwind, false);
    search.SearchAborted = false;
    position.StopFlag = 0;
    return {-EvaluateRoot(position, search, position.Tree.SideToMove).Value, stopped};
}

} // namespace tavlon12
