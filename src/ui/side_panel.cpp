#include "ui/side_panel.h"

#include "ui/board_geometry.h"
#include "ui/look.h"

namespace tavlon12 {

namespace {

template <typename Widget> Widget* Named(Widget* widget, const QString& name) {
    widget->setObjectName(name);
    return widget;
}

void MakeShapes(QWidget* client) {
    for (int i = 1; i <= 2; ++i) {
        Named(new QFrame(client), QStringLiteral("Shape%1").arg(i))->setStyleSheet(Framed("QFrame", 3));
    }
    for (int i = 1; i <= 3; ++i) {
        QFrame* line = Named(new QFrame(client), QStringLiteral("Line%1").arg(i));
        line->setAutoFillBackground(true);
        QPalette colours = line->palette();
        colours.setColor(QPalette::Window, LineColour());
        line->setPalette(colours);
    }
}

void SetLabelFonts(SidePanel& panel) {
    QFont bold = FontOfSize(kFontPixels);
    bold.setBold(true);
    for (std::size_t i : {1, 2, 8}) panel.Labels[i]->setFont(bold);
    for (std::size_t i : {3, 4, 7}) panel.Labels[i]->setFont(FontOfSize(kFontPixels - 1));
    for (std::size_t i : {10, 11, 12, 13, 14}) panel.Labels[i]->setFont(FontOfSize(kFontPixels - 2));
}

void SetLabelTexts(SidePanel& panel) {
    panel.Labels[7]->setText(QStringLiteral("Depth:"));
    panel.Labels[10]->setText(QStringLiteral("Extra Pieces:"));
    panel.Labels[11]->setText(QStringLiteral("Black"));
    panel.Labels[13]->setText(QStringLiteral("White"));
}

void MakeLabels(SidePanel& panel, QWidget* client) {
    for (std::size_t i = 1; i < panel.Labels.size(); ++i) {
        QLabel* label = i == 9 ? new QLabel(client) : new ShortLabel(client);
        panel.Labels[i] = Named(label, QStringLiteral("Label%1").arg(i));
        label->setTextFormat(Qt::PlainText);
    }
    for (std::size_t i : {1, 2}) {
        panel.Labels[i]->setAutoFillBackground(true);
        panel.Labels[i]->setAlignment(Qt::AlignCenter);
    }
    for (std::size_t i : {3, 4}) panel.Labels[i]->setContentsMargins(5, 0, 0, 0);
    for (std::size_t i : {5, 6}) panel.Labels[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    panel.Labels[9]->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    panel.Labels[9]->setWordWrap(true);
    SetLabelFonts(panel);
    SetLabelTexts(panel);
}

GameList* MakeList(QWidget* client, const QString& name, const QString& tip) {
    GameList* list = Named(new GameList(client), name);
    list->setToolTip(tip);
    list->setFont(FontOfSize(kFontPixels, true));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideNone);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setStyleSheet(Framed("QListWidget", 0) + QStringLiteral("QListWidget::item { padding: 1px 3px; }"));
    return list;
}

void MakeLists(SidePanel& panel, QWidget* client) {
    panel.List1 = MakeList(client, QStringLiteral("List1"),
                           QStringLiteral("The game. A click, or Enter, goes to the position after the move."));
    panel.List2 = MakeList(client, QStringLiteral("List2"),
                           QStringLiteral("The legal moves. A click, or Enter, plays the move."));
    panel.List3 =
        MakeList(client, QStringLiteral("List3"),
                 QStringLiteral("The computer's candidates with their values. A click, or Enter, plays one instead."));
}

void MakeFields(SidePanel& panel, QWidget* client) {
    panel.Text2 = Named(new QLineEdit(client), QStringLiteral("Text2"));
    panel.Text2->setPlaceholderText(QStringLiteral("Type a move"));
    panel.Command1 = Named(new QPushButton(QStringLiteral("Move"), client), QStringLiteral("Command1"));
    panel.Text1 = Named(new TextField(client), QStringLiteral("Text1"));
    panel.Text1->setPlaceholderText(QStringLiteral("Comment"));
    panel.Text1->setTabChangesFocus(true);
    panel.Text1->setStyleSheet(Framed("QPlainTextEdit", 0));
}

QProgressBar* MakeProgress(QWidget* client) {
    QProgressBar* progress = Named(new QProgressBar(client), QStringLiteral("Progress"));
    progress->setTextVisible(false);
    progress->setValue(0);
    progress->setStyleSheet(ProgressStyle());
    return progress;
}

void MakeStatusPanels(SidePanel& panel, QStatusBar& statusBar) {
    statusBar.setObjectName(QStringLiteral("StatusBar1"));
    statusBar.setSizeGripEnabled(false);
    for (std::size_t i = 0; i < panel.StatusPanels.size(); ++i) {
        QLabel* label = panel.StatusPanels[i] = Named(new ShortLabel, QStringLiteral("StatusPanel%1").arg(i + 1));
        label->setTextFormat(Qt::PlainText);
        label->setContentsMargins(6, 0, 6, 2);
        statusBar.addWidget(label, i == 0 ? 1 : 0);
    }
    // A long text must not push the other panels out.
    panel.StatusPanels[0]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    panel.StatusPanels[1]->setFixedWidth(kStatusPanel2Width);
    panel.StatusPanels[2]->setFixedWidth(kStatusPanel3Width);
}

} // namespace

SidePanel MakeSidePanel(QWidget* client, QStatusBar& statusBar) {
    SidePanel panel;
    MakeShapes(client);
    MakeLabels(panel, client);
    MakeLists(panel, client);
    MakeFields(panel, client);
    panel.Progress = MakeProgress(client);
    Named(new VectorPicture(QStringLiteral(":/art/emblem.svg"), client), QStringLiteral("Picture11"));
    MakeStatusPanels(panel, statusBar);
    return panel;
}

} // namespace tavlon12
