#include "engine/position_memory.h"

#include "engine/engine_support.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

using namespace support;

MoveRecord Record(Long from, Long to, bool capture, bool promotes) {
    MoveRecord move;
    move.From = from;
    move.To = to;
    if (capture) move.Captures.Add(100, kMan);
    move.Promotes = promotes ? kKing : 0;
    return move;
}

TEST(PositionMemory, ALineGrowsFromItsEnd) {
    auto position = std::make_unique<Position>();
    const MoveRecord moves[] = {Record(kOffBoard, 40, false, false), Record(50, 60, true, false),
                                Record(70, 80, false, true), Record(90, 105, true, true)};
    for (auto& row : position->BestLine) row.fill({1, 1, 1}); // an older, longer line everywhere
    position->BestLine[4][4].From = 0;
    for (Long ply = 3; ply >= 0; --ply) {
        position->Tree.Ply = ply;
        position->Moves[5] = moves[ply];
        StoreBestLine(*position, 5);
        EXPECT_EQ(position->BestLine[ply][4].From, 0) << "the end mark travels with the line";
    }
    const Long kinds[] = {0, 1, 10, 11};
    for (Long ply = 0; ply < 4; ++ply) {
        EXPECT_EQ(position->BestLine[0][ply].From, moves[ply].From);
        EXPECT_EQ(position->BestLine[0][ply].To, moves[ply].To);
        EXPECT_EQ(position->BestLine[0][ply].Kind, kinds[ply]);
    }
}

TEST(PositionMemory, LengthCountsTheRootMove) {
    auto position = std::make_unique<Position>();
    for (Long replies = 0; replies < 5; ++replies) {
        EXPECT_EQ(BestLineLength(*position), replies + 1);
        position->BestLine[1][replies + 1].From = kFirstSquare;
    }
}

TEST(PositionMemory, TheSecondKillerIsTheFormerFirst) {
    auto position = std::make_unique<Position>();
    position->Tree.Ply = 3;
    for (Long slot = 0; slot < 3; ++slot) {
        position->Moves[slot] = Record(30 + slot, 60 + slot, false, false);
        StoreKiller(*position, slot);
    }
    EXPECT_EQ(position->Killers[3][0], (SquarePair{32, 62}));
    EXPECT_EQ(position->Killers[3][1], (SquarePair{31, 61}));
}

} // namespace
} // namespace tavlon12
