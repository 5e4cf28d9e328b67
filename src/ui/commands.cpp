#include "ui/commands.h"

#include "session/analysis.h"
#include "session/game_end.h"
#include "session/help.h"
#include "session/hint.h"
#include "session/html_diagram.h"
#include "session/load_game.h"
#include "session/navigation.h"
#include "session/new_game.h"
#include "session/options.h"
#include "session/play_modes.h"
#include "session/rating.h"
#include "session/save_game.h"
#include "session/view_commands.h"
#include "study/ply_value_table.h"
#include "study/problem_search.h"

#include <array>

namespace tavlon12 {

namespace {

// clang-format off
constexpr std::array<CommandRow, kCommandCount> kCommands{{
    {Command::New1, "New1", 1, "New Game", "New Game", "New Game", "Ctrl+N", "new_game", false, false, NewGame},
    {Command::NewVariant, "NewVariant", 2, "New Variant", "New Variant...", "New Variant", "Ctrl+V", "new_variant", false, false, NewVariant},
    {Command::Open1, "Open1", 4, "Open", "Open...", "Open", "Ctrl+O", "open", false, false, OpenCommand},
    {Command::Save, "Save", 5, "Save", "Save...", "Save", "Ctrl+S", "save", false, false, SaveCommand},
    {Command::Details, "Details", 0, "", "Details...", "", "Ctrl+D", "", false, false, ShowDetails},
    {Command::Exit, "Exit", 0, "", "Exit", "", "Ctrl+X", "", false, true, nullptr},
    {Command::Compute, "Compute", 7, "Compute", "Compute", "Compute", "Ctrl+C", "compute", false, false, ComputeCommand},
    {Command::mnu_Play_Cancel, "mnu_Play_Cancel", 8, "Cancel", "Cancel", "Cancel Computing", "Ctrl+E", "cancel", false, true, CancelCommand},
    {Command::First, "First", 10, "First", "First", "Back to First Move", "", "first", false, false, GoFirst},
    {Command::Moveback, "Moveback", 11, "Back", "Back", "Move Back", "Ctrl+B", "back", false, false, GoBack},
    {Command::MoveForward, "MoveForward", 12, "Forward", "Forward", "Move Forward", "Ctrl+F", "forward", false, false, GoForward},
    {Command::Last, "Last", 13, "Last", "Last", "Forward to Last Move", "", "last", false, false, GoLast},
    {Command::Offerdraw, "Offerdraw", 15, "Draw", "Offer draw", "Offer Draw", "", "draw", false, false, OfferDraw},
    {Command::Resign, "Resign", 16, "Resign", "Resign", "Resign", "", "resign", false, false, Resign},
    {Command::Hint, "Hint", 17, "Hint", "Hint", "Hint", "", "hint", false, false, ShowHint},
    {Command::Cplayer, "Cplayer", 19, "ComputerPlayer", "Player-Computer", "Computer-Player", "", "computer_player", true, false, PlayComputerPlayer},
    {Command::Pplayer, "Pplayer", 20, "PlayerPlayer", "Player-Player", "Player-Player", "", "player_player", true, false, PlayPlayerPlayer},
    {Command::mnu_Play_Ccomputer, "mnu_Play_Ccomputer", 21, "ComputerComputer", "Computer-Computer", "Computer-Computer", "", "computer_computer", true, false, PlayComputerComputer},
    {Command::Options, "Options", 23, "Options", "Options...", "Options", "", "options", false, false, ShowOptions},
    {Command::Analyze, "Analyze", 25, "Analyze", "Analyze", "Analyze", "Ctrl+A", "analyze", false, false, AnalyzeCommand},
    {Command::Turn, "Turn", 27, "TurnBoard", "Turn Board", "Turn Board", "Ctrl+T", "turn_board", false, false, TurnBoard},
    {Command::Nonotation, "Nonotation", 0, "", "None", "", "", "", true, false, ShowNoNotation},
    {Command::mnu_Board_Notation_Chess, "mnu_Board_Notation_Chess", 0, "", "Algebraic", "", "", "", true, false, ShowAlgebraicNotation},
    {Command::mnu_Board_Notation_Checkers, "mnu_Board_Notation_Checkers", 0, "", "Numeric", "", "", "", true, false, ShowNumericNotation},
    {Command::CreateHtml, "CreateHtml", 0, "", "Create Diagram...", "", "", "", false, false, CreateDiagram},
    {Command::calculation, "calculation", 0, "", "Calculation", "", "", "", true, true, ToggleCalculation},
    {Command::rating, "rating", 0, "", "Rating...", "", "", "", false, true, ShowRating},
    {Command::plyvaluetable, "plyvaluetable", 0, "", "Show Ply Value Table", "", "", "", false, false, ShowPlyValueTable},
    {Command::problems, "problems", 0, "", "Find Problems/Combinations", "", "", "", false, false, FindProblems},
    {Command::QuickRules, "QuickRules", 0, "", "Quick Rules", "", "", "", false, true, ShowQuickRules},
    {Command::Rules, "Rules", 0, "", "Rules", "", "F1", "", false, true, ShowRules},
    {Command::mnu_Help_About, "mnu_Help_About", 0, "", "About", "", "", "", false, true, ShowAbout},
}};
// clang-format on

constexpr bool InOrder() {
    for (std::size_t i = 0; i < kCommands.size(); ++i) {
        if (kCommands[i].Id != static_cast<Command>(i)) return false;
    }
    return true;
}
static_assert(InOrder());

using enum MenuLine::Kind;
constexpr MenuLine kDash{Dash};
constexpr MenuLine EntryOf(Command command) {
    return {Entry, "", "", command};
}

constexpr MenuLine kMenus[] = {
    {Menu, "mnuGame", "&Game"},
    EntryOf(Command::New1),
    EntryOf(Command::NewVariant),
    kDash,
    EntryOf(Command::Open1),
    EntryOf(Command::Save),
    kDash,
    EntryOf(Command::Details),
    kDash,
    EntryOf(Command::Exit),
    {Menu, "mnuPlay", "&Play"},
    EntryOf(Command::Compute),
    EntryOf(Command::mnu_Play_Cancel),
    kDash,
    EntryOf(Command::First),
    EntryOf(Command::Moveback),
    EntryOf(Command::MoveForward),
    EntryOf(Command::Last),
    kDash,
    EntryOf(Command::Offerdraw),
    EntryOf(Command::Resign),
    EntryOf(Command::Hint),
    kDash,
    EntryOf(Command::Cplayer),
    EntryOf(Command::Pplayer),
    EntryOf(Command::mnu_Play_Ccomputer),
    kDash,
    EntryOf(Command::Options),
    kDash,
    EntryOf(Command::Analyze),
    {Menu, "mnu_Board1", "&Board"},
    EntryOf(Command::Turn),
    {Submenu, "Notation1", "Notation"},
    EntryOf(Command::Nonotation),
    EntryOf(Command::mnu_Board_Notation_Chess),
    EntryOf(Command::mnu_Board_Notation_Checkers),
    {SubmenuEnd},
    kDash,
    EntryOf(Command::CreateHtml),
    {Menu, "view", "&View"},
    EntryOf(Command::calculation),
    kDash,
    EntryOf(Command::rating),
    {Menu, "extra", "&Extra"},
    EntryOf(Command::plyvaluetable),
    EntryOf(Command::problems),
    {Menu, "Help", "&Help"},
    EntryOf(Command::QuickRules),
    EntryOf(Command::Rules),
    kDash,
    EntryOf(Command::mnu_Help_About),
};

constexpr SetupMenuLine kSetupMenu[] = {
    {"mnu_PopUp_ClearBoard", "Clear Board", SetupEntry::ClearBoard},
    {"", ""},
    {"empty1", "Empty", SetupEntry::Empty},
    {"mnu_PopUp_BlackChecker", "Black Checker", SetupEntry::BlackMan},
    {"mnu_PopUp_BlackKing", "Black King", SetupEntry::BlackKing},
    {"Whitechecker", "White Checker", SetupEntry::WhiteMan},
    {"Whiteking", "White King", SetupEntry::WhiteKing},
    {"", ""},
    {"mnu_PopUp_BlackM", "Black moves", SetupEntry::BlackMoves},
    {"WhiteM", "White moves", SetupEntry::WhiteMoves},
};

} // namespace

const CommandRow& RowOf(Command command) {
    return kCommands[static_cast<std::size_t>(command)];
}

std::span<const CommandRow> AllCommands() {
    return kCommands;
}

const CommandRow* RowAtButton(int place) {
    for (const CommandRow& row : kCommands)
        if (row.Button == place) return &row;
    return nullptr;
}

std::span<const MenuLine> MenuTree() {
    return kMenus;
}

std::span<const SetupMenuLine> SetupMenu() {
    return kSetupMenu;
}

} // namespace tavlon12
