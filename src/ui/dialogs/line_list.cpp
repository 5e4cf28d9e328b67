#include "ui/dialogs/line_list.h"

#include "ui/shown_text.h"

#include <QListView>
#include <QStandardItemModel>
#include <QTextDocument>

namespace tavlon12 {

namespace {

/// A tool tip that shows marks of rich text as they are.
QString PlainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

} // namespace

void ShowLines(QComboBox& combo, const std::vector<ListLine>& lines) {
    constexpr int kLinesShown = 20;
    combo.clear();
    combo.setMaxVisibleItems(kLinesShown);
    combo.setStyleSheet(QStringLiteral("QComboBox { combobox-popup: 0; }")); // a list with a scroll bar, no menu
    if (auto* view = qobject_cast<QListView*>(combo.view())) view->setSpacing(1);
    const auto* model = qobject_cast<const QStandardItemModel*>(combo.model());
    for (const ListLine& line : lines) {
        combo.addItem(Shown(line.Name));
        if (line.Problem.empty()) continue;
        QStandardItem* item = model->item(combo.count() - 1);
        item->setEnabled(false);
        item->setToolTip(PlainTip(Shown(line.Problem)));
    }
}

void ShowChosen(QComboBox& combo, const QString& name) {
    combo.setPlaceholderText(name);
    combo.setCurrentIndex(combo.findText(name, Qt::MatchFixedString));
}

} // namespace tavlon12
