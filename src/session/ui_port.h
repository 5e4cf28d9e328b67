#pragma once

#include "files/skin_file.h"
#include "rules/basics.h"

#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12 {

enum class MessageKind { Plain, Exclamation, Information };

enum class ListId { List1, List2, List3 };

/// What the logic writes, greys or reads by name: fields, labels, whole menus and the toolbar.
enum class Control {
    Text1,
    Text2,
    Command1,
    Toolbar1,
    Label1,
    Label2,
    Label3,
    Label4,
    Label5,
    Label6,
    Label7,
    Label8,
    Label9,
    Label10,
    Label11,
    Label12,
    Label13,
    Label14,
    mnuGame,
    mnuPlay,
    mnu_Board1,
    view,
    extra,
    Help,
};

/// The label of the player to move; none when the game is over.
enum class PlayerMark { None, Label1, Label2 };

/// A menu entry, with its toolbar button where it has one.
enum class Command {
    New1,
    NewVariant,
    Open1,
    Save,
    Details,
    Exit,
    Compute,
    mnu_Play_Cancel,
    First,
    Moveback,
    MoveForward,
    Last,
    Offerdraw,
    Resign,
    Hint,
    Cplayer,
    Pplayer,
    mnu_Play_Ccomputer,
    Options,
    Analyze,
    Turn,
    Nonotation,
    mnu_Board_Notation_Chess,
    mnu_Board_Notation_Checkers,
    CreateHtml,
    calculation,
    rating,
    plyvaluetable,
    problems,
    QuickRules,
    Rules,
    mnu_Help_About,
};
inline constexpr int kCommandCount = static_cast<int>(Command::mnu_Help_About) + 1;

/// An entry of the menu that edits the position on the board.
enum class SetupEntry { ClearBoard, Empty, BlackMan, BlackKing, WhiteMan, WhiteKing, BlackMoves, WhiteMoves };

/// The status bar with its three panels, the progress bar, the two lines of the search and the window's title. An empty
/// text clears a panel.
struct StatusPort {
    std::function<void(int panel, const std::string& text)> SetStatusText = [](int, const std::string&) {};
    std::function<std::string(int panel)> GetStatusText = [](int) { return std::string(); };
    std::function<void(Long value)> SetProgress = [](Long) {};
    std::function<void(Long minimum, Long maximum)> SetProgressRange = [](Long, Long) {};
    std::function<void(const std::string& text)> SetSearchLine = [](const std::string&) {};
    std::function<std::string()> GetSearchLine = [] { return std::string(); };
    std::function<void(const std::string& text)> SetStrengthLine = [](const std::string&) {};
    std::function<void(const std::string& title)> SetWindowTitle = [](const std::string&) {};
};

/// The three lists. Lines are counted from 0; -1 is no selection.
struct ListPort {
    std::function<void(ListId)> ListClear = [](ListId) {};
    std::function<void(ListId, const std::string& line)> ListAdd = [](ListId, const std::string&) {};
    std::function<void(ListId, Long line)> ListRemove = [](ListId, Long) {};
    std::function<Long(ListId)> ListCount = [](ListId) { return 0; };
    std::function<void(ListId, Long line)> ListSelect = [](ListId, Long) {};
    std::function<Long(ListId)> ListSelected = [](ListId) { return -1; };
    std::function<std::string(ListId, Long line)> ListText = [](ListId, Long) { return std::string(); };
    std::function<void(ListId, bool on)> SetListEnabled = [](ListId, bool) {};
    std::function<void(ListId)> FocusList = [](ListId) {};
};

/// Fields, labels, whole menus and the toolbar.
struct FieldPort {
    std::function<void(Control, const std::string& text)> SetText = [](Control, const std::string&) {};
    std::function<std::string(Control)> GetText = [](Control) { return std::string(); };
    std::function<void(Control, bool on)> SetControlEnabled = [](Control, bool) {};
    std::function<void(bool on)> SetHourglass = [](bool) {}; ///< the mouse pointer of a long task
    /// White on red for the player to move.
    std::function<void(PlayerMark mark)> MarkPlayerToMove = [](PlayerMark) {};
};

/// Menu entries with their toolbar buttons.
struct CommandPort {
    std::function<void(Command, bool on)> SetCommandEnabled = [](Command, bool) {};
    std::function<void(Command, bool on)> SetCommandChecked = [](Command, bool) {};
};

