#include "session/load_pdn.h"

#include "files/pdn_file.h"
#include "files/pdn_moves.h"
#include "session/command_state.h"
#include "session/load_variant.h"
#include "session/move_texts.h"
#include "session/program_files.h"
#include "session/reset_game.h"
#include "session/screen.h"

#include <optional>
#include <random>
#include <vector>

namespace tavlon12 {

namespace {

/// A game that is opened, and how.
struct PdnRequest {
    LoadSource Source;
    std::filesystem::path File;
    PdnGame Game;
    std::string MoveText;
    bool AsVariant = false; ///< under a definition that the user has chosen
};

/// Lists the games, while the window lives.
std::vector<PdnGame> ListGames(Session& session, PdnReader& reader) {
    std::vector<PdnGame> games;
    session.Port.Fields.SetHourglass(true);
    while (auto game = NextPdnGame(reader)) {
        games.push_back(std::move(*game));
        session.Port.Time.Yield();
        if (session.Quitting) break;
    }
    session.Port.Fields.SetHourglass(false);
    return games;
}

std::optional<PdnChoice> AskForGame(Session& session, LoadSource source, const std::vector<PdnGame>& games,
                                    const std::vector<ListLine>& openAs) {
    PdnChooser chooser;
    chooser.Title = source == LoadSource::Opening ? " Choose Opening" : " Open PDN game";
    chooser.OpenAs = openAs;
    for (const PdnGame& game : games) chooser.Rows.push_back(PdnRow(game.Tags));
    return session.Port.Dialogs.ChoosePdnGame(chooser);
}

std::optional<PdnChoice> ChooseGame(Session& session, LoadSource source, const std::vector<PdnGame>& games,
                                    const std::vector<ListLine>& openAs) {
    const Long count = static_cast<Long>(games.size());
    if (source == LoadSource::User || session.Settings.BookRandom != 1) {
        return AskForGame(session, source, games, openAs);
    }
    return PdnChoice{std::uniform_int_distribution<Long>(1, count)(session.Search.Random), 0};
}

/// Brings a definition into force, with the promotion squares as they are defined.
bool UseVariant(Session& session, const std::string& name) {
    session.Variant.VariantFile = name;
    if (!ResetGame(session)) return false;
    session.Pos.Rules = session.Variant.DefinedRules;
    AdoptMovements(session.Pos);
    session.Pos.Tree.SideToMove = session.Pos.Rules.BlackStarts == 1 ? kBlack : kWhite;
    return true;
}

/// The rules and the start of a game that brings its own. Where the definition that it names cannot be read, its rules
/// count as defined.
bool UseOwnTag(Session& session, LoadSource source, const PdnOwnTag& tag) {
    if (!ResetGame(session)) return false;
    session.Settings.Notation = kNumeric;
    session.Variant.VariantFile = session.Variant.VariantName = tag.VariantFile;
    if (LoadVariant(session, VariantPath(session))) session.Variant.DefinedRules = tag.Rules;
    const std::string setup = session.Pos.Rules.Setup;
    session.Pos.Rules = tag.Rules;
    session.Pos.Rules.Setup = setup;
    session.Pos.Tree.SideToMove = tag.Rules.BlackStarts == 1 ? kBlack : kWhite;
    PlaceLoadedStart(session, tag.StartDigits, source);
    return true;
}

/// The start of a game by its FEN; false when that is none.
bool UseFen(Session& session, const std::string& value) {
    Position& position = session.Pos;
    const auto fen = ReadFen(value, position.Rules.PiecesOnBlack);
    if (!fen) return false;
    session.Variant.CustomSetup = true;
    position.Board = fen->Board;
    position.Tree.SideToMove = fen->BlackStarts == 1 ? kBlack : kWhite;
    AdoptBoard(position);
    return true;
}

enum class Start { Stands, Failed, ProgramEnds };

/// The rules and the start of a game without own tag.
Start UsePlainStart(Session& session, const PdnRequest& request) {
    if (request.Source == LoadSource::User && !request.AsVariant) {
        session.Pos.Rules = PlainPdnRules(session.Pos.Rules);
        session.Variant.VariantFile = kDefaultVariant;
        AdoptMovements(session.Pos);
    }
    session.Variant.CustomSetup = false;
    session.Game.TouchedCell = 0;
    if (!ResetGame(session)) return Start::ProgramEnds;
    const PdnTags& tags = request.Game.Tags;
    if (tags.SetUp != "1" && tags.Fen.empty()) return Start::Stands;
    return UseFen(session, tags.Fen) ? Start::Stands : Start::Failed;
}

/// Prepares the start; nothing has been shut when that fails.
bool UseStart(Session& session, const PdnRequest& request) {
    const PdnTags& tags = request.Game.Tags;
    Start start = Start::Stands;
    std::string failure = "Illegal Setup!";
    if (tags.OwnTag.empty()) {
        start = UsePlainStart(session, request);
    } else if (const auto tag = ReadOwnTag(tags.OwnTag)) {
        start = UseOwnTag(session, request.Source, *tag) ? Start::Stands : Start::ProgramEnds;
    } else {
        start = Start::Failed;
        failure = "Error in loading PDN file!";
    }
    if (start == Start::Failed) AbandonReplay(session, failure);
    return start == Start::Stands;
}

/// The notation of the first word becomes the user's, where the game is opened as a variant.
void FollowNotation(Session& session, Byte notation) {
    if (session.Settings.Notation == notation) return;
    session.Settings.Notation = notation;
    ShowNotationMark(session);
    DrawBoard(session, 0);
}

enum class Moves { Made, MadeWithComments, Failed, ProgramEnds };

Moves MakeMoves(Session& session, const PdnRequest& request) {
    const Long length = static_cast<Long>(request.MoveText.size());
    const RuleSet& rules = session.Pos.Rules;
    PdnMoveReader reader;
    reader.Rest = request.MoveText;
    reader.Settings = {session.Settings.Notation, rules.PiecesOnBlack, !request.Game.Tags.OwnTag.empty(),
                       request.AsVariant, rules.canContract == 1};
    Moves moves = Moves::Made;
    session.Port.Status.SetProgressRange(0, length);
    for (;;) {
        const PdnItem item = NextPdnItem(reader);
        if (request.AsVariant) FollowNotation(session, reader.Settings.Notation);
        switch (item.What) {
        case PdnItem::Kind::End: return moves;
        case PdnItem::Kind::Error: AbandonReplay(session, "Error in loading PDN file!"); return Moves::Failed;
        case PdnItem::Kind::Comment:
            moves = Moves::MadeWithComments;
            session.Record.MoveComments[session.Pos.Tree.TreeIndex] = item.Text;
            break;
        case PdnItem::Kind::Move:
            if (!ReplayMove(session, item.Text)) {
                if (session.Quitting) return Moves::ProgramEnds;
                if (request.Source == LoadSource::User) session.Pos.Rules.BlackStarts = 1;
                AbandonReplay(session, item.Text + ": Illegal move!");
                return Moves::Failed;
            }
        }
        if (request.Source == LoadSource::User) {
            session.Port.Status.SetProgress(length - static_cast<Long>(reader.Rest.size()));
        }
    }
}

/// The names and the result as the tags of the game have them.
void ShowTags(Session& session, const PdnTags& tags, bool commented) {
    const auto nameOf = [](const std::string& name) { return name.empty() ? std::string("Player") : name; };
    session.Players = {nameOf(tags.Black), nameOf(tags.White)};
    UpdatePlayerLabels(session);
    session.Port.Status.SetStatusText(1, session.ResultShown + (commented ? "" : ";  no comments"));
}

bool OpenGame(Session& session, const PdnRequest& request) {
    const PdnTags& tags = request.Game.Tags;
    if (!UseStart(session, request)) return false;
    session.Pdn = tags;
    session.ResultShown = tags.Result;
    const bool ownSquares = !tags.OwnTag.empty();
    BeginReplay(session, request.Source, !ownSquares, true);
    if (session.Quitting) return false;
    const Moves moves = MakeMoves(session, request);
    if (moves == Moves::Failed || moves == Moves::ProgramEnds) return false;
    if (session.Game.ResultText.empty()) session.Game.ResultText = tags.Result;
    FinishReplay(session, request.Source, request.File, static_cast<Long>(request.MoveText.size()));
    if (request.Source == LoadSource::User) ShowTags(session, tags, moves == Moves::MadeWithComments);
    return true;
}

/// The text of a PDN file; nothing, and a message, when the file is none.
std::optional<std::string> ReadPdn(Session& session, const std::filesystem::path& file) {
    const auto bytes = ReadWholeFile(file);
    if (!bytes) {
        ShowMessage(session, bytes.Failure().Message(), "Error", MessageKind::Exclamation);
        return std::nullopt;
    }
    std::string text = PdnText(*bytes);
    if (IsPdnText(text)) return text;
    ShowMessage(session, file.filename().string() + " is not a PDN file", "Tavlon12", MessageKind::Exclamation);
    return std::nullopt;
}

} // namespace

bool LoadPdn(Session& session, LoadSource source, const std::filesystem::path& file) {
    const auto text = ReadPdn(session, file);
    if (!text) {
        ShowKeptGame(session);
        return false;
    }
    PdnReader reader(*text);
    const std::vector<PdnGame> games = ListGames(session, reader);
    if (session.Quitting) return false;
    if (games.empty()) {
        ShowMessage(session, "No games found!", "Tavlon12", MessageKind::Plain);
        ShowKeptGame(session);
        return false;
    }
    const std::vector<ListLine> openAs = FillPdnVariantList(session);
    const auto choice = ChooseGame(session, source, games, openAs);
    session.PdnGameChoice = choice ? choice->Game : -1;
    if (!choice || choice->Game < 1 || choice->Game > static_cast<Long>(games.size())) {
        DrawBoard(session, 0);
        ShowKeptGame(session);
        return false;
    }
    PdnRequest request{source, file, games[static_cast<std::size_t>(choice->Game - 1)], "", choice->Variant > 0};
    request.MoveText = PdnMoveText(reader, request.Game);
    if (request.AsVariant && !UseVariant(session, openAs[static_cast<std::size_t>(choice->Variant)].Name)) return false;
    return OpenGame(session, request);
}

} // namespace tavlon12
