#include "session/rating.h"

#include "session/screen.h"

#include <cmath>
#include <optional>

namespace tavlon12 {

namespace {

constexpr Long kRows = kMaxHalfMoves / 2;

/// Who made the first half-move of a column of the game that was not read from a file; "" when there is none.
std::string FirstKind(const GameRecord& record, Long column) {
    for (Long row = 1; row <= kRows; ++row) {
        const std::string& kind = record.GameRows[row][column];
        if (kind != kFromFile) return kind;
    }
    return "";
}

/// Average depth of the computer's moves before the last half-move, 1 when it made none; nothing when the players of
/// the game have changed.
std::optional<double> AverageDepth(const Session& session) {
    const GameRecord& record = session.Record;
    const std::string first[] = {FirstKind(record, KindColumn(1)), FirstKind(record, KindColumn(2))};
    if (first[0] != kByComputer && first[1] != kByComputer) return std::nullopt;
    double sum = 0;
    Long count = 0;
    for (Long halfMove = 1; halfMove < session.Pos.Tree.TreeIndex; ++halfMove) {
        const auto& row = record.GameRows[RowOfHalfMove(halfMove)];
        const std::string& kind = row[KindColumn(halfMove)];
        const std::string& firstOfSide = first[TextColumn(halfMove)];
        if (kind == kFromFile) continue;
        if (kind != firstOfSide) return std::nullopt;
        if (firstOfSide != kByComputer) continue;
        sum += ParseNumber(row[kStrengthColumn]);
        ++count;
    }
    return count > 0 ? sum / count : 1;
}

/// How far one game moves a rating.
double WeightOf(Long rating) {
    if (rating > 2400) return 10;
    return rating < 2000 ? 30 : RoundHalfEven(130 - rating / 20.0);
}

} // namespace

// The Elo system: what is expected of a player follows the logistic curve with 400 points for a factor of ten. Each
// ply of the computer's average depth is worth 100 points, from 700 on.
std::string UpdateRating(Session& session, double score) {
    if (session.Settings.UseRating == 0) return "";
    const std::optional<double> depth = AverageDepth(session);
    if (!depth) session.Game.RateableGame = false;
    if (!session.Game.RateableGame) return "";

    const std::string remark = score == 1 ? GameQualityNote(session) : "";
    const Long computerRating = static_cast<Long>(std::floor(*depth * 100)) + 700;
    const Long old = session.Rating;
    const double expected = 1 / (1 + std::pow(10, -(old - computerRating) / 400.0));
    session.Rating = RoundHalfEven(old + WeightOf(old) * (score - expected));
    return remark + "\n\nYour previous rating was" + Str(old) + "\nThe computers' rating in this game was" +
           Str(computerRating) + "\n\nYour new rating is" + Str(session.Rating);
}

std::string GameQualityNote(const Session& session) {
    const GameRecord& record = session.Record;
    const Long last = session.Pos.Tree.TreeIndex;
    for (Long halfMove = last % 2 == 0 ? 1 : 2; halfMove <= last; halfMove += 2) {
        if (record.MoveChoices[halfMove] > 1 && record.MoveScores[halfMove] > 199) return "  Good game";
    }
    return "  Great game";
}

void ShowRating(Session& session) {
    ShowMessage(session, "Your currrent rating is" + Str(session.Rating), "Rating", MessageKind::Exclamation);
}

} // namespace tavlon12
