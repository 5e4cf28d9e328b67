#include "support/positions.h"

#include "files/variant_file.h"
#include "rules/generate_moves.h"
#include "rules/make_move.h"
#include "rules/rule_keys.h"
#include "support/reference_generator.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <ranges>
#include <stdexcept>
#include <vector>

namespace tavlon12::support {

namespace {

constexpr std::string_view kRankCharacters = "1234567890ab";

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (const auto part : std::views::split(text, separator)) parts.emplace_back(part.begin(), part.end());
    return parts;
}

std::unique_ptr<Position> NewPosition(const RuleSet& rules) {
    auto position = std::make_unique<Position>();
    position->Rules = rules;
    AdoptMovements(*position);
    return position;
}

} // namespace

RuleSet RulesWith(std::string_view changedKeys) {
    RuleSet rules;
    if (changedKeys.empty()) return rules;
    for (std::string_view part : Split(changedKeys, '|')) {
        // The blank before the words of a movement string without quiet words belongs to the value.
        part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
        const std::string_view name = part.substr(0, part.find('='));
        std::string_view value = part.substr(std::min(name.size() + 1, part.size()));
        while (!value.empty() && value.back() == ' ') value.remove_suffix(1);
        const RuleKey* key = FindRuleKey(name);
        if (key == nullptr) throw std::invalid_argument("unknown key " + std::string(name));
        if (!SetRuleValue(rules, *key, value)) throw std::invalid_argument("bad value of " + std::string(name));
    }
    return rules;
}

std::string ChangedKeys(const RuleSet& rules) {
    std::string text;
    for (const RuleKey& key : RuleKeys()) {
        std::string value = RuleValueText(rules, key);
        if (value == RuleValueText(RuleSet(), key)) continue;
        if (!text.empty()) text += " | ";
        text.append(key.Name).append("=").append(value);
    }
    return text.empty() ? "the default rules" : text;
}

Long SquareOf(std::string_view name) {
    if (name.size() != 2 || name[0] < 'a' || name[0] > 'l') return 0;
    std::size_t rank = kRankCharacters.find(name[1]);
    if (rank == std::string_view::npos) return 0;
    return (static_cast<Long>(rank) + 2) * 14 + (name[0] - 'a' + 1);
}

std::string NameOf(Long square) {
    if (square < 29 || square > 194 || square % 14 < 1 || square % 14 > 12) return "?" + std::to_string(square);
    return {static_cast<char>('a' + square % 14 - 1), kRankCharacters[static_cast<std::size_t>(square / 14 - 2)]};
}

BoardCells BoardOf(std::string_view placement) {
    if (placement.size() == kSquareCount) return ReadPositionString(placement);
    BoardCells board = EmptyBoard();
    for (std::string_view part : Split(placement, ';')) {
        Long side = 0;
        for (std::string_view name : Split(part, ' ')) {
            if (name == "W:" || name == "B:") side = name == "W:" ? kWhite : kBlack;
            if (name.empty() || name.back() == ':') continue;
            if (side == 0) throw std::invalid_argument("no side in " + std::string(part));
            bool king = name[0] == 'K';
            Long square = SquareOf(king ? name.substr(1) : name);
            if (square == 0) throw std::invalid_argument("no square: " + std::string(name));
            if (board[square] != kEmpty) throw std::invalid_argument("two pieces on " + std::string(name));
            board[square] = side * (king ? kKing : kMan);
        }
    }
    return board;
}

std::string PlacementOf(const BoardCells& board) {
    std::string lists[2] = {"W:", "B:"};
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        Long cell = board[square];
        if (cell == kEmpty || cell == kBorder) continue;
        lists[cell > 0 ? 0 : 1].append(Magnitude(cell) == kKing ? " K" : " ").append(NameOf(square));
    }
    return lists[0] + "; " + lists[1];
}

std::unique_ptr<Position> MakePosition(const RuleSet& rules, std::string_view placement, Long sideToMove) {
    return MakePosition(rules, BoardOf(placement), sideToMove);
}

std::unique_ptr<Position> MakePosition(const RuleSet& rules, const BoardCells& board, Long sideToMove) {
    auto position = NewPosition(rules);
    position->Board = board;
    position->InitialBoard = board;
    RecountPieces(*position);
    position->Tree.SideToMove = sideToMove;
    position->Tree.WhiteOffBoard = rules.ContractNumber;
    position->Tree.BlackOffBoard = rules.ContractNumber;
    return position;
}

std::unique_ptr<Position> StartPosition(const RuleSet& rules) {
    auto position = NewPosition(rules);
    PlaceClassicStart(*position);
    if (rules.Setup != "normal") PlaceSetup(*position, rules.Setup);
    FinishNewPosition(*position, rules.PiecesOnBlack);
    return position;
}

