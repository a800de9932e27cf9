#pragma once

#include "ui/commands/window_commands.h"

#include <QAction>
#include <QMenuBar>
#include <QToolBar>

#include <map>
#include <vector>

namespace ledra {

/// The commands of a window as actions, in its menus, its tool bar and the context menu of its list.
class CommandSet : public QObject
{
    Q_OBJECT

public:
    CommandSet(MainWindow& window, QMenuBar& bar, QToolBar& tools);

    /// What the window has to offer at the moment; see CommandNeeds.
    using IsOffered = std::function<bool(CommandNeeds)>;
    void update(const IsOffered& isOffered);

    QMenu* menu(Menu menu) const { return menus_.at(menu); }
    QMenu* contextMenu() const { return contextMenu_; }

    /// The action of a command, by its English text.
    QAction* action(const char* text) const;

    /// All that can be done in the window, undo and what was added to its menus included.
    QList<QAction*> all() const;

private:
    QAction* make(const WindowCommand& command);

    MainWindow& window_;
    QMenuBar& bar_;
    std::map<Menu, QMenu*> menus_;
    QMenu* contextMenu_;
    std::vector<QAction*> actions_; ///< in the order of the table
};

/// The path that leads to an action through the menus: "Invoice › Status".
QString menuPath(const QAction& action, const QMenuBar& bar);

} // namespace ledra
