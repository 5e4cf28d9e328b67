#include "support/recording_port.h"

#include <stdexcept>

namespace tavlon12 {

namespace {

void FillLists(UiPort& port, RecordingPort& screen) {
    port.ListClear = [&](ListId list) {
        screen.List(list).Lines.clear();
        screen.List(list).Selected = -1;
    };
    port.ListAdd = [&](ListId list, const std::string& line) { screen.List(list).Lines.push_back(line); };
    port.ListRemove = [&](ListId list, Long line) {
        RecordedList& lines = screen.List(list);
        if (line < 0 || line >= static_cast<Long>(lines.Lines.size())) throw std::out_of_range("ListRemove");
        lines.Lines.erase(lines.Lines.begin() + line);
        if (lines.Selected >= line) lines.Selected = lines.Selected == line ? -1 : lines.Selected - 1;
    };
    port.ListCount = [&](ListId list) { return static_cast<Long>(screen.List(list).Lines.size()); };
    port.ListSelect = [&](ListId list, Long line) {
        if (line < -1 || line >= static_cast<Long>(screen.List(list).Lines.size()))
            throw std::out_of_range("ListSelect");
        screen.List(list).Selected = line;
    };
    port.ListSelected = [&](ListId list) { return screen.List(list).Selected; };
    port.ListText = [&](ListId list, Long line) { return screen.List(list).Lines.at(static_cast<std::size_t>(line)); };
    port.SetListEnabled = [&](ListId list, bool on) { screen.List(list).Enabled = on; };
    port.FocusList = [&](ListId list) { screen.LastFocus = static_cast<int>(list); };
}

void FillTexts(UiPort& port, RecordingPort& screen) {
    port.SetStatusText = [&](int panel, const std::string& text) {
        screen.Status.at(static_cast<std::size_t>(panel)) = text;
        if (panel == 1) screen.Panel1.push_back(text);
    };
    port.GetStatusText = [&](int panel) { return screen.Status.at(static_cast<std::size_t>(panel)); };
    port.ShowMessage = [&](const std::string& text, const std::string& title, MessageKind kind) {
        screen.Messages.push_back({text, title, kind});
        screen.OnMessage(RecordedMessage{text, title, kind});
    };
    port.AskYesNo = [&](const std::string& text, const std::string& title) {
        screen.Questions.push_back({text, title});
        if (screen.Answers.empty()) return true;
        bool answer = screen.Answers.front();
        screen.Answers.pop_front();
        return answer;
    };
    port.SetProgress = [&](Long value) { screen.Progress = value; };
    port.SetProgressRange = [&](Long minimum, Long maximum) {
        screen.ProgressMinimum = minimum;
        screen.ProgressMaximum = maximum;
    };
    port.SetSearchLine = [&](const std::string& text) { screen.SearchLine = text; };
    port.GetSearchLine = [&] { return screen.SearchLine; };
    port.SetStrengthLine = [&](const std::string& text) { screen.StrengthLine = text; };
    port.SetText = [&](Control control, const std::string& text) { screen.Texts[control] = text; };
    port.GetText = [&](Control control) { return screen.Texts[control]; };
}

} // namespace

UiPort RecordingPort::Port() {
    UiPort port;
    FillTexts(port, *this);
    FillLists(port, *this);
    port.SetControlEnabled = [this](Control control, bool on) { ControlEnabled[control] = on; };
    port.SetCommandEnabled = [this](Command command, bool on) { Enabled[command] = on; };
    port.MarkPlayerToMove = [this](bool label1) { Label1ToMove = label1; };
    port.PlaySound = [this](const std::filesystem::path& file) { Sounds.push_back(file); };
    port.Clock = [this] { return Now += TickPerReading; };
    port.Wait = [this](double seconds) {
        Waited += seconds;
        Now += seconds;
    };
    port.Yield = [this] { OnYield(); };
    port.EndProgram = [this] { ++Ended; };
    return port;
}

} // namespace tavlon12
