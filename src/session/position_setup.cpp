#include "session/position_setup.h"

#include "session/reset_game.h"
#include "session/screen.h"

#include <optional>

namespace tavlon12 {

namespace {

/// Whether a square can be edited: a dark one, or any where both colours are played on, but for an empty light one
/// that pieces do not step on sideways.
bool MayBeEdited(const Position& position, Long cell) {
    const Long colour = position.Rules.PiecesOnBlack;
    if (SquareColourShift(cell, colour).SquareIsDark) return true;
    return colour == 2 && (position.Board[cell] != kEmpty || position.SidewaysStepsOnly);
}

SetupEntry EntryOfPiece(Long piece) {
    switch (piece) {
    case kMan: return SetupEntry::WhiteMan;
    case kKing: return SetupEntry::WhiteKing;
    case -kMan: return SetupEntry::BlackMan;
    case -kKing: return SetupEntry::BlackKing;
    default: return SetupEntry::Empty;
    }
}

void EditPosition(Position& position, SetupEntry entry, Long cell) {
    Long& square = position.Board[cell];
    switch (entry) {
    case SetupEntry::ClearBoard:
        for (Long& any : position.Board)
            if (any != kBorder) any = kEmpty;
        break;
    case SetupEntry::Empty: square = kEmpty; break;
    case SetupEntry::WhiteMan: square = kMan; break;
    case SetupEntry::WhiteKing: square = kKing; break;
    case SetupEntry::BlackMan: square = -kMan; break;
    case SetupEntry::BlackKing: square = -kKing; break;
    case SetupEntry::WhiteMoves: position.Tree.SideToMove = kWhite; break;
    case SetupEntry::BlackMoves: position.Tree.SideToMove = kBlack; break;
    }
}

} // namespace

bool AdoptPosition(Session& session) {
    session.Port.Lists.ListClear(ListId::List3);
    AdoptBoard(session.Pos);
    if (!ResetGame(session)) return false;
    session.Game.RateableGame = false;
    session.Input.PopupJustClosed = true;
    session.Input.AfterPopup = true;
    DrawBoard(session, 0);
    return true;
}

void OpenSetupMenu(Session& session, Long cell) {
    const Position& position = session.Pos;
    if (!MayBeEdited(position, cell)) return;
    session.Input.PopupJustClosed = true;
    const bool whiteMoves = position.Tree.SideToMove == kWhite;
    const auto entry = session.Port.Board.ChooseSetup(EntryOfPiece(position.Board[cell]),
                                                      whiteMoves ? SetupEntry::WhiteMoves : SetupEntry::BlackMoves);
    session.Variant.CustomSetup = false;
    if (entry) SetupEdit(session, *entry, cell);
}

void SetupEdit(Session& session, SetupEntry entry, Long cell) {
    session.Variant.CustomSetup = true;
    InitGameTree(session.Pos);
    EditPosition(session.Pos, entry, cell);
    session.Port.Lists.FocusList(ListId::List3);
    const bool adopted = AdoptPosition(session);
    session.Variant.CustomSetup = false;
    if (!adopted) return;
    session.Game.BookOpen = false;
    session.Port.Fields.SetText(Control::Label8, PlainVariantName(session.Variant) + " (M)");
}

} // namespace tavlon12
