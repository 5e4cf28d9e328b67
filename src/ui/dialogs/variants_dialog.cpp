#include "ui/dialogs/variants_dialog.h"

#include "ui/dialogs/dialog_parts.h"
#include "ui/dialogs/line_list.h"
#include "ui/shown_text.h"
#include "ui/widgets.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <iterator>

namespace tavlon12 {

namespace {

using enum VariantControl::Frame;
using enum VariantControl::Place;

// clang-format off
const VariantControl kControls[] = {
    {Captures, Line, "Check1", nullptr, &RuleSet::MaxCapMove},
    {Captures, Indented, "Check7", nullptr, &RuleSet::MaxCapMoveKings},
    {Captures, Line, "Check2", nullptr, &RuleSet::MulJumps},
    {Captures, Line, "Check8", nullptr, &RuleSet::ManCapKing},
    {Captures, Line, "Check9", nullptr, &RuleSet::KingCapMove},
    {Captures, Line, "Check10", nullptr, &RuleSet::ManContJump},
    {Captures, Indented, "Check12", nullptr, &RuleSet::ManContJumpCrowned},
    {Captures, Line, "Check13", nullptr, &RuleSet::RemovePieces},
    {Captures, Line, "Check18", nullptr, &RuleSet::CapRequired},
    {Captures, Line, "Check22", nullptr, &RuleSet::LastCap},
    {Captures, Line, "Check24", nullptr, &RuleSet::KingMan},
    {Captures, Line, "Check29", nullptr, &RuleSet::JumpFriend},
    {Captures, Indented, "Text6", "Label18", &RuleSet::NumberFriends},
    {FlyingKings, Line, "Check11", nullptr, &RuleSet::LongKings},
    {FlyingKings, Indented, "Check14", nullptr, &RuleSet::KingFirst},
    {FlyingKings, Indented, "Check17", nullptr, &RuleSet::MaxCapMoveK},
    {FlyingKings, Line, "Check15", nullptr, &RuleSet::ManCapMoveKing},
    {FlyingKings, Line, "Check27", nullptr, &RuleSet::CapReverse},
    {WinDraw, Line, "Check6", nullptr, &RuleSet::WinAtPromo},
    {WinDraw, Line, "Check16", nullptr, &RuleSet::KingWin},
    {WinDraw, Line, "Check19", nullptr, &RuleSet::NoLegalDraw},
    {WinDraw, Line, "Check26", nullptr, &RuleSet::ThreeKings},
    {WinDraw, Indented, "Text5", "Label17", &RuleSet::NumberKings},
    {WinDraw, Line, "Check31", nullptr, &RuleSet::TwoKings},
    {WinDraw, Indented, "Text7", "Label19", &RuleSet::NumberKings2},
    {WinDraw, Line, "Text8", "Label20", &RuleSet::NumberPieces},
    {Misc, Line, "Check4", nullptr, &RuleSet::BlackStarts},
    {Misc, Beside, "Check28", nullptr, &RuleSet::RndColor},
    {Misc, Line, "Check3", nullptr, &RuleSet::PiecesOnBlack},
    {Misc, Line, "Check5", nullptr, &RuleSet::AntiMode},
    {Misc, Line, "Check23", nullptr, &RuleSet::ManKing},
    {Misc, Line, "Check25", nullptr, &RuleSet::ChangeSide},
    {Opening, Line, "Check20", nullptr, &RuleSet::RemoveMen},
    {Opening, Beside, "Text3", "Label11", &RuleSet::NumberMen},
    {Opening, Line, "Check21", nullptr, &RuleSet::DoMoves},
    {Opening, Beside, "Text4", "Label12", &RuleSet::NumberMoves},
    {OffTheBoard, Line, "Check33", nullptr, &RuleSet::canContract},
    {OffTheBoard, Indented, "Text10", "Label21", &RuleSet::ContractNumber},
    {OffTheBoard, Indented, "Text9", "Label22", &RuleSet::ContractW1},
    {OffTheBoard, Beside, "Text11", "Label23", &RuleSet::ContractW2},
    {OffTheBoard, Indented, "Text12", "Label24", &RuleSet::ContractB1},
    {OffTheBoard, Beside, "Text13", "Label25", &RuleSet::ContractB2},
};
// clang-format on

/// The frames in columns from the left, each from above.
struct FrameRow {
    VariantControl::Frame Id;
    int Column;
    const char* Title;
};
constexpr FrameRow kFrames[] = {
    {Captures, 0, "Ca&ptures"}, {FlyingKings, 1, "Flying &Kings"}, {WinDraw, 1, "&Win/Draw"},
    {Misc, 2, "&Misc"},         {Opening, 2, "Op&ening"},          {OffTheBoard, 2, "Off the &Board"},
};

constexpr auto kTurnsOn = VariantGreying::Shut::TurnsOn;
constexpr auto kTurnsOff = VariantGreying::Shut::TurnsOff;
constexpr VariantGreying kGreyings[] = {
    {"Check2", "Check1", false, kTurnsOn},
    {"Check7", "Check1", true, kTurnsOff},
    {"Check16", "Check6", false},
    {"Check6", "Check16", false},
    {"Check12", "Check10", true, kTurnsOff},
    {"Check14", "Check11", true},
    {"Check17", "Check11", true},
    {"Label11", "Check20", true},
    {"Text3", "Check20", true},
    {"Label12", "Check21", true},
    {"Text4", "Check21", true},
    {"Label17", "Check26", true},
    {"Text5", "Check26", true},
    {"Check4", "Check28", false},
    {"Check30", "Check29", true},
    {"Text6", "Check29", true},
    {"Label18", "Check29", true},
    {"Text6", "Check30", false},
    {"Label18", "Check30", false},
    {"Label19", "Check31", true},
    {"Text7", "Check31", true},
    {"Label21", "Check33", true},
    {"Label22", "Check33", true},
    {"Label23", "Check33", true},
    {"Label24", "Check33", true},
    {"Label25", "Check33", true},
    {"Text9", "Check33", true},
    {"Text10", "Check33", true},
    {"Text11", "Check33", true},
    {"Text12", "Check33", true},
    {"Text13", "Check33", true},
};

constexpr const char* kUnlimitedBox = "Check30";

/// The rows of promotion squares, and of movement strings.
const RuleMember kPromotionRows[] = {&RuleSet::PromoW, &RuleSet::PromoB};
const RuleMember kMovementRows[] = {&RuleSet::WhiteManMovement, &RuleSet::BlackManMovement, &RuleSet::WhiteKingMovement,
                                    &RuleSet::BlackKingMovement};
constexpr const char* kMovementColumns[] = {"Normal Moves", "Capture Moves"};

/// A text field that shows a wrong entry white on black, until it is clicked or changed.
class EntryField : public QLineEdit {
public:
    EntryField() {
        SetWrong(false);
        connect(this, &QLineEdit::textChanged, this, [this] { SetWrong(false); });
    }

