#include "lab/games.h"

#include "session/load_game.h"
#include "session/load_pdn.h"
#include "session/reset_game.h"
#include "session/save_game.h"
#include "session/screen.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

namespace tavlon12::lab {

namespace {

/// What the words ask for.
struct GamesOptions {
    bool Lists = false; ///< the command `games`
    std::filesystem::path File;
    std::optional<std::filesystem::path> Save;
    Long Game = 1;
    std::string As = "DEFAULT";
    Byte Notation = kAlgebraic;
};

/// A screen of texts: what the tool prints of a window.
struct TextScreen {
    std::vector<std::string> Messages; ///< whole lines of output
    std::vector<std::string> Lines;    ///< of `List1`
    std::array<std::string, 4> Panels;
    std::string Variant;
    std::vector<std::array<std::string, 10>> Rows; ///< of the chooser
    Failure BadChoice;                             ///< the game or the variant asked for is not there
};

Failure ReadNumber(std::string_view text, Long least, Long most, Long& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size() && value >= least && value <= most) return {};
    return Quoted(text) + ": must be a whole number from " + std::to_string(least) + " to " + std::to_string(most);
}

Failure ReadOption(const std::string& name, const std::string& value, GamesOptions& options) {
    constexpr Long kMostGames = 1'000'000'000;
    if (name == "--as") {
        options.As = value;
    } else if (name == "--save") {
        if (value.empty()) return "must name a file";
        options.Save = value;
    } else if (name == "--game") {
        return ReadNumber(value, 1, kMostGames, options.Game);
    } else {
        Long notation = 0;
        if (Failure failure = ReadNumber(value, 0, 2, notation)) return failure;
        options.Notation = static_cast<Byte>(notation);
    }
    return {};
}

Failure ReadWords(std::span<const std::string> words, GamesOptions& options) {
    constexpr std::array<std::string_view, 4> kNames{"--game", "--as", "--notation", "--save"};
    options.Lists = words[0] == "games";
    std::vector<std::string> given;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (!word.starts_with("--")) {
            if (!options.File.empty()) return "unknown argument " + Quoted(word);
            options.File = word;
            continue;
        }
        if (options.Lists || std::ranges::find(kNames, word) == kNames.end()) return "unknown argument " + Quoted(word);
        if (std::ranges::find(given, word) != given.end()) return word + " is given twice";
        given.push_back(word);
        if (i + 1 == words.size()) return word + " has no value";
        if (Failure failure = ReadOption(word, words[++i], options)) return word + " " + *failure;
    }
    if (options.File.empty()) return words[0] + " needs the name of a file";
    return {};
}

