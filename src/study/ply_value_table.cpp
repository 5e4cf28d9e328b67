#include "study/ply_value_table.h"

#include "rules/basics.h"
#include "session/move_texts.h"
#include "session/screen.h"
#include "session/thinking.h"

#include <cstdlib>
#include <optional>
#include <utility>

namespace tavlon12 {

namespace {

constexpr Long kShallow = 2;             ///< the depth that deeper values are compared with
constexpr Long kPawn = 100;              ///< a difference above it is a tactic's
constexpr Long kForcedValue = 31000;     ///< a value beyond it comes from a forced end
constexpr std::size_t kRuleLength = 107; ///< hyphens under the head of the table

std::string Padded(std::string text, std::size_t width) {
    if (text.size() < width) text.resize(width, ' ');
    return text;
}

Long ValueAt(const PlyValues& row, Long depth) {
    const auto index = static_cast<std::size_t>(depth - 1);
    return index < row.Values.size() ? row.Values[index] : 0;
}

bool IsCombination(const PlyValues& row, const BestReply& best) {
    return (std::abs(row.Difference) > kPawn && best.IsCapture) || best.Captures % 2 == 1 ||
           std::abs(best.Value) > kForcedValue;
}

Long SortKey(const PlyValues& row, PlyValueOrder order, Long depth) {
    switch (order) {
    case PlyValueOrder::BestDifference: return row.Difference;
    case PlyValueOrder::BestValue: return ValueAt(row, depth);
    case PlyValueOrder::MostTime: return row.Seconds;
    case PlyValueOrder::BothDifference:
    case PlyValueOrder::Combinations: break;
    }
    return std::abs(row.Difference);
}

void Sort(PlyValueTable& table, PlyValueOrder order) {
    for (PlyValues& row : table.Rows)
        for (PlyValues& other : table.Rows)
            if (SortKey(row, order, table.Depth) > SortKey(other, order, table.Depth)) std::swap(row, other);
}

std::string HeadText(Long depth) {
    std::string text = "  No      MOVE   ";
    for (Long d = 1; d <= depth; ++d) text += "PLY" + Str(d) + "    ";
    return text + " Diff     Time   \n" + std::string(kRuleLength, '-') + "\n";
}

std::string RowText(const PlyValues& row, Long number, Long depth) {
    std::string text = RightAligned(std::to_string(number), 4) + ".    " + row.Move + "    ";
    for (std::size_t d = 0; d < static_cast<std::size_t>(depth); ++d)
        text += Padded(d < row.Values.size() ? std::to_string(row.Values[d]) : "", 9);
    return text + " " + Padded(std::to_string(row.Difference), 9) + Padded(std::to_string(row.Seconds), 8) + row.Line +
           "\n";
}

std::string SearchLine(const BestReply& best, Long first) {
    return "Score:" + Str(best.Value) + "   iniScore:" + Str(first) + "   Depth:" + Str(best.Depth) +
           "\nMain: " + best.Line;
}

void MakeTable(Session& session) {
    StudyPort& port = session.Port.Study;
    PlyValueTable table{session.Settings.PlyValueDepth, {}};
    const Long total = session.Port.Lists.ListCount(ListId::List2) * table.Depth;
    session.Port.Lists.ListClear(ListId::List3);
    port.OpenValues(PlyValueOrders());
    port.SetLabel("Searching...");
    port.SetProgress(0, total);
    if (session.Settings.CalculationOn == 1) port.SetSearchLine("");
    StudyCandidates(session, [&](const Candidate& candidate) {
        table.Rows.push_back(PlyValueRow(session, candidate, table.Depth));
        port.SetProgress((candidate.Index + 1) * table.Depth, total);
    });
    if (session.Quitting) return;
    port.SetProgress(total, total);
    port.SetLabel("Done!");
    port.ShowValues([table](Long order) { return PlyValueText(table, static_cast<PlyValueOrder>(order)); });
}

} // namespace

const std::vector<std::string>& PlyValueOrders() {
    static const std::vector<std::string> kOrders{"Best difference", "Both difference", "Best value", "Most time",
                                                  "Combinations/Problems"};
    return kOrders;
}

PlyValues PlyValueRow(Session& session, const Candidate& candidate, Long depth) {
    PlyValues row;
    row.Move = candidate.Made.Texts.MoveTextShown;
    if (candidate.EndsGame) return row;
    const Long start = WholeSeconds(session);
    BestReply best;
    std::optional<Long> first;
    const auto bestFound = [&](const BestReply& reply) {
        best = reply;
        if (!first) first = reply.Value;
        row.Line = reply.Captures > 0 ? reply.Line : "";
        session.Port.Study.SetSearchLine(SearchLine(reply, *first));
    };
    DeepenReplies(session, depth, bestFound, [&](Long) { row.Values.push_back(best.Value); });

    const auto reached = static_cast<Long>(row.Values.size());
    if (reached > 0) row.Difference = ValueAt(row, reached) - ValueAt(row, kShallow);
    row.Seconds = ElapsedSeconds(start, WholeSeconds(session));
    row.IsCombination = IsCombination(row, best);
    session.Thought.PredictedFrom = session.Thought.PredictedTo = 0;
    return row;
}

std::string PlyValueText(PlyValueTable table, PlyValueOrder order) {
    Sort(table, order);
    std::string text = HeadText(table.Depth);
    Long number = 0;
    for (const PlyValues& row : table.Rows) {
        if (order == PlyValueOrder::Combinations && !row.IsCombination) continue;
        text += RowText(row, ++number, table.Depth);
    }
    return text;
}

void ShowPlyValueTable(Session& session) {
    if (!session.Busy) RunStudy(session, [&] { MakeTable(session); });
}

} // namespace tavlon12
