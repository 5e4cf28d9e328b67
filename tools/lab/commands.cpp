#include "lab/commands.h"

#include "engine/evaluate.h"
#include "engine/root_search.h"
#include "lab/batch.h"
#include "lab/bench.h"
#include "lab/family.h"
#include "lab/games.h"
#include "lab/perft.h"
#include "rules/generate_moves.h"
#include "session/game_end.h"
#include "session/thinking.h"

#include <istream>
#include <ostream>
#include <type_traits>

namespace tavlon12::lab {

namespace {

const char* const kInterrupted = "interrupted";

/// One line of output from its fields.
template <typename... Fields> void AddLine(std::string& output, const Fields&... fields) {
    auto textOf = [](const auto& field) -> std::string {
        if constexpr (std::is_arithmetic_v<std::decay_t<decltype(field)>>) {
            return std::to_string(field);
        } else {
            return std::string(field);
        }
    };
    ((output += textOf(fields), output += ' '), ...);
    output.back() = '\n';
}

std::string Dashed(Long from, Long to) {
    return std::to_string(from) + "-" + std::to_string(to);
}

/// The jumped pieces as fields of magnitude and three-digit square, "-" for none.
std::string CapturesText(const CapturePath& captures) {
    if (captures.Count == 0) return "-";
    std::string text;
    for (Long i = 0; i < captures.Count; ++i) {
        std::string square = std::to_string(captures.Squares[i]);
        text += std::to_string(captures.MagnitudeAt(i)) + std::string(3 - square.size(), '0') + square;
    }
    return text;
}

Failure RunMoves(Workbench& bench, std::string& output) {
    Position& position = bench.Pos;
    const Long count = GenerateLegalMovesOf(bench.FamilyOfMembers, position);
    if (Failure failure = LimitPassed(position)) return failure;
    for (Long slot = position.Tree.PlyFirstMove[0]; slot < count; ++slot) {
        const MoveRecord& move = position.Moves[slot];
        AddLine(output, move.From, move.To, CapturesText(move.Captures), move.Promotes);
    }
    return std::nullopt;
}

Failure RunPerft(const Lab& lab, const Options& options, Workbench& bench, Report& report) {
    const LastPly lastPly = options.MakesLastPly ? LastPly::Made : LastPly::InBulk;
    const PerftResult result =
        CountSequences(bench.Pos, bench.FamilyOfMembers, options.Depth, lastPly, lab.Interrupted);
    if (result.Interrupted) return kInterrupted;
    if (Failure failure = LimitPassed(bench.Pos)) return failure;
    for (std::size_t i = 0; i < result.ByDepth.size(); ++i) {
        AddLine(report.Output, "perft", i + 1, result.ByDepth[i]);
    }
    report.Nodes = result.ByDepth.back();
    if (!options.Divide) return std::nullopt;
    for (const PerftResult::RootCount& root : result.Roots) {
        AddLine(report.Output, Dashed(root.From, root.To), root.Count);
    }
    return std::nullopt;
}

Failure RunEval(const Options& options, Workbench& bench, std::string& output) {
    const Long side = options.Side.value_or(bench.Pos.Tree.SideToMove);
    const Long value = EvaluateOf(bench.FamilyOfMembers, bench.Pos, bench.Search, side);
    if (Failure failure = LimitPassed(bench.Pos)) return failure;
    AddLine(output, "eval", value, "lost", bench.Search.LostFlag ? 1 : 0, "nomoves", bench.Search.NoMovesDraw ? 1 : 0);
    return std::nullopt;
}

/// Row 0 of the best lines.
std::string MainLine(const Position& position) {
    std::string line;
    for (const BestLineCell& cell : position.BestLine[0]) {
        if (cell.From == 0) break;
        if (!line.empty()) line += ' ';
        line += Dashed(cell.From, cell.To);
    }
    return line;
}

/// Why there is nothing to search, told for the side to move as the computer's move asks it; empty when the moves are
/// in the list. The moves are the general generator's, as at the root of every search.
std::string OverText(Workbench& bench) {
    Position& position = bench.Pos;
    const RootValue root = EvaluateRoot(position, bench.Search, position.Tree.SideToMove);
    if (root.NoMovesDraw) return "draw";
    if (root.Lost) return "lost";
    if (root.Value == kWin) return "won";
    return GenerateLegalMoves(position) > 0 ? "" : "nomoves";
}

void SearchAndTell(const Options& options, Workbench& bench, Report& report) {
    Position& position = bench.Pos;
    SearchState& search = bench.Search;
    Session& game = bench.Game;
    RootSearchInput input;
    input.Member = MemberOf(position, search);
    input.DepthLimit = MoveCount(position.Tree) == 1 ? 1 : options.Depth;
    input.MoveLimitHit = CheckMoveLimit(game, position.Tree.TreeIndex - 1);

    Long score = 0;
    std::string line;
    RootSearchHooks hooks;
    hooks.BestFound = [&](Long, Long, Long bestScore) {
        score = bestScore;
        line = MainLine(position);
    };
    hooks.IterationFinished = [&](Long iteration) {
        AddLine(report.Output, "depth", iteration, "score", score, "nodes", search.NodeCount, "line", line);
    };
    const RootSearchResult result = SearchRoot(position, search, input, hooks, game.Thought.RootMoves);
    SortCandidates(game);
    for (Long i = 0; i < MoveCount(position.Tree); ++i) {
        AddLine(report.Output, "candidate", game.Thought.RootMoves[i].From, game.Thought.RootMoves[i].To,
                game.Thought.RootMoves[i].Score);
    }
    const MoveRecord& best = position.Moves[position.Tree.PlyFirstMove[0]];
    AddLine(report.Output, "bestmove", best.From, best.To, result.LastScore);
    report.Nodes = search.NodeCount;
}

Failure RunSearchCommand(const Lab& lab, const Options& options, Workbench& bench, Report& report) {
    bench.Search.Options = options.Search;
    bool interrupted = false;
    if (lab.Interrupted) {
        bench.Search.Yield = [&] {
            interrupted = interrupted || lab.Interrupted();
            if (interrupted) bench.Pos.StopFlag = kStopQuit;
        };
    }
    // A full move list is no failure: it ends the search in order, and what was found until then stands.
    const std::string over = OverText(bench);
    if (Failure failure = GeneratorLimitPassed(bench.Pos)) return failure;
    if (!over.empty()) {
        AddLine(report.Output, "over", over);
        return std::nullopt;
    }
    SearchAndTell(options, bench, report);
    if (interrupted) return kInterrupted;
    return std::nullopt;
}

} // namespace

Failure RunPrepared(Lab& lab, const Options& options, Report& report) {
    if (Failure failure = PreparePosition(lab, options)) return failure;
    Workbench& bench = *lab.Bench;
    switch (options.Name) {
    case Command::Moves: return RunMoves(bench, report.Output);
    case Command::Perft: return RunPerft(lab, options, bench, report);
    case Command::Eval: return RunEval(options, bench, report.Output);
    case Command::Search: return RunSearchCommand(lab, options, bench, report);
    case Command::Bench: return RunBench(lab, BenchCases(), options.Seconds, report);
    }
    return std::nullopt;
}

Failure RunCommand(Lab& lab, std::span<const std::string> words, Report& report) {
    if (!words.empty() && IsGamesCommand(words[0])) return RunGamesCommand(lab, words, report);
    Options options;
    if (Failure failure = ParseOptions(words, options)) return failure;
    return RunPrepared(lab, options, report);
}

int RunTool(Lab& lab, std::span<const std::string> words, std::istream& in, std::ostream& out, std::ostream& err) {
    constexpr int kBadUsage = 2;
    int status = 0;
    Failure failure;
    if (!words.empty() && words[0] == "batch") {
        if (words.size() > 1) {
            failure = "batch takes no options, got " + Quoted(words[1]);
        } else {
            RunBatch(lab, in, out);
        }
    } else {
        Report report;
        failure = RunCommand(lab, words, report);
        if (!failure) out << report.Output;
        status = report.Status;
    }
    if (!failure && !out.flush()) failure = "standard output cannot be written";
    if (!failure) return status;
    err << "tavlon12-lab: " << OneLine(*failure) << '\n';
    return kBadUsage;
}

} // namespace tavlon12::lab
