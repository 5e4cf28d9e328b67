#pragma once

#include "session/ui_port.h"

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tavlon12 {

struct RecordedMessage {
    std::string Text;
    std::string Title;
    MessageKind Kind = MessageKind::Plain;

    bool operator==(const RecordedMessage&) const = default;
};

struct RecordedQuestion {
    std::string Text;
    std::string Title;

    bool operator==(const RecordedQuestion&) const = default;
};

/// A list of the window: lines, selection (-1 for none), whether it is greyed.
struct RecordedList {
    std::vector<std::string> Lines;
    Long Selected = -1;
    bool Enabled = true;

    bool operator==(const RecordedList&) const = default;
};

/// The board on the screen, by its views.
struct RecordedBoard {
    std::set<Long> Boxed;
    std::set<Long> Lifted; ///< the squares that look empty though a piece stands there
    bool NumbersShown = false;
    Long Carried = 0;                                                   ///< the piece that the mouse pointer shows
    std::function<bool(Long view)> IsEmpty = [](Long) { return true; }; ///< of the squares that are not lifted
};

/// The windows of the study tools.
struct RecordedStudy {
    std::string Label;
    std::string SearchLine;
    Long Progress = 0;
    Long ProgressMaximum = 0;
    std::function<std::string(Long order)> Table; ///< empty until it is complete
    std::string Problems;
};

/// A screen without a window: it keeps what the logic has shown, answers questions from a queue and has a clock of its
/// own.
struct RecordingPort {
    RecordingPort() = default;
    RecordingPort(const RecordingPort&) = delete;
    RecordingPort& operator=(const RecordingPort&) = delete;

    std::array<std::string, 4> Status; ///< by panel, 1 to 3
    std::vector<std::string> Panel1;   ///< every text that panel 1 has been given, in order
    std::vector<RecordedMessage> Messages;
    std::vector<RecordedQuestion> Questions;
    std::deque<bool> Answers; ///< to the next questions; Yes when it is empty
    std::array<RecordedList, 3> Lists;
    std::map<Control, std::string> Texts;
    std::map<Control, bool> ControlEnabled;
    std::map<Command, bool> Enabled;
    std::string SearchLine;
    std::string StrengthLine;
    Long Progress = 0;
    Long ProgressMinimum = 0;
    Long ProgressMaximum = 100;
    RecordedBoard Board;
    std::vector<std::filesystem::path> Sounds;
    int LastFocus = -1;               ///< the list that has been given the focus, as a number
    std::filesystem::path File;       ///< the answer to file dialogs
    std::optional<PdnChoice> Choice;  ///< and to the chooser of a game
    std::vector<PdnChooser> Choosers; ///< as they were shown
    /// What the user does in the Variants dialog before it closes.
    std::function<void(VariantsForm, const VariantsEvents&)> UseVariants = [](VariantsForm, const VariantsEvents&) {};
    std::vector<std::string> Opened;                           ///< documents and addresses
    std::optional<SetupEntry> Setup;                           ///< the answer to the set-up menu
    std::vector<std::pair<SetupEntry, SetupEntry>> SetupMarks; ///< the marks in it, each time it has opened
    RecordedStudy Study;
    /// What the user does in the Options dialog before it closes.
    std::function<void(const OptionsForm&, const OptionsEvents&)> UseOptions = [](const auto&, const auto&) {};
    std::vector<RulesText> Rules;        ///< as they were shown
    std::vector<std::string> BoardCalls; ///< "LoadSkin", "LayoutWindow"
    PlayerMark Mark = PlayerMark::None;
    int Ended = 0; ///< how often the end of the program was asked for

    double Now = 43200.0;        ///< the clock, in seconds since midnight
    double TickPerReading = 0.0; ///< added to the clock at each reading
    double Waited = 0.0;
    std::function<void()> OnYield = [] {};
    std::function<void(const RecordedMessage&)> OnMessage = [](const RecordedMessage&) {};

    RecordedList& List(ListId list) { return Lists[static_cast<std::size_t>(list)]; }

    /// A port whose operations act on this record, which must outlive it.
    UiPort Port();
};

} // namespace tavlon12
