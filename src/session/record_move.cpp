#include "session/record_move.h"

#include "session/move_texts.h"
#include "session/program_files.h"

namespace tavlon12 {

namespace {

/// Empties the entries of the half-moves from `first` on.
void Forget(GameRecord& record, Long first) {
    for (Long halfMove = first; halfMove <= record.LastMoveIndex; ++halfMove) {
        record.MoveHistory[halfMove] = MoveRecord();
        record.MoveScores[halfMove] = 0;
        record.MoveChoices[halfMove] = 0;
        record.MoveComments[halfMove].clear();
        auto& row = record.GameRows[RowOfHalfMove(halfMove)];
        row[TextColumn(halfMove)].clear();
        row[KindColumn(halfMove)].clear();
        if (halfMove % 2 != 0) row[kStrengthColumn].clear();
    }
}

} // namespace

void EnterHalfMove(Session& session, const MadeMove& made, const HalfMoveEntry& entry) {
    GameTree& tree = session.Pos.Tree;
    GameRecord& record = session.Record;
    const Long halfMove = tree.TreeIndex;
    Forget(record, halfMove);

    record.MoveHistory[halfMove] = made.Move;
    record.MoveScores[halfMove] = entry.Score;
    record.MoveChoices[halfMove] = made.Choices;
    record.LastMoveIndex = halfMove;
    tree.GameValue[halfMove] = tree.PlyValue[tree.Ply];
    tree.GameMaterial[halfMove] = tree.PlyMaterial[tree.Ply];

    auto& row = record.GameRows[RowOfHalfMove(halfMove)];
    row[TextColumn(halfMove)] = made.Texts.MoveTextKey + " " + made.Texts.MoveTextShown;
    row[KindColumn(halfMove)] = entry.Kind;
    // The depth of the row's computer move goes before that of a person.
    const bool answersComputer =
        halfMove % 2 == 0 && std::string_view(entry.Kind) == kByPerson && row[KindColumn(halfMove - 1)] == kByComputer;
    if (!answersComputer) row[kStrengthColumn] = entry.Depth;
}

std::string LineOfHalfMove(const Session& session, const MadeMove& made, bool inBook) {
    return GameLine(session.Record.LastMoveIndex, made.Texts.MoveTextShown, inBook);
}

void LogHalfMove(Session& session, std::string_view text) {
    if (session.Record.LastMoveIndex == 1) {
        WriteLog(session, GameLogText(session.Variant.VariantName, session.Pos.Rules.BlackStarts == 1));
    }
    WriteLog(session, text);
}

void ShowHalfMove(Session& session, const std::string& line) {
    const Long halfMove = session.Record.LastMoveIndex;
    ListPort& lists = session.Port.Lists;
    for (Long last = lists.ListCount(ListId::List1) - 1; last >= halfMove - 1; --last) {
        lists.ListRemove(ListId::List1, last);
    }
    lists.ListAdd(ListId::List1, line);
    lists.ListSelect(ListId::List1, halfMove - 1);
    session.Port.Fields.SetText(Control::Text1, "");
}

} // namespace tavlon12
