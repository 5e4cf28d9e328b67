#include "engine/root_search.h"

#include "engine/evaluate.h"
#include "engine/position_memory.h"
#include "rules/make_move.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <limits>
#include <optional>

namespace tavlon12 {

// How the root search works.
//
// The position is searched again and again, each iteration one ply deeper, until the limit of depth or time is reached.
// What one iteration learns makes the next one quick: the best move is searched first, and the best line found leads
// the order of moves at every ply.
//
// A search answers fastest when it is only asked whether a score lies in a narrow window (alpha, beta). So from the
// second iteration on the first move gets a window of 100 on either side of the last score, the aspiration window. When
// its score falls outside, the move is searched again, with the window opened on that side.
//
// After that the first move's score is the one to beat, and a later move is only asked whether it beats it: the window
// is alpha to alpha + 1, in which no exact score fits (a null window). Nearly always the answer is no, and cheap. When
// it is yes the move is searched again, with the window opened upwards, and if it is still better it becomes the new
// best: it goes to the front of the list, so that the next iteration begins with it.
//
// Two more things happen at a root move. One that repeats a position of the game is worth a draw. And where the line
// below a best move is suspiciously short, because a narrow window was left at once, the move is looked at one ply
// deeper.
//
// Time is looked at only between root moves. When it is up, the iteration may still be finished if the best score has
// fallen by more than half a man since the last one: then a better move may be yet to come. A cancel waits for the
// first iteration, so that no move is played unseen.

namespace {

constexpr Long kAspirationMargin = 100;
constexpr Long kMateLike = 30001; // an alpha at or beyond this comes from a forced end, or is the open window
constexpr Long kFallingScore = 50;
constexpr Long kDeepenFromIteration = 3;
constexpr Long kShortLine = 3; // a best line with fewer moves, the root move included, is short
constexpr Long kLazyMarginGrowth = 10;
constexpr Long kDeepenAlways = std::numeric_limits<Long>::min();
constexpr Long kSecondsPerDay = 86400;

enum class Flow { GoesOn, Aborted };

/// A root search under way.
struct RootSearch {
    Position& Pos;
    SearchState& Search;
    const RootSearchInput& Input;
    const RootSearchHooks& Hooks;
    RootMoveTable& Scores;
    RootSearchResult Result;
    const Long FirstSlot;
    const Long MoveTotal;
    const Long RootTreeIndex;

    Long Iteration = 0;
    Long Alpha = -kWin;
    Long Beta = kWin;
    Long PrevScore = 0;                 ///< of the best move at the end of the last iteration
    std::optional<Long> EarlierScore{}; ///< of the root move under search, before its short line was deepened

    RootSearch(Position& position, SearchState& search, const RootSearchInput& input, const RootSearchHooks& hooks,
               RootMoveTable& moves)
        : Pos(position), Search(search), Input(input), Hooks(hooks), Scores(moves), Result{input.LastScore, 0},
          FirstSlot(position.Tree.PlyFirstMove[0]), MoveTotal(position.Tree.PlyFirstMove[1] - FirstSlot),
          RootTreeIndex(position.Tree.TreeIndex) {}

    void FillScores();
    void Deepen();
    void Close();
    void SetWindow();
    void SearchMoves();
    Flow SearchMoveAt(Long index);
    Flow SearchFirst(Long& score);
    Flow SearchLater(Long index, Long& score, bool& newBest);
    Flow SearchAgain(Long index, Long& score, Long deepensAbove);
    void NoteRepetition();
    void SearchRootMove(Long& score);
    Long ScoreOf(const DepthScore& scored);
    Flow ScoreFirst(Long& score);
    void DeepenShortLine(Long index, Long& score);
    void RecordBest(Long index, Long score);
    void MoveToFront(Long index);
    void ShowProgress();

