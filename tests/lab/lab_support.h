#pragma once

#include "lab/batch.h"
#include "lab/commands.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace tavlon12::lab {

struct ToolRun {
    int Status;
    std::string Output;
    std::string Error;
};

inline std::unique_ptr<Lab> MakeLab() {
    auto lab = std::make_unique<Lab>();
    lab->ProgramFolder = TAVLON12_DATA_DIR;
    return lab;
}

/// Runs the tool as a process would, from a command line in a shell's quoting.
inline ToolRun RunLine(const std::string& line, const std::string& input = "") {
    std::vector<std::string> words;
    if (Failure failure = SplitWords(line, words)) ADD_FAILURE() << *failure;
    auto lab = MakeLab();
    std::istringstream in(input);
    std::ostringstream out, err;
    int status = RunTool(*lab, words, in, out, err);
    return {status, out.str(), err.str()};
}

/// The output of a command that must succeed.
inline std::string OutputOf(const std::string& line) {
    ToolRun run = RunLine(line);
    EXPECT_EQ(run.Status, 0) << line << '\n' << run.Error;
    EXPECT_EQ(run.Error, "") << line;
    return run.Output;
}

inline std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

/// 144 digits with pieces on squares named "c3", and "0" elsewhere: {"c3", '1'}.
inline std::string Digits(const std::vector<std::pair<std::string, char>>& pieces) {
    std::string digits(144, '0');
    const std::string ranks = "1234567890ab";
    for (const auto& [square, digit] : pieces) digits[ranks.find(square[1]) * 12 + (square[0] - 'a')] = digit;
    return digits;
}

/// A flying king that can jump in all directions on a full board: its captures pass every limit.
inline const std::string kRunaway = [] {
    std::string crowd(144, '0');
    for (std::size_t i = 1; i < crowd.size(); i += 2) crowd[i] = '4';
    crowd.back() = '3';
    return " --rule RemovePieces=0 --rule CapReverse=1 --rule MaxCapMove=0 --rule PiecesOnBlack=2 --rule "
           "'WhiteKingMovement=N;NE;E;SE N;NE;E;SE;S;SW;W;NW' --setup " +
           crowd;
}();

} // namespace tavlon12::lab
