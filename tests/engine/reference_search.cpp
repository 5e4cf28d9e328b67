#include "engine/reference_search.h"

#include "engine/evaluate.h"
#include "engine/fast_evaluate.h"
#include "rules/fast_generators.h"
#include "rules/make_move.h"

#include <cstdlib>
#include <utility>

namespace tavlon12::support {

namespace {

Family FamilyOf(SearchMember member) {
    switch (member) {
    case SearchMember::SearchAmerican:
    case SearchMember::ScoreAmerican: return Family::American;
    case SearchMember::SearchItalian:
    case SearchMember::ScoreItalian: return Family::Italian;
    case SearchMember::SearchGerman:
    case SearchMember::ScoreGerman: return Family::German;
    case SearchMember::SearchRussian:
    case SearchMember::ScoreRussian: return Family::Russian;
    default: return Family::None;
    }
}

bool IsScore(SearchMember member) {
    switch (member) {
    case SearchMember::SearchGeneral:
    case SearchMember::SearchAnti:
    case SearchMember::SearchGoal:
    case SearchMember::SearchAmerican:
    case SearchMember::SearchItalian:
    case SearchMember::SearchGerman:
    case SearchMember::SearchRussian: return false;
    default: return true;
    }
}

Long Floor(SearchMember member) {
    bool general = FamilyOf(member) == Family::None;
    if (!IsScore(member)) return general || member == SearchMember::SearchAmerican ? -4 : -5;
    return member == SearchMember::ScoreGeneral || member == SearchMember::ScoreAnti ? -1 : 0;
}

bool StopsOnTime(SearchMember member) {
    return !IsScore(member) && (FamilyOf(member) == Family::None || member == SearchMember::SearchAmerican);
}

Long NoMoveValue(SearchMember member, Long ply) {
    switch (member) {
    case SearchMember::SearchAnti:
    case SearchMember::ScoreAnti:
    case SearchMember::ScoreAntiAllSquares: return 31999 - ply;
    case SearchMember::SearchGoal: return -(31999 - ply);
    default: return -32000;
    }
}

void Generate(SearchMember member, Position& position, Long mode) {
    Family family = FamilyOf(member);
    if (family == Family::None) {
        GenerateMoves(position, mode);
    } else {
        GenerateFamilyMoves(family, position, mode);
    }
}

void CopyLine(Position& position, Long slot) {
    Long ply = position.Tree.Ply;
    const MoveRecord& move = position.Moves[slot];
    Long kind = (move.Captures.Count > 0 ? 1 : 0) + (move.Promotes == 2 ? 10 : 0);
    position.BestLine[ply][ply] = {move.From, move.To, kind};
    Long column = ply;
    do {
        ++column;
        position.BestLine[ply][column] = position.BestLine[ply + 1][column];
    } while (position.BestLine[ply][column].From != 0);
}

} // namespace

Long ReferenceSearch(Engine& engine, SearchMember member, Long alpha, Long beta, Long depth) {
    Position& position = *engine.Pos;
    SearchState& search = *engine.State;
    const GameTree& tree = position.Tree;
    const SearchOptions& options = search.Options;
    const Long ply = tree.Ply;

    ++search.NodeCount;
    search.Yield();
    if (!IsScore(member) && search.SearchAborted) return 0;
    position.BestLine[ply][ply].From = 0;

    Family family = FamilyOf(member);
    Long value = family == Family::None ? Evaluate(position, search, alpha, beta, tree.SideToMove)
                                        : EvaluateFamily(family, position, search, alpha, beta, tree.SideToMove);
    bool lost = search.LostFlag;
    bool nearWindow = alpha - options.Balance <= value && value <= beta + options.Balance;
    bool forced = ply >= 2 && tree.PlyForcing[ply] == 1 && options.ExtendedSearch == 1 &&
                  ply + depth < search.ExtensionLimit && nearWindow;
    if (member == SearchMember::SearchAnti && depth < 0) forced = false;
    if ((lost && ply + depth < search.ExtensionLimit + 1) || forced) ++depth;

    if (value == 32000 - ply || depth < Floor(member)) return value;
    bool cutsOff = IsScore(member) || options.BruteForce == 0;
    if (cutsOff && value >= beta && (lost ? depth + 1 : depth) <= 1) return value;

    Long best = value;
    Generate(member, position, depth > 0 ? 0 : depth);
    if (depth > 0) {
        best = -32000;
        if (MoveCount(tree) == 0) Generate(member, position, 1);
        if (MoveCount(tree) == 0) best = NoMoveValue(member, ply);
    }
    if (position.StopFlag == 1 || (position.StopFlag == 2 && StopsOnTime(member))) {
        search.SearchAborted = true;
        position.StopFlag = 0;
        return 0;
    }

    bool cut = false;
    Long slot = 0;
    while (!cut && (slot = NextBestMove(position)) >= 0) {
        PerformMove(position, slot);
        Long score = -ReferenceSearch(engine, member, -beta, -alpha, depth - 1);
        TakeBackMove(position, slot);
        if (score > best) best = score;
        if ((score >= beta || score > alpha) && depth > 0) CopyLine(position, slot);
        if (score >= beta && cutsOff) {
            cut = true;
            auto& killers = position.Killers[ply];
            killers[1] = std::exchange(killers[0], SquarePair{position.Moves[slot].From, position.Moves[slot].To});
        } else if (score > alpha) {
            alpha = score;
        }
    }
    return best == 32000 ? 31999 - ply : best;
}

RootSearchResult ReferenceRoot(Engine& engine, const RootSearchInput& input, RootMoveTable& scores) {
    Position& position = *engine.Pos;
    SearchState& search = *engine.State;
    GameTree& tree = position.Tree;
    const Long rootIndex = tree.TreeIndex;
    const Long moves = tree.PlyFirstMove[1];
    scores.fill(RootMove());
    for (Long i = 0; i < moves; ++i) {
        scores[i].From = position.Moves[i].From;
        scores[i].To = position.Moves[i].To;
    }

    RootSearchResult result{input.LastScore, 0};
    Long alpha = -32000;
    Long beta = 32000;
    for (Long iteration = 1; iteration <= input.DepthLimit && !search.SearchAborted; ++iteration) {
        if (iteration > 1) {
            beta = alpha + 100;
            alpha -= 100;
        }
        search.ExtensionLimit = iteration + search.Options.Plys;
        for (Long i = 0; i < moves; ++i) {
            Long score = 0;
            bool deepened = false;
            Long earlier = 0;
            bool newBest = false;
            // Makes, searches and takes back; false when the root loop must be left at once.
            auto searchMove = [&](bool first, bool deepenAlways, Long deepenAbove) {
                PerformMove(position, i);
                if (first) {
                    search.RepeatCount = FindRepetition(position, rootIndex - 1).RepeatCount;
                    if (search.RepeatCount == 0) search.RepeatCount = input.MoveLimitHit ? 1 : 0;
                }
                score = -ReferenceSearch(engine, input.Member, -beta, -alpha, iteration - 1);
                if (search.RepeatCount >= 1) score = 0;
                Long length = 1;
                while (position.BestLine[1][length].From != 0) ++length;
                if ((deepenAlways || score > deepenAbove) && length < 3 && iteration >= 3 && input.DeepensShortLines) {
                    deepened = true;
                    earlier = score;
                    bool open =
                        input.Member == SearchMember::SearchAnti || input.Member == SearchMember::SearchAmerican;
                    score =
                        -ReferenceSearch(engine, input.Member, open ? -32000 : -beta, open ? 32000 : -alpha, iteration);
                    if (search.RepeatCount >= 1) score = 0;
                    if (tree.PlyValue[1] != 0) {
                        search.LazyMargin += 10;
                        if (position.SidewaysManyMen) search.BackRankOn = false;
                    }
                }
                TakeBackMove(position, i);
                return !(std::abs(alpha) < 30001 && search.SearchAborted);
            };

            position.BestLine[0][0].From = 0;
            if (!searchMove(true, i == 0, 32001)) break;
            if (i == 0) {
                if (score >= beta) {
                    alpha = score;
                    beta = 32000;
                    if (!searchMove(false, true, 0)) break;
                }
                if (score < alpha) {
                    alpha = -32000;
                    beta = score;
                    if (!searchMove(false, true, 0)) break;
                }
            } else if (score > alpha) {
                Long old = alpha;
                alpha = score;
                beta = 32000;
                if (!searchMove(false, false, old)) break;
                newBest = score > old;
            }
            if (i == 0 || newBest) {
                alpha = score;
                beta = alpha + 1;
                result = {score, iteration};
                CopyLine(position, i);
                for (Long k = i; k > 0; --k) {
                    std::swap(position.Moves[k], position.Moves[k - 1]);
                    std::swap(scores[k], scores[k - 1]);
                }
            }
            Long kept = newBest ? alpha : score;
            scores[newBest ? 0 : i].Score = deepened ? earlier : kept;
            if (search.SearchAborted) break;
        }
        search.RepeatCount = 0;
    }
    return result;
}

} // namespace tavlon12::support
