#include "lab/workbench.h"

#include "engine/evaluation_tables.h"
#include "lab/family.h"
#include "rules/rule_keys.h"
#include "session/game_end.h"
#include "session/input_move.h"
#include "session/load_variant.h"
#include "session/record_move.h"

#include <algorithm>
#include <array>

namespace tavlon12::lab {

namespace {

/// Keys of a definition that are texts for the user and no rules.
constexpr std::array<std::string_view, 3> kTextKeys = {"Help", "HelpLink", "QuickHelpLink"};

std::string RangeOf(const RuleKey& key) {
    return std::holds_alternative<Byte RuleSet::*>(key.Member) ? "from 0 to 255" : "from -2147483648 to 2147483647";
}

/// One line of a definition behind those of the file.
Failure ApplyRule(std::string_view line, Session& game) {
    std::string_view name = line.substr(0, line.find('='));
    std::string_view value = line.substr(name.size() + 1);
    const RuleKey* key = FindRuleKey(name);
    if (key == nullptr) {
        if (std::ranges::find(kTextKeys, name) != kTextKeys.end()) return std::nullopt;
        return "--rule " + Quoted(line) + ": no key of a definition";
    }
    if (!SetRuleValue(game.Variant.DefinedRules, *key, value)) {
        return "--rule " + Quoted(line) + ": the number must lie " + RangeOf(*key);
    }
    if (name == "Setup" && value != "normal") PlaceSetup(game.Pos, value);
    return std::nullopt;
}

/// The balance of a set-up as the side to move sees it, whatever the order of the rules that told both.
void BalanceForBeginner(Position& position, const RuleSet& rules) {
    const PieceCensus pieces = CountPieces(position.Board);
    const Long ofBlack = (pieces.BlackSum - pieces.WhiteSum) * 100;
    const Long balance = rules.BlackStarts == 1 ? ofBlack : -ofBlack;
    position.Tree.PlyValue[0] = position.Tree.GameValue[0] = balance;
}

/// The start of a new game under the rules of file and options, current and defined alike.
Failure StartGame(const Lab& lab, const Options& options, Workbench& bench) {
    Position& position = bench.Pos;
    VariantState& variant = bench.Game.Variant;
    PlaceClassicStart(position);
    if (options.ReadsDefinition) {
        variant.VariantFile = options.Variant;
        const std::filesystem::path folder =
            options.Variants.empty() ? VariantFolder(lab.ProgramFolder, 1) : options.Variants;
        if (auto failure = LoadVariant(bench.Game, VariantPath(folder, options.Variant))) return failure->Message();
    }
    for (const std::string& rule : options.Rules) {
        if (Failure failure = ApplyRule(rule, bench.Game)) return failure;
    }
    if (!options.Rules.empty()) BalanceForBeginner(position, variant.DefinedRules);
    position.Rules = variant.DefinedRules;
    AdoptMovements(position);
    FinishNewPosition(position, variant.DefinedRules.PiecesOnBlack);
    return std::nullopt;
}

/// What stands behind the options for the family: the rules as they were given, before a position set by hand turns
/// `BlackStarts` to its side to move.
Failure ChooseFamily(const Options& options, const Workbench& bench, Family& ofTables, Family& ofMembers) {
    const Position& position = bench.Pos;
    ofTables = options.Setup ? Family::None : RecognizeVariantFamily(position.Rules, position.InitialBoard);
    if (options.Use == Members::Fast) {
        ofTables = FamilyOfRules(bench.Game.Variant.DefinedRules);
        if (ofTables == Family::None) return "--fast: these rules have no fast generator";
    }
    const bool asTheGame = options.Use == Members::OfGame && options.Name == Command::Search;
    ofMembers = asTheGame || options.Use == Members::Fast ? ofTables : Family::None;
    return std::nullopt;
}

void PlaceByHand(const Options& options, Position& position) {
    if (options.Turn) position.Tree.SideToMove = *options.Turn;
    if (options.Setup) {
        position.Board = ReadPositionString(*options.Setup);
        AdoptBoard(position);
    }
    if (options.OffBoard) {
        position.Tree.WhiteOffBoard = (*options.OffBoard)[0];
        position.Tree.BlackOffBoard = (*options.OffBoard)[1];
    }
    position.Tree.TreeTo[0] = options.Last;
}

/// One move of the real game, recorded as a person's is.
Failure PlayMove(Session& game, const std::string& key, std::size_t number) {
    Position& position = game.Pos;
    const std::string move = "--play: move " + std::to_string(number) + ", " + Quoted(LowerCase(key)) + ", ";
    if (GameIsFull(game)) return move + "is too much: a game holds " + std::to_string(kMaxHalfMoves) + " half-moves";
    const MoveAnswer answer = InputMove(game, key);
    if (Failure failure = LimitPassed(position)) return failure;
    if (std::holds_alternative<Refusal>(answer)) return move + "is not legal";

    EnterHalfMove(game, std::get<MadeMove>(answer), {kByPerson, 0, "2"});
    UpdateDrawStatus(game);
    InitGameTree(position);
    return std::nullopt;
}

} // namespace

Failure GeneratorLimitPassed(const Position& position) {
    const GeneratorFault& fault = position.Fault;
    std::string text;
    switch (fault.Limit) {
    case GeneratorFault::Kind::None: return std::nullopt;
    case GeneratorFault::Kind::Jumps: text = "a capture jumps more pieces than a move can hold"; break;
    case GeneratorFault::Kind::Rows: text = "more captures than the table can hold"; break;
    case GeneratorFault::Kind::Work: text = "the search for captures does not end"; break;
    }
    text += " (jumps " + std::to_string(fault.Depth) + ", captures " + std::to_string(fault.Rows) + ")";
    if (position.Rules.RemovePieces != 1) text += "; try RemovePieces=1";
    return text;
}

Failure LimitPassed(const Position& position) {
    if (Failure failure = GeneratorLimitPassed(position)) return failure;
    if (position.StopFlag == 0) return std::nullopt;
    return "the move list is full: it holds " + std::to_string(kMoveSlots - 1) + " moves";
}

Failure PreparePosition(Lab& lab, const Options& options) {
    Workbench& bench = lab.Bench.emplace();
    if (Failure failure = StartGame(lab, options, bench)) return failure;
    Family ofTables = Family::None;
    if (Failure failure = ChooseFamily(options, bench, ofTables, bench.FamilyOfMembers)) return failure;
    PlaceByHand(options, bench.Pos);
    BuildTables(bench.Pos, ofTables, bench.Search);
    bench.Search.Tables.VariantFamily = bench.FamilyOfMembers;
    SetManThresholds(bench.Pos, bench.Search);
    for (std::size_t i = 0; i < options.Play.size(); ++i) {
        if (Failure failure = PlayMove(bench.Game, options.Play[i], i + 1)) return failure;
    }
    return std::nullopt;
}

} // namespace tavlon12::lab
