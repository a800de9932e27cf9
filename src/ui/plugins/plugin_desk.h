#pragma once

#include "ui/plugins/busy_bar.h"
#include "ui/plugins/plugin_menu.h"
#include "ui/plugins/plugin_runs.h"

#include <QPointer>

namespace ledra {

/// Plugins in the main window: their menus, what they are doing, and that their entry points are known.
class PluginDesk : public QObject
{
    Q_OBJECT

public:
    explicit PluginDesk(const WindowParts& parts);

    BusyBar& busyBar() { return *busyBar_; } ///< for the window to lay out
    PluginRuns& runs() { return *runs_; }

    using Selection = std::function<std::vector<InvoicePtr>()>;
    void setMenus(QMenu& menu, QMenu& contextMenu, const Selection& selection);

    /// To be called when the selection is another, or what is selected.
    void update();

Q_SIGNALS:
    void recordWanted(const QUuid& id);
    void settingsWanted(const QString& plugin); ///< of this plugin, or of all of them when it is empty

private:
    void addMenu(QMenu& menu, PluginMenu::Shows shows);
    void loadSoon();

    const WindowParts& parts_;
    QPointer<BusyBar> busyBar_;
    PluginRuns* runs_;
    Selection selection_ = [] { return std::vector<InvoicePtr>(); };
    std::vector<PluginMenu*> menus_;
    bool isLoading_ = false;
};

} // namespace ledra
