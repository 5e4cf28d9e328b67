#pragma once

#include "engine/root_search.h"
#include "engine/search_state.h"
#include "files/game_log.h"
#include "files/pdn_file.h"
#include "files/settings.h"
#include "files/variant_file.h"
#include "rules/position.h"
#include "session/game_record.h"
#include "session/ui_port.h"

#include <filesystem>
#include <string>

namespace tavlon12 {

inline constexpr Long kFirstRating = 1200;

inline constexpr const char* kComputerName = "Computer";

inline constexpr Long kPlayerComputer = 0;
inline constexpr Long kPlayerPlayer = 1;
inline constexpr Long kComputerComputer = 2;

/// State of the mouse on the board. Views are places on the screen, 0 to 143 from the top left, -1 for none.
struct BoardInput {
    Long DragSource = -1; ///< the piece that is carried
    Long DragX = 0;       ///< last offset of the pointer from the pressed square's corner while a piece is carried
    Long DragY = 0;
    bool DragIconSet = false;  ///< the cursor shows the piece
    bool NumbersShown = false; ///< the square numbers stand on the board while the button is down
    Long HoverCell = 0;        ///< the last piece under the pointer that has a move
    Long HoverView = -1;
    bool MovablesBoxed = false; ///< the boxes of "Show available moves" are on the board
    Long RightPressed = -1;
    bool PopupJustClosed = false;
    bool AfterPopup = false;     ///< presses are ignored until the mouse has moved
    bool SelfMoveExists = false; ///< a legal move of the pressed piece ends where it stands

    bool operator==(const BoardInput&) const = default;
};

/// The variant that is played: its definition file, and what that file says.
struct VariantState {
    std::string VariantFile = kDefaultVariant; ///< without folder and extension
    std::string VariantName = kDefaultVariant; ///< the name shown
    RuleSet DefinedRules;                      ///< the rules in force may differ
    VariantTexts Texts;
    bool CustomSetup = false; ///< the start position was set by hand, loaded or drawn; a new game keeps it

    bool operator==(const VariantState&) const = default;
};

/// The state of a game beside its record. A new game assigns it anew.
struct GameState {
    bool GameOver = false;
    std::string EndText;       ///< how it has ended, as the status line told it
    bool GameTouched = false;  ///< a move has been made in this game
    bool RateableGame = false; ///< the game may change the rating
    Long DrawReason = 0;       ///< 1 to 5: the draw rule that the position meets
    std::string ResultText;    ///< "", "1-0", "0-1" or "1/2-1/2"; "1-0": the side that began has won
    Long LastScore = 0;        ///< of the computer's last move, from its side
    Long Stagnation = 0;       ///< computer moves in a row with a score near to that of 78 half-moves earlier
    Long LastDrawAsk = 0;      ///< `TreeIndex` of the computer's last draw question
    bool MateAnnounced = false;
    Long TouchedCell = 0; ///< the piece that was touched first, under the touch-move rule
    bool BookOpen = true; ///< the book may still answer for the computer
    bool BookFailureTold = false;
    std::string BookStatusText;
    std::string GameFileName;
    std::string CaptureChar = "x"; ///< between the squares of a capture; ":" with `ColonCapture`

    bool operator==(const GameState&) const = default;
};

/// What one thinking leaves for the commands after it. The next thinking and a new game assign it anew.
struct Thinking {
    RootMoveTable RootMoves; ///< the candidates
    Long RootIndex = 0;      ///< `TreeIndex` of the position that they are moves of
    std::string MainLineText;
    bool FromBook = false;  ///< the move came from the opening book
    Long PredictedFrom = 0; ///< the reply that the main line expects
    Long PredictedTo = 0;

    bool operator==(const Thinking&) const = default;
};

/// The names of the two sides. "Computer" marks the side that the computer plays.
struct PlayerNames {
    std::string BlackPlayerName; ///< the side that begins, shown by `Label1`
    std::string WhitePlayerName; ///< the other side, shown by `Label2`

    bool operator==(const PlayerNames&) const = default;
};

/// The game being played with the user's settings. One for the life of the process; tests hold several.
struct Session {
    Session(Position& position, SearchState& search) : Pos(position), Search(search) {}

    Position& Pos;
    SearchState& Search;
    UiPort Port;
    UserSettings Settings;
    VariantState Variant;
    std::filesystem::path ProgramFolder;   ///< what the program writes, and the data that the user adds
    std::filesystem::path InstalledFolder; ///< data found behind that of the program folder; empty for none
    GameLog Log;
    bool LogFailureTold = false;
    Long Rating = kFirstRating;

    GameRecord Record;
    GameState Game;
    Thinking Thought;
    PlayerNames Players;
    BoardInput Input;
    PdnTags Pdn;                 ///< of the PDN game last read, and as the user has edited them
    Long PdnGameChoice = 1;      ///< number of the game chosen last, from 1; -1 for none
    std::string ResultShown;     ///< result of a loaded game
    bool EqualKingsOnly = false; ///< equal material and no man, as of the last drawing of the board

    // Who is at work
    bool Busy = false;            ///< the computer is thinking: board input and navigation are ignored
    bool Quitting = false;        ///< the user has closed the program: what runs unwinds, and nothing more is shown
    bool SettingsAdopted = false; ///< the settings are those of the file; at the end they are written back
    bool Started = false;         ///< a game has stood on the board; at the end it is kept
    bool SearchStarted = false;   ///< a search has run since the program began
    double BoxSeconds = 0;        ///< how long boxes have been open while the computer thought
};

} // namespace tavlon12
