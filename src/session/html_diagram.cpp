#include "session/html_diagram.h"

#include "session/program_files.h"
#include "session/screen.h"

#include <cstdint>
#include <string_view>

namespace tavlon12 {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr const char* kDiagramFile = "diagram.html";
constexpr const char* kPictureFolder = "pieces"; // beside the page

/// "dwhite_man" for the key "dark_white_man".
std::string PictureName(SquareImage image) {
    const std::string_view key = KeyOf(image);
    return std::string(1, key.front()).append(key.substr(key.find('_') + 1)) + ".bmp";
}

/// The picture at a place of the page, which has the colour of the place.
std::string PictureAt(const Session& session, Long row, Long column) {
    const Long cell = row * kBoardWidth + column;
    const Long shown = session.Settings.BoardTurned == 1 ? (15 - row) * kBoardWidth + (kLastColumn + 1 - column) : cell;
    const Long value = session.Pos.Board[static_cast<std::size_t>(shown)];
    const SquareImage image = ImageOf(cell, value, session.Pos.Rules.PiecesOnBlack);
    return std::string("<IMG SRC=\"").append(kPictureFolder) + "/" + PictureName(image) + "\">";
}

std::string BoardLines(const Session& session) {
    std::string text;
    for (Long row = kLastRow; row >= kFirstRow; --row) {
        for (Long column = 1; column <= kLastColumn; ++column) text += PictureAt(session, row, column);
        text.append("<BR>").append(kLineEnd);
    }
    return text;
}

/// Takes the first letter off a text in UTF-8; a byte that begins none is a letter of its own.
std::uint32_t TakeLetter(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text.front());
    const std::size_t length = first < 0xC2 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 1;
    std::uint32_t letter = length == 1 ? first : first & (0xFFu >> (length + 1));
    std::size_t taken = 1;
    for (; taken < length && taken < text.size(); ++taken) {
        const auto next = static_cast<unsigned char>(text[taken]);
        if (next >> 6 != 2) break;
        letter = letter << 6 | (next & 0x3Fu);
    }
    if (taken < length) letter = first;
    text.remove_prefix(taken < length ? 1 : length);
    return letter;
}

/// Text as a page shows it: what has a meaning there, and all beyond ASCII, is written by its number, so that the page
/// needs no word on its encoding.
std::string Escaped(std::string_view text) {
    std::string page;
    while (!text.empty()) {
        const std::uint32_t letter = TakeLetter(text);
        const bool plain = letter < 0x80 && letter != '<' && letter != '>' && letter != '&';
        page += plain ? std::string(1, static_cast<char>(letter)) : "&#" + std::to_string(letter) + ";";
    }
    return page;
}

/// The lines of a comment, a line "<BR>" before each.
std::string CommentLines(std::string_view comment) {
    std::string text;
    for (bool more = !comment.empty(); more;) {
        const std::size_t end = comment.find('\n');
        std::string_view line = comment.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        text.append("<BR>").append(kLineEnd).append(Escaped(line)).append(kLineEnd);
        more = end != std::string_view::npos;
        if (more) comment.remove_prefix(end + 1);
    }
    return text;
}

/// False, after a message, when one cannot be written.
bool WritePictures(Session& session) {
    const std::filesystem::path folder = session.ProgramFolder / kPictureFolder;
    std::error_code error;
    std::filesystem::create_directories(folder, error); // what is wrong with it is told by the first picture
    for (std::size_t i = 0; i < kSquareImages; ++i) {
        const auto image = static_cast<SquareImage>(i);
        const std::string bytes = session.Port.Board.SquarePicture(image);
        if (!WriteProgramFile(session, folder / PictureName(image), bytes)) return false;
    }
    return true;
}

} // namespace

std::string DiagramText(const Session& session, const std::string& comment) {
    std::string text;
    const auto add = [&](const std::string& line) { text.append(line).append(kLineEnd); };
    add("<HTML>");
    add("<HEAD>");
    add("<TITLE>" + Escaped(session.Variant.VariantName) + "</TITLE>");
    add("</HEAD>");
    add("");
    add("<BODY>");
    add("<TABLE BORDER=\"1\" BORDERCOLOR=\"#000000\">");
    add("<TR>");
    add("<TD>");
    text += BoardLines(session);
    add("</TD>");
    add("</TR>");
    add("</TABLE>");
    text += CommentLines(comment);
    add("</BODY>");
    add("");
    add("</HTML>");
    return text;
}

void CreateDiagram(Session& session) {
    const std::filesystem::path page = session.ProgramFolder / kDiagramFile;
    const std::string text = DiagramText(session, session.Port.Fields.GetText(Control::Text1));
    if (!WritePictures(session) || !WriteProgramFile(session, page, text)) return;
    ShowMessage(session, "DIAGRAM.HTML created", "Diagram", MessageKind::Exclamation);
    // Nobody would look for the page in a folder that the program has made for itself.
    if (!session.InstalledFolder.empty()) session.Port.Files.OpenDocument(page.string());
}

} // namespace tavlon12