void SetLastMove(Position& position, std::string_view square) {
    position.Tree.TreeIndex = 1;
    position.Tree.TreeTo[1] = SquareOf(square);
}

std::string MoveText(const MoveRecord& move) {
    return MoveText(AsReference(move));
}

std::string MoveTexts(const Position& position) {
    std::string text;
    for (Long slot = position.Tree.PlyFirstMove[position.Tree.Ply]; slot < position.Tree.NextMoveSlot; ++slot) {
        if (!text.empty()) text += " ";
        text += MoveText(position.Moves[slot]);
    }
    return text;
}

std::string DescribePosition(const Position& position) {
    const GameTree& tree = position.Tree;
    return "rules: " + ChangedKeys(position.Rules) + "\nboard: " + PlacementOf(position.Board) +
           (tree.SideToMove == kWhite ? "\nWhite" : "\nBlack") + " to move, off the board " +
           std::to_string(tree.WhiteOffBoard) + " and " + std::to_string(tree.BlackOffBoard) + ", ply " +
           std::to_string(tree.Ply) + ", last move to " + NameOf(tree.TreeTo[tree.TreeIndex]);
}

std::string TestName(std::string_view name) {
    std::string kept(name);
    std::erase_if(kept, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
    return kept;
}

void PrintTo(const NamedRules& rules, std::ostream* stream) {
    *stream << rules.Name;
}

std::span<const NamedRules> ShippedRules() {
    static const std::vector<NamedRules> rules = [] {
        std::vector<NamedRules> rows;
        for (const auto& file : std::filesystem::directory_iterator(TAVLON12_DATA_DIR "/variants")) {
            const auto definition = ReadVariant(ReadFile(file.path()), RuleSet(), {});
            if (!definition) throw std::runtime_error(definition.Failure().Message());
            rows.push_back({file.path().stem().string(), definition->Rules});
            rows.back().Rules.Setup = definition->StartDigits.value_or("normal");
        }
        std::ranges::sort(rows, {}, &NamedRules::Name);
        return rows;
    }();
    return rules;
}

std::span<const NamedRules> NamedRuleSets() {
    constexpr std::string_view kNames =
        "Canadian Checkers|Russian Draughts 12x12|Makhos 12x12|Pool Checkers 12x12|Spanish Draughts 12x12|"
        "Maghreb Draughts 12x12|Czech Draughts 12x12|American Checkers 12x12|Italian Draughts 12x12|"
        "Frisian Draughts 12x12|Turkish Draughts 12x12|Keny 12x12|Dameo 12x12|Fox and Hounds 12x12|"
        "One Way Checkers 12x12|Turncoats|Worn Crowns|Last Hope|Hot Pursuit|Blood Feud|Lancers|Sentries|Boomerang";
    static const std::vector<NamedRules> rules = [] {
        std::vector<NamedRules> rows;
        for (std::string_view name : Split(kNames, '|'))
            rows.push_back(*std::ranges::find(ShippedRules(), name, &NamedRules::Name));
        return rows;
    }();
    return rules;
}

Long Draw(Random& random, Long count) {
    return static_cast<Long>(random() % static_cast<std::uint64_t>(count));
}

bool DrawOneIn(Random& random, Long count) {
    return Draw(random, count) == 0;
}

namespace {

Byte DrawFlag(Random& random, Long onInTen) {
    bool on = Draw(random, 10) < onInTen;
    // Now and then a value that is neither 0 nor 1: only exactly 1 is on.
    if (!on && DrawOneIn(random, 20)) return 2;
    return on ? 1 : 0;
}

std::string DrawWords(Random& random, bool wholeBoard, Long most) {
    static constexpr std::string_view words[] = {"NW", "NE", "SE", "SW", "NN", "EE", "WW", "SS", "W", "N", "E", "S"};
    Long choices = wholeBoard ? 12 : DrawOneIn(random, 3) ? 8 : 4;
    std::string text;
    Long count = 1 + Draw(random, most);
    for (Long i = 0; i < count; ++i) {
        if (i > 0) text += ";";
        text += words[Draw(random, choices)];
    }
    return text;
}

std::string DrawMovement(Random& random, bool wholeBoard, bool king) {
    Long most = king ? 6 : 4;
    std::string text = DrawOneIn(random, 15) ? "" : DrawWords(random, wholeBoard, most);
    if (!DrawOneIn(random, 15)) text.append(" ").append(DrawWords(random, wholeBoard, most));
    return text;
}

PromotionList DrawPromotions(Random& random, const PromotionList& normal) {
    if (!DrawOneIn(random, 3)) return normal;
    PromotionList list;
    list.fill(kUnusedSlot);
    Long used = Draw(random, kPromotionSlots + 1);
    for (Long i = 0; i < used; ++i) {
        // Holes are legal: a bad pair in a definition leaves its slot unused.
        list[i] = DrawOneIn(random, 8) ? kUnusedSlot : (2 + Draw(random, 12)) * 14 + 1 + Draw(random, 12);
    }
    return list;
}

} // namespace

RuleSet RandomRules(Random& random) {
    RuleSet rules;
    // How often in ten a rule is on. A man crowned on the way goes on jumping.
    constexpr std::pair<Byte RuleSet::*, Long> kOftenOn[] = {
        {&RuleSet::MulJumps, 7},        {&RuleSet::MaxCapMove, 5},
        {&RuleSet::MaxCapMoveKings, 3}, {&RuleSet::MaxCapMoveK, 5},
        {&RuleSet::CapRequired, 6},     {&RuleSet::KingCapMove, 3},
        {&RuleSet::LastCap, 3},         {&RuleSet::ManCapKing, 7},
        {&RuleSet::ManContJump, 6},     {&RuleSet::ManContJumpCrowned, 5},
        {&RuleSet::ManCapMoveKing, 2},  {&RuleSet::LongKings, 6},
        {&RuleSet::KingFirst, 3},       {&RuleSet::CapReverse, 3},
        {&RuleSet::RemovePieces, 6},    {&RuleSet::KingMan, 2},
        {&RuleSet::ManKing, 2},         {&RuleSet::ChangeSide, 2},
        {&RuleSet::BlackStarts, 5}};
    for (const auto& [rule, onInTen] : kOftenOn) rules.*rule = DrawFlag(random, onInTen);
    if (rules.ManContJump != 1) rules.ManContJumpCrowned = 0;
    rules.JumpFriend = DrawFlag(random, 4);
    rules.NumberFriends = Draw(random, 5) - 1;
    rules.PiecesOnBlack = static_cast<Byte>(Draw(random, 3));
    if (DrawOneIn(random, 4)) {
        rules.canContract = 1;
        rules.ContractNumber = Draw(random, 6);
        for (Long* row : {&rules.ContractW1, &rules.ContractW2, &rules.ContractB1, &rules.ContractB2})
            *row = 2 + Draw(random, 12);
    }
    rules.PromoW = DrawPromotions(random, rules.PromoW);
    rules.PromoB = DrawPromotions(random, rules.PromoB);
    if (!DrawOneIn(random, 4)) {
        const auto draw = [&](bool king) { return DrawMovement(random, rules.PiecesOnBlack == 2, king); };
        rules.WhiteManMovement = draw(false);
        rules.BlackManMovement = DrawOneIn(random, 2) ? rules.WhiteManMovement : draw(false);
        rules.WhiteKingMovement = draw(true);
        rules.BlackKingMovement = DrawOneIn(random, 2) ? rules.WhiteKingMovement : draw(true);
    }
    return rules;
}

void PlacePiecesAtRandom(Position& position, Random& random) {
    GameTree& tree = position.Tree;
    tree.SideToMove = DrawOneIn(random, 2) ? kWhite : kBlack;
    tree.TreeIndex = 0;
    position.Board = EmptyBoard();
    Long percent = 4 + Draw(random, 50);
    Long kingsInTen = Draw(random, 6);
    Long balance = 0;
    std::vector<Long> occupied;
    for (Long square = kFirstSquare; square <= kLastSquare; ++square) {
        if (!IsSquare(square) || !IsPlayingSquare(square, position.Rules.PiecesOnBlack)) continue;
        if (Draw(random, 100) >= percent) continue;
        Long piece = Draw(random, 10) < kingsInTen ? kKing : kMan;
        Long side = DrawOneIn(random, 2) ? kWhite : kBlack;
        position.Board[square] = side * piece;
        balance += side * piece;
        occupied.push_back(square);
    }
    RecountPieces(position);
    if (!occupied.empty() && !DrawOneIn(random, 5)) {
        tree.TreeIndex = 1;
        tree.TreeTo[1] = occupied[static_cast<std::size_t>(Draw(random, static_cast<Long>(occupied.size())))];
    }
    Long stock = position.Rules.ContractNumber;
    tree.WhiteOffBoard = Draw(random, stock + 1);
    tree.BlackOffBoard = Draw(random, stock + 1);
    tree.PlyValue[tree.Ply] = tree.SideToMove * 100 * balance;
    tree.PlyMaterial[tree.Ply] = 100 * position.PieceSum;
}

Long PlayAtRandom(Position& position, Long halfMoves, Random& random) {
    for (Long made = 0; made < halfMoves; ++made) {
        Long count = GenerateLegalMoves(position);
        if (count <= 0 || position.Fault.Passed()) return made;
        PlayMove(position, position.Tree.PlyFirstMove[0] + Draw(random, count));
    }
    return halfMoves;
}

void PlayMove(Position& position, Long slot) {
    PerformMove(position, slot);
    InitGameTree(position);
}

} // namespace tavlon12::support
