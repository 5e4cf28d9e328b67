#pragma once

#include "engine/root_search.h"
#include "engine/search_state.h"
#include "files/settings.h"
#include "files/variant_file.h"
#include "rules/position.h"
#include "session/game_record.h"
#include "session/ui_port.h"

#include <filesystem>
#include <string>

namespace tavlon12 {

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
};

/// Texts that `DisplayMove` makes of a move.
struct MoveTexts {
    std::string MoveTextShown; ///< padded squares with "-" or the capture mark between them, "K" behind a promotion
    std::string MoveTextKey;   ///< padded squares alone
    std::string MoveTextPlain; ///< as shown, without padding
};

/// The game being played with the user's settings. One for the life of the process; tests hold several.
struct Session {
    Session(Position& position, SearchState& search) : Pos(position), Search(search) {}

    Position& Pos;
    SearchState& Search;
    UiPort Port;
    UserSettings Settings;
    GameRecord Record;
    BoardInput Input;
    std::filesystem::path ProgramFolder; ///< where the data folders and the files of the program lie

    Long PlayMode = kPlayerComputer;
    Long Rating = 1200;
    bool RateableGame = false;
    std::string BlackPlayerName; ///< the side that begins, shown by `Label1`
    std::string WhitePlayerName; ///< the other side, shown by `Label2`
    std::string GameFileName;
    std::string ResultShown; ///< result of a loaded game
    bool BookOpen = true;
    std::string BookStatusText;
    std::string CaptureChar = "x"; ///< between the squares of a capture; ":" with `ColonCapture`
    VariantTexts Texts;

    // The state of the game
    bool Busy = false;     ///< the computer is thinking: board input and navigation are ignored
    bool Quitting = false; ///< the user has closed the program: what runs unwinds, and nothing more is shown
    bool GameOver = false;
    bool GameTouched = false; ///< a move has been made in this game
    Long DrawReason = 0;      ///< 1 to 5: the draw rule that the position meets
    std::string ResultText;   ///< "", "1-0", "0-1" or "1/2-1/2"; "1-0": the side that began has won
    std::string RatingNote;   ///< what the rating adds to the message at the end of a game
    Long LastScore = 0;       ///< of the computer's last move, from its side
    Long ThreeKingsFrom = 0;  ///< the half-move from which three kings have stood against one
    Long TwoKingsFrom = 0;
    bool MoveLimitHit = false;
    bool EqualKingsOnly = false; ///< equal material and no man, as of the last drawing of the board
    Long TouchedCell = 0;        ///< the piece that was touched first, under the touch-move rule

    // What `InputMove` and `DisplayMove` leave
    bool LastMoveCaptured = false;
    bool LastMovePromoted = false;
    Long LastMoveSlot = 0;
    MoveTexts MoveText;

    // The computer's move
    RootMoveTable RootMoves; ///< the candidates of the last search
    std::string MainLineText;
    Long PredictedFrom = 0; ///< the reply that the main line expects
    Long PredictedTo = 0;
    bool SearchStarted = false; ///< a search has run since the program began
    Long Stagnation = 0;        ///< computer moves in a row with a score near to that of 78 half-moves earlier
    Long LastDrawAsk = 0;       ///< `TreeIndex` of the computer's last draw question
    bool MateAnnounced = false;
};

} // namespace tavlon12
