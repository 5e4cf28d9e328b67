#include "ui/command_bar.h"

#include "ui/art.h"

#include <QLayout>
#include <QMenuBar>

namespace tavlon12 {

namespace {

QAction* MakeAction(const CommandRow& row, QMainWindow& window) {
    QAction* action = new QAction(QLatin1String(row.Caption), &window);
    action->setObjectName(QLatin1String(row.Name));
    action->setToolTip(QLatin1String(row.Tip));
    action->setIconVisibleInMenu(false);
    action->setMenuRole(QAction::NoRole);
    if (*row.Shortcut != '\0') action->setShortcut(QKeySequence(QLatin1String(row.Shortcut)));
    if (*row.Icon != '\0') action->setIcon(ArtIcon(QStringLiteral("toolbar/") + QLatin1String(row.Icon)));
    action->setCheckable(row.Checkable);
    action->setEnabled(row.Id != Command::mnu_Play_Cancel);
    return action;
}

void MakeActions(CommandBar& bar, QMainWindow& window, const std::function<void(Command)>& run) {
    for (const CommandRow& row : AllCommands()) {
        const Command id = row.Id;
        QAction* action = bar.Actions[static_cast<std::size_t>(id)] = MakeAction(row, window);
        QObject::connect(action, &QAction::triggered, &window, [&bar, run, id] {
            // The toolkit has moved the mark already; only the command itself may.
            bar.SetChecked(id, bar.Checked[static_cast<std::size_t>(id)]);
            run(id);
        });
    }
}

template <typename Owner> QMenu* AddMenu(Owner& owner, const MenuLine& line) {
    QMenu* menu = owner.addMenu(QLatin1String(line.Caption));
    menu->setObjectName(QLatin1String(line.Name));
    return menu;
}

void MakeMenus(CommandBar& bar, QMenuBar& menuBar) {
    menuBar.setNativeMenuBar(false);
    QMenu* menu = nullptr;
    QMenu* open = nullptr;
    std::size_t count = 0;
    for (const MenuLine& line : MenuTree()) {
        switch (line.What) {
        case MenuLine::Kind::Menu: bar.Menus[count++] = menu = open = AddMenu(menuBar, line); break;
        case MenuLine::Kind::Submenu: open = AddMenu(*menu, line); break;
        case MenuLine::Kind::SubmenuEnd: open = menu; break;
        case MenuLine::Kind::Entry: open->addAction(&bar.ActionOf(line.Id)); break;
        case MenuLine::Kind::Dash: open->addSeparator(); break;
        }
    }
}

QMenu* MakeSetupMenu(QMainWindow& window) {
    QMenu* menu = new QMenu(&window);
    menu->setObjectName(QStringLiteral("mnuSetup"));
    for (const SetupMenuLine& line : SetupMenu()) {
        if (*line.Name == '\0') {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(QLatin1String(line.Caption));
        action->setObjectName(QLatin1String(line.Name));
        action->setCheckable(line.Id != SetupEntry::ClearBoard);
        action->setData(static_cast<int>(line.Id));
    }
    return menu;
}

void AddButton(CommandBar& bar, const CommandRow& row) {
    QAction& action = bar.ActionOf(row.Id);
    bar.Toolbar1->addAction(&action);
    QWidget* button = bar.Toolbar1->widgetForAction(&action);
    button->setObjectName(QLatin1String(row.Key));
    button->setFixedSize(28, 27);
    button->setFocusPolicy(Qt::NoFocus);
}

QToolBar* MakeToolbar(QWidget* client) {
    QToolBar* toolbar = new QToolBar(client);
    toolbar->setObjectName(QStringLiteral("Toolbar1"));
    toolbar->setIconSize(QSize(20, 20));
    toolbar->setMovable(false);
    toolbar->layout()->setContentsMargins(2, 1, 2, 1);
    toolbar->layout()->setSpacing(0);
    toolbar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    return toolbar;
}

void FillToolbar(CommandBar& bar) {
    for (int place = 1; place <= kToolbarPlaces; ++place) {
        if (const CommandRow* row = RowAtButton(place)) {
            AddButton(bar, *row);
        } else {
            bar.Toolbar1->addSeparator();
        }
    }
}

} // namespace

void CommandBar::SetEnabled(Command command, bool on) {
    ActionOf(command).setEnabled(on);
}

void CommandBar::SetChecked(Command command, bool on) {
    Checked[static_cast<std::size_t>(command)] = on;
    ActionOf(command).setChecked(on);
}

void MakeCommandBar(CommandBar& bar, QMainWindow& window, const std::function<void(Command)>& run) {
    MakeActions(bar, window, run);
    MakeMenus(bar, *window.menuBar());
    bar.mnuSetup = MakeSetupMenu(window);
    bar.Toolbar1 = MakeToolbar(window.centralWidget());
    FillToolbar(bar);
}

} // namespace tavlon12
