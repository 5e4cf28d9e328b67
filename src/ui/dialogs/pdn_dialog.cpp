#include "ui/dialogs/pdn_dialog.h"

#include "ui/dialogs/dialog_parts.h"
#include "ui/dialogs/line_list.h"
#include "ui/shown_text.h"

#include <QAbstractTableModel>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace tavlon12 {

namespace {

constexpr const char* kColumns[] = {"Event", "Date",  "Black", "White",    "Result",
                                    "Site",  "Setup", "Eco",   "BlackElo", "WhiteElo"};
constexpr int kWidestColumn = 120;
constexpr QSize kSize(960, 480);

/// The rows of the chooser as the toolkit asks for them.
class GamesModel : public QAbstractTableModel {
public:
    explicit GamesModel(const PdnChooser& chooser) : Chooser(chooser) {}

    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(Chooser.Rows.size());
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(std::size(kColumns));
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
        return Shown(Chooser.Rows[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())]);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
        return QString::fromLatin1(kColumns[section]);
    }

private:
    const PdnChooser& Chooser;
};

/// Sorts and narrows the rows. In the order of the file until a column is clicked.
void Prepare(QSortFilterProxyModel& proxy, QAbstractItemModel& games) {
    proxy.setSourceModel(&games);
    proxy.setFilterKeyColumn(-1);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    proxy.setSortCaseSensitivity(Qt::CaseInsensitive);
    proxy.setSortLocaleAware(true);
}

QTreeView* MakeList(QSortFilterProxyModel& proxy) {
    auto* list = new QTreeView;
    list->setObjectName(QStringLiteral("ListView1"));
    list->setAccessibleName(QStringLiteral("Games"));
    list->setModel(&proxy);
    list->setRootIsDecorated(false);
    list->setUniformRowHeights(true);
    list->setAllColumnsShowFocus(true);
    list->header()->setSortIndicator(-1, Qt::AscendingOrder);
    list->setSortingEnabled(true);
    // The event takes what the others leave: it alone may be long.
    for (int column = 1; column < static_cast<int>(std::size(kColumns)); ++column) {
        list->resizeColumnToContents(column);
        list->setColumnWidth(column, std::min(list->columnWidth(column), kWidestColumn));
    }
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    return list;
}

QComboBox* MakeVariants(const PdnChooser& chooser) {
    auto* combo = new QComboBox;
    combo->setObjectName(QStringLiteral("Combo1"));
    combo->setToolTip(QStringLiteral("The rules by which the game is opened. DEFAULT: those that the game brings."));
    ShowLines(*combo, chooser.OpenAs);
    return combo;
}

QLineEdit* MakeFind() {
    auto* find = new QLineEdit;
    find->setObjectName(QStringLiteral("Find"));
    find->setPlaceholderText(QStringLiteral("Type a name to find its games"));
    find->setClearButtonEnabled(true);
    return find;
}

void LayOut(QDialog& dialog, QLineEdit* find, QTreeView* list, QComboBox* variants, QDialogButtonBox* buttons) {
    auto* openAs = new QLabel(QStringLiteral("Open &as:"));
    openAs->setBuddy(variants);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(openAs);
    bottom->addWidget(variants);
    bottom->addStretch();
    bottom->addWidget(buttons);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(find);
    layout->addWidget(list);
    layout->addLayout(bottom);
}

} // namespace

std::optional<PdnChoice> ChoosePdnGame(QWidget* parent, const PdnChooser& chooser) {
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("dlgPDN"));
    dialog.setWindowTitle(Shown(chooser.Title));

    GamesModel games(chooser);
    QSortFilterProxyModel proxy;
    Prepare(proxy, games);
    QTreeView* list = MakeList(proxy);
    QComboBox* variants = MakeVariants(chooser);
    QLineEdit* find = MakeFind();
    auto* buttons = new QDialogButtonBox;
    QPushButton* ok = AddButton(*buttons, "OKButton", "OK", "Opens the game.", QDialogButtonBox::AcceptRole);
    AddButton(*buttons, "CancelButton", "Cancel", "Opens no game.", QDialogButtonBox::RejectRole);
    ok->setDefault(true);
    LayOut(dialog, find, list, variants, buttons);

    const auto follow = [&] { ok->setEnabled(list->currentIndex().isValid()); };
    const auto selectFirst = [&] { list->setCurrentIndex(proxy.index(0, 0)); };
    QObject::connect(find, &QLineEdit::textChanged, &dialog, [&](const QString& text) {
        proxy.setFilterFixedString(text);
        if (!list->currentIndex().isValid()) selectFirst();
        follow();
    });
    QObject::connect(list->selectionModel(), &QItemSelectionModel::currentChanged, &dialog, follow);
    QObject::connect(list, &QTreeView::doubleClicked, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    selectFirst();
    follow();
    RunCentred(dialog, kSize);
    if (dialog.result() != QDialog::Accepted || !list->currentIndex().isValid()) return std::nullopt;
    return PdnChoice{proxy.mapToSource(list->currentIndex()).row() + 1, variants->currentIndex()};
}

} // namespace tavlon12
