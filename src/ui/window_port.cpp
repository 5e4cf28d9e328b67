#include "ui/window_port.h"

#include "ui/shown_text.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QMessageBox>
#include <QTime>
#include <QTimer>
#include <QUrl>

#ifdef TAVLON12_HAVE_MULTIMEDIA
#include <QSoundEffect>
#endif

#include <cmath>

namespace tavlon12 {

namespace {

constexpr unsigned kNodesPerLook = 32; ///< calls of `Yield` between two looks at the clock
constexpr std::chrono::milliseconds kEventPause{5};

QMessageBox::StandardButton Ask(MainWindow& window, QMessageBox::Icon icon, const std::string& text,
                                const std::string& title, QMessageBox::StandardButtons buttons) {
    QMessageBox box(icon, Shown(title), Shown(text), buttons, &window);
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

// Called at each node of the search: nearly always it only counts.
void Yield(EventPump& pump) {
    if (++pump.Calls % kNodesPerLook != 0 || pump.Inside) return;
    if (std::chrono::steady_clock::now() - pump.Last < kEventPause) return;
    pump.Inside = true;
    QCoreApplication::processEvents();
    pump.Inside = false;
    pump.Last = std::chrono::steady_clock::now();
}

void Wait(const Session& session, double seconds) {
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    timer.start(static_cast<int>(std::lround(seconds * 1000)));
    while (timer.isActive() && !session.Quitting && session.Pos.StopFlag != kStopCancel) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void PlayWave(MainWindow& window, const std::filesystem::path& file) {
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

} // namespace

void ConnectPort(MainWindow& window) {
    UiPort& port = window.Game.Port;
    MainWindow* w = &window;

    auto panel = [w](int number) { return w->StatusPanels[static_cast<std::size_t>(number - 1)]; };
    port.Status.SetStatusText = [panel](int number, const std::string& text) { panel(number)->setText(Shown(text)); };
    port.Status.GetStatusText = [panel](int number) { return BytesOf(panel(number)->text()); };
    port.Dialogs.ShowMessage = [w](const std::string& text, const std::string& title, MessageKind kind) {
        Ask(*w, IconOf(kind), text, title, QMessageBox::Ok);
    };
    port.Dialogs.AskYesNo = [w](const std::string& text, const std::string& title) {
        return Ask(*w, QMessageBox::Question, text, title, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
    };
    port.Status.SetWindowTitle = [w](const std::string& title) { w->setWindowTitle(Shown(title)); };
    port.Status.SetProgress = [w](Long value) { w->Progress->setValue(value); };
    port.Status.SetProgressRange = [w](Long minimum, Long maximum) { w->Progress->setRange(minimum, maximum); };
    port.Status.SetSearchLine = [w](const std::string& text) { w->Labels[9]->setText(Shown(text)); };
    port.Status.GetSearchLine = [w] { return BytesOf(w->Labels[9]->text()); };
    port.Status.SetStrengthLine = [w](const std::string& text) { w->Labels[7]->setText(Shown(text)); };

    port.Lists.ListClear = [w](ListId list) { w->ListOf(list).clear(); };
    port.Lists.ListAdd = [w](ListId list, const std::string& line) { w->ListOf(list).addItem(Shown(line)); };
    port.Lists.ListRemove = [w](ListId list, Long line) { delete w->ListOf(list).takeItem(line); };
    port.Lists.ListCount = [w](ListId list) { return Long{w->ListOf(list).count()}; };
    port.Lists.ListSelect = [w](ListId list, Long line) {
        GameList& shown = w->ListOf(list);
        shown.setCurrentRow(line);
        if (line < 0) shown.clearSelection();
    };
    port.Lists.ListSelected = [w](ListId list) { return Long{w->ListOf(list).currentRow()}; };
    port.Lists.ListText = [w](ListId list, Long line) {
        QListWidgetItem* item = w->ListOf(list).item(line);
        return item == nullptr ? std::string() : BytesOf(item->text());
    };
    port.Lists.SetListEnabled = [w](ListId list, bool on) { w->ListOf(list).setEnabled(on); };
    port.Lists.FocusList = [w](ListId list) { w->ListOf(list).setFocus(); };

    port.Fields.SetText = [w](Control control, const std::string& text) { SetWidgetText(w->WidgetOf(control), text); };
    port.Fields.GetText = [w](Control control) { return WidgetText(w->WidgetOf(control)); };
    port.Fields.SetControlEnabled = [w](Control control, bool on) {
        QWidget& widget = w->WidgetOf(control);
        // A field that is greyed for a while keeps its focus for afterwards.
        if (&widget == w->Text2 && !on) w->TypedLast = w->Text2->hasFocus() || (!w->Text2->isEnabled() && w->TypedLast);
        widget.setEnabled(on);
        if (&widget == w->Text2 && on && w->TypedLast) w->Text2->setFocus();
    };
    port.Commands.SetCommandEnabled = [w](Command command, bool on) {
        w->ActionOf(command).setEnabled(on && RowOf(command).Procedure != nullptr);
    };
    port.Commands.SetCommandChecked = [w](Command command, bool on) {
        w->Checked[static_cast<std::size_t>(command)] = on;
        w->ActionOf(command).setChecked(on);
    };

    port.Files.PlaySound = [w](const std::filesystem::path& file) { PlayWave(*w, file); };
    port.Files.OpenDocument = [](const std::string& address) {
        QDesktopServices::openUrl(QUrl::fromUserInput(Shown(address)));
    };

    port.Board.LayoutWindow = [w] { w->LayoutWindow(); };
    port.Board.LoadSkin = [w] { LoadSkin(w->Game, w->Board->Pictures); };
    port.Board.PaintBoard = [w](int overlay) { w->Board->PaintBoard(overlay); };
    port.Board.ShowSquare = [w](Long view) { w->Board->ShowSquare(view); };
    port.Board.DrawHighlightBox = [w](Long view) { w->Board->DrawHighlightBox(view); };
    port.Board.LiftPiece = [w](Long view) { w->Board->LiftPiece(view); };
    port.Board.CarryPiece = [w](Long value) { w->Board->CarryPiece(value); };
    port.Board.DropPiece = [w] { w->Board->DropPiece(); };
    port.Board.ShowsEmptySquare = [w](Long view) { return w->Board->ShowsEmptySquare(view); };
    port.Board.SquareEdge = [w] { return Long{w->Board->SquareEdge()}; };
    port.Fields.MarkPlayerToMove = [w](PlayerMark mark) {
        MarkLabel(*w->Labels[1], mark == PlayerMark::Label1);
        MarkLabel(*w->Labels[2], mark == PlayerMark::Label2);
    };

    port.Time.Clock = [] { return QTime::currentTime().msecsSinceStartOfDay() / 1000.0; };
    port.Time.Wait = [w](double seconds) { Wait(w->Game, seconds); };
    port.Time.Yield = [w] { Yield(w->Pump); };
    port.EndProgram = [w] { w->EndProgram(); };
    window.Game.Search.Yield = port.Time.Yield;
}

} // namespace tavlon12
