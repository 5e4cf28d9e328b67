#include "ui/dialogs/dialog_parts.h"

#include "ui/shown_text.h"

#include <QScreen>

#include <algorithm>

namespace tavlon12 {

QString Text(std::string_view text) {
    return Shown(std::string(text));
}

QString Spoken(std::string_view caption) {
    return Text(caption).remove(QLatin1Char('&')).remove(QLatin1Char(':')).trimmed();
}

void RunCentred(QDialog& dialog) {
    dialog.adjustSize();
    RunCentred(dialog, dialog.size());
}

// On a screen that is too small the title bar stays in reach.
void RunCentred(QDialog& dialog, const QSize& size) {
    dialog.resize(size);
    QRect place(QPoint(), dialog.size());
    place.moveCenter(dialog.screen()->geometry().center());
    const QRect usable = dialog.screen()->availableGeometry();
    dialog.move(std::max(place.left(), usable.left()), std::max(place.top(), usable.top()));
    dialog.exec();
}

QPushButton* AddButton(QDialogButtonBox& buttons, const char* name, const char* caption, const char* tip,
                       QDialogButtonBox::ButtonRole role) {
    QPushButton* button = buttons.addButton(QLatin1String(caption), role);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(QLatin1String(tip));
    return button;
}

} // namespace tavlon12
