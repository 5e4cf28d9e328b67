#include "ui/dialogs/options_dialog.h"

#include "files/settings.h"
#include "ui/dialogs/dialog_parts.h"
#include "ui/dialogs/line_list.h"
#include "ui/shown_text.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QShortcut>
#include <QSlider>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace tavlon12 {

namespace {

using Kind = OptionControl::Kind;
using Frame = OptionControl::Frame;

// clang-format off
constexpr OptionControl kControls[] = {
    {Kind::Slider, Frame::Strength, "Slider2", "StrengthStep", "", "", 10},
    {Kind::Switch, Frame::Level, "Check1", "FixedDepth", "", "Stop by depth", 1},
    {Kind::Slider, Frame::Level, "Slider4", "DepthLimit", "Label8"},
    {Kind::Switch, Frame::Level, "Check2", "FixedDepth", "", "Stop by time", 0},
    {Kind::Slider, Frame::Level, "Slider1", "TimeLimit", "Label1"},
    {Kind::List, Frame::Skin, "Combo1", "SkinName", "SkinLabel"},
    {Kind::Box, Frame::Board, "Check3", "ShowAvailableMoves"},
    {Kind::Box, Frame::Board, "Check5", "NotationCapitals"},
    {Kind::Choice, Frame::Board, "Option1(0)", "ColonCapture", "CaptureLabel", ":", 1},
    {Kind::Choice, Frame::Board, "Option1(1)", "ColonCapture", "", "X", 0},
    {Kind::Box, Frame::Search, "Check7", "ExtendedSearch"},
    {Kind::Field, Frame::Search, "Text2", "Plys", "Label15"},
    {Kind::Field, Frame::Search, "Text3", "Balance", "Label16"},
    {Kind::Box, Frame::Search, "Check13", "BruteForce"},
    {Kind::Field, Frame::Search, "Text4", "PlyValueDepth", "TableLabel"},
    {Kind::Box, Frame::Book, "Check9", "OpeningBook"},
    {Kind::Box, Frame::Book, "Check12", "CanadianBook"},
    {Kind::Box, Frame::Book, "Check14", "ChooseOpening"},
    {Kind::Box, Frame::Book, "Check15", "BookRandom"},
    {Kind::Box, Frame::Draw, "Check4", "ChessDraws"},
    {Kind::Choice, Frame::Draw, "Option2", "MoveLimitCode", "Label13", "16", 2},
    {Kind::Choice, Frame::Draw, "Option3", "MoveLimitCode", "", "20", 3},
    {Kind::Choice, Frame::Draw, "Option4", "MoveLimitCode", "", "32", 0},
    {Kind::Choice, Frame::Draw, "Option5", "MoveLimitCode", "", "40", 4},
    {Kind::Choice, Frame::Draw, "Option6", "MoveLimitCode", "", "50", 1},
    {Kind::Box, Frame::Draw, "Check8", "AskForDraw"},
    {Kind::Box, Frame::Draw, "Check10", "KingVersusKing"},
    {Kind::Field, Frame::Misc, "Text1", "UserName", "NameLabel"},
    {Kind::Box, Frame::Misc, "Check6", "AskExit"},
    {Kind::Box, Frame::Misc, "Check16", "UseRating"},
    {Kind::Box, Frame::Misc, "Check17", "AutoSave"},
    {Kind::Box, Frame::Misc, "Check18", "UseSound"},
    {Kind::Box, Frame::Misc, "Check19", "TouchMove"},
    {Kind::Box, Frame::Misc, "Check11", "PdnAlgebraic"},
};
// clang-format on

/// A control that is greyed unless a box is on.
struct OptionGreying {
    const char* Target;
    const char* Box;
};
constexpr OptionGreying kGreyings[] = {
    {"Label8", "Check1"},  {"Label9", "Check1"},  {"Label10", "Check1"}, {"Label12", "Check1"},  {"Slider4", "Check1"},
    {"Label11", "Check1"}, {"Label1", "Check2"},  {"Label2", "Check2"},  {"Label3", "Check2"},   {"Label4", "Check2"},
    {"Slider1", "Check2"}, {"Label14", "Check2"}, {"Label13", "Check4"}, {"Option2", "Check4"},  {"Option3", "Check4"},
    {"Option4", "Check4"}, {"Option5", "Check4"}, {"Option6", "Check4"}, {"Label15", "Check7"},  {"Text2", "Check7"},
    {"Label16", "Check7"}, {"Text3", "Check7"},   {"Check12", "Check9"}, {"Check15", "Check14"},
};

/// What stands under a slider and, with the value, behind it.
struct SliderRow {
    const char* Name;
    const char* Marks[3];
    const char* MarkLabels[3];
    const char* ValueLabel;
    const char* Unit;
    int Ticks; ///< from one to the next
};
constexpr SliderRow kSliders[] = {
    {"Slider2", {"Easy", "Medium", "Hard"}, {"Label5", "Label6", "Label7"}, "Label17", "", 1},
    {"Slider4", {"1", "10", "20"}, {"Label9", "Label10", "Label12"}, "Label11", " ply", 1},
    {"Slider1", {"1", "90", "180"}, {"Label2", "Label3", "Label4"}, "Label14", " sec", 10},
};

constexpr const char* kPages[] = {"&Computer", "&Board", "&Engine", "&Misc"};

struct FrameRow {
    Frame Id;
    std::size_t Page;
    const char* Title;
};
constexpr FrameRow kFrames[] = {
    {Frame::Strength, 0, " Strength "}, {Frame::Level, 0, " Level "},   {Frame::Skin, 1, " Skin "},
    {Frame::Board, 1, " Misc "},        {Frame::Search, 2, " Search "}, {Frame::Book, 2, " Book "},
    {Frame::Draw, 3, " Draw "},         {Frame::Misc, 3, " Misc "},
};

constexpr const char* kRatingBox = "Check16";

bool IsDependent(const char* name) {
    return std::ranges::any_of(kGreyings,
                               [&](const OptionGreying& row) { return row.Target == std::string_view(name); });
}

/// Puts the controls of a frame one under the other: an indentation, labels, controls, and what is behind them.
class FrameGrid {
public:
    explicit FrameGrid(QGroupBox& frame) : Grid(new QGridLayout(&frame)) {
        constexpr int kIndentation = 20;
        Grid->setColumnMinimumWidth(0, kIndentation);
        Grid->setColumnStretch(2, 1);
        Grid->setVerticalSpacing(7);
        Grid->setHorizontalSpacing(8);
    }

