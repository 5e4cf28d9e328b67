#include "files/game_log.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

TEST(GameLog, WritesItsLines) {
    EXPECT_EQ(SessionLogText({"1/2/26", "3:04"}), "\r\nTavlon12 1.13   1/2/26  3:04\r\n");
    EXPECT_EQ(GameLogText("Go", false), "\r\nGo\r\nWhite   Black\r\n      moves    score   depth    main\r\n");
    EXPECT_EQ(GameLogText("Go", true).substr(6, 13), "Black   White");
    EXPECT_EQ(MoveLogText("   1. c3-d4", -150), "   1. c3-d4     -150\r\n");
    EXPECT_EQ(MoveLogText("   1. c3-d4b", 5), "   1. c3-d4b       5\r\n");
    EXPECT_EQ(MoveLogText("      h8-g9K", 1234567), "      h8-g9K  1234567\r\n");
    EXPECT_EQ(ComputerMoveLogText("      f6-e5", 0, 9, "f6-e5 c3-d4 ", "               line\r\n"),
              "      f6-e5        0       9    f6-e5 c3-d4 \r\n               line\r\n\r\n");
}

TEST(GameLog, IsAddedToAndReadableAtOnce) {
    TemporaryFolder folder;
    const auto file = folder.Path / "log";
    WriteFile(file, "old\r\n");
    GameLog first, second;
    ASSERT_FALSE(first.Open(file));
    ASSERT_FALSE(second.Open(file));
    first.Write("one\r\n");
    second.Write("two\r\n");
    first.Write("three\r\n");
    EXPECT_EQ(ReadFile(file), "old\r\none\r\ntwo\r\nthree\r\n");
}

TEST(GameLog, OutlivesWhatCannotBeWritten) {
    GameLog log;
    EXPECT_FALSE(log.Write("lost\r\n")) << "no log is open";
    TemporaryFolder folder;
    EXPECT_TRUE(log.Open(folder.Path / "missing" / "log"));
    EXPECT_FALSE(log.Write("lost\r\n"));
    ASSERT_FALSE(log.Open("/dev/full"));
    EXPECT_EQ(log.Write("line\r\n")->Message(), "/dev/full: cannot be written: no space left on the disk");
}

} // namespace
} // namespace tavlon12
