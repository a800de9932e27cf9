#include "ui/plugins/plugin_desk.h"

namespace ledra {

PluginDesk::PluginDesk(const WindowParts& parts)
    : QObject(&parts.window), parts_(parts), busyBar_(new BusyBar), runs_(new PluginRuns(parts))
{
    connect(runs_, &PluginRuns::advanced, this, [this](const QString& line) {
        if (busyBar_)
            busyBar_->say(line);
        update();
    });
    connect(busyBar_, &BusyBar::cancelled, runs_, &PluginRuns::cancel);
    connect(runs_, &PluginRuns::made, this, &PluginDesk::recordWanted);
    connect(runs_, &PluginRuns::pluginWanted, this, &PluginDesk::settingsWanted);
    connect(&parts.app.pluginManager(), &PluginManager::pluginsChanged, this, &PluginDesk::loadSoon);
    loadSoon();
}

void PluginDesk::setMenus(QMenu& menu, QMenu& contextMenu, const Selection& selection)
{
    selection_ = selection;
    addMenu(menu, PluginMenu::Shows::everything);
    addMenu(contextMenu, PluginMenu::Shows::whatIsForSelected);
    update();
}

void PluginDesk::addMenu(QMenu& menu, PluginMenu::Shows shows)
{
    auto* filled = new PluginMenu(menu, shows, parts_.app); // which the menu owns
    connect(filled, &PluginMenu::chosen, this, [this](const QString& plugin, PluginOperation operation) {
        runs_->start(plugin, operation, selection_());
    });
    connect(filled, &PluginMenu::pageWanted, this, [this] { Q_EMIT settingsWanted({}); });
    menus_.push_back(filled);
}

void PluginDesk::update()
{
    const PluginMenu::Circumstances now = {.hasSelection = !selection_().empty(),
                                           .hasRecords = !parts_.app.invoiceManager().invoices().empty(),
                                           .isBusy = runs_->isBusy()};
    for (PluginMenu* menu : menus_)
        menu->update(now);
}

/// The window is there first; several changes in a row are one load.
void PluginDesk::loadSoon()
{
    if (parts_.app.pluginManager().plugins().empty() || std::exchange(isLoading_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isLoading_ = false;
            parts_.app.pluginManager().loadRuntimes([] {}); // each says when it is known
        },
        Qt::QueuedConnection);
}

} // namespace ledra
