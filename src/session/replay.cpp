#include "session/replay.h"

#include "engine/evaluation_tables.h"
#include "engine/search.h"
#include "rules/generate_moves.h"
#include "session/book_lookup.h"
#include "session/command_state.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/players.h"
#include "session/program_files.h"
#include "session/record_move.h"
#include "session/reset_game.h"
#include "session/screen.h"
#include "session/thinking.h"

#include <algorithm>

namespace tavlon12 {

void PlaceLoadedStart(Session& session, std::string_view digits, LoadSource source) {
    Position& position = session.Pos;
    session.Variant.CustomSetup = source != LoadSource::Autosave;
    PlaceSetup(position, digits); // the balance as Black sees it
    if (position.Tree.SideToMove == kBlack) return;
    position.Tree.PlyValue[0] = -position.Tree.PlyValue[0];
    position.Tree.GameValue[0] = -position.Tree.GameValue[0];
}

void BeginReplay(Session& session, LoadSource source, bool promotionsFromDefinition, bool tellsLoading) {
    Position& position = session.Pos;
    AdoptMovements(position);
    const Byte colour = position.Rules.PiecesOnBlack;
    if (colour < 2) MatchPiecesToColour(position);
    if (colour < 2 && promotionsFromDefinition && colour != session.Variant.DefinedRules.PiecesOnBlack) {
        ShiftPromotions(position);
    }
    if (colour == 2) session.Settings.Notation = kAlgebraic;
    BuildEvaluationTables(position, session.Search.Tables);
    StartTree(position);
    GenerateLegalMoves(position);
    if (EndOnGeneratorFault(session)) return;

    UiPort& port = session.Port;
    port.Fields.SetHourglass(true);
    port.Lists.ListClear(ListId::List2);
    port.Board.LayoutWindow();
    ShowVariantName(session);
    DrawBoard(session, 0);
    ShowNotationMark(session);
    for (ListId list : {ListId::List1, ListId::List2, ListId::List3}) port.Lists.SetListEnabled(list, false);
    const bool tells = source == LoadSource::User && tellsLoading;
    port.Status.SetStatusText(1, tells ? "Loading and analyzing..." : "");
    port.Status.SetProgress(0);
    session.Busy = true;
    LockCommands(session);
}

bool ReplayMove(Session& session, std::string_view key) {
    const MoveAnswer answer = InputMove(session, key);
    const auto* made = std::get_if<MadeMove>(&answer);
    if (made == nullptr) return false;
    session.Game.RateableGame = false;
    session.Game.GameTouched = true;
    const Long score = ScoreQuietly(session);
    EnterHalfMove(session, *made, {kFromFile, score, ""});
    const std::string line = LineOfHalfMove(session, *made, ConsultBook(session, false).InBook);
    LogHalfMove(session, MoveLogText(line, score));
    ShowHalfMove(session, line);
    session.Thought.PredictedFrom = session.Thought.PredictedTo = 0;
    UpdateDrawStatus(session);
    CheckGameEnd(session);
    session.Port.Time.Yield();
    return !session.Quitting;
}

void FinishReplay(Session& session, LoadSource source, const std::filesystem::path& file, Long progress) {
    StatusPort& status = session.Port.Status;
    const std::string name = source == LoadSource::Opening ? "" : file.filename().string();
    InitGameTree(session.Pos);
    RefreshLegalMoves(session);
    SetPlayersOfPosition(session);
    status.SetStatusText(1, "");
    if (source == LoadSource::User) {
        const Long full = std::max<Long>(progress, 1); // a game without moves is loaded whole too
        status.SetProgressRange(0, full);
        status.SetProgress(full);
        status.SetWindowTitle(" Tavlon12 " + std::string(kProgramVersion) + " - " + name);
    }
    session.Game.GameFileName = name;
    session.Port.Fields.SetText(Control::Text1, session.Record.MoveComments[session.Pos.Tree.TreeIndex]);
    ReleaseWindow(session);
}

void ShowKeptGame(Session& session) {
    session.Port.Fields.SetText(Control::Text1, session.Record.MoveComments[session.Pos.Tree.TreeIndex]);
    RefreshLegalMoves(session);
}

void AbandonReplay(Session& session, const std::string& message) {
    session.Pdn = PdnTags();
    ShowMessage(session, message, "Error", MessageKind::Exclamation);
    session.Variant.CustomSetup = false;
    if (!ResetGame(session)) return;
    ReleaseWindow(session);
}

void ReleaseWindow(Session& session) {
    session.Variant.CustomSetup = false;
    session.Game.TouchedCell = 0;
    session.Busy = false;
    UnlockCommands(session);
    OpenAfterLoad(session);
    DrawBoard(session, 0);
    session.Port.Fields.SetHourglass(false);
}

} // namespace tavlon12
