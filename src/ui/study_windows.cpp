#include "ui/study_windows.h"

#include "ui/look.h"
#include "ui/shown_text.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tavlon12 {

namespace {

constexpr int kTextPixels = 12;

/// A field for text in columns, to be read and copied.
QPlainTextEdit* MakeText(QDialog& window) {
    auto* text = new QPlainTextEdit(&window);
    text->setObjectName(QStringLiteral("Text1"));
    text->setReadOnly(true);
    text->setLineWrapMode(QPlainTextEdit::NoWrap);
    QFont font = FontOfSize(kTextPixels, true);
    font.setFamilies({QStringLiteral("Consolas"), font.family()});
    text->setFont(font);
    text->setTabChangesFocus(true);
    return text;
}

QPushButton* MakeButton(QDialog& window, const char* name, const QString& caption) {
    auto* button = new QPushButton(caption, &window);
    button->setObjectName(QLatin1String(name));
    return button;
}

/// Shows a window above the program's, also when it is open already.
void Raise(QDialog& window) {
    window.show();
    window.raise();
}

} // namespace

PlyValueWindow::PlyValueWindow(QWidget* parent, const std::function<void()>& cancel)
    : QDialog(parent), State(new QLabel(this)), SearchLine(new QLabel(this)), Progress(new QProgressBar(this)),
      Combo1(new QComboBox(this)), Text1(MakeText(*this)),
      Command1(MakeButton(*this, "Command1", QStringLiteral("C&lose"))),
      Command2(MakeButton(*this, "Command2", QStringLiteral("&Cancel"))) {
    setObjectName(QStringLiteral("frmPV"));
    setWindowTitle(QStringLiteral("Ply Value Table"));
    resize(900, 460);
    PrepareControls();
    LayOut();
    connect(Command1, &QPushButton::clicked, this, &QDialog::accept);
    connect(Command2, &QPushButton::clicked, this, [this, cancel] {
        Command2->setEnabled(false);
        cancel();
    });
    connect(Combo1, &QComboBox::currentIndexChanged, this, &PlyValueWindow::Sort);
}

void PlyValueWindow::PrepareControls() {
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setToolTip(
        QStringLiteral("The order of the rows. \"Combinations/Problems\" lists only the moves that hide a tactic."));
    State->setObjectName(QStringLiteral("State"));
    SearchLine->setObjectName(QStringLiteral("SearchLine"));
    SearchLine->setMinimumHeight(2 * fontMetrics().lineSpacing());
    SearchLine->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    Progress->setObjectName(QStringLiteral("ProgressBar1"));
    Progress->setTextVisible(false);
    Progress->setFixedHeight(8);
    Progress->setStyleSheet(ProgressStyle());
    Text1->setAccessibleName(QStringLiteral("Values of the moves at each depth"));
    Command1->setDefault(true);
}

void PlyValueWindow::LayOut() {
    auto* sort = new QLabel(QStringLiteral("&Sort:"), this);
    sort->setBuddy(Combo1);
    auto* top = new QHBoxLayout;
    top->addWidget(sort);
    top->addWidget(Combo1);
    top->addSpacing(12);
    top->addWidget(State);
    top->addWidget(Progress, 1);
    top->addWidget(Command2);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(SearchLine, 1);
    bottom->addWidget(Command1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(Text1);
    layout->addLayout(bottom);
}

void PlyValueWindow::Open(const std::vector<std::string>& orders) {
    Table = nullptr;
    Combo1->clear();
    for (const std::string& order : orders) Combo1->addItem(Shown(order));
    Combo1->setEnabled(false);
    Command2->setEnabled(true);
    Text1->clear();
    Raise(*this);
}

void PlyValueWindow::ShowTable(const std::function<std::string(Long)>& table) {
    Table = table;
    Combo1->setEnabled(true);
    Command2->setEnabled(false);
    Sort(Combo1->currentIndex());
}

void PlyValueWindow::reject() {
    Command2->click(); // grey, and without effect, when the table is complete
    QDialog::reject();
}

void PlyValueWindow::Sort(int order) {
    if (Table) Text1->setPlainText(Shown(Table(order)));
}

ProblemWindow::ProblemWindow(QWidget* parent) : QDialog(parent), Text1(MakeText(*this)) {
    setObjectName(QStringLiteral("frmProblem"));
    setWindowTitle(QStringLiteral("Problems/Combinations"));
    resize(760, 320);
    Text1->setAccessibleName(QStringLiteral("Combinations found"));
    auto* close = MakeButton(*this, "Command1", QStringLiteral("C&lose"));
    close->setDefault(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Text1);
    layout->addWidget(close, 0, Qt::AlignRight);
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
}

void ProblemWindow::Clear() {
    Text1->clear();
}

void ProblemWindow::Open(const std::string& text) {
    Text1->setPlainText(Shown(text));
    Raise(*this);
}

} // namespace tavlon12
