#include "session/game_end.h"

#include "engine/evaluate.h"
#include "rules/generate_moves.h"
#include "session/command_state.h"
#include "session/players.h"
#include "session/rating.h"
#include "session/screen.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tavlon12 {

namespace {

/// Half-moves without capture or promotion that the setting allows.
Long MoveLimitOf(Byte code) {
    constexpr std::array<Long, 5> kLimits{64, 100, 32, 40, 80};
    return code < kLimits.size() ? kLimits[code] : kLimits[1];
}

/// Index, counted from 0, of the last capture or promotion among the first `count` half-moves; -1 when there is none.
Long LastIrreversible(const GameRecord& record, Long count) {
    for (Long halfMove = count; halfMove >= 1; --halfMove) {
        const MoveRecord& move = record.MoveHistory[halfMove];
        if (move.IsCapture() || move.Promotes != 0) return halfMove - 1;
    }
    return -1;
}

/// Whether a placement is kings alone, `more` of one side and `fewer` of the other.
bool KingsOnly(const PositionKey& key, Long more, Long fewer) {
    const auto count = [&key](Long type) { return key.Sets[type].Count(); };
    if (count(PieceType(kMan)) + count(PieceType(-kMan)) > 0) return false;
    const Long white = count(PieceType(kKing));
    const Long black = count(PieceType(-kKing));
    return (white == more && black == fewer) || (white == fewer && black == more);
}

/// Whether `more` kings have stood against one for longer than the rule allows. They are counted from the first
/// half-move after which they stood there, without a break.
bool KingsRuleReached(const Position& position, Long more, Long movesAllowed) {
    const Long treeIndex = position.Tree.TreeIndex;
    Long from = treeIndex + 1;
    while (from > 1 && KingsOnly(position.PositionKeys[from - 2], more, 1)) --from;
    return from < treeIndex && treeIndex - from + 2 > 2 * std::int64_t{movesAllowed};
}

/// Later rules go before earlier ones.
Long DrawReasonOf(const Session& session) {
    const Position& position = session.Pos;
    const RuleSet& rules = position.Rules;
    const Long last = position.Tree.TreeIndex - 1;
    if (rules.TwoKings == 1 && KingsRuleReached(position, 2, rules.NumberKings2)) return 5;
    if (rules.ThreeKings == 1 && KingsRuleReached(position, 3, rules.NumberKings)) return 4;
    if (KingsOnly(position.PositionKeys[last], 1, 1)) return 3;
    if (CheckMoveLimit(session, last)) return 2;
    return FindRepetition(position, last).RepeatCount > 2 ? 1 : 0;
}

std::string DrawText(Long reason) {
    constexpr std::array kReasons{"Triple Repetition", "50 Moves Rule", "King versus King", "3 Kings versus 1 King",
                                  "2 Kings versus 1 King"};
    return std::string("It's a draw! ") + kReasons[static_cast<std::size_t>(reason - 1)];
}

/// Lets the last move be seen before the verdict. The window lives meanwhile, so its commands are shut for that time,
/// unless a longer task has shut them already.
void PauseBeforeVerdict(Session& session) {
    const bool lock = !session.Busy;
    if (lock) {
        session.Busy = true;
        LockCommands(session);
    }
    WaitSeconds(session, kPause);
    if (lock) {
        UnlockCommands(session);
        session.Busy = false;
    }
}

/// What a position is that has ended the game.
GameEnd EndOfPosition(const Session& session, bool noMovesDraw) {
    if (noMovesDraw) return Draw();
    if (session.Game.DrawReason != 0) return DrawByRule(session);
    const Long winner = WinnerByPosition(session.Pos);
    return {winner == kWhite ? "White wins!" : "Black wins!", WinnerIsUser(session, winner) ? 1.0 : 0.0, winner};
}

} // namespace

GameEnd Draw() {
    return {"It's a draw!", 0.5, 0};
}

