#include "ui/commands/command_set.h"

#include "ui/list/list_panel.h"
#include "ui/look/icons.h"
#include "ui/main_window.h"

#include <QCoreApplication>
#include <QMenu>

namespace ledra {

namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("WindowCommands", text);
}

void collect(const QMenu& menu, QList<QAction*>& actions)
{
    const QList<QAction*> entries = menu.actions();
    for (QAction* action : entries) {
        if (action->menu())
            collect(*action->menu(), actions);
        else if (!action->isSeparator())
            actions += action;
    }
}

/// Where submenus stand: above the line before what closes the File menu, else at the end.
QAction* placeOfSubmenus(const QMenu& menu, const QAction* closing)
{
    const QList<QAction*> entries = menu.actions();
    const qsizetype place = entries.indexOf(closing);
    return place > 0 ? entries[place - 1] : nullptr;
}

QString pathIn(const QMenu& menu, const QAction& action)
{
    const QList<QAction*> entries = menu.actions();
    const QString title = menu.title().remove(u'&');
    for (QAction* entry : entries) {
        if (entry == &action)
            return title;
        const QString below = entry->menu() ? pathIn(*entry->menu(), action) : QString();
        if (!below.isEmpty())
            return title + QStringLiteral(" › ") + below;
    }
    return {};
}

} // namespace

CommandSet::CommandSet(MainWindow& window, QMenuBar& bar, QToolBar& tools)
    : QObject(&window), window_(window), bar_(bar), contextMenu_(new QMenu(&window))
{
    for (const MenuRow& row : menuTable()) {
        auto* menu = new QMenu(translated(row.title), &window);
        menus_[row.menu] = menu;
        if (row.parent == row.menu)
            bar.addMenu(menu);
    }
    for (const WindowCommand& command : windowCommands()) {
        QAction* action = make(command);
        QMenu* menu = menus_.at(command.menu);
        if (command.beginsGroup) {
            menu->addSeparator();
            contextMenu_->addSeparator(); // of several in a row it shows one
        }
        menu->addAction(action);
        if (command.places & CommandPlace::toolBar)
            tools.addAction(action);
        if (command.places & CommandPlace::contextMenu)
            contextMenu_->addAction(action);
        actions_.push_back(action);
    }
    for (const MenuRow& row : menuTable()) {
        if (row.parent == row.menu)
            continue;
        QMenu* parent = menus_.at(row.parent);
        parent->insertMenu(placeOfSubmenus(*parent, action("Settings")), menus_.at(row.menu));
        if (row.menu == Menu::status)
            contextMenu_->addMenu(menus_.at(row.menu));
    }
}

QAction* CommandSet::make(const WindowCommand& command)
{
    auto* action = new QAction(translated(command.text), &window_);
    action->setShortcuts(QKeySequence::listFromString(QString::fromLatin1(command.shortcut)));
    if (command.icon)
        action->setIcon(lineIcon(command.icon));
    QString tip = action->text().remove(u'…');
    if (!action->shortcut().isEmpty())
        tip += QStringLiteral(" (%1)").arg(action->shortcut().toString(QKeySequence::NativeText));
    action->setToolTip(tip);
    action->setCheckable(command.isOn != nullptr);
    connect(action, &QAction::triggered, this, [this, run = command.run] { run(window_); });
    if (command.places & CommandPlace::listKeys) {
        action->setShortcutContext(Qt::WidgetShortcut);
        window_.listPanel().list().addAction(action);
    } else {
        window_.addAction(action); // shortcuts work wherever the focus is
    }
    return action;
}

void CommandSet::update(const IsOffered& isOffered)
{
    std::size_t position = 0;
    for (const WindowCommand& command : windowCommands()) {
        QAction* action = actions_[position++];
        action->setEnabled(isOffered(command.needs));
        if (command.isOn)
            action->setChecked(command.isOn(window_));
    }
}

QAction* CommandSet::action(const char* text) const
{
    const std::span<const WindowCommand> table = windowCommands();
    const auto row = std::ranges::find(table, std::string_view(text), &WindowCommand::text);
    return row == table.end() ? nullptr : actions_[static_cast<std::size_t>(row - table.begin())];
}

QList<QAction*> CommandSet::all() const
{
    QList<QAction*> actions;
    for (const MenuRow& row : menuTable()) {
        if (row.parent == row.menu)
            collect(*menus_.at(row.menu), actions);
    }
    return actions;
}

QString menuPath(const QAction& action, const QMenuBar& bar)
{
    const QList<QAction*> entries = bar.actions();
    for (QAction* entry : entries) {
        const QString path = entry->menu() ? pathIn(*entry->menu(), action) : QString();
        if (!path.isEmpty())
            return path;
    }
    return {};
}

} // namespace ledra
