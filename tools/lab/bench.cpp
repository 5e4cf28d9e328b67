#include "lab/bench.h"

#include "lab/batch.h"
#include "rules/board.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <vector>

namespace tavlon12::lab {

namespace {

/// Rules of a line from "KEY=VALUE" parts with "|" between them.
std::string Rules(std::string_view parts) {
    std::string line;
    while (!parts.empty()) {
        std::string_view part = parts.substr(0, parts.find('|'));
        parts.remove_prefix(std::min(part.size() + 1, parts.size()));
        line.append(" --rule '").append(part).append("'");
    }
    return line;
}

std::string Rows(Long count, char digit) {
    return std::string(static_cast<std::size_t>(count * kLastColumn), digit);
}

std::string WholeRow(std::string_view rank) {
    std::string squares;
    for (char column = 'A'; column <= 'L'; ++column) squares.append(1, column).append(rank);
    return squares;
}

} // namespace

std::vector<BenchCase> BenchCases() {
    const std::string forwardMen = "WhiteManMovement=NW;NE NW;NE|BlackManMovement=NW;NE NW;NE";
    const std::string american =
        Rules("MaxCapMove=0|LongKings=0|ManContJump=0|RemovePieces=0|BlackStarts=1|" + forwardMen);
    const std::string italian =
        Rules("MaxCapMoveKings=1|KingCapMove=1|ManCapKing=0|LongKings=0|ManContJump=0|RemovePieces=0|"
              "PiecesOnBlack=0|PromoW=AbCbEbGbIbKb|PromoB=B1D1F1H1J1L1|" +
              forwardMen);
    const std::string russian = Rules("MaxCapMove=0|ManContJumpCrowned=1|ThreeKings=1|NumberKings=15");
    const std::string straight = Rules("PiecesOnBlack=2|WhiteManMovement=N;E;W N;E;W|BlackManMovement=N;E;W N;E;W|"
                                       "WhiteKingMovement=N;E;S;W N;E;S;W|BlackKingMovement=N;E;S;W N;E;S;W|PromoW=" +
                                       WholeRow("b") + "|PromoB=" + WholeRow("1") + "|Setup=" + Rows(1, '0') +
                                       Rows(3, '1') + Rows(4, '0') + Rows(3, '2') + Rows(1, '0'));
    const std::string placement = Rules("canContract=1|ContractNumber=8|ContractW1=2|ContractW2=4|ContractB1=13|"
                                        "ContractB2=11|PromoW=BbDbFbHbJbLb|Setup=" +
                                        Rows(4, '0') + "101010101010" + Rows(2, '0') + "020202020202" + Rows(4, '0'));

    // Games under the default rules, so that the start position counts and the keys of the game are there.
    const std::string middle =
        " --play 'c5d6 j8i7 d4c5 d8e7 e3d4 l8k7 d2e3 i7j6 k5i7 h8j6 c1d2 e7f6 e5g7 f8h6 g5k5 k7j6 "
        "i5k7 b8c7 d6b8 a9c7 d4e5 c9d8'";
    const std::string locked =
        " --play 'a5b6 b8a7 c5d6 a7e7 d4c5 c9b8 c3d4 b8c7 b2c3 c7b6 c5a7 e7d6 e5c7 d8b6 a7c5 f8g7 a1b2 "
        "g7f6 g5e7 h8i7 b4a5 i7h6 i5g7 j8k7 a3b4 a9b8 b2a3 b8c7 c1b2 c7d6 d4e5 d6h6 c3d4 e9f8 b2c3 "
        "f8g7'";
    const std::string late =
        " --play 'e5d6 j8i7 k5j6 i7k5 l4j6 i9j8 k3l4 b8c7 d6b8 a9c7 j2k3 f8g7 i1j2 g7h6 i5k7 c7b6 a5c7 d8b6 "
        "c5a7 c9d8 b4a5 d8e7 a3b4 e9f8 b2a3 e7d6 a1b2 f8e7 b4c5 d6b4 a3c5 e7d6 c5e7 g9h8 b2a3 h8g7 "
        "c1b2 g7f6 a3b4 f6d8 b2a3 d8e7 b4c5 e7d6 c5e7 b0c9 a3b4 c9b8 a7c9 d0b8 b4c5 b8c7 c3b4 c7d6 "
        "d2c3 d6f8 e1d2 f8g7'";
    const std::string kings = " --setup "
                              "000000000000030000000000000000000000010000000200000000000040000000000000"
                              "000010000000000000000002200000000000020000000300000000000000000003000000";

    return {
        {"perft-start", "perft --depth 8"},
        {"perft-start-fast", "perft --depth 8 --fast"},
        {"perft-start-made", "perft --depth 7", true},
        {"perft-start-fast-made", "perft --depth 7 --fast", true},
        {"perft-kings", "perft --depth 5" + kings},
        {"perft-straight", "perft --depth 6" + straight},
        {"start-general", "search --depth 8 --general"},
        {"start-fast", "search --depth 9 --fast"},
        {"middle-general", "search --depth 8 --general" + middle},
        {"middle-fast", "search --depth 8 --fast" + middle},
        {"locked-general", "search --depth 8 --general" + locked},
        {"locked-fast", "search --depth 8 --fast" + locked},
        {"late-general", "search --depth 8 --general" + late},
        {"late-fast", "search --depth 8 --fast" + late},
        {"kings-general", "search --depth 6" + kings},
        {"kings-fast", "search --depth 6 --fast" + kings},
        {"american-fast", "search --depth 9 --fast" + american},
        {"italian-fast", "search --depth 9 --fast" + italian},
        {"russian-fast", "search --depth 9 --fast" + russian},
        {"anti", "search --depth 8" + Rules("AntiMode=1|MaxCapMove=0")},
        {"first-king", "search --depth 8" + Rules("KingWin=1")},
        {"return", "search --depth 8" + Rules("WinAtPromo=1|MaxCapMove=0")},
        {"straight-all-squares", "search --depth 6" + straight},
        {"single-jumps", "search --depth 8" + Rules("MulJumps=0|MaxCapMove=0")},
        {"last-mover", "search --depth 8" + Rules("LastCap=1|CapRequired=0|MaxCapMove=0")},
        {"passable", "search --depth 6" + Rules("RemovePieces=0|CapReverse=1|MaxCapMove=0") + kings},
        {"friends", "search --depth 6" + Rules("JumpFriend=1|NumberFriends=-1")},
        {"placement", "search --depth 7" + placement},
    };
}

namespace {

struct Measurement {
    std::uint64_t Nodes = 0;
    double Seconds = 0;
};

void AddFigures(std::string& output, const std::string& name, const Measurement& measured) {
    constexpr double kShortest = 1e-6;
    const double perSecond = static_cast<double>(measured.Nodes) / std::max(measured.Seconds, kShortest);
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.3f", measured.Seconds);
    output += name + " nodes " + std::to_string(measured.Nodes) + " seconds " + seconds + " nps " +
              std::to_string(std::llround(perSecond)) + '\n';
}

double SecondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Failure RunCase(Lab& lab, const BenchCase& benchCase, Measurement& measured) {
    std::vector<std::string> words;
    Options options;
    Report report;
    Failure failure = SplitWords(benchCase.Line, words);
    if (!failure) failure = ParseOptions(words, options);
    options.ReadsDefinition = false;
    options.MakesLastPly = benchCase.MakesLastPly;
    const auto start = std::chrono::steady_clock::now();
    if (!failure) failure = RunPrepared(lab, options, report);
    if (failure) return benchCase.Name + ": " + *failure;
    measured.Seconds += SecondsSince(start);
    measured.Nodes += report.Nodes;
    return std::nullopt;
}

} // namespace

Failure RunBench(Lab& lab, std::span<const BenchCase> cases, std::optional<Long> seconds, Report& report) {
    std::vector<Measurement> measured(cases.size());
    const auto start = std::chrono::steady_clock::now();
    do {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            if (Failure failure = RunCase(lab, cases[i], measured[i])) return failure;
        }
    } while (seconds && SecondsSince(start) < *seconds);

    Measurement total;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        AddFigures(report.Output, cases[i].Name, measured[i]);
        total.Nodes += measured[i].Nodes;
        total.Seconds += measured[i].Seconds;
    }
    AddFigures(report.Output, "total", total);
    return std::nullopt;
}

} // namespace tavlon12::lab