    /// A widget with a line of its own; the dependent ones are indented.
    void AddLine(QWidget& widget) {
        ++Row;
        const int column = ColumnOf(widget);
        Grid->addWidget(&widget, Row, column, 1, 4 - column);
    }

    void AddLabelled(QWidget& label, QWidget& widget, Qt::Alignment alignment) {
        ++Row;
        const int column = ColumnOf(label);
        Grid->addWidget(&label, Row, column, 1, 2 - column);
        Grid->addWidget(&widget, Row, 2, 1, 2, alignment);
    }

    void AddBehind(QWidget& widget) { Grid->addWidget(&widget, Row, 3, Qt::AlignRight); }

    void AddSlider(QWidget* box, QWidget* label, QSlider& slider, QWidget& value, QWidget& marks) {
        ++Row;
        if (box != nullptr) Grid->addWidget(box, Row, 0);
        if (label != nullptr) Grid->addWidget(label, Row, 1);
        const int column = label != nullptr ? 2 : 0;
        Grid->addWidget(&slider, Row, column, 1, 3 - column);
        Grid->addWidget(&value, Row, 3);
        Grid->addWidget(&marks, ++Row, column, 1, 3 - column);
    }

    /// Another widget beside the last one with a label.
    void AddBeside(QWidget& widget) { Choices->addWidget(&widget); }

    void AddChoices(QWidget& label) {
        auto* line = new QWidget;
        Choices = new QHBoxLayout(line);
        Choices->setContentsMargins(0, 0, 0, 0);
        Choices->setSpacing(12);
        AddLabelled(label, *line, Qt::AlignLeft);
    }

private:
    static int ColumnOf(const QWidget& widget) {
        return IsDependent(widget.objectName().toLatin1().constData()) ? 1 : 0;
    }

