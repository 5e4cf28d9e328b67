#include "session/load_game.h"

#include "files/game_file.h"
#include "session/load_pdn.h"
#include "session/load_variant.h"
#include "session/move_texts.h"
#include "session/program_files.h"
#include "session/reset_game.h"
#include "session/save_game.h"
#include "session/screen.h"

#include <optional>

namespace tavlon12 {

namespace {

std::optional<std::filesystem::path> ChoosePath(Session& session) {
    if (session.Game.GameTouched && !AskYesNo(session, "Quit current game?", "Confirmation")) return std::nullopt;
    const std::filesystem::path path = session.Port.Files.ChooseFile({false, "Load Game", kGameFilter});
    if (path.empty()) return std::nullopt;
    std::error_code error;
    if (std::filesystem::exists(path, error)) return path;
    ShowMessage(session, path.filename().string() + " does not exist", "Tavlon12", MessageKind::Exclamation);
    return std::nullopt;
}

/// The collection of openings serves the classic start with White to begin, and is silent otherwise.
std::optional<std::filesystem::path> OpeningPath(const Session& session) {
    const RuleSet& rules = session.Pos.Rules;
    const bool serves = session.Pos.InitialBoard == ClassicStart() && rules.AntiMode != 1 && rules.PiecesOnBlack == 1 &&
                        rules.BlackStarts != 1;
    const std::filesystem::path path = DataFile(session, "opening.pdn");
    std::error_code error;
    if (!serves || !std::filesystem::exists(path, error)) return std::nullopt;
    return path;
}

/// The file to load; nothing when there is none to be had.
std::optional<std::filesystem::path> PathOf(Session& session, LoadSource source) {
    switch (source) {
    case LoadSource::User: return ChoosePath(session);
    case LoadSource::Opening: return OpeningPath(session);
    case LoadSource::AutomaticMoves: return session.ProgramFolder / kAutomaticMovesFile;
    case LoadSource::Autosave: break;
    }
    return session.ProgramFolder / kAutosaveFile;
}

void EmptyFields(Session& session) {
    UiPort& port = session.Port;
    port.Status.SetStatusText(1, "");
    port.Lists.ListClear(ListId::List2);
    port.Lists.ListClear(ListId::List3);
    port.Fields.SetText(Control::Text1, "");
    port.Fields.SetText(Control::Text2, "");
    port.Status.SetSearchLine("no calculation");
    port.Status.SetProgress(0);
}

/// Why a file is no game file. What is broken behind its first line is told on the status line alone.
void TellFailure(Session& session, const std::filesystem::path& file, const FileFailure& failure) {
    switch (failure.Reason) {
    case FileFailure::Kind::NotThisKind:
        ShowMessage(session, file.filename().string() + " is not an Tavlon12 file", "Tavlon12",
                    MessageKind::Exclamation);
        return;
    case FileFailure::Kind::OtherVersion:
        ShowMessage(session, "Incorrect game file!\nNeed version 0.89", "Error", MessageKind::Exclamation);
        return;
    default: session.Port.Status.SetStatusText(1, failure.Message());
    }
}

/// The values of a head into what reads them in a game.
void AdoptHead(Session& session, const GameHead& head) {
    session.Variant.VariantFile = head.VariantFile;
    session.Game.BookOpen = head.BookOpen != 0;
    session.Settings.Notation = head.Notation;
    session.Settings.UseClassic = head.UseClassic;
    session.Settings.UserName = head.UserName;
    const std::string setup = session.Pos.Rules.Setup;
    session.Pos.Rules = head.Rules;
    session.Pos.Rules.Setup = setup;
    session.Pos.Tree.SideToMove = head.Rules.BlackStarts == 1 ? kBlack : kWhite;
}

/// The definition that the game names goes with it. Where it cannot be read the game's own rules count as defined.
void UseDefinition(Session& session, const GameFile& game, LoadSource source) {
    if (!game.AtUseClassic) return;
    AdoptHead(session, *game.AtUseClassic);
    if (HasKey(game, "PiecesOnBlack")) session.Variant.DefinedRules.PiecesOnBlack = game.Head.Rules.PiecesOnBlack;
    if (LoadVariant(session, VariantPath(session))) {
        session.Variant.VariantName = session.Variant.VariantFile;
        session.Variant.DefinedRules = game.Head.Rules;
    }
    if (!game.AtUseClassic->StartDigits.empty()) {
        PlaceLoadedStart(session, game.AtUseClassic->StartDigits, source);
    }
}

/// Makes the moves of the file; false when the load has ended without them.
bool MakeMoves(Session& session, const GameFile& game, LoadSource source) {
    Long read = 0;
    for (const GameFileLine& line : game.Lines) {
        session.Port.Status.SetProgress(++read);
        if (line.What == GameFileLine::Kind::Comment) {
            session.Record.MoveComments[line.Position] = line.Text;
            continue;
        }
        const std::string key = UpperCase(line.Text);
        if (ReplayMove(session, key)) continue;
        if (session.Quitting) return false;
        if (source == LoadSource::User) session.Pos.Rules.BlackStarts = 1;
        AbandonReplay(session, key + ": Illegal move!");
        return false;
    }
    return true;
}

bool LoadGameFile(Session& session, LoadSource source, const std::filesystem::path& file) {
    std::string bytes;
    const auto read = [&](std::string_view whole) {
        bytes = whole;
        return ReadGameFile(whole, HeadOfGame(session));
    };
    if (const auto first = ReadFileWith(file, read); !first) {
        TellFailure(session, file, first.Failure());
        ShowKeptGame(session);
        return false;
    }
    if (!ResetGame(session)) return false;
    const auto game = ReadGameFile(bytes, HeadOfGame(session)); // what it does not name is as the new game has it
    const Long lines = GameLineCount(bytes);
    if (lines > 0) session.Port.Status.SetProgressRange(0, lines);
    UseDefinition(session, *game, source);
    AdoptHead(session, game->Head);
    BeginReplay(session, source, !HasKey(*game, "PromoW"), lines > 0);
    if (session.Quitting || !MakeMoves(session, *game, source)) return false;
    FinishReplay(session, source, file, lines);
    return true;
}

} // namespace

bool LoadGame(Session& session, LoadSource source) {
    const auto file = PathOf(session, source);
    if (!file) return false;
    EmptyFields(session);
    const bool through = IsPdnName(*file) ? LoadPdn(session, source, *file) : LoadGameFile(session, source, *file);
    if (source == LoadSource::AutomaticMoves) {
        std::error_code error;
        std::filesystem::remove(*file, error);
    }
    return through;
}

void OpenCommand(Session& session) {
    if (!session.Busy) LoadGame(session, LoadSource::User);
}

} // namespace tavlon12
