#include "session/save_game.h"

#include "files/pdn_file.h"
#include "rules/families.h"
#include "session/move_texts.h"
#include "session/program_files.h"
#include "session/screen.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <vector>

namespace tavlon12 {

namespace {

std::string NameOf(const std::filesystem::path& path) {
    return path.filename().string();
}

/// The comments and keys of the record, a comment before the half-move that leaves its position.
std::vector<GameFileLine> LinesOfRecord(const GameRecord& record) {
    using Kind = GameFileLine::Kind;
    std::vector<GameFileLine> lines;
    for (Long index = 0; index <= record.LastMoveIndex; ++index) {
        if (!record.MoveComments[index].empty()) lines.push_back({Kind::Comment, record.MoveComments[index], index});
        const Long next = index + 1;
        if (next > record.LastMoveIndex) break;
        const std::string& cell = record.GameRows[RowOfHalfMove(next)][TextColumn(next)];
        const bool placement = record.MoveHistory[next].From == kOffBoard;
        lines.push_back({Kind::Move, MoveKeyOfCell(cell, placement), index});
    }
    return lines;
}

std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm date{};
    localtime_r(&now, &date);
    std::array<char, 16> text{};
    std::strftime(text.data(), text.size(), "%m/%d/%Y", &date);
    return text.data();
}

/// The tags of the game. The rules go with it, unless they are those of a game without own tag.
PdnTags TagsOfGame(Session& session) {
    if (session.Pdn.Date.empty()) session.Pdn.Date = Today();
    PdnTags tags = session.Pdn;
    tags.Result = session.Game.ResultText.empty() ? "*" : session.Game.ResultText;
    tags.OwnTag.clear();
    const Position& position = session.Pos;
    if (RecognizeVariantFamily(position.Rules, position.InitialBoard) != Family::American) {
        tags.OwnTag = OwnTagText({session.Variant.VariantFile, PositionString(position.InitialBoard), position.Rules});
    }
    return tags;
}

std::vector<PdnHalfMove> HalfMovesOfRecord(const GameRecord& record) {
    std::vector<PdnHalfMove> moves;
    for (Long i = 1; i <= record.LastMoveIndex; ++i) {
        const MoveRecord& move = record.MoveHistory[i];
        moves.push_back({{move.From, move.To}, move.IsCapture(), record.MoveComments[i - 1]});
    }
    return moves;
}

/// Adds the game to a file, which keeps those that it holds.
void AddToPdn(Session& session, const std::filesystem::path& path) {
    std::string file;
    std::error_code error;
    if (std::filesystem::exists(path, error)) {
        auto bytes = ReadWholeFile(path);
        if (!bytes) {
            ShowMessage(session, bytes.Failure().Message(), "Error", MessageKind::Exclamation);
            return;
        }
        file = std::move(*bytes);
    }
    const Byte notation = PdnNotation(session.Pos.Rules.PiecesOnBlack, session.Settings.PdnAlgebraic == 1);
    const std::string game = PdnGameText(TagsOfGame(session), HalfMovesOfRecord(session.Record), notation);
    WriteProgramFile(session, path, WithGameAdded(file, game));
}

/// Asks for a name; empty when the user does not want to save. The title shows what he has answered, whatever it is.
std::filesystem::path ChoosePath(Session& session) {
    const std::filesystem::path path = session.Port.Files.ChooseFile({true, "Save Game", kGameFilter});
    const std::string name = NameOf(path);
    session.Game.GameFileName = name;
    session.Port.Status.SetWindowTitle(" Tavlon12 " + std::string(kProgramVersion) + " Beta - " + name);
    if (path.empty()) return path;
    std::error_code error;
    const bool asks = !IsPdnName(path) && std::filesystem::exists(path, error);
    if (asks && !AskYesNo(session, name + " already exists, overwrite?", "Confirmation")) return {};
    return path;
}

} // namespace

void SaveGame(Session& session, const std::filesystem::path& path) {
    const bool autosave = path == session.ProgramFolder / kAutosaveFile;
    const std::filesystem::path chosen = autosave ? path : ChoosePath(session);
    if (chosen.empty()) return;
    if (IsPdnName(chosen)) {
        AddToPdn(session, chosen);
    } else {
        WriteProgramFile(session, chosen, GameFileText(HeadOfGame(session), LinesOfRecord(session.Record)));
    }
}

void SaveCommand(Session& session) {
    if (!session.Busy) SaveGame(session, session.Game.GameFileName);
}

GameHead HeadOfGame(const Session& session) {
    GameHead head;
    head.VariantFile = session.Variant.VariantFile;
    head.StartDigits = PositionString(session.Pos.InitialBoard);
    head.BookOpen = session.Game.BookOpen ? 1 : 0;
    head.Notation = session.Settings.Notation;
    head.Rules = session.Pos.Rules;
    head.UseClassic = session.Settings.UseClassic;
    head.UserName = session.Settings.UserName;
    return head;
}

bool IsPdnName(const std::filesystem::path& path) {
    return EndsWithNoCase(NameOf(path), "pdn");
}

} // namespace tavlon12
