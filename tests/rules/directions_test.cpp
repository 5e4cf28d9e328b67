#include "rules/directions.h"

#include <gtest/gtest.h>
#include <vector>

namespace tavlon12 {

namespace {

std::vector<Long> StepsOf(const DirectionRow& row) {
    std::vector<Long> steps;
    for (Long step : row) {
        if (step == kEndOfSteps) break;
        steps.push_back(step);
    }
    return steps;
}

TEST(ParseMovement, Rows) {
    using Steps = std::vector<Long>;
    struct Row {
        const char* Text;
        Long Type;
        Steps Quiet;
        Steps Captures;
    };
    const Row rows[] = {
        {"NW;NE NW;NE;SE;SW", 0, {13, 15}, {13, 15, -13, -15}},
        {"NW;NE NW;NE;SE;SW", 1, {-13, -15}, {-13, -15, 13, 15}},
        {"W;N;E;S WW;NN;EE;SS", 2, {-1, 14, 1, -14}, {-2, 28, 2, -28}},
        {"W;N;E;S WW;NN;EE;SS", 3, {1, -14, -1, 14}, {2, -28, -2, 28}},
        {"NW;NE", 0, {13, 15}, {}},
        {" N;E", 0, {}, {14, 1}},
        {"", 0, {}, {}},
        {"NE;XX;NW SE;;SW", 0, {15}, {-13}},
        {"ne NE", 0, {}, {15}},
        {"N;N;N;N;N;N;N;N;E;S S;S;S;S;S;S;S;S;S", 0, Steps(8, 14), Steps(8, -14)},
        {"N;E S W", 0, {14, 1}, {}}, // "S W" is no word
    };
    for (const Row& row : rows) {
        DirectionTable table;
        for (DirectionRow& cells : table) cells.fill(77);
        ParseMovement(row.Text, row.Type, table);
        EXPECT_EQ(StepsOf(table[row.Type]), row.Quiet) << row.Text;
        EXPECT_EQ(StepsOf(table[row.Type + 4]), row.Captures) << row.Text;
        for (Long other = 0; other < kDirectionRows; ++other) {
            if (other % 4 == row.Type) {
                EXPECT_EQ(table[other].back(), kEndOfSteps);
            } else {
                EXPECT_EQ(table[other][0], 77) << "another piece's row was touched by " << row.Text;
            }
        }
        // Behind the end mark no step of an earlier string is left.
        for (Long index = static_cast<Long>(row.Quiet.size()); index < kDirectionColumns; ++index) {
            EXPECT_EQ(table[row.Type][index], kEndOfSteps);
        }
    }
}

TEST(ParseMovement, EveryWordStandsForOneStep) {
    struct Word {
        const char* Name;
        Long Rows;
        Long Columns;
    };
    const Word words[] = {{"NW", 1, -1}, {"NE", 1, 1}, {"SE", -1, 1}, {"SW", -1, -1}, {"W", 0, -1}, {"N", 1, 0},
                          {"E", 0, 1},   {"S", -1, 0}, {"WW", 0, -2}, {"NN", 2, 0},   {"EE", 0, 2}, {"SS", -2, 0}};
    for (const Word& word : words) {
        DirectionTable table;
        ParseMovement(word.Name, 0, table);
        EXPECT_EQ(table[0][0], word.Rows * 14 + word.Columns) << word.Name;
        ParseMovement(word.Name, 3, table);
        EXPECT_EQ(table[3][0], -(word.Rows * 14 + word.Columns)) << word.Name;
    }
}

} // namespace

} // namespace tavlon12
