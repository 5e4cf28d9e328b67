#include "ui/dialogs/file_dialog.h"

#include "ui/shown_text.h"

#include <QFileDialog>

namespace tavlon12 {

namespace {

/// "Tavlon File (*.tvl)|*.tvl|..." in the toolkit's form: the captions, each with its pattern in any case.
QStringList FiltersOf(const std::string& filter) {
    const QStringList parts = Shown(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString pattern = parts[i + 1];
        const QString caption = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
        filters << QStringLiteral("%1 (%2 %3)").arg(caption, pattern, pattern.toUpper());
    }
    return filters;
}

/// The ending of a filter in the toolkit's form.
QString EndingOf(const QString& filter) {
    return filter.section(QLatin1String("(*."), 1, 1).section(QLatin1Char(' '), 0, 0);
}

} // namespace

std::filesystem::path ChooseFile(QWidget* parent, const FileQuestion& question, const std::filesystem::path& folder) {
    QFileDialog dialog(parent, Shown(question.Title), QString::fromStdString(folder.string()));
    dialog.setObjectName(QStringLiteral("FileDialog"));
    dialog.setNameFilters(FiltersOf(question.Filter));
    dialog.setAcceptMode(question.ToSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::AnyFile);            // the game answers a name that does not exist itself
    dialog.setOption(QFileDialog::DontConfirmOverwrite); // the game asks itself, and adds to a file of games
    if (question.ToSave) dialog.setLabelText(QFileDialog::LookIn, QStringLiteral("Save in:"));
    const auto follow = [&dialog](const QString& filter) { dialog.setDefaultSuffix(EndingOf(filter)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow(dialog.nameFilters().value(0));
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0).toStdString();
}

} // namespace tavlon12
