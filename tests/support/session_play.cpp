#include "support/session_play.h"

#include "rules/generate_moves.h"
#include "rules/notation.h"
#include "rules/rule_keys.h"
#include "session/human_move.h"
#include "session/input_move.h"
#include "session/move_texts.h"
#include "session/reset_game.h"
#include "session/screen.h"

#include <stdexcept>

namespace tavlon12 {

namespace {

void Place(Position& position, const std::vector<std::string>& squares, Long piece) {
    for (const std::string& text : squares) {
        Long square = SquareNumber(text, kAlgebraic, 1);
        if (square == 0) throw std::invalid_argument("no square: " + text);
        position.Board[square] = piece;
    }
}

void StartFromBoard(Session& session) {
    AdoptBoard(session.Pos);
    session.Variant.CustomSetup = true;
    if (!ResetGame(session)) throw std::runtime_error("the game cannot be started");
    session.Variant.CustomSetup = false;
    DrawBoard(session, 0);
}

} // namespace

void StartFrom(Session& session, const PlacedPieces& pieces, Long sideToMove) {
    Position& position = session.Pos;
    position.Board = EmptyBoard();
    Place(position, pieces.WhiteMen, kMan);
    Place(position, pieces.WhiteKings, kKing);
    Place(position, pieces.BlackMen, -kMan);
    Place(position, pieces.BlackKings, -kKing);
    position.Tree.SideToMove = sideToMove;
    StartFromBoard(session);
}

void StartFromRandom(Session& session, std::mt19937& random, Long pieces) {
    Position& position = session.Pos;
    position.Board = EmptyBoard();
    for (Long side : {kWhite, kBlack}) {
        for (Long i = 0; i < pieces; ++i) {
            Long square = kFirstSquare + static_cast<Long>(random() % (kLastSquare - kFirstSquare + 1));
            if (position.Board[square] != kEmpty || !IsPlayingSquare(square, position.Rules.PiecesOnBlack)) continue;
            bool king = random() % 4 == 0 || IsPromotionSquare(position, side, square);
            position.Board[square] = side * (king ? kKing : kMan);
        }
    }
    position.Tree.SideToMove = random() % 2 == 0 ? kWhite : kBlack;
    StartFromBoard(session);
}

bool Play(Session& session, const std::string& text) {
    const MoveAnswer answer = InputMove(session, text);
    if (std::holds_alternative<Refusal>(answer)) return false;
    CommitHumanMove(session, std::get<MadeMove>(answer), MovePath::Typed);
    return true;
}

std::string RandomMoveText(Session& session, std::mt19937& random) {
    InitGameTree(session.Pos);
    Long count = GenerateLegalMoves(session.Pos);
    if (count == 0) return "";
    const Long slot = static_cast<Long>(random() % static_cast<unsigned>(count));
    return DisplayMove(session, session.Pos.Moves[slot]).MoveTextKey;
}

const std::vector<RulesRow>& VariedRules() {
    static const std::vector<RulesRow> rows = {
        {"default", {}},
        {"other colour", {{"PiecesOnBlack", "0"}, {"PromoW", "AbCbEbGbIbKb"}, {"PromoB", "B1D1F1H1J1L1"}}},
        {"pieces change", {{"KingMan", "1"}, {"ManKing", "1"}, {"ChangeSide", "1"}, {"MaxCapMove", "0"}}},
        {"free stops", {{"MulJumps", "0"}, {"MaxCapMove", "0"}, {"CapRequired", "0"}, {"LongKings", "0"}}},
        {"crowned on the way", {{"ManContJumpCrowned", "1"}, {"LastCap", "1"}, {"MaxCapMove", "0"}}},
        {"anti", {{"AntiMode", "1"}, {"BlackStarts", "1"}, {"ManCapMoveKing", "1"}, {"KingFirst", "1"}}},
        {"pieces in hand",
         {{"canContract", "1"},
          {"ContractNumber", "6"},
          {"ContractW1", "2"},
          {"ContractW2", "4"},
          {"ContractB1", "13"},
          {"ContractB2", "11"}}},
        {"straight",
         {{"WhiteManMovement", "W;N;E W;N;E"},
          {"BlackManMovement", "W;N;E W;N;E"},
          {"WhiteKingMovement", "W;N;E;S W;N;E;S"},
          {"BlackKingMovement", "W;N;E;S W;N;E;S"},
          {"PromoW", "AbBbCbDbEbFbGbHbIbJbKbLb"},
          {"PromoB", "A1B1C1D1E1F1G1H1I1J1K1L1"}}},
    };
    return rows;
}

void UseRules(Position& position, const RulesRow& row) {
    position.Rules = RuleSet();
    for (const auto& [name, value] : row.Values) {
        const RuleKey* key = FindRuleKey(name);
        if (key == nullptr || !SetRuleValue(position.Rules, *key, value)) throw std::invalid_argument(name);
    }
    AdoptMovements(position);
}

} // namespace tavlon12