    void SetWrong(bool wrong) {
        QPalette colours = palette();
        for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
            colours.setColor(group, QPalette::Base, wrong ? Qt::black : Qt::white);
            colours.setColor(group, QPalette::Text, wrong ? Qt::white : Qt::black);
        }
        setPalette(colours);
    }

    /// As wide as the text, and no wider.
    void FitTo(const QString& text) {
        const int frame = sizeHint().width() - 17 * fontMetrics().horizontalAdvance(QLatin1Char('x'));
        setFixedWidth(fontMetrics().horizontalAdvance(text) + std::max(frame, 12));
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        SetWrong(false);
        QLineEdit::mousePressEvent(event);
    }
};

/// Puts controls into the grid of a frame: column 0 is the indentation, a field takes a column for its label too.
class FrameGrid {
public:
    explicit FrameGrid(QGroupBox& frame) : Grid(new QGridLayout(&frame)) {
        Grid->setColumnMinimumWidth(0, kIndentation);
        Grid->setHorizontalSpacing(6);
        Grid->setVerticalSpacing(3);
        Grid->setColumnStretch(kLastColumn, 1);
    }

    void Add(VariantControl::Place place, QWidget& first, QWidget* second) {
        int column = Next;
        if (place != Beside) {
            ++Row;
            column = place == Indented ? 1 : 0;
        }
        Next = std::max(2, column + 1);
        Grid->addWidget(&first, Row, column, 1, Next - column);
        if (second != nullptr) Grid->addWidget(second, Row, Next++);
    }

