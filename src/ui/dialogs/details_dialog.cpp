#include "ui/dialogs/details_dialog.h"

#include "ui/dialogs/dialog_parts.h"
#include "ui/shown_text.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QVBoxLayout>

#include <iterator>

namespace tavlon12 {

namespace {

struct FieldRow {
    const char* Frame;
    const char* Name;
    const char* Label;
    const char* Tip;
    std::string DetailsForm::*Member;
};
constexpr FieldRow kFields[] = {
    {"Game", "Text1", "&Event:", "The tournament or match.", &DetailsForm::Event},
    {"Game", "Text2", "&Site:", "Where the game is played.", &DetailsForm::Site},
    {"Game", "Text3", "&Date:", "When it is played. A PDN file that is saved without a date gets that of the day.",
     &DetailsForm::Date},
    {"Players", "Text4", "&Black:", "The name of the player of the black pieces.", &DetailsForm::Black},
    {"Players", "Text5", "&White:", "The name of the player of the white pieces.", &DetailsForm::White},
};

/// Fields in a frame, with as much room for labels as the frame below.
QFormLayout* MakeFrame(QVBoxLayout& layout, const char* title) {
    auto* frame = new QGroupBox(QLatin1String(title));
    layout.addWidget(frame);
    return new QFormLayout(frame);
}

} // namespace

void EditDetails(QWidget* parent, const DetailsForm& form, const std::function<void(const DetailsForm&)>& apply) {
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("dlgDetails"));
    dialog.setWindowTitle(QStringLiteral(" Game Details"));
    QVBoxLayout layout(&dialog);

    QLineEdit* fields[std::size(kFields)];
    QFormLayout* frame = nullptr;
    for (std::size_t i = 0; i < std::size(kFields); ++i) {
        const FieldRow& row = kFields[i];
        if (i == 0 || row.Frame != std::string_view(kFields[i - 1].Frame)) frame = MakeFrame(layout, row.Frame);
        fields[i] = new QLineEdit(Shown(form.*row.Member));
        fields[i]->setObjectName(QLatin1String(row.Name));
        fields[i]->setToolTip(QLatin1String(row.Tip));
        fields[i]->setMinimumWidth(300);
        frame->addRow(QLatin1String(row.Label), fields[i]);
    }
    const auto applyFields = [&] {
        DetailsForm edited;
        for (std::size_t i = 0; i < std::size(kFields); ++i) edited.*kFields[i].Member = BytesOf(fields[i]->text());
        apply(edited);
    };

    auto* buttons = new QDialogButtonBox;
    AddButton(*buttons, "OKButton", "OK", "Keeps these details and closes the dialog.", QDialogButtonBox::AcceptRole)
        ->setDefault(true);
    AddButton(*buttons, "CancelButton", "Cancel", "Closes the dialog. What was applied stays.",
              QDialogButtonBox::RejectRole);
    const QPushButton* applyButton = AddButton(
        *buttons, "Command1", "&Apply", "Keeps these details, and the dialog stays open.", QDialogButtonBox::ApplyRole);
    layout.addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, [&] {
        applyFields();
        dialog.accept();
    });
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    QObject::connect(applyButton, &QPushButton::clicked, &dialog, applyFields);
    RunCentred(dialog);
}

} // namespace tavlon12