    QGridLayout* Grid;
    QHBoxLayout* Choices = nullptr;
    int Row = -1;
};

class OptionsDialog : public QDialog {
public:
    OptionsDialog(QWidget* parent, const OptionsForm& form, const OptionsEvents& events);

private:
    void MakePages();
    QGroupBox* MakeFrame(const FrameRow& row);
    void Add(FrameGrid& grid, const OptionControl& control);
    void AddBox(FrameGrid& grid, const OptionControl& control);
    void AddSwitch(const OptionControl& control);
    void AddChoice(FrameGrid& grid, const OptionControl& control);
    void AddSlider(FrameGrid& grid, const OptionControl& control);
    void AddField(FrameGrid& grid, const OptionControl& control);
    void AddSkins(FrameGrid& grid, const OptionControl& control);
    QPushButton* MakeReset();
    QDialogButtonBox* MakeButtons();
    void NextPage(int step);

    template <typename Widget> Widget* Named(Widget* widget, const OptionControl& control, const QString& spoken) {
        widget->setObjectName(QLatin1String(control.Name));
        widget->setToolTip(Text(SettingNamed(control.Setting).Tip));
        widget->setAccessibleName(spoken);
        return widget;
    }

    /// The label of a control, with its access key.
    QLabel* LabelOf(const OptionControl& control, QWidget* buddy);

    void ShowValues(const SettingTexts& values);
    void ShowValue(const OptionControl& control, const std::string& text);
    void ShowRating(Long rating);
    SettingTexts Values() const;
    void Grey();
    void Apply() { ShowValues(Events.Apply(Values())); }

    template <typename Widget = QWidget> Widget& Control(const char* name) const {
        return *findChild<Widget*>(QLatin1String(name));
    }

