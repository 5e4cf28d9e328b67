#include "session/game_end.h"

#include "engine/evaluate.h"
#include "rules/generate_moves.h"
#include "session/navigation.h"
#include "session/rating.h"
#include "session/screen.h"

#include <algorithm>
#include <array>

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

/// One of the two rules on kings against a single king: `from` is where the material came about, 0 when it is not
/// there.
bool KingsRuleReached(Long treeIndex, bool materialThere, bool ruleOn, Long movesAllowed, Long& from) {
    if (!materialThere) {
        from = 0;
        return false;
    }
    if (!ruleOn) return false;
    if (from == 0) {
        from = treeIndex;
        return false;
    }
    return treeIndex - from + 2 > 2 * movesAllowed;
}

/// Lets the last move be seen before the verdict. The window lives meanwhile, so its commands are shut for that time,
/// unless a longer task has shut them already.
void PauseBeforeVerdict(Session& session) {
    const bool lock = !session.Busy;
    if (lock) {
        session.Busy = true;
        LockCommands(session);
    }
    WaitSeconds(session, 0.5);
    if (lock) {
        UnlockCommands(session);
        session.Busy = false;
    }
}

std::string Swapped(const std::string& result) {
    return result == "1-0" ? "0-1" : "1-0";
}

} // namespace

void UpdateDrawStatus(Session& session) {
    Position& position = session.Pos;
    const Long treeIndex = position.Tree.TreeIndex;
    session.DrawReason = 0;
    if (treeIndex < 1) return;

    position.PositionKeys[treeIndex - 1] = position.Key;
    if (FindRepetition(position, treeIndex - 1).RepeatCount > 2) session.DrawReason = 1;
    if (CheckMoveLimit(session, treeIndex - 1)) session.DrawReason = 2;

    const PieceCensus census = CountPieces(position.Board);
    const auto kingsOnly = [&census](Long more, Long fewer) {
        return !census.AnyMan && ((census.WhiteSum == more && census.BlackSum == fewer) ||
                                  (census.WhiteSum == fewer && census.BlackSum == more));
    };
    if (kingsOnly(2, 2)) session.DrawReason = 3;
    const RuleSet& rules = position.Rules;
    if (KingsRuleReached(treeIndex, kingsOnly(6, 2), rules.ThreeKings == 1, rules.NumberKings, session.ThreeKingsFrom))
        session.DrawReason = 4;
    if (KingsRuleReached(treeIndex, kingsOnly(4, 2), rules.TwoKings == 1, rules.NumberKings2, session.TwoKingsFrom))
        session.DrawReason = 5;
}

bool CheckMoveLimit(const Session& session, Long index) {
    const Long count = std::min(index + 1, session.Record.LastMoveIndex);
    return index + 1 - LastIrreversible(session.Record, count) > MoveLimitOf(session.Settings.MoveLimitCode);
}

bool DrawRuleApplies(const Session& session, bool noMoveInFirstList) {
    switch (session.DrawReason) {
    case 1:
    case 2: return session.Settings.ChessDraws == 1;
    case 3: return session.Settings.KingVersusKing == 1 && noMoveInFirstList;
    case 4: return session.Pos.Rules.ThreeKings == 1;
    case 5: return session.Pos.Rules.TwoKings == 1;
    default: return false;
    }
}

void CheckGameEnd(Session& session) {
    Position& position = session.Pos;
    const bool anti = position.Rules.AntiMode == 1;

    InitGameTree(position);
    const Long side = anti ? position.Tree.SideToMove : -position.Tree.SideToMove;
    const bool won = Evaluate(position, session.Search, -kWin, kWin, side) == kWin;
    GenerateMoves(position, 0);
    const bool noMoveInFirstList = MoveCount(position.Tree) == 0;
    GenerateMoves(position, 1);
    const bool canMove = MoveCount(position.Tree) > 0;
    if (EndOnGeneratorFault(session)) return;
    if (canMove && !won && !DrawRuleApplies(session, noMoveInFirstList)) return;

    PauseBeforeVerdict(session);
    if (session.Quitting) return;
    session.GameOver = true;
    DisableGameCommands(session);
    session.Port.Lists.SetListEnabled(ListId::List2, false);
    DrawBoard(session, 0);

    if (session.Search.NoMovesDraw) {
        session.Search.NoMovesDraw = false;
        SetGameResult(session, GameResult::Draw);
        AnnounceResult(session, "It's a draw!", 0.5);
    } else if (session.DrawReason != 0) {
        SetGameResult(session, GameResult::Draw);
        UpdateRating(session, 0.5);
        ShowDrawMessage(session);
    } else {
        SetGameResult(session, GameResult::FromBoard);
        const Long winner = anti ? position.Tree.SideToMove : -position.Tree.SideToMove;
        AnnounceResult(session, winner == kWhite ? "White wins!" : "Black wins!",
                       WinnerIsUser(session, winner) ? 1.0 : 0.0);
    }
}