    /// A control that no other stands beside may be as wide as the frame.
    void AddWide(VariantControl::Place place, QWidget& only) {
        const int column = place == Indented ? 1 : 0;
        Grid->addWidget(&only, ++Row, column, 1, kLastColumn + 1 - column);
    }

private:
    static constexpr int kIndentation = 14;
    static constexpr int kLastColumn = 6;

    QGridLayout* Grid;
    int Row = -1;
    int Next = 0;
};

class VariantsDialog : public QDialog {
public:
    VariantsDialog(QWidget* parent, const VariantsForm& form, const VariantsEvents& events);

private:
    QLayout* MakeHead();
    QLayout* MakeFrames();
    QGroupBox* MakePromotions();
    QGroupBox* MakeMovements();
    QGroupBox* MakeHelp();
    QDialogButtonBox* MakeButtons();

    QCheckBox* MakeBox(const char* name, std::string_view caption, std::string_view tip);
    EntryField* MakeField(const RuleMember& rule, std::size_t index, const QString& name);
    void AddControl(FrameGrid& grid, const VariantControl& control, bool alone);

    void SetFocusOrder();
    void ShowForm();
    void ShowList();
    void ReadForm();
    void Grey();
    bool Apply(bool includeFriends);
    /// Lets a procedure of the session work on what is filled in, and shows what it leaves.
    void Act(const std::function<void(VariantsForm&)>& procedure);

    template <typename Widget = QCheckBox> Widget& Control(const char* name) const {
        return *findChild<Widget*>(QLatin1String(name));
    }

    VariantsForm Form;
    const VariantsEvents& Events;
    QComboBox* Combo1 = new QComboBox;
    QRadioButton* Option1 = new QRadioButton(QStringLiteral("&Classic"));
    QRadioButton* Option2 = new QRadioButton(QStringLiteral("&User"));
    QLabel* Help = new QLabel;
    LinkLabel* Label10 = new LinkLabel;
    std::map<std::string_view, std::vector<EntryField*>> Fields; ///< by the key of the rule
};

VariantsDialog::VariantsDialog(QWidget* parent, const VariantsForm& form, const VariantsEvents& events)
    : QDialog(parent), Form(form), Events(events) {
    setObjectName(QStringLiteral("dlgVariants"));
    setWindowTitle(QStringLiteral(" Variants"));
    auto* squares = new QVBoxLayout;
    auto* bottom = new QHBoxLayout;
    bottom->addLayout(squares);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeHead());
    layout->addLayout(MakeFrames());
    layout->addLayout(bottom);
    squares->addWidget(MakePromotions(), 1);
    squares->addWidget(MakeHelp());
    bottom->addWidget(MakeMovements(), 1);
    layout->addWidget(MakeButtons());
    layout->setSizeConstraint(QLayout::SetFixedSize);
    SetFocusOrder();
    ShowList();
    ShowForm();
}

QLayout* VariantsDialog::MakeHead() {
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setMinimumWidth(300);
    Combo1->setAccessibleName(QStringLiteral("Choose variant"));
    Combo1->setToolTip(QStringLiteral("A variant that is picked here replaces all rules below."));
    Option1->setObjectName(QStringLiteral("Option1"));
    Option1->setToolTip(QStringLiteral("Lists the variants that come with the program."));
    Option2->setObjectName(QStringLiteral("Option2"));
    Option2->setToolTip(QStringLiteral("Lists the variants that you have added."));
    auto* label = new QLabel(QStringLiteral("Choose &variant:"));
    label->setBuddy(Combo1);
    auto* head = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{label, Combo1, Option1, Option2}) head->addWidget(widget);
    head->insertSpacing(2, 10);
    head->addStretch();
    connect(Combo1, &QComboBox::activated, this, [this](int line) {
        const std::string name = Form.Variants[static_cast<std::size_t>(line)].Name;
        Act([&](VariantsForm& form) { Events.PickVariant(form, name); });
    });
    const auto pickFolder = [this](Long useClassic) {
        Act([&](VariantsForm& form) { Events.PickFolder(form, useClassic); });
        ShowList();
    };
    connect(Option1, &QRadioButton::clicked, this, [pickFolder] { pickFolder(1); });
    connect(Option2, &QRadioButton::clicked, this, [pickFolder] { pickFolder(0); });
    return head;
}

