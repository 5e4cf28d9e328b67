#include "engine/evaluate.h"
#include "engine/evaluation_tables.h"
#include "engine/fast_evaluate.h"
#include "engine/root_search.h"
#include "rules/generate_moves.h"
#include "rules/make_move.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace tavlon12 {
namespace {

/// The start of Canadian draughts and what a search needs, with a few opening moves made.
struct Bench {
    std::unique_ptr<Position> Pos = std::make_unique<Position>();
    std::unique_ptr<SearchState> Search = std::make_unique<SearchState>();

    explicit Bench(Long halfMoves) {
        PlaceClassicStart(*Pos);
        FinishNewPosition(*Pos, Pos->Rules.PiecesOnBlack);
        BuildEvaluationTables(*Pos, Search->Tables);
        SetManThresholds(*Pos, *Search);
        for (Long i = 0; i < halfMoves; ++i) {
            Long moves = GenerateLegalMoves(*Pos);
            PerformMove(*Pos, i * 5 % moves);
            InitGameTree(*Pos);
        }
        GenerateLegalMoves(*Pos);
    }
};

void Generate(benchmark::State& state) {
    Bench bench(static_cast<Long>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(GenerateLegalMoves(*bench.Pos));
}
BENCHMARK(Generate)->Arg(0)->Arg(20)->Arg(40);

void MakeAndUnmake(benchmark::State& state) {
    Bench bench(20);
    for (auto _ : state) {
        PerformMove(*bench.Pos, 0);
        TakeBackMove(*bench.Pos, 0);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MakeAndUnmake);

void EvaluateGeneral(benchmark::State& state) {
    Bench bench(static_cast<Long>(state.range(0)));
    Long side = bench.Pos->Tree.SideToMove;
    for (auto _ : state) benchmark::DoNotOptimize(Evaluate(*bench.Pos, *bench.Search, -kWin, kWin, side));
}
BENCHMARK(EvaluateGeneral)->Arg(0)->Arg(20)->Arg(40);

void EvaluateGerman(benchmark::State& state) {
    Bench bench(static_cast<Long>(state.range(0)));
    Long side = bench.Pos->Tree.SideToMove;
    for (auto _ : state) {
        benchmark::DoNotOptimize(EvaluateFamily<Family::German>(*bench.Pos, *bench.Search, -kWin, kWin, side));
    }
}
BENCHMARK(EvaluateGerman)->Arg(0)->Arg(20)->Arg(40);

void SearchToDepth(benchmark::State& state) {
    auto moves = std::make_unique<RootMoveTable>();
    RootSearchInput input;
    input.DepthLimit = static_cast<Long>(state.range(0));
    std::uint64_t nodes = 0;
    for (auto _ : state) {
        Bench bench(20);
        input.Member = SearchMemberOf(*bench.Pos, *bench.Search);
        SearchRoot(*bench.Pos, *bench.Search, input, RootSearchHooks(), *moves);
        nodes += bench.Search->NodeCount;
    }
    state.counters["nodes"] = benchmark::Counter(static_cast<double>(nodes), benchmark::Counter::kIsRate);
}
BENCHMARK(SearchToDepth)->Arg(6)->Arg(8)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace tavlon12