/// The text with every `from` as `to`.
std::string Replaced(std::string text, std::string_view from, std::string_view to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::optional<PdnChoice> Choose(const GamesOptions& options, const PdnChooser& chooser, TextScreen& screen) {
    screen.Rows = chooser.Rows;
    if (options.Lists) return std::nullopt;
    if (options.Game > static_cast<Long>(chooser.Rows.size())) {
        screen.BadChoice = "--game " + std::to_string(options.Game) + ": the file holds " +
                           std::to_string(chooser.Rows.size()) + " games";
        return std::nullopt;
    }
    const auto variant = std::ranges::find(chooser.OpenAs, options.As, &ListLine::Name);
    if (variant == chooser.OpenAs.end()) {
        screen.BadChoice = "--as " + Quoted(options.As) + ": no variant has this name";
        return std::nullopt;
    }
    return PdnChoice{options.Game, static_cast<Long>(variant - chooser.OpenAs.begin())};
}

void ConnectTexts(UiPort& port, TextScreen& screen) {
    port.Dialogs.ShowMessage = [&](const std::string& text, const std::string& title, MessageKind) {
        screen.Messages.push_back("message " + title + ": " + Replaced(text, "\n", " / ") + "\n");
    };
    port.Status.SetStatusText = [&](int panel, const std::string& text) {
        screen.Panels[static_cast<std::size_t>(panel)] = text;
    };
    port.Status.GetStatusText = [&](int panel) { return screen.Panels[static_cast<std::size_t>(panel)]; };
    port.Fields.SetText = [&](Control control, const std::string& text) {
        if (control == Control::Label8) screen.Variant = text;
    };
}

void ConnectList(ListPort& port, TextScreen& screen) {
    port.ListClear = [&](ListId list) {
        if (list == ListId::List1) screen.Lines.clear();
    };
    port.ListAdd = [&](ListId list, const std::string& line) {
        if (list == ListId::List1) screen.Lines.push_back(line);
    };
    port.ListRemove = [&](ListId list, Long line) {
        if (list == ListId::List1) screen.Lines.erase(screen.Lines.begin() + line);
    };
    port.ListCount = [&](ListId list) { return list == ListId::List1 ? static_cast<Long>(screen.Lines.size()) : 0; };
}

std::string WithoutTrailingBlanks(const std::string& line) {
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

const char* SideName(bool black) {
    return black ? "black" : "white";
}

void AddComment(const Session& game, Long index, std::string& output) {
    const std::string& comment = game.Record.MoveComments[index];
    if (comment.empty()) return;
    const std::string text = Replaced(Replaced(comment, "\\", "\\\\"), "\r\n", "\\n");
    output += "comment " + std::to_string(index) + " " + Replaced(text, "\n", "\\n") + "\n";
}

void AddMove(const Session& game, const TextScreen& screen, Long halfMove, std::string& output) {
    const std::string& cell = game.Record.GameRows[RowOfHalfMove(halfMove)][TextColumn(halfMove)];
    const bool placement = game.Record.MoveHistory[halfMove].From == kOffBoard;
    const std::string key = Replaced(cell.substr(0, placement ? 2 : 4), " ", "_");
    output += "move " + std::to_string(halfMove) + " " + key + " " + std::to_string(game.Record.MoveScores[halfMove]) +
              " " + WithoutTrailingBlanks(screen.Lines[static_cast<std::size_t>(halfMove - 1)]) + "\n";
}

/// What stands on the screen and in the record.
void AddGame(const Session& game, const TextScreen& screen, std::string& output) {
    const Position& position = game.Pos;
    output += "variant " + screen.Variant + "\n";
    output += "names " + game.Players.WhitePlayerName + " | " + game.Players.BlackPlayerName + "\n";
    output += "panel " + screen.Panels[1] + "\n";
    output += "start " + PositionString(position.InitialBoard) + " " + SideName(position.Rules.BlackStarts == 1) + "\n";
    AddComment(game, 0, output);
    for (Long halfMove = 1; halfMove <= game.Record.LastMoveIndex; ++halfMove) {
        AddMove(game, screen, halfMove, output);
        AddComment(game, halfMove, output);
    }
    output += "over " + std::to_string(game.Game.GameOver ? 1 : 0) + "\n";
    output += "position " + PositionString(position.Board) + " " + SideName(position.Tree.SideToMove == kBlack) + "\n";
}

void TakeMessages(TextScreen& screen, std::string& output) {
    for (const std::string& message : screen.Messages) output += message;
    screen.Messages.clear();
}

/// The rows of the chooser; 1 for a file that is no PDN file.
int ListGames(Session& game, const GamesOptions& options, TextScreen& screen, std::string& output) {
    std::error_code error;
    if (std::filesystem::exists(options.File, error)) {
        LoadPdn(game, LoadSource::User, options.File);
    } else {
        ShowMessage(game, options.File.filename().string() + " does not exist", "Tavlon12", MessageKind::Exclamation);
    }
    TakeMessages(screen, output);
    for (std::size_t i = 0; i < screen.Rows.size(); ++i) {
        output += "game " + std::to_string(i + 1);
        for (const std::string& column : screen.Rows[i]) output += "\t" + column;
        output += "\n";
    }
    return screen.Rows.empty() ? 1 : 0;
}

} // namespace

bool IsGamesCommand(std::string_view name) {
    return name == "games" || name == "load";
}

Failure RunGamesCommand(Lab& lab, std::span<const std::string> words, Report& report) {
    GamesOptions options;
    if (Failure failure = ReadWords(words, options)) return failure;
    Workbench& bench = lab.Bench.emplace();
    Session& game = bench.Game;
    TextScreen screen;
    ConnectTexts(game.Port, screen);
    ConnectList(game.Port.Lists, screen);
    game.Port.Files.ChooseFile = [&](const FileQuestion& question) {
        return question.ToSave ? *options.Save : options.File;
    };
    game.Port.Dialogs.ChoosePdnGame = [&](const PdnChooser& chooser) { return Choose(options, chooser, screen); };
    game.ProgramFolder = lab.ProgramFolder;
    game.Settings.Notation = options.Notation;
    AdoptMovements(game.Pos);
    if (!ResetGame(game)) return "the definition of " + Quoted(game.Variant.VariantFile) + " cannot be read";

    if (options.Lists) {
        report.Status = ListGames(game, options, screen, report.Output);
        return {};
    }
    const bool through = LoadGame(game, LoadSource::User);
    if (screen.BadChoice) return screen.BadChoice;
    TakeMessages(screen, report.Output);
    AddGame(game, screen, report.Output);
    if (options.Save) SaveCommand(game);
    TakeMessages(screen, report.Output);
    report.Status = through ? 0 : 1;
    return {};
}

} // namespace tavlon12::lab
