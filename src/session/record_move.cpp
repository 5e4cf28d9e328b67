#include "session/record_move.h"

#include "session/move_texts.h"
#include "session/navigation.h"

namespace tavlon12 {

void EnterHalfMove(Session& session, const HalfMoveEntry& entry) {
    GameTree& tree = session.Pos.Tree;
    GameRecord& record = session.Record;
    UiPort& port = session.Port;
    const Long halfMove = tree.TreeIndex;

    ForgetFuture(session);
    // After going back the line of the half-move that is replaced still stands.
    for (Long count = port.Lists.ListCount(ListId::List1); count >= halfMove; --count)
        port.Lists.ListRemove(ListId::List1, count - 1);

    record.MoveHistory[halfMove] = entry.Move;
    record.MoveHistory[halfMove + 1].From = 0;
    record.MoveComments[halfMove].clear();
    record.MoveScores[halfMove] = entry.Score;
    record.MoveChoices[halfMove] = entry.Choices;
    record.LastMoveIndex = halfMove;
    tree.GameValue[halfMove] = tree.PlyValue[tree.Ply];
    tree.GameMaterial[halfMove] = tree.PlyMaterial[tree.Ply];

    auto& row = record.GameRows[RowOfHalfMove(halfMove)];
    row[TextColumn(halfMove)] = session.MoveText.MoveTextKey + " " + session.MoveText.MoveTextShown;
    row[KindColumn(halfMove)] = entry.Kind;
    // The depth of the row's computer move goes before that of a person.
    bool answersComputer =
        halfMove % 2 == 0 && std::string_view(entry.Kind) == kByPerson && row[KindColumn(halfMove - 1)] == kByComputer;
    if (!answersComputer) row[kStrengthColumn] = entry.Depth;

    port.Lists.ListAdd(ListId::List1, GameLine(halfMove, session.MoveText.MoveTextShown));
    port.Fields.SetText(Control::Text1, "");
    port.Lists.ListSelect(ListId::List1, halfMove - 1);
}

void PlayMoveSound(Session& session) {
    if (session.Settings.UseSound == 1) session.Port.Files.PlaySound(session.ProgramFolder / "sounds" / "click.wav");
}

} // namespace tavlon12