    const OptionsForm& Form;
    const OptionsEvents& Events;
    QTabWidget* Tabs = new QTabWidget;
    QCheckBox* LastSwitch = nullptr;     ///< stands before the slider that is made next
    QButtonGroup* LastChoices = nullptr; ///< takes in the choices that are made next
};

OptionsDialog::OptionsDialog(QWidget* parent, const OptionsForm& form, const OptionsEvents& events)
    : QDialog(parent), Form(form), Events(events) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle(QStringLiteral(" Options"));
    Tabs->setObjectName(QStringLiteral("tbsOptions"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Tabs);
    layout->addWidget(MakeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    MakePages();
    ShowValues(form.Values);
    ShowRating(form.Rating);
    const auto turn = [this](const char* keys, int step) {
        auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
        connect(shortcut, &QShortcut::activated, this, [this, step] { NextPage(step); });
    };
    turn("Ctrl+Tab", 1);
    turn("Ctrl+Shift+Tab", -1);
}

void OptionsDialog::MakePages() {
    std::array<QVBoxLayout*, std::size(kPages)> pages;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        auto* page = new QWidget;
        page->setObjectName(QStringLiteral("picOptions(%1)").arg(i));
        pages[i] = new QVBoxLayout(page);
        Tabs->addTab(page, QLatin1String(kPages[i]));
    }
    for (const FrameRow& row : kFrames) pages[row.Page]->addWidget(MakeFrame(row));
    for (QVBoxLayout* page : pages) page->addStretch();
}

QGroupBox* OptionsDialog::MakeFrame(const FrameRow& row) {
    auto* frame = new QGroupBox(QLatin1String(row.Title), this);
    FrameGrid grid(*frame);
    for (const OptionControl& control : kControls) {
        if (control.In == row.Id) Add(grid, control);
    }
    return frame;
}

void OptionsDialog::Add(FrameGrid& grid, const OptionControl& control) {
    switch (control.What) {
    case Kind::Box: AddBox(grid, control); break;
    case Kind::Switch: AddSwitch(control); break;
    case Kind::Choice: AddChoice(grid, control); break;
    case Kind::Slider: AddSlider(grid, control); break;
    case Kind::Field: AddField(grid, control); break;
    case Kind::List: AddSkins(grid, control); break;
    }
}

QLabel* OptionsDialog::LabelOf(const OptionControl& control, QWidget* buddy) {
    auto* label = new QLabel(Text(SettingNamed(control.Setting).Caption));
    label->setObjectName(QLatin1String(control.Label));
    label->setBuddy(buddy);
    return label;
}

void OptionsDialog::AddBox(FrameGrid& grid, const OptionControl& control) {
    const std::string_view caption = SettingNamed(control.Setting).Caption;
    auto* box = Named(new QCheckBox(Text(caption)), control, Spoken(caption));
    connect(box, &QCheckBox::toggled, this, &OptionsDialog::Grey);
    grid.AddLine(*box);
    if (control.Name == std::string_view(kRatingBox)) grid.AddBehind(*MakeReset());
}

void OptionsDialog::AddSwitch(const OptionControl& control) {
    auto* box = Named(new QCheckBox, control, Text(control.Text));
    box->setToolTip(Text(control.Text));
    connect(box, &QCheckBox::toggled, this, &OptionsDialog::Grey);
    // One that is clicked is on, whatever it was before.
    connect(box, &QCheckBox::clicked, this, [this, &control] { ShowValue(control, std::to_string(control.Value)); });
    LastSwitch = box;
}

void OptionsDialog::AddChoice(FrameGrid& grid, const OptionControl& control) {
    const QString spoken = Spoken(SettingNamed(control.Setting).Caption) + QLatin1Char(' ') + Text(control.Text);
    auto* button = Named(new QRadioButton(Text(control.Text)), control, spoken);
    if (*control.Label != '\0') {
        LastChoices = new QButtonGroup(this);
        grid.AddChoices(*LabelOf(control, button));
    }
    LastChoices->addButton(button);
    grid.AddBeside(*button);
}

void OptionsDialog::AddSlider(FrameGrid& grid, const OptionControl& control) {
    const SettingRow& setting = SettingNamed(control.Setting);
    const SliderRow& row = *std::ranges::find(kSliders, std::string_view(control.Name), &SliderRow::Name);
    auto* slider = Named(new QSlider(Qt::Horizontal), control, Spoken(setting.Caption));
    const bool mirrored = control.Value != 0;
    slider->setRange(mirrored ? control.Value - setting.Most : setting.Least,
                     mirrored ? control.Value - setting.Least : setting.Most);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(row.Ticks);
    slider->setPageStep(std::max(1, row.Ticks));
    slider->setMinimumHeight(slider->sizeHint().height() + 8); // the style draws its handle higher than it says

    auto* value = new QLabel;
    value->setObjectName(QLatin1String(row.ValueLabel));
    const auto shownValue = [&row](int place) { return QString::number(place) + QLatin1String(row.Unit); };
    value->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("180 sec ")));
    connect(slider, &QSlider::valueChanged, value, [=](int place) { value->setText(shownValue(place)); });
    value->setText(shownValue(slider->value()));

    auto* marks = new QWidget;
    auto* places = new QHBoxLayout(marks);
    places->setContentsMargins(0, 0, 0, 0);
    for (std::size_t i = 0; i < std::size(row.Marks); ++i) {
        auto* mark = new QLabel(QLatin1String(row.Marks[i]));
        mark->setObjectName(QLatin1String(row.MarkLabels[i]));
        mark->setAlignment(i == 0 ? Qt::AlignLeft : i == 1 ? Qt::AlignHCenter : Qt::AlignRight);
        places->addWidget(mark, 1);
    }
    QLabel* label = *control.Label != '\0' ? LabelOf(control, slider) : nullptr;
    // The key of the label turns the slider on, which is grey while it is off.
    if (LastSwitch != nullptr) LastSwitch->setShortcut(QKeySequence::mnemonic(Text(setting.Caption)));
    grid.AddSlider(LastSwitch, label, *slider, *value, *marks);
    LastSwitch = nullptr;
}

void OptionsDialog::AddField(FrameGrid& grid, const OptionControl& control) {
    const SettingRow& setting = SettingNamed(control.Setting);
    auto* field = Named(new QLineEdit, control, Spoken(setting.Caption));
    const bool isNumber = setting.Most > 0;
    if (isNumber) field->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 12);
    grid.AddLabelled(*LabelOf(control, field), *field, isNumber ? Qt::AlignLeft : Qt::Alignment());
}

void OptionsDialog::AddSkins(FrameGrid& grid, const OptionControl& control) {
    auto* combo = Named(new QComboBox, control, Spoken(SettingNamed(control.Setting).Caption));
    ShowLines(*combo, Form.Skins);
    connect(combo, &QComboBox::activated, this,
            [this](int line) { Events.PickSkin(Form.Skins[static_cast<std::size_t>(line)].Name); });
    grid.AddLabelled(*LabelOf(control, combo), *combo, {});
}

