#include "session/screen.h"

#include "rules/rule_keys.h"

namespace tavlon12 {

namespace {

constexpr const char* kWhiteMoves = "White moves";
constexpr const char* kBlackMoves = "Black moves";

void ShowCounts(Session& session) {
    const Position& position = session.Pos;
    PieceCensus census = CountPieces(position.Board);
    session.EqualKingsOnly = census.WhiteSum == census.BlackSum && !census.AnyMan;
    bool blackFirst = position.Rules.BlackStarts == 1;
    session.Port.Fields.SetText(Control::Label5, std::to_string(blackFirst ? census.BlackSum : census.WhiteSum));
    session.Port.Fields.SetText(Control::Label6, std::to_string(blackFirst ? census.WhiteSum : census.BlackSum));
    if (position.Rules.canContract != 1) return;
    session.Port.Fields.SetText(Control::Label12, std::to_string(position.Tree.BlackOffBoard));
    session.Port.Fields.SetText(Control::Label14, std::to_string(position.Tree.WhiteOffBoard));
}

/// Announcements and results in panel 1 stay until the logic itself clears them.
void ShowSideToMove(Session& session) {
    std::string text = SideToMoveText(session.Pos);
    std::string shown = session.Port.Status.GetStatusText(1);
    if (shown != text && (shown.empty() || shown == kWhiteMoves || shown == kBlackMoves)) {
        session.Port.Status.SetStatusText(1, text);
    }
}

bool RulesModified(const RuleSet& rules, const RuleSet& defined) {
    for (const RuleKey& key : RuleKeys()) {
        bool same = std::visit([&](auto member) { return rules.*member == defined.*member; }, key.Member);
        if (key.MarksModified && !same) return true;
    }
    return false;
}

std::string WithoutBoardSize(std::string name) {
    constexpr std::string_view kBoardSize = " 12x12";
    if (EndsWithNoCase(name, kBoardSize)) name.resize(name.size() - kBoardSize.size());
    return name;
}

void CountBoxTime(Session& session, double start) {
    constexpr double kSecondsPerDay = 86400;
    const double open = session.Port.Time.Clock() - start;
    if (session.Busy) session.BoxSeconds += open < 0 ? open + kSecondsPerDay : open;
}

void EndSession(Session& session) {
    session.Quitting = true;
    session.Port.EndProgram();
}

} // namespace

// Turned by half a circle, both the row and the column are counted from the other end.
Long CellOfView(Long view, Long boardTurned) {
    Long row = view / 12;
    Long column = view % 12;
    return boardTurned == 1 ? (row + kFirstRow) * kBoardWidth + kLastColumn - column
                            : (kLastRow - row) * kBoardWidth + 1 + column;
}

Long ViewOfCell(Long cell, Long boardTurned) {
    Long row = RowOf(cell);
    Long column = ColumnOf(cell);
    return boardTurned == 1 ? (row - kFirstRow) * 12 + kLastColumn - column : (kLastRow - row) * 12 + column - 1;
}

void DrawBoard(Session& session, int overlay) {
    session.Port.Board.PaintBoard(overlay);
    ShowCounts(session);
    UpdatePlayerLabels(session);
}

void RedrawFromSquares(Session& session) {
    const GameTree& tree = session.Pos.Tree;
    for (Long slot = tree.PlyFirstMove[tree.Ply]; slot < tree.PlyFirstMove[tree.Ply + 1]; ++slot) {
        Long from = session.Pos.Moves[slot].From;
        if (from != kOffBoard) session.Port.Board.ShowSquare(ViewOfCell(from, session.Settings.BoardTurned));
    }
}

void UpdatePlayerLabels(Session& session) {
    UiPort& port = session.Port;
    bool blackFirst = session.Pos.Rules.BlackStarts == 1;
    port.Fields.SetText(Control::Label3, blackFirst ? "Black" : "White");
    port.Fields.SetText(Control::Label4, blackFirst ? "White" : "Black");
    port.Fields.SetText(Control::Label1, session.Players.BlackPlayerName);
    port.Fields.SetText(Control::Label2, session.Players.WhitePlayerName);
    if (session.Game.GameOver) {
        port.Fields.MarkPlayerToMove(PlayerMark::None);
        return;
    }
    const bool firstToMove = (session.Pos.Tree.SideToMove == kBlack) == blackFirst;
    port.Fields.MarkPlayerToMove(firstToMove ? PlayerMark::Label1 : PlayerMark::Label2);
    ShowSideToMove(session);
}

std::string PlainVariantName(const VariantState& variant) {
    return WithoutBoardSize(variant.VariantName);
}

std::string ShownVariantName(const VariantState& variant, const RuleSet& rules) {
    bool ownPosition = variant.CustomSetup && rules.RemoveMen != 1 && rules.DoMoves != 1;
    std::string name = variant.VariantName;
    if (ownPosition || RulesModified(rules, variant.DefinedRules)) name += " (M)";
    return WithoutBoardSize(name);
}

void ShowVariantName(Session& session) {
    session.Port.Fields.SetText(Control::Label8, ShownVariantName(session.Variant, session.Pos.Rules));
}

void ShowStrengthLine(Session& session) {
    const SearchLimits& limits = session.Settings.Limits;
    std::string text = "Strength:" + Str(10 - limits.StrengthStep);
    if (limits.FixedDepth == 1) {
        text += "   Depth:" + Str(limits.DepthLimit) + " ply";
    } else {
        text += "   Time:" + Str(limits.TimeLimit) + " sec";
    }
    session.Port.Status.SetStrengthLine(text);
}

std::string SideToMoveText(const Position& position) {
    return position.Tree.SideToMove == kBlack ? kBlackMoves : kWhiteMoves;
}

void ShowWindow(Session& session, const std::function<void()>& run) {
    const double start = session.Port.Time.Clock();
    run();
    CountBoxTime(session, start);
}

bool AskYesNo(Session& session, const std::string& text, const std::string& title) {
    bool yes = false;
    ShowWindow(session, [&] { yes = session.Port.Dialogs.AskYesNo(text, title); });
    return yes;
}

void ShowMessage(Session& session, const std::string& text, const std::string& title, MessageKind kind) {
    if (!session.Quitting) ShowWindow(session, [&] { session.Port.Dialogs.ShowMessage(text, title, kind); });
}

void WaitSeconds(Session& session, double seconds) {
    if (!session.Quitting) session.Port.Time.Wait(seconds);
}

void FatalEnd(Session& session) {
    ShowMessage(session, "Error found! Tavlon12 will exit", "Error", MessageKind::Exclamation);
    EndSession(session);
}

bool EndOnGeneratorFault(Session& session) {
    const GeneratorFault& fault = session.Pos.Fault;
    if (!fault.Passed()) return false;
    if (session.Quitting) return true; // shown already, or nobody is there to see it
    std::string text = "X=" + Str(fault.Depth);
    if (!fault.OfFamily) text += "   K=" + Str(fault.Rows);
    text += "\n\nFatal Error! Tavlon12 will exit.";
    if (!fault.OfFamily) text += "\n";
    if (!fault.OfFamily && session.Pos.Rules.RemovePieces != 1) {
        text += "\nTry to check 'Remove captured pieces after move'\nin the Variants dialog box.\n";
    }
    ShowMessage(session, text, "Error", MessageKind::Exclamation);
    EndSession(session);
    return true;
}

} // namespace tavlon12