/// The board. Views are places on the screen, 0 to 143 from the top left.
struct BoardPort {
    std::function<void()> LayoutWindow = [] {}; ///< sizes and places everything for the skin and rules in force
    std::function<void()> LoadSkin = [] {};     ///< the skin named by `SkinName`; sets `SkinMode`
    /// Why the skin of a name cannot be loaded; empty when it can.
    std::function<std::string(const std::string& name)> SkinProblem = [](const std::string&) { return std::string(); };
    /// A picture of the skin in force as a BMP file, as large as a square of the board.
    std::function<std::string(SquareImage)> SquarePicture = [](SquareImage) { return std::string(); };
    /// All squares and coordinates; overlay 1: square numbers too.
    std::function<void(int overlay)> PaintBoard = [](int) {};
    std::function<void(Long view)> ShowSquare = [](Long) {}; ///< one square with its piece, without a highlight box
    std::function<void(Long view)> DrawHighlightBox = [](Long) {};
    std::function<void(Long view)> LiftPiece = [](Long) {};   ///< the square looks empty
    std::function<void(Long value)> CarryPiece = [](Long) {}; ///< the mouse pointer becomes a piece, -2 to 2
    std::function<void()> DropPiece = [] {};                  ///< and returns to normal
    std::function<bool(Long view)> ShowsEmptySquare = [](Long) { return true; };
    std::function<Long()> SquareEdge = [] { return 1; }; ///< pixels
    /// Opens the set-up menu at the pointer, with marks at what stands on the square and at the side to move. Nothing
    /// when no entry was chosen.
    std::function<std::optional<SetupEntry>(SetupEntry piece, SetupEntry side)> ChooseSetup =
        [](SetupEntry, SetupEntry) { return std::optional<SetupEntry>(); };
};

/// Time and the event loop.
struct TimePort {
    std::function<double()> Clock = [] { return 0.0; }; ///< seconds since midnight
    /// Lets the window live for that time, less when the search is to stop.
    std::function<void(double seconds)> Wait = [](double) {};
    std::function<void()> Yield = [] {}; ///< lets pending user events run
};

/// What a file dialog asks for.
struct FileQuestion {
    bool ToSave = false;
    std::string Title;
    std::string Filter; ///< pairs of a caption and a pattern, "Tavlon File (*.tvl)|*.tvl|..."
};

/// Sounds, documents and file dialogs.
struct FilePort {
    /// Empty when the user cancels. An existing file is given as it is: the caller asks about it.
    std::function<std::filesystem::path(const FileQuestion&)> ChooseFile = [](const FileQuestion&) {
        return std::filesystem::path();
    };
    std::function<void(const std::filesystem::path& file)> PlaySound = [](const std::filesystem::path&) {};
    std::function<void(const std::string& address)> OpenDocument = [](const std::string&) {};
};

/// A variant or skin in a list to choose from.
struct ListLine {
    std::string Name;
    std::string Problem; ///< why its file cannot be used; empty when it can
};

/// The chooser of a game in a PDN file.
struct PdnChooser {
    std::string Title;
    std::vector<std::array<std::string, 10>> Rows; ///< a game each: Event, Date, Black, White, Result, Site, ...
    std::vector<ListLine> OpenAs;                  ///< "DEFAULT", then variants
};
struct PdnChoice {
    Long Game = 1;    ///< from 1
    Long Variant = 0; ///< index into `OpenAs`
};

/// What the controls of the Variants dialog hold.
struct VariantsForm {
    std::vector<ListLine> Variants;
    std::string Variant; ///< the one that is chosen
    Long UseClassic = 1;
    /// By the key of a rule, the texts of its boxes: "1" or "0" of a flag, each slot of a list of promotion squares,
    /// the two halves of a movement string.
    std::map<std::string_view, std::vector<std::string>> Values;
    bool ColourOpen = true; ///< the box of `PiecesOnBlack` may be clicked
    std::string Help; ///< one sentence that tells what is special about the variant; empty where its file has none
    std::string HelpLink;
};

/// A box of a rule's texts.
struct VariantsBox {
    std::string_view Key;
    std::size_t Index = 0;

    bool operator==(const VariantsBox&) const = default;
};

/// What acts on the Variants dialog. Each gets the form as it is filled in, and gives it back as it is to be shown.
struct VariantsEvents {
    std::function<void(VariantsForm&, const std::string& name)> PickVariant;
    std::function<void(VariantsForm&, Long useClassic)> PickFolder;
    std::function<void(VariantsForm&, bool on)> PickColour; ///< the box of `PiecesOnBlack` was clicked
    std::function<void(VariantsForm&)> Random;
    /// True when all entries are good; otherwise `mark` has been called for the first that is not. `JumpFriend` and
    /// `NumberFriends` are taken only on request.
    std::function<bool(VariantsForm&, bool includeFriends, const std::function<void(VariantsBox)>& mark)> Apply;
    std::function<void()> OpenHelp;
};

