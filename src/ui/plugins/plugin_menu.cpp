#include "ui/plugins/plugin_menu.h"

#include "ui/plugins/plugin_words.h"

namespace ledra {

PluginMenu::PluginMenu(QMenu& menu, Shows shows, LedraApp& app)
    : QObject(&menu), menu_(menu), shows_(shows), app_(app)
{
    connect(&app.pluginManager(), &PluginManager::pluginsChanged, this, &PluginMenu::refill);
    connect(&app.pluginManager(), &PluginManager::stateChanged, this, &PluginMenu::refill);
    refill();
}

std::vector<PluginMenu::Offer> PluginMenu::offers() const
{
    PluginManager& plugins = app_.pluginManager();
    std::vector<Offer> offers;
    for (const Plugin& plugin : plugins.plugins()) {
        if (!plugins.isEnabled(plugin.id()))
            continue;
        std::vector<PluginOperation> operations = offeredOperations(plugin, plugins.runtime(plugin.id()));
        if (shows_ == Shows::whatIsForSelected)
            std::erase_if(operations, [](PluginOperation operation) { return !needsSelection(operation); });
        if (!operations.empty())
            offers.push_back({plugin.id(), plugin.manifest.name, operations});
    }
    return offers;
}

/// Leaves the menu alone where the same is offered as before; it may be open.
void PluginMenu::refill()
{
    std::vector<Offer> wanted = offers();
    if (shown_ == wanted)
        return;
    actions_.clear();
    menu_.clear(); // which deletes the actions, but not the submenus
    qDeleteAll(menu_.findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly));
    for (const Offer& offer : wanted)
        add(offer);
    shown_ = std::move(wanted);
    if (shows_ == Shows::everything) {
        menu_.addSeparator();
        menu_.addAction(tr("Manage Plugins…"), this, &PluginMenu::pageWanted);
    }
    // What a hidden menu holds can still be found by the search for commands.
    menu_.menuAction()->setVisible(!shown_->empty());
    update(now_);
}

void PluginMenu::add(const Offer& offer)
{
    QMenu* entries = menu_.addMenu(withoutShortcuts(offer.name));
    for (const PluginOperation operation : offer.operations) {
        QAction* action =
            entries->addAction(operationText(operation), this, [this, plugin = offer.plugin, operation] {
                Q_EMIT chosen(plugin, operation);
            });
        actions_.emplace_back(action, operation);
    }
}

bool PluginMenu::isPossible(PluginOperation operation) const
{
    if (now_.isBusy)
        return false;
    if (needsSelection(operation))
        return now_.hasSelection;
    const bool takesIn =
        operation == PluginOperation::importFile || operation == PluginOperation::importFetched;
    return takesIn || now_.hasRecords;
}

void PluginMenu::update(const Circumstances& now)
{
    now_ = now;
    for (const auto& [action, operation] : actions_)
        action->setEnabled(isPossible(operation));
}

} // namespace ledra
