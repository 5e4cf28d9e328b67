#include "session/new_game.h"

#include "engine/evaluate.h"
#include "engine/evaluation_tables.h"
#include "files/game_file.h"
#include "rules/generate_moves.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/load_game.h"
#include "session/move_texts.h"
#include "session/position_setup.h"
#include "session/program_files.h"
#include "session/reset_game.h"
#include "session/save_game.h"
#include "session/screen.h"
#include "session/variants.h"

#include <algorithm>
#include <optional>
#include <random>
#include <vector>

namespace tavlon12 {

namespace {

/// Empties random squares of a side; one piece stays.
void RemoveRandomPieces(Session& session, Long side) {
    constexpr std::size_t kMostListed = 32;
    Position& position = session.Pos;
    std::vector<Long> squares;
    for (Long square = kFirstSquare; square <= kLastSquare && squares.size() < kMostListed; ++square) {
        const Long piece = position.Board[square];
        if (IsLivePiece(piece) && (piece > 0) == (side > 0)) squares.push_back(square);
    }
    if (squares.empty()) return;
    const auto count = std::min<std::size_t>(position.Rules.NumberMen, squares.size() - 1);
    std::uniform_int_distribution<std::size_t> draw(0, squares.size() - 1);
    for (std::size_t i = 0; i < count; ++i) {
        Long square = squares[draw(session.Search.Random)];
        while (position.Board[square] == kEmpty) square = squares[draw(session.Search.Random)];
        position.Board[square] = kEmpty;
    }
}

void RemoveRandomMen(Session& session) {
    RemoveRandomPieces(session, kWhite);
    RemoveRandomPieces(session, kBlack);
    RecountPieces(session.Pos);
    session.Variant.CustomSetup = true;
}

/// Makes a random legal move; nothing when there is none, or when it ends the game.
std::optional<std::string> MakeRandomMove(Session& session) {
    Position& position = session.Pos;
    const Long count = GenerateLegalMoves(position);
    if (count == 0) return std::nullopt;
    const Long slot = std::uniform_int_distribution<Long>(0, count - 1)(session.Search.Random);
    const std::string key = UpperCase(DisplayMove(session, position.Moves[slot]).MoveTextKey);
    if (std::holds_alternative<Refusal>(InputMove(session, key))) return std::nullopt;
    InitGameTree(position);
    UpdateDrawStatus(session);
    const RootValue root = EvaluateRoot(position, session.Search, WinnerByPosition(position));
    GenerateMoves(position, 1);
    const bool drawn = DrawRuleApplies(session, true); // kings alone are a draw whatever they can take
    if (MoveCount(position.Tree) == 0 || root.Value == kWin || drawn) return std::nullopt;
    return key;
}

/// Takes back moves that are in no record.
void RestoreStart(Session& session) {
    Position& position = session.Pos;
    position.Board = position.InitialBoard;
    position.Tree.SideToMove = position.Rules.BlackStarts == 1 ? kBlack : kWhite;
    session.Variant.CustomSetup = true;
    AdoptPosition(session);
    session.Variant.CustomSetup = false;
}

/// Plays the first moves of a game. They are written as a game and loaded, so that they stand in the record; where they
/// cannot be written, the game begins without them.
void PlayAutomaticMoves(Session& session) {
    const GameHead head = HeadOfGame(session);
    std::vector<GameFileLine> lines;
    for (Long i = 0; i < session.Pos.Rules.NumberMoves; ++i) {
        const auto key = MakeRandomMove(session);
        if (!key) break;
        lines.push_back({GameFileLine::Kind::Move, *key, i});
    }
    if (session.Quitting) return;
    const std::filesystem::path file = session.ProgramFolder / kAutomaticMovesFile;
    if (WriteProgramFile(session, file, GameFileText(head, lines, PromotionSlots::All))) {
        LoadGame(session, LoadSource::AutomaticMoves);
    } else {
        RestoreStart(session);
    }
}

/// The balance of the board, seen from the side that begins.
void CountBalance(Position& position) {
    const PieceCensus census = CountPieces(position.Board);
    const Long ofBlack = (census.BlackSum - census.WhiteSum) * 100;
    GameTree& tree = position.Tree;
    tree.PlyValue[0] = tree.GameValue[0] = position.Rules.BlackStarts == 0 ? -ofBlack : ofBlack;
}

/// Makes the game one by the rules that the dialog has left. False when they have no list of moves.
bool AdoptChosenRules(Session& session) {
    Position& position = session.Pos;
    session.Port.Board.LayoutWindow();
    AdoptMovements(position);
    if (position.Rules.PiecesOnBlack < 2) MatchPiecesToColour(position);
    LeaveNumericNotation(session);
    DrawBeginner(session);
    CountBalance(position);
    BuildEvaluationTables(position, session.Search.Tables);
    ShowVariantName(session);
    position.Tree.SideToMove = position.Rules.BlackStarts == 1 ? kBlack : kWhite;
    session.Port.Status.SetStatusText(1, SideToMoveText(position));
    StartTree(position);
    RefreshLegalMoves(session);
    return !position.Fault.Passed();
}

void StartGame(Session& session, bool askVariant) {
    if (session.Busy) return;
    if (session.Game.GameTouched && !AskYesNo(session, "Quit current game?", "Confirmation")) return;
    session.Variant.CustomSetup = false;
    if (!ResetGame(session)) return;
    session.ResultShown.clear();
    if (askVariant) {
        EditVariants(session);
        if (session.Quitting || !AdoptChosenRules(session)) return;
    }
    session.Port.Lists.ListClear(ListId::List3);
    if (session.Settings.ChooseOpening == 1) LoadGame(session, LoadSource::Opening);
    if (session.Quitting) return;
    DrawBoard(session, 0);
    ApplyStartRules(session);
    PlaySound(session, "roll.wav");
}

} // namespace

void NewGame(Session& session) {
    StartGame(session, false);
}

void NewVariant(Session& session) {
    StartGame(session, true);
}

void ApplyStartRules(Session& session) {
    if (session.Pos.Rules.RemoveMen == 1) {
        RemoveRandomMen(session);
        AdoptPosition(session);
    }
    if (session.Pos.Rules.DoMoves == 1 && !session.Quitting) PlayAutomaticMoves(session);
}

} // namespace tavlon12
