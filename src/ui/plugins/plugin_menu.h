#pragma once

#include "app/ledra_app.h"
#include "app/plugin_operations.h"

#include <QMenu>

#include <functional>
#include <vector>

namespace ledra {

/// A menu of what the enabled plugins offer, a submenu for each of them. It follows what is installed, and is
/// hidden while there is nothing.
class PluginMenu : public QObject
{
    Q_OBJECT

public:
    enum class Shows { everything, whatIsForSelected };

    PluginMenu(QMenu& menu, Shows shows, LedraApp& app);

    /// What can be done at the moment.
    struct Circumstances
    {
        bool hasSelection = false;
        bool hasRecords = false;
        bool isBusy = false;
    };
    void update(const Circumstances& now);

Q_SIGNALS:
    void chosen(const QString& plugin, PluginOperation operation);
    void pageWanted(); ///< of the plugins in the settings

private:
    struct Offer
    {
        QString plugin;
        QString name;
        std::vector<PluginOperation> operations;

        bool operator==(const Offer&) const = default;
    };

    std::vector<Offer> offers() const;
    void refill();
    void add(const Offer& offer);
    bool isPossible(PluginOperation operation) const;

    QMenu& menu_;
    Shows shows_;
    LedraApp& app_;
    std::optional<std::vector<Offer>> shown_;
    std::vector<std::pair<QAction*, PluginOperation>> actions_;
    Circumstances now_;
};

} // namespace ledra