    /// After an abort the score means nothing. Where a forced end is in sight a stop from outside still lets it count.
    Flow AfterTakeBack() const {
        const bool dropped = std::abs(Alpha) < kMateLike || Pos.Fault.Passed();
        return Aborted() && dropped ? Flow::Aborted : Flow::GoesOn;
    }
    bool Aborted() const { return Search.SearchAborted && Input.EndsOnAbort; }
    Long Elapsed() const { return ElapsedSeconds(Input.StartTime, Hooks.Seconds()); }
    bool TimeIsUp() const { return Input.StopsByTime && Elapsed() >= Input.TimeLimit; }
    /// Whether a cancel has come that no node has taken up.
    bool CancelIsDue() const {
        return Search.Cancel == CancelMode::HasCome || (Pos.StopFlag == kStopCancel && !Pos.Fault.Passed());
    }
    /// A cancel that has come before stays a cancel.
    void StopOnTime() {
        if (!Search.SearchAborted && !CancelIsDue()) Pos.StopFlag = kStopTime;
        Search.SearchAborted = true;
    }
};

void RootSearch::FillScores() {
    Scores.fill(RootMove());
    for (Long index = 0; index < MoveTotal; ++index) {
        const MoveRecord& move = Pos.Moves[FirstSlot + index];
        Scores[index].From = move.From;
        Scores[index].To = move.To;
    }
}

void RootSearch::Deepen() {
    for (Iteration = 1; Iteration <= Input.DepthLimit; ++Iteration) {
        Hooks.IterationStarted(Iteration);
        SetWindow();
        Search.ExtensionLimit = Iteration + Search.Options.Plys;
        const bool waits = Iteration == 1 && Input.Scoring == RootScoring::InWindow;
        Search.Cancel = waits ? CancelMode::Waits : CancelMode::Ends;
        SearchMoves();
        Search.RepeatCount = 0;
        if (TimeIsUp()) StopOnTime();
        if (Aborted()) return;
        PrevScore = Result.LastScore;
        Hooks.IterationFinished(Iteration);
        if (Input.EndsOnAbort && CancelIsDue()) return;
    }
}

/// Leaves the flags so that they tell how the search has ended, and nothing for the next one.
void RootSearch::Close() {
    const bool cancelled = CancelIsDue();
    Search.Cancel = CancelMode::Ends;
    if (!Input.EndsOnAbort) return;
    if (Pos.Fault.Passed()) Search.SearchAborted = false;
    if (cancelled) Search.SearchAborted = true;
    if (Pos.StopFlag == kStopCancel) Pos.StopFlag = 0;
}

void RootSearch::SetWindow() {
    if (Iteration == 1) {
        Alpha = -kWin;
        Beta = kWin;
    } else {
        Beta = Alpha + kAspirationMargin;
        Alpha -= kAspirationMargin;
    }
}

void RootSearch::SearchMoves() {
    for (Long index = 0; index < MoveTotal; ++index) {
        if (SearchMoveAt(index) == Flow::Aborted || Aborted()) return;
    }
}

Flow RootSearch::SearchMoveAt(Long index) {
    const Long slot = FirstSlot + index;
    assert(Pos.Tree.Ply == 0 && Pos.Tree.TreeIndex == RootTreeIndex && Alpha <= Beta);
    EarlierScore.reset();

    // 1. Announce the move
    Pos.BestLine[0][0].From = 0;
    Hooks.MoveStarted(Iteration, slot);

    // 2. Its first search, in the window as it stands
    Long score;
    PerformMove(Pos, slot);
    NoteRepetition();
    SearchRootMove(score);
    if (index == 0) DeepenShortLine(index, score);
    TakeBackMove(Pos, slot);
    if (AfterTakeBack() == Flow::Aborted) return Flow::Aborted;

    // 3. Further searches where the score lies outside the window
    bool newBest = false;
    Flow flow = index == 0 ? SearchFirst(score) : SearchLater(index, score, newBest);
    if (flow == Flow::Aborted) return Flow::Aborted;

    // 4. Progress and time
    ShowProgress();

    // 5. Keep the score: a move looked at more closely keeps the score that can be compared with those of the others
    Scores[newBest ? 0 : index].Score = EarlierScore.value_or(newBest ? Alpha : score);
    return Flow::GoesOn;
}

/// The first move: whatever its score, it is the best so far.
Flow RootSearch::SearchFirst(Long& score) {
    if (Input.Scoring != RootScoring::InWindow) return ScoreFirst(score);
    if (score >= Beta) {
        Alpha = score;
        Beta = kWin;
        if (SearchAgain(0, score, kDeepenAlways) == Flow::Aborted) return Flow::Aborted;
    }
    if (score < Alpha) {
        Alpha = -kWin;
        Beta = score;
        if (SearchAgain(0, score, kDeepenAlways) == Flow::Aborted) return Flow::Aborted;
    }
    RecordBest(0, score);
    return Flow::GoesOn;
}

/// A score that knows no window is taken a second time where it lies outside, whatever it is then.
Flow RootSearch::ScoreFirst(Long& score) {
    if ((score < Alpha || score >= Beta) && SearchAgain(0, score, kDeepenAlways) == Flow::Aborted) return Flow::Aborted;
    RecordBest(0, score);
    return Flow::GoesOn;
}

/// A later move: only one that beats the best score twice, in the null window and in the opened one, becomes the best.
/// One that fails the second time leaves the window as it has opened it.
Flow RootSearch::SearchLater(Long index, Long& score, bool& newBest) {
    if (score <= Alpha) return Flow::GoesOn;
    const Long old = Alpha;
    Alpha = score;
    Beta = kWin;
    if (SearchAgain(index, score, old) == Flow::Aborted) return Flow::Aborted;
    if (score <= old) return Flow::GoesOn;
    newBest = true;
    RecordBest(index, score);
    return Flow::GoesOn;
}

Flow RootSearch::SearchAgain(Long index, Long& score, Long deepensAbove) {
    PerformMove(Pos, FirstSlot + index);
    SearchRootMove(score);
    if (score > deepensAbove) DeepenShortLine(index, score);
    TakeBackMove(Pos, FirstSlot + index);
    return AfterTakeBack();
}

/// A root move that repeats a position of the game, and any move once the move limit has passed, is scored as a draw.
void RootSearch::NoteRepetition() {
    Search.RepeatCount = FindRepetition(Pos, RootTreeIndex - 1).RepeatCount;
    if (Search.RepeatCount == 0 && Input.MoveLimitHit) Search.RepeatCount = 1;
}

void RootSearch::SearchRootMove(Long& score) {
    switch (Input.Scoring) {
    case RootScoring::InWindow: score = -RunSearch(Input.Member, Pos, Search, -Beta, -Alpha, Iteration - 1); break;
    case RootScoring::AtUserDepth: score = ScoreOf(ScoreUserMove(Pos, Search)); break;
    case RootScoring::AtGivenDepth: score = ScoreOf(ScoreAtDepth(Pos, Search, Iteration - 1)); break;
    }
    if (Input.RepetitionIsDraw && Search.RepeatCount >= 1) score = 0;
}

Long RootSearch::ScoreOf(const DepthScore& scored) {
    if (scored.Stopped && Input.EndsOnAbort) Search.SearchAborted = true;
    return scored.Score;
}

void RootSearch::DeepenShortLine(Long index, Long& score) {
    if (!Input.DeepensShortLines || Iteration < kDeepenFromIteration || BestLineLength(Pos) >= kShortLine) return;
    Hooks.DeepeningStarted(Iteration, FirstSlot + index);
    EarlierScore = score;
    const bool fullWindow = DeepensWithFullWindow(Input.Member);
    score = -RunSearch(Input.Member, Pos, Search, fullWindow ? -kWin : -Beta, fullWindow ? kWin : -Alpha, Iteration);
    if (Search.RepeatCount >= 1) score = 0;

    if (Pos.Tree.PlyValue[Pos.Tree.Ply] != 0) {
        Search.LazyMargin += kLazyMarginGrowth;
        if (Pos.SidewaysManyMen) Search.BackRankOn = false;
    }
}

void RootSearch::RecordBest(Long index, Long score) {
    assert(index >= 0 && index < MoveTotal);
    Alpha = score;
    Beta = Alpha + 1;
    Result = {score, Iteration};
    StoreBestLine(Pos, FirstSlot + index); // reads the record, so before it moves
    MoveToFront(index);
    Hooks.BestFound(Iteration, FirstSlot, score);
}

/// The moves before it go one place up and keep their order.
void RootSearch::MoveToFront(Long index) {
    auto first = Pos.Moves.begin() + FirstSlot;
    std::rotate(first, first + index, first + index + 1);
    std::rotate(Scores.begin(), Scores.begin() + index, Scores.begin() + index + 1);
}

void RootSearch::ShowProgress() {
    if (!Input.StopsByTime) {
        Hooks.MoveFinished();
        return;
    }
    const Long elapsed = Elapsed();
    Hooks.TimePassed(std::clamp(elapsed, 0, Input.TimeLimit));
    if (elapsed >= Input.TimeLimit && Result.LastScore >= PrevScore - kFallingScore) StopOnTime();
}

} // namespace

Long ElapsedSeconds(Long start, Long now) {
    return now < start ? now - start + kSecondsPerDay : now - start;
}

RootSearchResult SearchRoot(Position& position, SearchState& search, const RootSearchInput& input,
                            const RootSearchHooks& hooks, RootMoveTable& moves) {
    assert(position.Tree.Ply == 0 && !position.Fault.Passed() && SumsMatchBoard(position));
    RootSearch root(position, search, input, hooks, moves);
    assert(root.MoveTotal >= 0 && root.FirstSlot + root.MoveTotal < kMoveSlots);
    root.FillScores();
    {
        const Lookahead lookahead(position);
        root.Deepen();
        root.Close();
    }
    assert(position.Tree.Ply == 0 && position.Tree.TreeIndex == root.RootTreeIndex && SumsMatchBoard(position));
    position.Tree.NextMoveSlot = root.FirstSlot + root.MoveTotal; // the list holds the root moves alone again
    return root.Result;
}

} // namespace tavlon12
