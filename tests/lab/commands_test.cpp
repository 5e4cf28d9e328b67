#include "engine/evaluate.h"
#include "engine/fast_evaluate.h"
#include "lab/bench.h"
#include "lab/lab_support.h"

#include <algorithm>
#include <numeric>

namespace tavlon12::lab {
namespace {

using Fields = std::vector<std::string>;

Fields FieldsOfLine(const std::string& line) {
    std::istringstream stream(line);
    Fields fields;
    for (std::string field; stream >> field;) fields.push_back(field);
    return fields;
}

/// The lines that begin with `word`.
std::vector<Fields> Records(const std::string& output, const std::string& word) {
    std::vector<Fields> records;
    for (const std::string& line : LinesOf(output)) {
        Fields fields = FieldsOfLine(line);
        if (fields.at(0) == word) records.push_back(fields);
    }
    return records;
}

long ValueOf(const std::string& options) {
    return std::stol(FieldsOfLine(OutputOf("eval" + options)).at(1));
}

struct OutputRow {
    const char* Name;
    std::string Options;
    std::string Output;
};

TEST(LabMoves, ArePrintedFieldByField) {
    const std::string start = "85 100 - 0\n87 100 - 0\n87 102 - 0\n89 102 - 0\n89 104 - 0\n91 104 - 0\n91 106 - 0\n"
                              "93 106 - 0\n93 108 - 0\n95 108 - 0\n95 110 - 0\n";
    const std::string placing = " --rule canContract=1 --rule ContractNumber=1 --rule ContractW1=2 --rule ContractW2=3 "
                                "--rule ContractB1=12 --rule ContractB2=13 --rule Setup=0";
    const std::string pieces = Digits({{"b2", '1'}, {"d8", '1'}, {"k9", '2'}});
    const std::string pursued = Digits({{"c3", '1'}, {"g3", '1'}, {"d4", '2'}, {"h4", '2'}});
    const std::vector<OutputRow> rows = {
        {"start", "", start},
        {"the family's generator", " --fast", start},
        {"a man takes a king and a man", " --setup " + Digits({{"c3", '1'}, {"d4", '4'}, {"f6", '2'}}),
         "59 119 20741104 0\n"},
        {"promotion", " --setup " + Digits({{"kb", '2'}, {"ka", '1'}}), "179 192 - 2\n179 194 - 2\n"},
        {"promotion in a capture", " --setup " + Digits({{"h0", '1'}, {"ia", '2'}}), "162 192 1177 2\n"},
        {"landings of a king", " --setup " + Digits({{"h8", '3'}, {"i9", '2'}}),
         "134 164 1149 0\n134 179 1149 0\n134 194 1149 0\n"},
        {"placements", placing, "999 29 - 0\n999 31 - 0\n999 33 - 0\n999 35 - 0\n999 37 - 0\n999 39 - 0\n"},
        {"no piece left to place", placing + " --offboard 0,5", ""},
        {"a placement as a move of the game", placing + " --play c1",
         "999 169 - 0\n999 171 - 0\n999 173 - 0\n999 175 - 0\n999 177 - 0\n999 179 - 0\n"},
        {"a set-up of a definition is shifted and filled up",
         " --rule PiecesOnBlack=0 --rule Setup=" + Digits({{"c3", '1'}}).substr(0, 30), "60 73 - 0\n60 75 - 0\n"},
        {"one by hand is not shifted", " --rule PiecesOnBlack=0 --setup " + Digits({{"c3", '1'}}),
         "59 72 - 0\n59 74 - 0\n"},
        {"side to move", " --turn black --setup " + pieces, "151 138 - 0\n151 136 - 0\n"},
        {"Black begins", " --rule BlackStarts=1 --setup " + pieces, "151 138 - 0\n151 136 - 0\n"},
        {"the later rule counts", " --rule BlackStarts=1 --rule BlackStarts=0 --setup " + Digits({{"c3", '1'}}),
         "59 72 - 0\n59 74 - 0\n"},
        {"texts of a definition are no rules", " --rule Help=x --rule HelpLink=x --rule QuickHelpLink=x", start},
        {"numbers as in a definition", " --rule 'MulJumps= 1 yes' --rule NumberFriends=-1", start},
        {"movement strings", " --rule 'WhiteManMovement=N' --setup " + Digits({{"c3", '1'}}), "59 73 - 0\n"},
        {"no piece moved last", " --rule LastCap=1 --setup " + pursued, "59 89 1074 0\n63 93 1078 0\n"},
        {"the piece moved last", " --rule LastCap=1 --last 78 --setup " + pursued, "63 93 1078 0\n"},
    };
    for (const OutputRow& row : rows) EXPECT_EQ(OutputOf("moves" + row.Options), row.Output) << row.Name;
}

TEST(LabMoves, OfTheGameSetThePieceMovedLast) {
    const std::string setup = " --rule LastCap=1 --rule CapRequired=0 --turn black --setup " +
                              Digits({{"d4", '1'}, {"g3", '1'}, {"f6", '2'}, {"h4", '2'}, {"a9", '2'}});
    EXPECT_EQ(OutputOf("moves" + setup + " --play a9b8"), "63 76 - 0\n74 87 - 0\n74 89 - 0\n63 93 1078 0\n");
    EXPECT_EQ(OutputOf("moves" + setup + " --play F6E5"), "74 104 1089 0\n");
}

TEST(LabPerft, CountsThePublishedSequences) {
    const std::string counts = "perft 1 11\nperft 2 121\nperft 3 1222\nperft 4 10053\nperft 5 79049\nperft 6 584100\n";
    EXPECT_EQ(OutputOf("perft --depth 6"), counts);
    EXPECT_EQ(OutputOf("perft --depth 6 --fast"), counts);
}

TEST(LabPerft, DividesByRootMoves) {
    for (const std::string options : {"perft --depth 1", "perft --depth 4", "perft --depth 4 --play 'c5d6 d8c7'"}) {
        const std::string whole = OutputOf(options);
        const std::string divided = OutputOf(options + " --divide");
        ASSERT_TRUE(divided.starts_with(whole));
        std::vector<std::string> lines = LinesOf(divided.substr(whole.size()));
        std::size_t play = options.find("--play");
        std::vector<std::string> moves =
            LinesOf(OutputOf("moves " + (play == std::string::npos ? "" : options.substr(play))));
        ASSERT_EQ(lines.size(), moves.size());
        long total = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            Fields move = FieldsOfLine(moves[i]);
            Fields fields = FieldsOfLine(lines[i]);
            EXPECT_EQ(fields.at(0), move[0] + "-" + move[1]);
            total += std::stol(fields.at(1));
        }
        EXPECT_EQ(std::to_string(total), FieldsOfLine(LinesOf(whole).back()).at(2));
    }
}

TEST(LabPerft, IsOverWhereNoMoveIs) {
    EXPECT_EQ(OutputOf("perft --depth 2 --divide --setup " + Digits({{"a1", '2'}})), "perft 1 0\nperft 2 0\n");
}

TEST(LabPerft, RootRulesHoldAtTheRootAlone) {
    const std::string options = " --depth 3 --rule MaxCapMove=0 --rule LastCap=1 --last 78 --setup " +
                                Digits({{"c3", '1'}, {"g3", '1'}, {"d4", '2'}, {"h4", '2'}, {"j6", '2'}, {"a7", '2'}});
    std::vector<Fields> counts = Records(OutputOf("perft" + options), "perft");
    EXPECT_EQ(counts[0][2], "1");
    // Black replies with any of its moves, although one of its captures starts with the piece moved last.
    std::string without = options;
    without.replace(without.find("LastCap=1"), 9, "LastCap=0");
    EXPECT_EQ(Records(OutputOf("perft" + without), "perft")[0][2], "2");
}

TEST(LabEval, CountsMaterialFromTheSideItIsAskedFor) {
    const std::string setup = Digits({{"a1", '3'}, {"c1", '3'}, {"b0", '4'}});
    EXPECT_EQ(ValueOf(" --setup " + setup), -ValueOf(" --turn black --setup " + setup));
    // The balance is the side to move's, whoever is asked for: it does not change its sign with the position.
    EXPECT_EQ(ValueOf(" --setup " + setup) + ValueOf(" --side black --setup " + setup), 2 * 200);
}

/// The value of a position that is prepared as for this command line, by an evaluation that is called directly.
template <typename Evaluation> long DirectValue(const std::string& line, Evaluation evaluation) {
    std::vector<std::string> words;
    Options options;
    auto lab = MakeLab();
    EXPECT_EQ(SplitWords(line, words), std::nullopt);
    EXPECT_EQ(ParseOptions(words, options), std::nullopt);
    EXPECT_EQ(PreparePosition(*lab, options), std::nullopt);
    return evaluation(lab->Bench->Pos, lab->Bench->Search);
}

TEST(LabEval, TheFamilysEvaluationIsThatOfFastAlone) {
    auto general = [](Position& position, SearchState& search) {
        return Evaluate(position, search, -kWin, kWin, position.Tree.SideToMove);
    };
    auto german = [](Position& position, SearchState& search) {
        return EvaluateFamily<Family::German>(position, search, -kWin, kWin, position.Tree.SideToMove);
    };
    const std::string byHand = " --setup " + Digits({{"a1", '3'}, {"c3", '1'}, {"e5", '1'}, {"b0", '4'}, {"g7", '2'}});
    for (const std::string& options : {std::string(" --play 'c5d6 d8c7 e5f6'"), byHand, byHand + " --turn black"}) {
        EXPECT_EQ(ValueOf(options), DirectValue("eval" + options, general)) << options;
        EXPECT_EQ(ValueOf(options + " --fast"), DirectValue("eval --fast" + options, german)) << options;
        EXPECT_NE(ValueOf(options + " --fast"), ValueOf(options)) << options;
    }
}

TEST(LabSearch, TheStartDecidesTheFamilyUnlessAsked) {
    const std::string start = PositionString(ClassicStart());
    auto line = [](const std::string& options) { return OutputOf("search --depth 5" + options); };
    const std::string game = " --play 'c5d6 d8c7 e5f6'";
    EXPECT_EQ(line(game), line(game + " --fast"));
    EXPECT_NE(line(game), line(game + " --general"));
    EXPECT_EQ(line(" --setup " + start), line(" --general --setup " + start));
    EXPECT_NE(line(" --setup " + start), line(" --fast --setup " + start));
    EXPECT_EQ(line(" --rule NumberFriends=1" + game), line(" --rule NumberFriends=1 --general" + game));
}

TEST(LabEval, TurnAloneKeepsTheBalanceAsANumber) {
    const std::string options =
        " --rule Setup=" + Digits({{"a1", '3'}, {"c1", '3'}, {"b0", '4'}}) + " --rule BlackStarts=0";
    EXPECT_EQ(ValueOf(options + " --turn black"), ValueOf(options + " --side black"));
    EXPECT_EQ(ValueOf(options + " --turn black --side white"), ValueOf(options));
}

TEST(LabEval, ADefinitionsLinesTurnTheBalanceWhereTheyStand) {
    const std::string setup = " --rule Setup=" + Digits({{"a1", '3'}, {"c1", '3'}, {"b0", '4'}});
    const std::string white = " --rule BlackStarts=0";
    EXPECT_EQ(ValueOf(setup + white), ValueOf(white + setup) + 2 * 200);
    EXPECT_EQ(ValueOf(setup + white + white), ValueOf(white + setup));
    EXPECT_EQ(ValueOf(setup + white + " --rule Setup=normal"), ValueOf(setup + white));
}

TEST(LabEval, ARepeatedPlacementIsWorthNothing) {
    const std::string setup = " --setup " + Digits({{"a1", '3'}, {"b0", '4'}});
    EXPECT_NE(ValueOf(setup + " --play 'a1b2'"), 0);
    EXPECT_EQ(ValueOf(setup + " --play 'a1b2 b0c9 b2a1 c9b0 a1b2'"), 0);
}

TEST(LabEval, TellsLossesAndBlockedSides) {
    const std::string blocked = Digits({{"bb", '1'}, {"a1", '4'}});
    const std::vector<OutputRow> rows = {
        {"won", " --setup " + Digits({{"a1", '3'}}), "eval 32000 lost 0 nomoves 0\n"},
        {"won in anti mode", " --rule AntiMode=1 --setup " + Digits({{"a1", '4'}}), "eval 32000 lost 0 nomoves 0\n"},
        {"blocked", " --rule NoLegalDraw=1 --setup " + blocked, "eval 0 lost 0 nomoves 1\n"},
    };
    for (const OutputRow& row : rows) EXPECT_EQ(OutputOf("eval" + row.Options), row.Output) << row.Name;
    Fields lost = FieldsOfLine(OutputOf("eval --side black --setup " + Digits({{"a1", '3'}})));
    EXPECT_EQ(lost[3], "1");
}

TEST(LabSearch, TellsAPositionThatIsOver) {
    const std::string blocked = " --setup " + Digits({{"bb", '1'}, {"a1", '4'}});
    const std::string one = " --setup " + Digits({{"c3", '1'}, {"f8", '2'}, {"h8", '2'}});
    const std::vector<OutputRow> rows = {
        {"no pieces", " --setup " + Digits({{"a1", '2'}}), "over lost\n"},
        {"no pieces against it", " --setup " + Digits({{"a1", '1'}}), "over won\n"},
        {"no pieces in anti mode", " --rule AntiMode=1 --setup " + Digits({{"a1", '2'}}), "over won\n"},
        {"no pieces against it in anti mode", " --rule AntiMode=1 --setup " + Digits({{"a1", '1'}}), "over lost\n"},
        {"too few pieces", " --rule NumberPieces=1" + one, "over lost\n"},
        {"blocked", blocked, "over nomoves\n"},
        {"blocked in anti mode", " --rule AntiMode=1" + blocked, "over nomoves\n"},
        {"blocked where that is a draw", " --rule NoLegalDraw=1" + blocked, "over draw\n"},
        {"the first king", " --rule KingWin=1 --setup " + Digits({{"bb", '3'}, {"c5", '4'}}), "over won\n"},
        {"the opponent's first king", " --rule KingWin=1 --setup " + Digits({{"d4", '1'}, {"a1", '4'}}), "over lost\n"},
    };
    for (const OutputRow& row : rows) EXPECT_EQ(OutputOf("search --depth 3" + row.Options), row.Output) << row.Name;
}

struct SearchRow {
    const char* Name;
    std::string Options;
    std::size_t Iterations;
};

void PrintTo(const SearchRow& row, std::ostream* stream) {
    *stream << row.Name;
}

class LabSearchOutput : public testing::TestWithParam<SearchRow> {};

TEST_P(LabSearchOutput, HangsTogether) {
    const std::string& options = GetParam().Options;
    const std::string output = OutputOf("search" + options);
    EXPECT_EQ(OutputOf("search" + options), output);

    std::string position = options.substr(options.find(" --depth 4") + 10);
    if (std::size_t general = position.find(" --general"); general != std::string::npos) position.erase(general, 10);
    std::vector<std::string> moves;
    for (const std::string& line : LinesOf(OutputOf("moves" + position))) {
        Fields fields = FieldsOfLine(line);
        moves.push_back(fields[0] + "-" + fields[1]);
    }

    std::vector<Fields> depths = Records(output, "depth");
    ASSERT_EQ(depths.size(), GetParam().Iterations);
    long nodes = 0;
    for (std::size_t i = 0; i < depths.size(); ++i) {
        const Fields& fields = depths[i];
        ASSERT_GE(fields.size(), 8u);
        EXPECT_EQ(fields[1], std::to_string(i + 1));
        EXPECT_EQ((Fields{fields[2], fields[4], fields[6]}), (Fields{"score", "nodes", "line"}));
        EXPECT_GT(std::stol(fields[5]), nodes);
        nodes = std::stol(fields[5]);
        EXPECT_NE(std::ranges::find(moves, fields[7]), moves.end());
    }

    std::vector<std::string> candidates;
    std::vector<long> scores;
    for (const Fields& fields : Records(output, "candidate")) {
        candidates.push_back(fields.at(1) + "-" + fields.at(2));
        scores.push_back(std::stol(fields.at(3)));
    }
    EXPECT_TRUE(std::ranges::is_sorted(scores, std::greater()));
    std::ranges::sort(candidates);
    std::ranges::sort(moves);
    EXPECT_EQ(candidates, moves);

    std::vector<Fields> best = Records(output, "bestmove");
    ASSERT_EQ(best.size(), 1u);
    EXPECT_EQ(best[0].at(1) + "-" + best[0].at(2), depths.back()[7]);
    EXPECT_EQ(best[0].at(3), depths.back()[3]);
    EXPECT_EQ(LinesOf(output).size(), depths.size() + scores.size() + 1);
}

INSTANTIATE_TEST_SUITE_P(
    Positions, LabSearchOutput,
    testing::Values(
        SearchRow{"Start", " --depth 4", 4}, SearchRow{"StartGeneral", " --depth 4 --general", 4},
        SearchRow{"Kings", " --depth 4 --setup " + Digits({{"a1", '3'}, {"d4", '1'}, {"b0", '4'}, {"f8", '2'}}), 4},
        SearchRow{"OneMove", " --depth 4 --setup " + Digits({{"a1", '1'}, {"h8", '4'}}), 1},
        SearchRow{"Anti", " --depth 4 --rule AntiMode=1", 4}, SearchRow{"FirstKing", " --depth 4 --rule KingWin=1", 4},
        SearchRow{"SingleJumps", " --depth 4 --rule MulJumps=0 --play 'c5d6 d8c7'", 4},
        SearchRow{
            "Placing",
            " --depth 4 --rule canContract=1 --rule ContractNumber=2 --rule ContractW1=2 --rule ContractW2=3 --rule "
            "ContractB1=13 --rule ContractB2=12 --rule Setup=" +
                Digits({{"c5", '1'}, {"f8", '2'}}),
            4}),
    [](const testing::TestParamInfo<SearchRow>& row) { return std::string(row.param.Name); });

TEST(LabSearch, OptionsReachTheSearch) {
    const std::string setup = " --depth 5 --setup " + Digits({{"c5", '1'},
                                                              {"e5", '1'},
                                                              {"g5", '1'},
                                                              {"i5", '3'},
                                                              {"d8", '2'},
                                                              {"f8", '2'},
                                                              {"h8", '2'},
                                                              {"j8", '4'},
                                                              {"b4", '1'},
                                                              {"k9", '2'}});
    auto nodes = [&](const std::string& options) {
        return std::stol(Records(OutputOf("search" + setup + options), "depth").back()[5]);
    };
    const long usual = nodes("");
    EXPECT_EQ(nodes(" --plys 3 --balance 150 --extended 1 --bruteforce 0"), usual);
    for (const char* option : {" --plys 1", " --balance 1", " --extended 0", " --bruteforce 1"}) {
        EXPECT_NE(nodes(option), usual) << option;
    }
}

TEST(LabSearch, AMoveThatRepeatsTheGameIsWorthNothing) {
    // After the moves White can bring about the placement of the first half-move again.
    const std::string output =
        OutputOf("search --depth 2 --setup " + Digits({{"a1", '3'}, {"c1", '3'}, {"l6", '1'}, {"b0", '4'}}) +
                 " --play 'a1b2 b0c9 b2a1 c9b0'");
    long repeated = 1;
    for (const Fields& fields : Records(output, "candidate")) {
        if (fields[1] == "29" && fields[2] == "44") repeated = std::stol(fields[3]);
    }
    EXPECT_EQ(repeated, 0);
    EXPECT_GT(std::stol(Records(output, "bestmove")[0][3]), 100);
}

TEST(LabLimits, ARunawayCaptureIsOneLine) {
    std::string crowd(144, '0');
    for (std::size_t i = 1; i < crowd.size(); i += 2) crowd[i] = '4';
    crowd.back() = '3';
    const std::string options =
        " --rule RemovePieces=0 --rule CapReverse=1 --rule MaxCapMove=0 --rule PiecesOnBlack=2 --rule "
        "'WhiteKingMovement=N;NE;E;SE N;NE;E;SE;S;SW;W;NW' --setup " +
        crowd;
    for (const char* command : {"moves", "perft --depth 2", "search --depth 2", "eval --rule NoLegalDraw=1"}) {
        ToolRun run = RunLine(command + options);
        EXPECT_EQ(run.Status, 2) << command;
        EXPECT_EQ(run.Output, "") << command;
        EXPECT_EQ(LinesOf(run.Error).size(), 1u) << command;
        EXPECT_TRUE(run.Error.ends_with("; try RemovePieces=1\n")) << run.Error;
    }
}

TEST(LabLimits, AFullMoveListIsNoCount) {
    std::string crowd(144, '0');
    for (std::size_t i = 0; i < crowd.size(); i += 4) crowd[i] = i % 8 == 0 ? '3' : '4';
    const std::string queens = "=NW;N;NE;E;SE;S;SW;W";
    ToolRun run = RunLine("perft --depth 4 --rule WhiteKingMovement" + std::string("'") + queens +
                          "' --rule BlackKingMovement'" + queens + "' --setup " + crowd);
    EXPECT_EQ(run.Status, 2);
    EXPECT_EQ(run.Output, "");
    EXPECT_EQ(run.Error, "tavlon12-lab: the move list is full: it holds 1000 moves\n");
}

TEST(LabLimits, AnInterruptedCommandPrintsNothing) {
    auto lab = MakeLab();
    for (const char* command : {"perft", "search"}) {
        int nodes = 0;
        lab->Interrupted = [&nodes] { return ++nodes > 100; };
        Report report;
        const std::vector<std::string> words = {command, "--depth", "20"};
        EXPECT_EQ(RunCommand(*lab, words, report), "interrupted");
    }
}

TEST(LabBench, EveryCaseRunsAndTheTotalIsTheirSum) {
    auto lab = MakeLab();
    lab->ProgramFolder = "/nowhere"; // the set does not depend on definition files
    std::vector<BenchCase> cases = BenchCases();
    for (BenchCase& benchCase : cases) {
        std::size_t depth = benchCase.Line.find("--depth ");
        ASSERT_NE(depth, std::string::npos);
        benchCase.Line.replace(depth, benchCase.Line.find_first_of(" \n", depth + 8) - depth, "--depth 2");
    }
    Report report;
    ASSERT_EQ(RunBench(*lab, cases, std::nullopt, report), std::nullopt);

    std::vector<std::string> lines = LinesOf(report.Output);
    ASSERT_EQ(lines.size(), cases.size() + 1);
    long sum = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        Fields fields = FieldsOfLine(lines[i]);
        ASSERT_EQ(fields.size(), 7u) << lines[i];
        EXPECT_EQ(fields[0], i < cases.size() ? cases[i].Name : "total");
        EXPECT_EQ((Fields{fields[1], fields[3], fields[5]}), (Fields{"nodes", "seconds", "nps"}));
        // A case that is over, or whose only move is searched once, measures nothing.
        EXPECT_GT(std::stol(fields[2]), 10) << lines[i];
        if (i < cases.size()) sum += std::stol(fields[2]);
    }
    EXPECT_EQ(FieldsOfLine(lines.back())[2], std::to_string(sum));
}

} // namespace
} // namespace tavlon12::lab
