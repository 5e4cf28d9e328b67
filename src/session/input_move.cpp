#include "session/input_move.h"

#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "session/screen.h"

#include <algorithm>
#include <optional>
#include <span>

namespace tavlon12 {

namespace {

std::span<const MoveRecord> LegalMoves(const Position& position) {
    const GameTree& tree = position.Tree;
    return std::span(position.Moves).subspan(tree.PlyFirstMove[tree.Ply], MoveCount(tree));
}

/// The first legal move between two squares; failing that, a piece placed on the second. A placement must not hide a
/// move to the same square.
std::optional<Long> FindMove(const Position& position, SquarePair squares) {
    const auto moves = LegalMoves(position);
    auto found = std::ranges::find_if(
        moves, [&](const MoveRecord& move) { return move.From == squares.From && move.To == squares.To; });
    if (found == moves.end()) {
        found = std::ranges::find_if(
            moves, [&](const MoveRecord& move) { return move.From == kOffBoard && move.To == squares.To; });
    }
    if (found == moves.end()) return std::nullopt;
    return position.Tree.PlyFirstMove[position.Tree.Ply] + static_cast<Long>(found - moves.begin());
}

/// Whether the table of captures has one between these squares. Only its first rows are asked.
bool HasCaptureRow(const CaptureTable& captures, SquarePair squares) {
    constexpr Long kRowsAsked = 21;
    const auto end = captures.Rows.begin() + std::min(captures.RowCount, kRowsAsked);
    const auto empty = std::find_if(captures.Rows.begin(), end, [](const CaptureRow& r) { return r.Path.Count == 0; });
    return std::any_of(captures.Rows.begin(), empty,
                       [&](const CaptureRow& row) { return row.From == squares.From && row.To == squares.To; });
}

Refusal WhyRefused(const Position& position, SquarePair squares) {
    if (position.Rules.CapRequired == 1 && std::ranges::any_of(LegalMoves(position), &MoveRecord::IsCapture)) {
        return HasCaptureRow(position.Captures, squares) ? Refusal::CannotJumpSo : Refusal::NeedsToJump;
    }
    const bool empty = squares.To == 0 || position.Board[squares.To] == kEmpty;
    return empty ? Refusal::NotLegal : Refusal::SquareNotEmpty;
}

std::string TextOf(Refusal refusal) {
    switch (refusal) {
    case Refusal::NeedsToJump: return "Illegal move: you need to jump";
    case Refusal::CannotJumpSo: return "Illegal move: you cannot jump that way";
    case Refusal::SquareNotEmpty: return "Illegal move: that square is not empty";
    case Refusal::GameFull: return "This game is full: a record holds 1000 half-moves.";
    default: return "Illegal move";
    }
}

} // namespace

MoveAnswer InputMove(Session& session, std::string_view key) {
    return InputSquares(session, SquaresOfKey(session, key));
}

MoveAnswer InputSquares(Session& session, SquarePair squares) {
    if (GameIsFull(session)) return Refusal::GameFull;
    const Long touched = session.Game.TouchedCell;
    if (touched > 0 && squares.From != touched && session.Settings.TouchMove == 1) {
        return WhyRefused(session.Pos, squares);
    }
    // The last move is accepted as played, so that the rules which hold at the root alone hold for this one.
    InitGameTree(session.Pos);
    GenerateLegalMoves(session.Pos);
    if (EndOnGeneratorFault(session)) return Refusal::ProgramEnds;
    const std::optional<Long> slot = FindMove(session.Pos, squares);
    if (!slot) return WhyRefused(session.Pos, squares);
    return MakeMove(session, *slot);
}

MadeMove MakeMove(Session& session, Long slot) {
    const MoveRecord& move = session.Pos.Moves[slot];
    MadeMove made{move, DisplayMove(session, move), MoveCount(session.Pos.Tree)};
    PerformMove(session.Pos, slot);
    session.Game.TouchedCell = 0;
    return made;
}

MadeMove InputRecord(Session& session, const MoveRecord& move) {
    constexpr Long kSlot = 0;
    InitGameTree(session.Pos);
    session.Pos.Moves[kSlot] = move;
    return MakeMove(session, kSlot);
}

bool GameIsFull(const Session& session) {
    return session.Pos.Tree.TreeIndex >= kMaxHalfMoves;
}

void ShowRefusal(Session& session, Refusal refusal) {
    ShowMessage(session, TextOf(refusal), "Error", MessageKind::Exclamation);
}

} // namespace tavlon12
