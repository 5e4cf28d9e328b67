#include "ui/window_port.h"

#include "session/play_modes.h"
#include "ui/dialogs/about_window.h"
#include "ui/dialogs/details_dialog.h"
#include "ui/dialogs/file_dialog.h"
#include "ui/dialogs/options_dialog.h"
#include "ui/dialogs/pdn_dialog.h"
#include "ui/dialogs/rules_window.h"
#include "ui/dialogs/variants_dialog.h"
#include "ui/shown_text.h"
#include "ui/study_windows.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QMenu>
#include <QMessageBox>
#include <QTime>
#include <QUrl>

#include <algorithm>

#ifdef TAVLON12_HAVE_MULTIMEDIA
#include <QSoundEffect>
#endif

namespace tavlon12 {

namespace {

QMessageBox::StandardButton Ask(QMainWindow& window, QMessageBox::Icon icon, const std::string& text,
                                const std::string& title, QMessageBox::StandardButtons buttons) {
    // A box that a dialog's procedure shows belongs to the dialog.
    QWidget* dialog = QApplication::activeModalWidget();
    QMessageBox box(icon, Shown(title), Shown(text), buttons, dialog != nullptr ? dialog : &window);
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setTextFormat(Qt::PlainText);
    for (QAbstractButton* button : box.buttons()) button->setIcon(QIcon());
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QMessageBox::Icon IconOf(MessageKind kind) {
    switch (kind) {
    case MessageKind::Exclamation: return QMessageBox::Warning;
    case MessageKind::Information: return QMessageBox::Information;
    case MessageKind::Plain: break;
    }
    return QMessageBox::NoIcon;
}

void SetWidgetText(QWidget& widget, const std::string& text) {
    QString shown = Shown(text);
    if (auto* label = qobject_cast<QLabel*>(&widget)) label->setText(shown);
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) line->setText(shown);
    if (auto* button = qobject_cast<QPushButton*>(&widget)) button->setText(shown);
    if (auto* field = qobject_cast<QPlainTextEdit*>(&widget)) field->setPlainText(shown);
}

std::string WidgetText(const QWidget& widget) {
    if (auto* label = qobject_cast<const QLabel*>(&widget)) return BytesOf(label->text());
    if (auto* line = qobject_cast<const QLineEdit*>(&widget)) return BytesOf(line->text());
    if (auto* button = qobject_cast<const QPushButton*>(&widget)) return BytesOf(button->text());
    if (auto* field = qobject_cast<const QPlainTextEdit*>(&widget)) return BytesOf(field->toPlainText());
    return "";
}

void MarkLabel(QLabel& label, bool toMove) {
    QColor red(255, 0, 0);
    QPalette colours = label.palette();
    colours.setColor(QPalette::Window, toMove ? red : QColor(Qt::white));
    colours.setColor(QPalette::WindowText, toMove ? QColor(Qt::white) : red);
    label.setPalette(colours);
}

void PlayWave(QMainWindow& window, const std::filesystem::path& file) {
#ifdef TAVLON12_HAVE_MULTIMEDIA
    QString path = QString::fromStdString(file.string());
    auto* effect = window.findChild<QSoundEffect*>(path);
    if (effect == nullptr) {
        effect = new QSoundEffect(&window);
        effect->setObjectName(path);
        effect->setSource(QUrl::fromLocalFile(path));
    }
    effect->play();
#else
    (void)window;
    (void)file;
#endif
}

/// A field that is greyed for a while keeps its focus for afterwards.
void SetUsable(QLineEdit& field, bool on, bool& hadFocus) {
    if (!on) hadFocus = field.hasFocus() || (!field.isEnabled() && hadFocus);
    field.setEnabled(on);
    if (on && hadFocus) field.setFocus();
}

QWidget& WidgetOf(const CommandBar& bar, const SidePanel& panel, Control control) {
    const auto from = [control](Control first) {
        return static_cast<std::size_t>(control) - static_cast<std::size_t>(first);
    };
    if (control >= Control::mnuGame) return *bar.Menus[from(Control::mnuGame)];
    if (control >= Control::Label1) return *panel.Labels[1 + from(Control::Label1)];
    if (control == Control::Text1) return *panel.Text1;
    if (control == Control::Text2) return *panel.Text2;
    if (control == Control::Command1) return *panel.Command1;
    return *bar.Toolbar1;
}

/// A range of nothing would be shown as work without an end.
void SetRange(QProgressBar& bar, Long minimum, Long maximum) {
    bar.setRange(minimum, std::max(minimum + 1, maximum));
}

void ConnectStatus(StatusPort& port, QMainWindow& window, const SidePanel& panel) {
    const auto status = [&panel](int number) { return panel.StatusPanels[static_cast<std::size_t>(number - 1)]; };
    port.SetStatusText = [status](int number, const std::string& text) { status(number)->setText(Shown(text)); };
    port.GetStatusText = [status](int number) { return BytesOf(status(number)->text()); };
    port.SetProgress = [&panel](Long value) { panel.Progress->setValue(value); };
    port.SetProgressRange = [&panel](Long minimum, Long maximum) { SetRange(*panel.Progress, minimum, maximum); };
    port.SetSearchLine = [&panel](const std::string& text) { panel.Labels[9]->setText(Shown(text)); };
    port.GetSearchLine = [&panel] { return BytesOf(panel.Labels[9]->text()); };
    port.SetStrengthLine = [&panel](const std::string& text) { panel.Labels[7]->setText(Shown(text)); };
    port.SetWindowTitle = [&window](const std::string& title) { window.setWindowTitle(Shown(title)); };
}

/// Sets or removes the one pointer that stands above all others.
void ShowHourglass(bool on) {
    if (on == (QApplication::overrideCursor() != nullptr)) return;
    if (on) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

void SelectLine(GameList& list, Long line) {
    list.setCurrentRow(line);
    if (line < 0) list.clearSelection();
}

std::string LineText(const GameList& list, Long line) {
    const QListWidgetItem* item = list.item(line);
    return item == nullptr ? std::string() : BytesOf(item->text());
}

void ConnectLists(ListPort& port, const SidePanel& panel) {
    port.ListClear = [&panel](ListId list) { panel.ListOf(list).clear(); };
    port.ListAdd = [&panel](ListId list, const std::string& line) { panel.ListOf(list).addItem(Shown(line)); };
    port.ListRemove = [&panel](ListId list, Long line) { delete panel.ListOf(list).takeItem(line); };
    port.ListCount = [&panel](ListId list) { return Long{panel.ListOf(list).count()}; };
    port.ListSelect = [&panel](ListId list, Long line) { SelectLine(panel.ListOf(list), line); };
    port.ListSelected = [&panel](ListId list) { return Long{panel.ListOf(list).currentRow()}; };
    port.ListText = [&panel](ListId list, Long line) { return LineText(panel.ListOf(list), line); };
    port.SetListEnabled = [&panel](ListId list, bool on) { panel.ListOf(list).setEnabled(on); };
    port.FocusList = [&panel](ListId list) { panel.ListOf(list).setFocus(); };
}

void ConnectFields(FieldPort& port, const CommandBar& bar, const SidePanel& panel) {
    const auto widget = [&](Control control) -> QWidget& { return WidgetOf(bar, panel, control); };
    port.SetText = [widget](Control control, const std::string& text) { SetWidgetText(widget(control), text); };
    port.GetText = [widget](Control control) { return WidgetText(widget(control)); };
    port.SetControlEnabled = [widget, &panel, hadFocus = false](Control control, bool on) mutable {
        if (control == Control::Text2) {
            SetUsable(*panel.Text2, on, hadFocus);
        } else {
            widget(control).setEnabled(on);
        }
    };
    port.SetHourglass = ShowHourglass;
    port.MarkPlayerToMove = [&panel](PlayerMark mark) {
        MarkLabel(*panel.Labels[1], mark == PlayerMark::Label1);
        MarkLabel(*panel.Labels[2], mark == PlayerMark::Label2);
    };
}

void ConnectCommands(CommandPort& port, CommandBar& bar) {
    port.SetCommandEnabled = [&bar](Command command, bool on) { bar.SetEnabled(command, on); };
    port.SetCommandChecked = [&bar](Command command, bool on) { bar.SetChecked(command, on); };
}

/// Opens the set-up menu at the pointer, with a mark at two of its entries.
std::optional<SetupEntry> ChooseSetup(QMenu& menu, SetupEntry piece, SetupEntry side) {
    for (QAction* action : menu.actions()) {
        const auto entry = static_cast<SetupEntry>(action->data().toInt());
        action->setChecked(!action->isSeparator() && (entry == piece || entry == side));
    }
    const QAction* chosen = menu.exec(QCursor::pos());
    if (chosen == nullptr) return std::nullopt;
    return static_cast<SetupEntry>(chosen->data().toInt());
}

void ConnectBoard(BoardPort& port, const WindowParts& parts) {
    BoardView& board = parts.Board;
    port.LayoutWindow = parts.LayoutWindow;
    port.LoadSkin = [&game = parts.Game, &board] { LoadSkin(game, board.Pictures); };
    port.SkinProblem = [&game = parts.Game](const std::string& name) { return SkinProblem(game, name); };
    port.SquarePicture = [&board](SquareImage image) { return SquareBmp(board.Pictures, image, board.SquareEdge()); };
    port.PaintBoard = [&board](int overlay) { board.PaintBoard(overlay); };
    port.ShowSquare = [&board](Long view) { board.ShowSquare(view); };
    port.DrawHighlightBox = [&board](Long view) { board.DrawHighlightBox(view); };
    port.LiftPiece = [&board](Long view) { board.LiftPiece(view); };
    port.CarryPiece = [&board](Long value) { board.CarryPiece(value); };
    port.DropPiece = [&board] { board.DropPiece(); };
    port.ShowsEmptySquare = [&board](Long view) { return board.ShowsEmptySquare(view); };
    port.SquareEdge = [&board] { return Long{board.SquareEdge()}; };
    port.ChooseSetup = [&menu = *parts.Bar.mnuSetup](SetupEntry piece, SetupEntry side) {
        return ChooseSetup(menu, piece, side);
    };
}

void ConnectTime(TimePort& port, const Session& game, EventPump& pump) {
    port.Clock = [] { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; };
    port.Wait = [&game, &pump](double seconds) {
        pump.Wait(seconds, [&game] { return !game.Quitting && game.Pos.StopFlag != kStopCancel; });
    };
    port.Yield = [&pump] { pump.Yield(); };
}

void ConnectFiles(FilePort& port, QMainWindow& window) {
    port.ChooseFile = [&window, folder = std::filesystem::path()](const FileQuestion& question) mutable {
        const std::filesystem::path file = ChooseFile(&window, question, folder);
        if (!file.empty()) folder = file.parent_path();
        return file;
    };
    port.PlaySound = [&window](const std::filesystem::path& file) { PlayWave(window, file); };
    port.OpenDocument = [](const std::string& address) {
        QDesktopServices::openUrl(QUrl::fromUserInput(Shown(address)));
    };
}

void ConnectDialogs(DialogPort& port, QMainWindow& window) {
    port.ChoosePdnGame = [&window](const PdnChooser& chooser) { return ChoosePdnGame(&window, chooser); };
    port.EditVariants = [&window](const VariantsForm& form, const VariantsEvents& events) {
        EditVariants(&window, form, events);
    };
    port.EditOptions = [&window](const OptionsForm& form, const OptionsEvents& events) {
        EditOptions(&window, form, events);
    };
    port.EditDetails = [&window](const DetailsForm& form, const auto& apply) { EditDetails(&window, form, apply); };
    port.ShowRules = [&window](const RulesText& text, const OpenAddress& open) {
        ShowRulesWindow(&window, text, open);
    };
    port.ShowAbout = [&window](const AboutText& text, const OpenAddress& open) {
        ShowAboutWindow(&window, text, open);
    };
    port.ShowMessage = [&window](const std::string& text, const std::string& title, MessageKind kind) {
        Ask(window, IconOf(kind), text, title, QMessageBox::Ok);
    };
    port.AskYesNo = [&window](const std::string& text, const std::string& title) {
        const auto answer = Ask(window, QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No);
        return answer == QMessageBox::Yes;
    };
}

/// The windows are made when they are first asked for.
void ConnectStudy(StudyPort& port, const WindowParts& parts) {
    const auto values = [&parent = parts.Window, &game = parts.Game]() -> PlyValueWindow& {
        auto* window = parent.findChild<PlyValueWindow*>(QStringLiteral("frmPV"));
        return window != nullptr ? *window : *new PlyValueWindow(&parent, [&game] { CancelCommand(game); });
    };
    port.OpenValues = [values](const std::vector<std::string>& orders) { values().Open(orders); };
    port.SetLabel = [values](const std::string& text) { values().State->setText(Shown(text)); };
    port.SetProgress = [values](Long value, Long maximum) {
        SetRange(*values().Progress, 0, maximum);
        values().Progress->setValue(maximum > 0 ? value : 1);
    };
    port.SetSearchLine = [values](const std::string& text) { values().SearchLine->setText(Shown(text)); };
    port.ShowValues = [values](const std::function<std::string(Long)>& table) { values().ShowTable(table); };
    const auto problems = [&parent = parts.Window]() -> ProblemWindow& {
        auto* window = parent.findChild<ProblemWindow*>(QStringLiteral("frmProblem"));
        return window != nullptr ? *window : *new ProblemWindow(&parent);
    };
    port.ClearProblems = [problems] { problems().Clear(); };
    port.ShowProblems = [problems](const std::string& text) { problems().Open(text); };
}

} // namespace

void ConnectPort(const WindowParts& parts) {
    UiPort& port = parts.Game.Port;
    ConnectStatus(port.Status, parts.Window, parts.Panel);
    ConnectLists(port.Lists, parts.Panel);
    ConnectFields(port.Fields, parts.Bar, parts.Panel);
    ConnectCommands(port.Commands, parts.Bar);
    ConnectBoard(port.Board, parts);
    ConnectTime(port.Time, parts.Game, parts.Pump);
    ConnectFiles(port.Files, parts.Window);
    ConnectDialogs(port.Dialogs, parts.Window);
    ConnectStudy(port.Study, parts);
    port.EndProgram = parts.EndProgram;
}

} // namespace tavlon12
