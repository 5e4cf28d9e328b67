#include "files/rating_file.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

TEST(RatingFile, KeepsTheRating) {
    EXPECT_EQ(RatingText(1350), "XMBQ\r\n");
    for (int rating : {0, 1, 1200, 2400, 9876, 32767}) EXPECT_EQ(*ReadRating(RatingText(rating)), rating);
    EXPECT_EQ(RatingText(-5), "Q\r\n");
}

TEST(RatingFile, ReadsAnyBytes) {
    struct Row {
        const char* Bytes;
        Integer Rating;
    };
    const Row rows[] = {{"", 0},   {"\r\n", 0}, {"  X4\r\n", 12}, {"X4,QQ", 12},  {"X4?Q", 12}, {"X4\r\nQQ\r\n", 12},
                        {"12", 0}, {"-X4", 0},  {"x4", 0},        {"\"X4\"Q", 12}};
    for (const Row& row : rows) EXPECT_EQ(*ReadRating(row.Bytes), row.Rating) << row.Bytes;
    EXPECT_EQ(ReadRating("MMMMM").Failure().Reason, FileFailure::Kind::BadValue) << "33333 is no rating";
}

} // namespace
} // namespace tavlon12