QLayout* VariantsDialog::MakeFrames() {
    std::array<QVBoxLayout*, 3> columns;
    auto* layout = new QHBoxLayout;
    for (QVBoxLayout*& column : columns) layout->addLayout(column = new QVBoxLayout);
    for (const FrameRow& row : kFrames) {
        auto* frame = new QGroupBox(QLatin1String(row.Title));
        FrameGrid grid(*frame);
        columns[static_cast<std::size_t>(row.Column)]->addWidget(frame, row.Id == Captures ? 0 : 1);
        for (std::size_t i = 0; i < std::size(kControls); ++i) {
            const bool alone = i + 1 == std::size(kControls) || kControls[i + 1].At != Beside;
            if (kControls[i].In == row.Id) AddControl(grid, kControls[i], alone);
        }
    }
    return layout;
}

QCheckBox* VariantsDialog::MakeBox(const char* name, std::string_view caption, std::string_view tip) {
    auto* box = new QCheckBox(Text(caption), this);
    box->setObjectName(QLatin1String(name));
    box->setToolTip(Text(tip));
    box->setAccessibleDescription(Text(tip));
    connect(box, &QCheckBox::clicked, this, [this] { Grey(); });
    return box;
}

EntryField* VariantsDialog::MakeField(const RuleMember& rule, std::size_t index, const QString& name) {
    const RuleKey& key = RuleKeyOf(rule);
    auto* field = new EntryField;
    field->setObjectName(name);
    field->setToolTip(Text(key.Tip));
    field->setAccessibleName(Spoken(key.Caption));
    field->setAccessibleDescription(Text(key.Tip));
    std::vector<EntryField*>& fields = Fields[key.Name];
    fields.resize(std::max(fields.size(), index + 1));
    fields[index] = field;
    return field;
}

void VariantsDialog::AddControl(FrameGrid& grid, const VariantControl& control, bool alone) {
    const RuleKey& key = RuleKeyOf(control.Rule);
    if (control.Label == nullptr) {
        QCheckBox* box = MakeBox(control.Name, key.Caption, key.Tip);
        if (alone && control.At != Beside) {
            grid.AddWide(control.At, *box);
        } else {
            grid.Add(control.At, *box, nullptr);
        }
        return;
    }
    EntryField* field = MakeField(control.Rule, 0, QLatin1String(control.Name));
    field->FitTo(QStringLiteral("00000"));
    auto* label = new QLabel(Text(key.Caption), this);
    label->setObjectName(QLatin1String(control.Label));
    label->setBuddy(field);
    grid.Add(control.At, *label, field);
    if (control.Rule == RuleMember(&RuleSet::NumberFriends)) {
        grid.Add(Beside, *MakeBox(kUnlimitedBox, kUnlimitedCaption, kUnlimitedTip), nullptr);
    }
}

QGroupBox* VariantsDialog::MakePromotions() {
    auto* frame = new QGroupBox(QStringLiteral("Promotion &Squares"));
    auto* grid = new QGridLayout(frame);
    grid->setHorizontalSpacing(2);
    grid->setVerticalSpacing(4);
    for (int row = 0; row < 2; ++row) {
        const RuleMember& rule = kPromotionRows[row];
        auto* caption = new QLabel(Text(RuleKeyOf(rule).Caption));
        caption->setContentsMargins(0, 0, 4, 0);
        grid->addWidget(caption, row, 0);
        for (int slot = 0; slot < kPromotionSlots; ++slot) {
            const int number = row * kPromotionSlots + slot;
            EntryField* field =
                MakeField(rule, static_cast<std::size_t>(slot), QStringLiteral("Text1(%1)").arg(number));
            field->setAccessibleName(
                QStringLiteral("%1 promotion square %2").arg(Spoken(RuleKeyOf(rule).Caption)).arg(slot + 1));
            field->setMaxLength(2);
            field->setAlignment(Qt::AlignCenter);
            field->FitTo(QStringLiteral("mb"));
            grid->addWidget(field, row, slot + 1);
        }
    }
    return frame;
}