GameEnd DrawByRule(const Session& session) {
    return {DrawText(session.Game.DrawReason), 0.5, 0};
}

Long WinnerByPosition(const Position& position) {
    return position.Rules.AntiMode == 1 ? position.Tree.SideToMove : -position.Tree.SideToMove;
}

std::string CloseGame(Session& session, const GameEnd& end) {
    session.Game.GameOver = true;
    session.Game.EndText = end.Text;
    SetGameResult(session, end.Winner);
    const std::string note = UpdateRating(session, end.Score);
    ShutEndedGame(session);
    session.Port.Status.SetStatusText(1, end.Text);
    UpdatePlayerLabels(session);
    return end.Text + note;
}

void ShowEndBox(Session& session, const std::string& text) {
    ShowMessage(session, text, "Congratulations", MessageKind::Exclamation);
}

void EndGame(Session& session, const GameEnd& end) {
    ShowEndBox(session, CloseGame(session, end));
}

void SetGameResult(Session& session, std::optional<Long> winner) {
    const Long beginner = session.Pos.Rules.BlackStarts == 1 ? kBlack : kWhite;
    std::string& result = session.Game.ResultText;
    if (!winner) {
        result.clear();
    } else if (*winner == 0) {
        result = "1/2-1/2";
    } else {
        result = *winner == beginner ? "1-0" : "0-1";
    }
}

void UpdateDrawStatus(Session& session) {
    Position& position = session.Pos;
    session.Game.DrawReason = 0;
    if (position.Tree.TreeIndex < 1) return;
    position.PositionKeys.Set(position.Tree.TreeIndex - 1, position.Sums.Key);
    session.Game.DrawReason = DrawReasonOf(session);
}

bool CheckMoveLimit(const Session& session, Long index) {
    const Long count = std::min(index + 1, session.Record.LastMoveIndex);
    return index + 1 - LastIrreversible(session.Record, count) > MoveLimitOf(session.Settings.MoveLimitCode);
}

bool DrawRuleApplies(const Session& session, bool noMoveInFirstList) {
    switch (session.Game.DrawReason) {
    case 1:
    case 2: return session.Settings.ChessDraws == 1;
    case 3: return session.Settings.KingVersusKing == 1 && noMoveInFirstList;
    case 4: return session.Pos.Rules.ThreeKings == 1;
    case 5: return session.Pos.Rules.TwoKings == 1;
    default: return false;
    }
}

std::optional<GameEnd> VerdictOn(Session& session) {
    Position& position = session.Pos;
    InitGameTree(position);
    const RootValue root = EvaluateRoot(position, session.Search, WinnerByPosition(position));
    GenerateMoves(position, 0);
    const bool noMoveInFirstList = MoveCount(position.Tree) == 0;
    GenerateMoves(position, 1);
    const bool canMove = MoveCount(position.Tree) > 0;
    if (position.Fault.Passed()) return std::nullopt;
    if (canMove && root.Value != kWin && !DrawRuleApplies(session, noMoveInFirstList)) return std::nullopt;
    return EndOfPosition(session, root.NoMovesDraw);
}

void CheckGameEnd(Session& session) {
    const std::optional<GameEnd> end = VerdictOn(session);
    if (EndOnGeneratorFault(session) || !end) return;
    PauseBeforeVerdict(session);
    if (session.Quitting) return;
    session.Game.GameOver = true;
    DrawBoard(session, 0);
    EndGame(session, *end);
}

void OfferDraw(Session& session) {
    if (!session.Game.GameTouched || session.Game.LastScore >= 1) {
        ShowMessage(session, "Offer rejected... Play on!", "Draw Offer", MessageKind::Exclamation);
        return;
    }
    ShowEndBox(session, "OK... " + CloseGame(session, Draw()));
}

void Resign(Session& session) {
    ShowEndBox(session, "OK... " + CloseGame(session, {"Computer wins!", 0, std::nullopt}));
}

} // namespace tavlon12
