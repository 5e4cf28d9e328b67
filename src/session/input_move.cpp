#include "session/input_move.h"

#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "session/move_texts.h"
#include "session/screen.h"

#include <optional>

namespace tavlon12 {

namespace {

template <typename Matches> std::optional<Long> FirstSlot(const Position& position, Matches matches) {
    const GameTree& tree = position.Tree;
    for (Long slot = tree.PlyFirstMove[tree.Ply]; slot < tree.NextMoveSlot; ++slot) {
        if (matches(position.Moves[slot])) return slot;
    }
    return std::nullopt;
}

/// The first legal move between two squares; failing that, a piece placed on the second. A placement must not hide a
/// move to the same square.
std::optional<Long> FindMove(const Position& position, Long from, Long to) {
    auto moved = FirstSlot(position, [&](const MoveRecord& move) { return move.From == from && move.To == to; });
    if (moved) return moved;
    return FirstSlot(position, [&](const MoveRecord& move) { return move.From == kOffBoard && move.To == to; });
}

} // namespace

bool InputMove(Session& session, const std::string& text) {
    Position& position = session.Pos;
    session.LastMoveCaptured = false;
    session.LastMovePromoted = false;
    if (GameIsFull(session)) return false;

    std::string_view squares = text;
    Long from = SquareOfText(session, squares.substr(0, 2));
    if (session.TouchedCell > 0 && from != session.TouchedCell && session.Settings.TouchMove == 1) return false;
    Long to = squares.size() > 2 ? SquareOfText(session, squares.substr(2, 2)) : from;

    // The last move is accepted as played, so that the rules which hold at the root alone hold for this one.
    InitGameTree(position);
    GenerateLegalMoves(position);
    if (EndOnGeneratorFault(session)) return false;
    std::optional<Long> slot = FindMove(position, from, to);
    if (!slot) return false;

    const MoveRecord& move = position.Moves[*slot];
    session.LastMoveCaptured = move.IsCapture();
    session.LastMovePromoted = move.Promotes == 2;
    DisplayMove(session, *slot);
    PerformMove(position, *slot);
    session.LastMoveSlot = *slot;
    session.TouchedCell = 0;
    return true;
}

bool GameIsFull(const Session& session) {
    return session.Pos.Tree.TreeIndex >= kMaxHalfMoves;
}

void ShowGameFull(Session& session) {
    ShowMessage(session, "This game is full: a record holds 1000 half-moves.", "Error", MessageKind::Exclamation);
}

} // namespace tavlon12
