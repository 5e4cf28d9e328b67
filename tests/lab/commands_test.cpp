#include "lab/lab_support.h"

namespace tavlon12::lab {
namespace {

using Fields = std::vector<std::string>;

Fields FieldsOfLine(const std::string& line) {
    std::istringstream stream(line);
    Fields fields;
    for (std::string field; stream >> field;) fields.push_back(field);
    return fields;
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
        {"a man takes a king and a man", " --setup " + Digits({{"c3", '1'}, {"d4", '4'}, {"f6", '2'}}),
         "59 119 20741104 0\n"},
        {"promotion in a capture", " --setup " + Digits({{"h0", '1'}, {"ia", '2'}}), "162 192 1177 2\n"},
        {"placements", placing, "999 29 - 0\n999 31 - 0\n999 33 - 0\n999 35 - 0\n999 37 - 0\n999 39 - 0\n"},
        {"a placement as a move of the game", placing + " --play c1",
         "999 169 - 0\n999 171 - 0\n999 173 - 0\n999 175 - 0\n999 177 - 0\n999 179 - 0\n"},
        {"a set-up of a definition is shifted and filled up",
         " --rule PiecesOnBlack=0 --rule Setup=" + Digits({{"c3", '1'}}).substr(0, 30), "60 73 - 0\n60 75 - 0\n"},
        {"side to move", " --turn black --setup " + pieces, "151 138 - 0\n151 136 - 0\n"},
        {"texts of a definition are no rules", " --rule Help=x --rule HelpLink=x --rule QuickHelpLink=x", start},
        {"the piece moved last", " --rule LastCap=1 --last 78 --setup " + pursued, "63 93 1078 0\n"},
    };
    for (const OutputRow& row : rows) EXPECT_EQ(OutputOf("moves" + row.Options), row.Output) << row.Name;
}

TEST(LabPerft, CountsThePublishedSequences) {
    const std::string counts = "perft 1 11\nperft 2 121\nperft 3 1222\nperft 4 10053\nperft 5 79049\nperft 6 584100\n";
    EXPECT_EQ(OutputOf("perft --depth 6"), counts);
    EXPECT_EQ(OutputOf("perft --depth 6 --fast"), counts);
}

TEST(LabPerft, DividesByRootMoves) {
    const std::string divided = OutputOf("perft --depth 4 --play 'c5d6 d8c7' --divide");
    std::vector<Fields> rows;
    for (const std::string& line : LinesOf(divided)) rows.push_back(FieldsOfLine(line));
    const std::vector<std::string> moves = LinesOf(OutputOf("moves --play 'c5d6 d8c7'"));
    ASSERT_EQ(rows.size(), 4 + moves.size());
    long total = 0;
    for (std::size_t i = 0; i < moves.size(); ++i) {
        const Fields move = FieldsOfLine(moves[i]);
        EXPECT_EQ(rows[4 + i].at(0), move[0] + "-" + move[1]);
        total += std::stol(rows[4 + i].at(1));
    }
    EXPECT_EQ(std::to_string(total), rows[3].at(2));
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

TEST(LabEval, TheOrderOfTheRulesDoesNotMatter) {
    const std::string setup = " --rule Setup=" + Digits({{"a1", '3'}, {"c1", '3'}, {"b0", '4'}});
    for (const std::string begins : {" --rule BlackStarts=0", " --rule BlackStarts=1"})
        EXPECT_EQ(ValueOf(setup + begins), ValueOf(begins + setup)) << begins;
}

TEST(LabEval, ARepeatedPlacementIsWorthNothing) {
    const std::string setup = " --setup " + Digits({{"a1", '3'}, {"b0", '4'}});
    EXPECT_NE(ValueOf(setup + " --play 'a1b2'"), 0);
    EXPECT_EQ(ValueOf(setup + " --play 'a1b2 b0c9 b2a1 c9b0 a1b2'"), 0);
}

TEST(LabEval, TellsLossesAndBlockedSides) {
    const std::string blocked = Digits({{"bb", '1'}, {"a1", '4'}});
    EXPECT_EQ(OutputOf("eval --rule NoLegalDraw=1 --setup " + blocked), "eval 0 lost 0 nomoves 1\n");
    EXPECT_EQ(FieldsOfLine(OutputOf("eval --side black --setup " + Digits({{"a1", '3'}})))[3], "1");
}

TEST(LabSearch, TellsAPositionThatIsOver) {
    const std::string blocked = " --setup " + Digits({{"bb", '1'}, {"a1", '4'}});
    const std::string one = " --setup " + Digits({{"c3", '1'}, {"f8", '2'}, {"h8", '2'}});
    const std::vector<OutputRow> rows = {
        {"too few pieces", " --rule NumberPieces=1" + one, "over lost\n"},
        {"blocked where that is a draw", " --rule NoLegalDraw=1" + blocked, "over draw\n"},
        {"the first king", " --rule KingWin=1 --setup " + Digits({{"bb", '3'}, {"c5", '4'}}), "over won\n"},
    };
    for (const OutputRow& row : rows) EXPECT_EQ(OutputOf("search --depth 3" + row.Options), row.Output) << row.Name;
}

TEST(LabSearch, OptionsReachTheSearch) {
    std::string digits(144, '0');
    for (const std::size_t white : {37, 50, 52, 54, 56}) digits[white] = '1';
    for (const std::size_t black : {87, 89, 91, 106}) digits[black] = '2';
    digits[56] = '3';
    digits[93] = '4';
    const std::string setup = " --depth 5 --setup " + digits;
    auto nodes = [&](const std::string& options) {
        const std::string output = OutputOf("search" + setup + options);
        return std::stol(FieldsOfLine(output.substr(output.rfind("depth"))).at(5));
    };
    const long usual = nodes("");
    EXPECT_EQ(nodes(" --plys 3 --balance 150 --extended 1 --bruteforce 0"), usual);
    for (const char* option : {" --plys 1", " --balance 1", " --extended 0", " --bruteforce 1"}) {
        EXPECT_NE(nodes(option), usual) << option;
    }
}

TEST(LabLimits, ARunawayCaptureIsOneLine) {
    for (const char* command : {"moves", "perft --depth 2", "search --depth 2", "eval --rule NoLegalDraw=1"}) {
        ToolRun run = RunLine(command + kRunaway);
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

} // namespace
} // namespace tavlon12::lab
