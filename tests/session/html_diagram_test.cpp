#include "session/html_diagram.h"

#include "support/game_setup.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavlon12 {
namespace {

using Texts = std::vector<std::string>;

std::string PageBetween(const std::string& page, const std::string& from, const std::string& to) {
    const std::size_t begin = page.find(from) + from.size();
    return page.substr(begin, page.find(to, begin) - begin);
}

TEST(Diagram, HasTheseLines) {
    SessionFixture fixture;
    support::StartGame(fixture, "", "W: a1 Kc1; B: bb Klb");
    fixture.Game.Variant.VariantName = "R&D";
    fixture.Game.Settings.BoardTurned = 0;
    const auto images = [](const std::string& first, const std::string& second, const std::string& last,
                           bool lightFirst) {
        std::string line;
        for (int i = 0; i < 12; ++i) {
            std::string name = (i % 2 == 0) == lightFirst ? "lsquare" : "dsquare";
            if (i == (lightFirst ? 1 : 0) && !first.empty()) name = first;
            if (i == 2 && !second.empty()) name = second;
            if (i == 11 && !last.empty()) name = last;
            line += "<IMG SRC=\"pieces/" + name + ".bmp\">";
        }
        return line + "<BR>\r\n";
    };
    std::string rows = images("dblack_man", "", "dblack_king", true);
    for (int row = 0; row < 5; ++row) rows += images("", "", "", false) + images("", "", "", true);
    rows += images("dwhite_man", "dwhite_king", "", false);
    EXPECT_EQ(DiagramText(fixture.Game, ""), "<HTML>\r\n<HEAD>\r\n<TITLE>R&#38;D</TITLE>\r\n</HEAD>\r\n\r\n<BODY>\r\n"
                                             "<TABLE BORDER=\"1\" BORDERCOLOR=\"#000000\">\r\n<TR>\r\n<TD>\r\n" +
                                                 rows + "</TD>\r\n</TR>\r\n</TABLE>\r\n</BODY>\r\n\r\n</HTML>\r\n");
}

TEST(Diagram, ATurnedBoardGivesTheRowsFromTheOtherEnd) {
    SessionFixture fixture;
    for (const char* colour : {"PiecesOnBlack=0", "PiecesOnBlack=1", "PiecesOnBlack=2"}) {
        support::StartGame(fixture, colour, "W: c3 Kf2 a2 Kl9; B: d4 Kf6 e1 Kg3"); // on squares of both colours
        const auto picturesOf = [&](Long turned) {
            fixture.Game.Settings.BoardTurned = turned;
            const std::string page = DiagramText(fixture.Game, "");
            Texts pictures;
            for (std::size_t at = 0; (at = page.find("pieces/", at)) != std::string::npos; ++at)
                pictures.push_back(page.substr(at, page.find('"', at) - at));
            return pictures;
        };
        Texts turned = picturesOf(1);
        std::ranges::reverse(turned);
        EXPECT_EQ(turned.size(), 144u);
        EXPECT_EQ(picturesOf(0), turned);
        const auto isLightPiece = [](const std::string& name) {
            return name.starts_with("pieces/lwhite") || name.starts_with("pieces/lblack");
        };
        const bool light = std::ranges::any_of(turned, isLightPiece);
        EXPECT_EQ(light, fixture.Pos->Rules.PiecesOnBlack == 2);
    }
}

TEST(Diagram, CommentsStandUnderTheBoardAsTheyWereTyped) {
    SessionFixture fixture;
    const struct {
        const char* Comment;
        const char* Page;
    } rows[] = {
        {"", ""},
        {"one", "<BR>\r\none\r\n"},
        {"a\r\nb\nc", "<BR>\r\na\r\n<BR>\r\nb\r\n<BR>\r\nc\r\n"},
        {"a\r\n", "<BR>\r\na\r\n<BR>\r\n\r\n"},
        {"1 < 2 & \"so\" <BR>", "<BR>\r\n1 &#60; 2 &#38; \"so\" &#60;BR&#62;\r\n"},
        {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x91\x91", "<BR>\r\n&#233;&#8364;&#128081;\r\n"},
        {"caf\xE9 \xE2\x82", "<BR>\r\ncaf&#233; &#226;&#130;\r\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PageBetween(DiagramText(fixture.Game, row.Comment), "</TABLE>\r\n", "</BODY>"), row.Page);
    }
}

TEST(Diagram, PageAndPicturesLieInTheProgramFolder) {
    SessionFixture fixture;
    const std::filesystem::path folder = fixture.Folder.Path;
    CreateDiagram(fixture.Game);
    EXPECT_EQ(fixture.Screen.Messages,
              (std::vector<RecordedMessage>{{"DIAGRAM.HTML created", "Diagram", MessageKind::Exclamation}}));
    EXPECT_EQ(ReadFile(folder / "diagram.html"), DiagramText(fixture.Game, ""));
    EXPECT_EQ(ReadFile(folder / "pieces" / "lblack_king.bmp"), "light_black_king");
    // A program folder that is the user's own is shown where the page is.
    EXPECT_EQ(fixture.Screen.Opened, Texts{(folder / "diagram.html").string()});
    fixture.Game.InstalledFolder.clear();
    CreateDiagram(fixture.Game);
    EXPECT_EQ(fixture.Screen.Opened.size(), 1u);

    std::filesystem::remove_all(folder / "pieces");
    WriteFile(folder / "pieces", "in the way");
    WriteFile(folder / "diagram.html", "old");
    CreateDiagram(fixture.Game);
    EXPECT_EQ(fixture.Screen.Messages.back().Title, "Error");
    EXPECT_EQ(ReadFile(folder / "diagram.html"), "old");
}

} // namespace
} // namespace tavlon12
