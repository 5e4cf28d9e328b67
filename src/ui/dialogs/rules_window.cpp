#include "ui/dialogs/rules_window.h"

#include "ui/dialogs/dialog_parts.h"
#include "ui/look.h"
#include "ui/shown_text.h"
#include "ui/widgets.h"

#include <QScrollArea>
#include <QVBoxLayout>

namespace tavlon12 {

namespace {

constexpr int kTextPixels = 13;

/// The text, which may be longer than the window is high.
QScrollArea* MakeText(const std::string& text) {
    auto* label = new QLabel(Shown(text));
    label->setObjectName(QStringLiteral("Label2"));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setMargin(10);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(kTextPixels);
    label->setFont(font);

    auto* area = new QScrollArea;
    area->setObjectName(QStringLiteral("TextArea"));
    area->setAccessibleName(QStringLiteral("Rules"));
    area->setFocusPolicy(Qt::StrongFocus); // the keys of the arrows scroll
    area->setWidget(label);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setStyleSheet(Framed("QScrollArea", 3));
    area->viewport()->setAutoFillBackground(false);
    label->setAutoFillBackground(false);
    return area;
}

LinkLabel* MakeLink(const std::string& link) {
    auto* label = new LinkLabel(Shown(link));
    label->setObjectName(QStringLiteral("Label1"));
    label->setAccessibleName(QStringLiteral("Web page with the rules"));
    return label;
}

} // namespace

void ShowRulesWindow(QWidget* parent, const RulesText& text, const OpenAddress& open) {
    QDialog window(parent);
    window.setObjectName(QStringLiteral("frmRules"));
    window.setWindowTitle(Shown(text.Title));
    auto* frame = new QWidget;
    frame->setObjectName(QStringLiteral("Frame1"));
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(MakeText(text.Text), 1);
    LinkLabel* link = MakeLink(text.Link);
    inside->addWidget(link);
    link->Clicked = [&] { open(text.Link); };

    auto* buttons = new QDialogButtonBox;
    AddButton(*buttons, "Command1", "&Ok", "Closes the window.", QDialogButtonBox::AcceptRole)->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &window, &QDialog::accept);
    QVBoxLayout layout(&window);
    layout.addWidget(frame, 1);
    layout.addWidget(buttons);
    frame->setMinimumSize(520, 400);
    RunCentred(window);
}

} // namespace tavlon12
