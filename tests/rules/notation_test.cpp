#include "rules/notation.h"

#include "rules/board.h"

#include <gtest/gtest.h>

#include <tuple>

namespace tavlon12 {

namespace {

TEST(SquareNotation, Rows) {
    const std::tuple<Long, Padding, Byte, const char*> rows[] = {
        {29, Padding::Blank, kAlgebraic, "a1"},      {184, Padding::Blank, kAlgebraic, "bb"},
        {194, Padding::None, kAlgebraic, "lb"},      {155, Padding::Zero, kAlgebraic, "a0"},
        {169, Padding::Zero, kAlgebraic, "aa"},      {141, Padding::Zero, kAlgebraic, "a9"},
        {184, Padding::None, kNumeric, "1"},         {183, Padding::None, kNumeric, "1"},
        {39, Padding::Zero, kNumeric, "72"},         {192, Padding::Blank, kNumeric, " 5"},
        {192, Padding::None, kNumeric, "5"},         {192, Padding::Zero, kNoLabels, "05"},
        {kOffBoard, Padding::Blank, kAlgebraic, ""}, {kOffBoard, Padding::Blank, kNumeric, ""},
        {28, Padding::Blank, kAlgebraic, "--"},      {41, Padding::Blank, kNumeric, "--"},
        {42, Padding::Blank, kAlgebraic, "--"},      {0, Padding::Blank, kAlgebraic, "--"},
        {-1, Padding::Blank, kNumeric, "--"},        {195, Padding::Blank, kNumeric, "--"},
        {100000, Padding::Blank, kAlgebraic, "--"},
    };
    for (const auto& [square, mode, notation, text] : rows)
        EXPECT_EQ(SquareNotation(square, mode, notation), text) << square << " under notation " << Long{notation};
}

TEST(SquareNumber, Rows) {
    const std::tuple<const char*, Byte, Long, Long> rows[] = {
        {"A0", kAlgebraic, 1, 155}, {"M1", kAlgebraic, 1, 0},
        {"Ac", kAlgebraic, 1, 0},   {"LB", kAlgebraic, 1, 194},
        {"Lb", kAlgebraic, 0, 194}, {"", kAlgebraic, 1, 0},
        {"A", kAlgebraic, 1, 0},    {"A ", kAlgebraic, 1, 0},
        {"1A", kAlgebraic, 1, 0},   {"@1", kAlgebraic, 1, 0},
        {"1", kNumeric, 1, 184},    {"72", kNumeric, 1, 39},
        {" 5", kNumeric, 1, 192},   {"0", kNumeric, 1, 0},
        {"73", kNumeric, 1, 0},     {"-1", kNumeric, 1, 0},
        {"", kNumeric, 1, 0},       {"x", kNumeric, 1, 0},
        {"1e9", kNumeric, 1, 0},    {"99999999999999999999", kNumeric, 1, 0},
    };
    for (const auto& [text, notation, piecesOnBlack, square] : rows)
        EXPECT_EQ(SquareNumber(text, notation, piecesOnBlack), square) << text << " under notation " << Long{notation};
}

TEST(Notation, RoundTripOverThePlayingSquares) {
    for (Byte notation : {kAlgebraic, kNumeric, kNoLabels}) {
        for (Long piecesOnBlack : {0, 1, 2}) {
            if (notation != kAlgebraic && piecesOnBlack == 2) continue; // numbers exist on boards of one colour only
            Long count = 0;
            for (Long square = 0; square < kBoardCells; ++square) {
                if (!IsSquare(square) || !IsPlayingSquare(square, piecesOnBlack)) continue;
                for (Padding padding : {Padding::Blank, Padding::None, Padding::Zero}) {
                    std::string text = UpperCase(SquareNotation(square, padding, notation).substr(0, 1)) +
                                       SquareNotation(square, padding, notation).substr(1);
                    EXPECT_EQ(SquareNumber(text, notation, piecesOnBlack), square) << text;
                }
                ++count;
            }
            EXPECT_EQ(count, piecesOnBlack == 2 ? 144 : 72);
        }
    }
}

} // namespace

} // namespace tavlon12
