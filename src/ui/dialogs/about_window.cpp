#include "ui/dialogs/about_window.h"

#include "ui/dialogs/dialog_parts.h"
#include "ui/look.h"
#include "ui/shown_text.h"
#include "ui/widgets.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tavlon12 {

namespace {

constexpr int kNamePixels = 34;

QLabel* AddLine(QVBoxLayout& lines, const char* name, const std::string& text) {
    auto* label = new QLabel(Shown(text));
    label->setObjectName(QLatin1String(name));
    lines.addWidget(label);
    return label;
}

void AddLink(QVBoxLayout& lines, const char* name, const char* spoken, const std::string& address,
             const OpenAddress& open) {
    auto* link = new LinkLabel(Shown(address));
    link->setObjectName(QLatin1String(name));
    link->setAccessibleName(QLatin1String(spoken));
    link->Clicked = [address, &open] { open(address); };
    lines.addWidget(link, 0, Qt::AlignLeft);
}

/// The picture, with the texts beside it.
QFrame* MakeFrame(const AboutText& text, const OpenAddress& open) {
    auto* frame = new QFrame;
    frame->setObjectName(QStringLiteral("Frame1"));
    frame->setStyleSheet(Framed("#Frame1", 3));
    auto* picture = new VectorPicture(QStringLiteral(":/art/emblem.svg"), frame);
    picture->setFixedSize(150, 135);

    auto* lines = new QVBoxLayout;
    QFont serif(QStringLiteral("Times New Roman"));
    serif.setStyleHint(QFont::Serif);
    serif.setPixelSize(kNamePixels);
    serif.setBold(true);
    AddLine(*lines, "Label8", text.Name)->setFont(serif);
    AddLine(*lines, "Label2", text.Line);
    lines->addSpacing(6);
    AddLine(*lines, "Label3", text.Version);
    AddLine(*lines, "Label1", text.Notice);
    lines->addSpacing(6);
    AddLink(*lines, "Label9", "Web page", text.WebPage, open);
    AddLink(*lines, "Label10", "Mail to the makers", text.MailAddress, open);

    auto* layout = new QHBoxLayout(frame);
    layout->setContentsMargins(16, 16, 24, 16);
    layout->setSpacing(18);
    layout->addWidget(picture);
    layout->addLayout(lines);
    return frame;
}

} // namespace

void ShowAboutWindow(QWidget* parent, const AboutText& text, const OpenAddress& open) {
    QDialog window(parent);
    window.setObjectName(QStringLiteral("frmAbout"));
    window.setWindowTitle(QStringLiteral(" About"));
    auto* buttons = new QDialogButtonBox;
    QPushButton* ok = AddButton(*buttons, "cmdOK", "OK", "Closes the window.", QDialogButtonBox::AcceptRole);
    ok->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &window, &QDialog::accept);
    QVBoxLayout layout(&window);
    layout.addWidget(MakeFrame(text, open));
    layout.addWidget(buttons);
    layout.setSizeConstraint(QLayout::SetFixedSize);
    ok->setFocus(); // Enter closes the window, and opens no page
    RunCentred(window);
}

} // namespace tavlon12