QPushButton* OptionsDialog::MakeReset() {
    auto* reset = new QPushButton(QStringLiteral("Rese&t"));
    reset->setObjectName(QStringLiteral("Command1"));
    reset->setAutoDefault(false);
    reset->setToolTip(QStringLiteral("Sets your rating back at once. Cancel does not undo it."));
    connect(reset, &QPushButton::clicked, this, [this] { ShowRating(Events.ResetRating()); });
    return reset;
}

QDialogButtonBox* OptionsDialog::MakeButtons() {
    auto* buttons = new QDialogButtonBox;
    AddButton(*buttons, "cmdOK", "OK", "Takes these settings over and closes the dialog.", QDialogButtonBox::AcceptRole)
        ->setDefault(true);
    AddButton(*buttons, "cmdCancel", "Cancel", "Closes the dialog. What was applied stays, and so does the skin.",
              QDialogButtonBox::RejectRole);
    const QPushButton* apply =
        AddButton(*buttons, "cmdApply", "&Apply", "Takes these settings over, and the dialog stays open.",
                  QDialogButtonBox::ApplyRole);
    connect(apply, &QPushButton::clicked, this, &OptionsDialog::Apply);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        Apply();
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void OptionsDialog::NextPage(int step) {
    Tabs->setCurrentIndex((Tabs->currentIndex() + step + Tabs->count()) % Tabs->count());
}

void OptionsDialog::ShowValues(const SettingTexts& values) {
    for (const OptionControl& control : kControls) ShowValue(control, values.at(control.Setting));
    Grey();
}

void OptionsDialog::ShowValue(const OptionControl& control, const std::string& text) {
    const std::string on = std::to_string(control.What == Kind::Box ? 1 : control.Value);
    switch (control.What) {
    case Kind::Switch:
        for (const OptionControl& other : kControls) {
            if (other.What == Kind::Switch)
                Control<QCheckBox>(other.Name).setChecked(std::to_string(other.Value) == text);
        }
        break;
    case Kind::Box:
    case Kind::Choice: Control<QAbstractButton>(control.Name).setChecked(text == on); break;
    case Kind::Slider: {
        const int value = Shown(text).toInt();
        Control<QSlider>(control.Name).setValue(control.Value != 0 ? control.Value - value : value);
        break;
    }
    case Kind::Field: Control<QLineEdit>(control.Name).setText(Shown(text)); break;
    case Kind::List: ShowChosen(Control<QComboBox>(control.Name), Shown(text)); break;
    }
}

void OptionsDialog::ShowRating(Long rating) {
    const QString caption = Text(SettingNamed("UseRating").Caption);
    Control<QCheckBox>(kRatingBox).setText(QStringLiteral("%1 (%2)").arg(caption).arg(rating));
}

SettingTexts OptionsDialog::Values() const {
    SettingTexts values;
    for (const OptionControl& control : kControls) {
        std::string& value = values[control.Setting];
        switch (control.What) {
        case Kind::Box: value = Control<QCheckBox>(control.Name).isChecked() ? "1" : "0"; break;
        case Kind::Switch:
        case Kind::Choice:
            if (value.empty()) value = SettingText(UserSettings(), SettingNamed(control.Setting)); // when none is on
            if (Control<QAbstractButton>(control.Name).isChecked()) value = std::to_string(control.Value);
            break;
        case Kind::Slider: {
            const int place = Control<QSlider>(control.Name).value();
            value = std::to_string(control.Value != 0 ? control.Value - place : place);
            break;
        }
        case Kind::Field: value = BytesOf(Control<QLineEdit>(control.Name).text()); break;
        case Kind::List: values.erase(control.Setting); break; // taken over when it was picked
        }
    }
    return values;
}

void OptionsDialog::Grey() {
    for (const OptionGreying& row : kGreyings) {
        auto* target = findChild<QWidget*>(QLatin1String(row.Target));
        const auto* box = findChild<QCheckBox*>(QLatin1String(row.Box));
        if (target != nullptr && box != nullptr) target->setEnabled(box->isChecked());
    }
}

} // namespace

std::span<const OptionControl> OptionControls() {
    return kControls;
}

void EditOptions(QWidget* parent, const OptionsForm& form, const OptionsEvents& events) {
    OptionsDialog dialog(parent, form, events);
    RunCentred(dialog);
}

} // namespace tavlon12
