#include "support/recording_port.h"

#include <stdexcept>

namespace tavlon12 {

namespace {

void FillLists(UiPort& port, RecordingPort& screen) {
    port.Lists.ListClear = [&](ListId list) {
        screen.List(list).Lines.clear();
        screen.List(list).Selected = -1;
    };
    port.Lists.ListAdd = [&](ListId list, const std::string& line) { screen.List(list).Lines.push_back(line); };
    port.Lists.ListRemove = [&](ListId list, Long line) {
        RecordedList& lines = screen.List(list);
        lines.Lines.at(static_cast<std::size_t>(line)); // throws on a line that is not there
        lines.Lines.erase(lines.Lines.begin() + line);
        if (lines.Selected >= line) lines.Selected = lines.Selected == line ? -1 : lines.Selected - 1;
    };
    port.Lists.ListCount = [&](ListId list) { return static_cast<Long>(screen.List(list).Lines.size()); };
    port.Lists.ListSelect = [&](ListId list, Long line) {
        if (line < -1 || line >= static_cast<Long>(screen.List(list).Lines.size()))
            throw std::out_of_range("ListSelect");
        screen.List(list).Selected = line;
    };
    port.Lists.ListSelected = [&](ListId list) { return screen.List(list).Selected; };
    port.Lists.ListText = [&](ListId list, Long line) {
        return screen.List(list).Lines.at(static_cast<std::size_t>(line));
    };
    port.Lists.SetListEnabled = [&](ListId list, bool on) { screen.List(list).Enabled = on; };
    port.Lists.FocusList = [&](ListId list) { screen.LastFocus = static_cast<int>(list); };
}

void FillTexts(UiPort& port, RecordingPort& screen) {
    port.Status.SetStatusText = [&](int panel, const std::string& text) {
        screen.Status.at(static_cast<std::size_t>(panel)) = text;
        if (panel == 1) screen.Panel1.push_back(text);
    };
    port.Status.GetStatusText = [&](int panel) { return screen.Status.at(static_cast<std::size_t>(panel)); };
    port.Dialogs.ShowMessage = [&](const std::string& text, const std::string& title, MessageKind kind) {
        screen.Messages.push_back({text, title, kind});
        screen.OnMessage(RecordedMessage{text, title, kind});
    };
    port.Dialogs.AskYesNo = [&](const std::string& text, const std::string& title) {
        screen.Questions.push_back({text, title});
        if (screen.Answers.empty()) return true;
        bool answer = screen.Answers.front();
        screen.Answers.pop_front();
        return answer;
    };
    port.Status.SetProgress = [&](Long value) { screen.Progress = value; };
    port.Status.SetProgressRange = [&](Long minimum, Long maximum) {
        screen.ProgressMinimum = minimum;
        screen.ProgressMaximum = maximum;
    };
    port.Status.SetSearchLine = [&](const std::string& text) { screen.SearchLine = text; };
    port.Status.GetSearchLine = [&] { return screen.SearchLine; };
    port.Status.SetStrengthLine = [&](const std::string& text) { screen.StrengthLine = text; };
    port.Fields.SetText = [&](Control control, const std::string& text) { screen.Texts[control] = text; };
    port.Fields.GetText = [&](Control control) { return screen.Texts[control]; };
}

void FillBoard(BoardPort& port, RecordedBoard& board) {
    port.PaintBoard = [&](int overlay) {
        board.Boxed.clear();
        board.Lifted.clear();
        board.NumbersShown = overlay == 1;
    };
    port.ShowSquare = [&](Long view) {
        board.Boxed.erase(view);
        board.Lifted.erase(view);
    };
    port.DrawHighlightBox = [&](Long view) { board.Boxed.insert(view); };
    port.LiftPiece = [&](Long view) {
        board.Boxed.erase(view);
        board.Lifted.insert(view);
    };
    port.CarryPiece = [&](Long value) { board.Carried = value; };
    port.DropPiece = [&] { board.Carried = 0; };
    port.ShowsEmptySquare = [&](Long view) { return board.Lifted.contains(view) || board.IsEmpty(view); };
    port.SquareEdge = [] { return 40; };
}

void FillStudy(StudyPort& port, RecordedStudy& study) {
    port.OpenValues = [&](const std::vector<std::string>&) { study = {}; };
    port.SetLabel = [&](const std::string& text) { study.Label = text; };
    port.SetProgress = [&](Long value, Long maximum) {
        study.Progress = value;
        study.ProgressMaximum = maximum;
    };
    port.SetSearchLine = [&](const std::string& text) { study.SearchLine = text; };
    port.ShowValues = [&](const std::function<std::string(Long)>& table) { study.Table = table; };
    port.ClearProblems = [&] { study.Problems.clear(); };
    port.ShowProblems = [&](const std::string& text) { study.Problems = text; };
}

} // namespace

UiPort RecordingPort::Port() {
    UiPort port;
    FillTexts(port, *this);
    FillLists(port, *this);
    FillBoard(port.Board, Board);
    FillStudy(port.Study, Study);
    port.Board.ChooseSetup = [this](SetupEntry piece, SetupEntry side) {
        SetupMarks.emplace_back(piece, side);
        return Setup;
    };
    port.Fields.SetControlEnabled = [this](Control control, bool on) { ControlEnabled[control] = on; };
    port.Commands.SetCommandEnabled = [this](Command command, bool on) { Enabled[command] = on; };
    port.Fields.MarkPlayerToMove = [this](PlayerMark mark) { Mark = mark; };
    port.Files.ChooseFile = [this](const FileQuestion&) { return File; };
    port.Dialogs.ChoosePdnGame = [this](const PdnChooser& chooser) {
        Choosers.push_back(chooser);
        return Choice;
    };
    port.Dialogs.EditVariants = [this](const VariantsForm& form, const VariantsEvents& events) {
        UseVariants(form, events);
    };
    port.Dialogs.EditOptions = [this](const OptionsForm& form, const OptionsEvents& events) {
        UseOptions(form, events);
    };
    port.Dialogs.ShowRules = [this](const RulesText& text, const OpenAddress&) { Rules.push_back(text); };
    port.Board.LoadSkin = [this] { BoardCalls.emplace_back("LoadSkin"); };
    port.Board.LayoutWindow = [this] { BoardCalls.emplace_back("LayoutWindow"); };
    port.Board.SquarePicture = [](SquareImage image) { return std::string(KeyOf(image)); };
    port.Files.OpenDocument = [this](const std::string& address) { Opened.push_back(address); };
    port.Files.PlaySound = [this](const std::filesystem::path& file) { Sounds.push_back(file); };
    port.Time.Clock = [this] { return Now += TickPerReading; };
    port.Time.Wait = [this](double seconds) {
        Waited += seconds;
        Now += seconds;
    };
    port.Time.Yield = [this] { OnYield(); };
    port.EndProgram = [this] { ++Ended; };
    return port;
}

} // namespace tavlon12