/// The user's settings as texts, by their names: "1" or "0" of a flag.
using SettingTexts = std::map<std::string_view, std::string>;

/// What the Options dialog is filled from.
struct OptionsForm {
    SettingTexts Values;
    std::vector<ListLine> Skins;
    Long Rating = 0;
};

/// What acts on it while it is open.
struct OptionsEvents {
    /// OK or Apply: takes over the values of the controls, whatever the user has typed, and gives them as they are now.
    std::function<SettingTexts(const SettingTexts&)> Apply;
    std::function<void(const std::string& name)> PickSkin; ///< counts at once
    std::function<Long()> ResetRating;                     ///< counts at once; gives the new rating
};

/// The tags of a game that the user edits.
struct DetailsForm {
    std::string Event, Site, Date, Black, White;

    bool operator==(const DetailsForm&) const = default;
};

/// The rules of a variant, to be read.
struct RulesText {
    std::string Title;
    std::string Text;
    std::string Link; ///< shown under the text; empty for none
};

/// What is said about the program.
struct AboutText {
    std::string Name, Line, Version, Notice, WebPage, MailAddress;
};

using OpenAddress = std::function<void(const std::string& address)>;

/// Boxes and dialogs that wait for the user.
struct DialogPort {
    /// Nothing when the user cancels.
    std::function<std::optional<PdnChoice>(const PdnChooser&)> ChoosePdnGame = [](const PdnChooser&) {
        return std::optional<PdnChoice>();
    };
    /// Returns when the dialog is closed. What was taken over has gone through the events.
    std::function<void(const VariantsForm&, const VariantsEvents&)> EditVariants = [](const VariantsForm&,
                                                                                      const VariantsEvents&) {};
    std::function<void(const OptionsForm&, const OptionsEvents&)> EditOptions = [](const OptionsForm&,
                                                                                   const OptionsEvents&) {};
    /// The same; `apply` gets the tags at OK and at Apply.
    std::function<void(const DetailsForm&, const std::function<void(const DetailsForm&)>& apply)> EditDetails =
        [](const DetailsForm&, const std::function<void(const DetailsForm&)>&) {};
    // `open` gets the address of a link that was clicked.
    std::function<void(const RulesText&, const OpenAddress& open)> ShowRules = [](const RulesText&,
                                                                                  const OpenAddress&) {};
    std::function<void(const AboutText&, const OpenAddress& open)> ShowAbout = [](const AboutText&,
                                                                                  const OpenAddress&) {};
    std::function<void(const std::string& text, const std::string& title, MessageKind kind)> ShowMessage =
        [](const std::string&, const std::string&, MessageKind) {};
    std::function<bool(const std::string& text, const std::string& title)> AskYesNo =
        [](const std::string&, const std::string&) { return true; };
};

/// The windows of the study tools. They stay open when the tool is done, until the user closes them.
struct StudyPort {
    /// Opens the window of the table of values, empty, with the orders that it can be sorted in, greyed.
    std::function<void(const std::vector<std::string>& orders)> OpenValues = [](const std::vector<std::string>&) {};
    std::function<void(const std::string& text)> SetLabel = [](const std::string&) {};
    std::function<void(Long value, Long maximum)> SetProgress = [](Long, Long) {};
    std::function<void(const std::string& text)> SetSearchLine = [](const std::string&) {};
    /// Shows the table in the first order and opens the choice of orders: `table` gives its text in each.
    std::function<void(const std::function<std::string(Long order)>& table)> ShowValues =
        [](const std::function<std::string(Long)>&) {};
    std::function<void()> ClearProblems = [] {}; ///< empties the window of combinations where one is open
    /// Opens the window of the combinations found, a line each.
    std::function<void(const std::string& text)> ShowProblems = [](const std::string&) {};
};

/// Everything that the logic asks of the screen. An operation that nobody filled does nothing. Texts are shown exactly
/// as given.
struct UiPort {
    StatusPort Status;
    ListPort Lists;
    FieldPort Fields;
    CommandPort Commands;
    BoardPort Board;
    TimePort Time;
    FilePort Files;
    DialogPort Dialogs;
    StudyPort Study;
    std::function<void()> EndProgram = [] {}; ///< closes all windows without a question and ends the process
};

} // namespace tavlon12