QGroupBox* VariantsDialog::MakeMovements() {
    auto* frame = new QGroupBox(QStringLiteral("Movement &Directions"));
    auto* grid = new QGridLayout(frame);
    grid->setVerticalSpacing(4);
    grid->setRowStretch(5, 1); // below the rows
    for (int half = 0; half < 2; ++half)
        grid->addWidget(new QLabel(QLatin1String(kMovementColumns[half])), 0, half + 1);
    for (int half = 0; half < 2; ++half) {
        for (int row = 0; row < 4; ++row) {
            const RuleKey& key = RuleKeyOf(kMovementRows[row]);
            EntryField* field = MakeField(kMovementRows[row], static_cast<std::size_t>(half),
                                          QStringLiteral("Text2(%1)").arg(half * 4 + row));
            field->setAccessibleName(Spoken(key.Caption) + QStringLiteral(", ") +
                                     QLatin1String(kMovementColumns[half]));
            field->setMinimumWidth(field->fontMetrics().horizontalAdvance(QStringLiteral("NW;NE;SE;SW")) + 14);
            if (half == 0) grid->addWidget(new QLabel(Text(key.Caption)), row + 1, 0);
            grid->addWidget(field, row + 1, half + 1);
        }
    }
    return frame;
}

QGroupBox* VariantsDialog::MakeHelp() {
    constexpr int kLines = 2;
    Help->setObjectName(QStringLiteral("Help"));
    Help->setTextFormat(Qt::PlainText);
    Help->setWordWrap(true);
    Help->setMinimumHeight(kLines * Help->fontMetrics().lineSpacing());
    Help->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* frame = new QGroupBox(QStringLiteral("Ru&les"));
    Label10->setObjectName(QStringLiteral("Label10"));
    Label10->setAccessibleName(QStringLiteral("Rules"));
    Label10->setAccessibleDescription(QStringLiteral("Opens the rules of the variant."));
    Label10->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    Label10->Clicked = [this] { Events.OpenHelp(); };
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(Help);
    layout->addWidget(Label10);
    return frame;
}

QDialogButtonBox* VariantsDialog::MakeButtons() {
    auto* buttons = new QDialogButtonBox;
    QPushButton* random =
        AddButton(*buttons, "Random", "&Random", "Draws most of the rules at random.", QDialogButtonBox::ResetRole);
    AddButton(*buttons, "OKButton", "OK", "Starts a game by these rules.", QDialogButtonBox::AcceptRole);
    AddButton(*buttons, "CancelButton", "Cancel",
              "Starts a game by the rules as they were last picked, drawn or applied.", QDialogButtonBox::RejectRole);
    QPushButton* apply = AddButton(*buttons, "Variantsapply", "&Apply",
                                   "Takes these rules over, and the dialog stays open.", QDialogButtonBox::ApplyRole);
    connect(random, &QPushButton::clicked, this, [this] { Act(Events.Random); });
    connect(apply, &QPushButton::clicked, this, [this] { Apply(false); });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (Apply(true)) accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(&Control("Check3"), &QCheckBox::clicked, this,
            [this](bool on) { Act([&](VariantsForm& form) { Events.PickColour(form, on); }); });
    return buttons;
}