void SetGameResult(Session& session, GameResult result) {
    Position& position = session.Pos;
    session.ResultText.clear();
    if (result == GameResult::Draw) {
        session.ResultText = "1/2-1/2";
        return;
    }

    const bool whiteBegan = position.Rules.BlackStarts != 1;
    const std::string whiteLost = whiteBegan ? "0-1" : "1-0";
    const std::string blackLost = Swapped(whiteLost);
    const PieceCensus census = CountPieces(position.Board);
    if (census.WhiteSum == 0) session.ResultText = whiteLost;
    if (census.BlackSum == 0) session.ResultText = blackLost;
    if (session.ResultText.empty() && GenerateLegalMoves(position) == 0)
        session.ResultText = position.Tree.SideToMove == kWhite ? whiteLost : blackLost;
    if (!session.ResultText.empty() && position.Rules.AntiMode == 1) session.ResultText = Swapped(session.ResultText);
}

void ShowDrawMessage(Session& session) {
    std::string text = "It's a draw! ";
    switch (session.DrawReason) {
    case 1: text += "Triple Repetition"; break;
    case 2: text += "50 Moves Rule"; break;
    case 3: text += "King versus King"; break;
    case 4: text += "3 Kings versus 1 King"; break;
    default: text += "2 Kings versus 1 King"; break;
    }
    session.Port.Status.SetStatusText(1, text);
    ShowMessage(session, text + session.RatingNote, "Congratulations", MessageKind::Exclamation);
}

void AnnounceResult(Session& session, const std::string& text, double score) {
    session.Port.Status.SetStatusText(1, text);
    UpdateRating(session, score);
    ShowMessage(session, text + session.RatingNote, "Congratulations", MessageKind::Exclamation);
}

bool WinnerIsUser(const Session& session, Long winner) {
    const Long beginner = session.Pos.Rules.BlackStarts == 1 ? kBlack : kWhite;
    const std::string& name = winner == beginner ? session.BlackPlayerName : session.WhitePlayerName;
    return name == session.Settings.UserName;
}

void DisableGameCommands(Session& session) {
    for (Command command : {Command::Compute, Command::Analyze, Command::Offerdraw, Command::Resign, Command::Hint,
                            Command::mnu_Play_Ccomputer})
        session.Port.Commands.SetCommandEnabled(command, false);
}

void OfferDraw(Session& session) {
    if (!session.GameTouched || session.LastScore >= 1) {
        ShowMessage(session, "Offer rejected... Play on!", "Draw Offer", MessageKind::Exclamation);
        return;
    }
    UpdateRating(session, 0.5);
    ShowMessage(session, "OK... It's a draw!" + session.RatingNote, "Congratulations", MessageKind::Exclamation);
    SetGameResult(session, GameResult::Draw);
    session.GameOver = true;
    session.Port.Status.SetStatusText(1, "It's a draw!");
    DisableGameCommands(session);
}

void Resign(Session& session) {
    UpdateRating(session, 0);
    ShowMessage(session, "OK... Computer wins!" + session.RatingNote, "Congratulations", MessageKind::Exclamation);
    session.GameOver = true;
    SetGameResult(session, GameResult::FromBoard);
    session.Port.Status.SetStatusText(1, "Computer wins!");
    DisableGameCommands(session);
}

} // namespace tavlon12
