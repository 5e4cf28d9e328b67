#include "files/skin_file.h"

#include <gtest/gtest.h>

namespace tavlon12 {
namespace {

TEST(ReadSkin, ReadsItsKeysUpToTheEnd) {
    const auto skin =
        ReadSkin("dark_square=a.png\r\nBoardCustomSize= 2 \r\n light_square=b.png\r\nlight_square=c=d.png\r\n"
                 "Dark_square=e.png\r\ndark_highlight=197121\r\nlight_black_king=f.png\r\n"
                 "black_man_ico=g.cur\r\ndark_square=h.png\r\nEND\r\nlight_square=i.png\r\n");
    ASSERT_TRUE(skin);
    EXPECT_EQ(skin->BoardCustomSize, 2);
    EXPECT_EQ(skin->DarkHighlight, (SkinColour{1, 2, 3}));
    EXPECT_EQ(skin->LightHighlight, SkinFile().LightHighlight);
    EXPECT_EQ(skin->Squares,
              (std::vector<SkinImage>{{0, "a.png", 1}, {5, "c=d.png", 4}, {9, "f.png", 7}, {0, "h.png", 9}}));
    EXPECT_EQ(skin->Cursors, (std::vector<SkinImage>{{2, "g.cur", 8}}));
    EXPECT_FALSE(ReadSkin("dark_square=a.png\r\nend\r\n"));
}

} // namespace
} // namespace tavlon12