/// As the dialog is read: from the head through the frames, each from above, to the buttons.
void VariantsDialog::SetFocusOrder() {
    std::vector<QWidget*> order{Combo1, Option1, Option2};
    for (const VariantControl& control : kControls) {
        order.push_back(&Control<QWidget>(control.Name));
        if (control.Rule == RuleMember(&RuleSet::NumberFriends)) order.push_back(&Control(kUnlimitedBox));
    }
    for (const RuleMember& rule : kPromotionRows)
        std::ranges::copy(Fields.at(RuleKeyOf(rule).Name), std::back_inserter(order));
    order.push_back(Label10);
    for (const RuleMember& rule : kMovementRows)
        std::ranges::copy(Fields.at(RuleKeyOf(rule).Name), std::back_inserter(order));
    for (const char* button : {"OKButton", "CancelButton", "Variantsapply", "Random"})
        order.push_back(&Control<QWidget>(button));
    for (std::size_t i = 0; i + 1 < order.size(); ++i) setTabOrder(order[i], order[i + 1]);
    Combo1->setFocus();
}

void VariantsDialog::ShowList() {
    ShowLines(*Combo1, Form.Variants);
    ShowChosen(*Combo1, Shown(Form.Variant));
    (Form.UseClassic == 1 ? Option1 : Option2)->setChecked(true);
}

void VariantsDialog::ShowForm() {
    for (const auto& [key, fields] : Fields) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            fields[i]->setText(Shown(Form.Values.at(key)[i]));
            fields[i]->setCursorPosition(0); // of a long text its start is seen
        }
    }
    for (const VariantControl& control : kControls) {
        if (control.Label != nullptr) continue;
        Control(control.Name).setChecked(Form.Values.at(RuleKeyOf(control.Rule).Name)[0] == "1");
    }
    const std::string& friends = Form.Values.at(RuleKeyOf(&RuleSet::NumberFriends).Name)[0];
    const bool unlimited = friends == std::to_string(kUnlimited);
    Control(kUnlimitedBox).setChecked(unlimited);
    if (unlimited) Control<QLineEdit>("Text6").clear();
    Help->setText(Shown(Form.Help));
    Label10->SetAddress(Shown(Form.HelpLink));
    Grey();
}

void VariantsDialog::ReadForm() {
    for (const auto& [key, fields] : Fields) {
        for (std::size_t i = 0; i < fields.size(); ++i) Form.Values.at(key)[i] = BytesOf(fields[i]->text());
    }
    for (const VariantControl& control : kControls) {
        if (control.Label != nullptr) continue;
        Form.Values.at(RuleKeyOf(control.Rule).Name)[0] = Control(control.Name).isChecked() ? "1" : "0";
    }
    if (Control(kUnlimitedBox).isChecked()) {
        Form.Values.at(RuleKeyOf(&RuleSet::NumberFriends).Name)[0] = std::to_string(kUnlimited);
    }
}

void VariantsDialog::Grey() {
    std::map<std::string_view, bool> open = {{"Check3", Form.ColourOpen}};
    for (const VariantGreying& row : kGreyings) {
        const bool agrees = Control(row.Box).isChecked() == row.OpenWhen;
        const auto [entry, first] = open.try_emplace(row.Control, agrees);
        if (!first) entry->second = entry->second && agrees;
        if (!agrees && row.WhenShut != VariantGreying::Shut::KeepsValue) {
            Control(row.Control).setChecked(row.WhenShut == kTurnsOn);
        }
    }
    for (const auto& [name, on] : open) Control<QWidget>(name.data()).setEnabled(on);
}

bool VariantsDialog::Apply(bool includeFriends) {
    ReadForm();
    const bool applied = Events.Apply(Form, includeFriends, [this](VariantsBox box) {
        EntryField* field = Fields.at(box.Key)[box.Index];
        field->setFocus();
        field->deselect();
        field->SetWrong(true);
    });
    Grey();
    return applied;
}

void VariantsDialog::Act(const std::function<void(VariantsForm&)>& procedure) {
    ReadForm();
    procedure(Form);
    ShowForm();
    Combo1->setCurrentIndex(Combo1->findText(Shown(Form.Variant), Qt::MatchFixedString));
}

} // namespace

std::span<const VariantControl> VariantControls() {
    return kControls;
}

std::span<const VariantGreying> VariantGreyings() {
    return kGreyings;
}

void EditVariants(QWidget* parent, const VariantsForm& form, const VariantsEvents& events) {
    VariantsDialog dialog(parent, form, events);
    RunCentred(dialog);
}

} // namespace tavlon12
