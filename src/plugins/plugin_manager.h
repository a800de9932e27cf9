#pragma once

#include "plugins/plugin_caller.h"
#include "plugins/plugin_log.h"
#include "plugins/plugin_updater.h"
#include "store/store_context.h"

#include <QJsonObject>
#include <QObject>
#include <QTimer>

#include <expected>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace ledra {

/// What tests set otherwise than the program does.
struct PluginSetting
{
    QString runner = {}; ///< the runner's program; empty: where it is installed
    PluginLimits limits = {};
    ForgeSetting forge = {};
    std::chrono::milliseconds timerUnit = std::chrono::minutes(1);
};

/// Whether a plugin may talk to the hosts that it lists.
enum class HostGrant { none, all };

/// A package that has been looked at, and what it would take the place of.
struct InspectedPackage
{
    Plugin plugin; ///< with the folder that it would have
    bool isInstalled = false;
    std::optional<QString> installedVersion; ///< of the one that is installed
};

/// The installed plugins: installing, enabling, calling and updating them.
///
/// Loading them at the start means reading their manifests; scripts run only when something of them is
/// wanted, in a process that ends when nothing is.
class PluginManager : public QObject
{
    Q_OBJECT

public:
    explicit PluginManager(StoreContext& context, const PluginSetting& setting = {});

    /// By name of their folders.
    const std::vector<Plugin>& plugins() const { return plugins_; }
    const Plugin* find(const QString& id) const;

    bool isEnabled(const QString& id) const { return !disabledIds_.contains(id); }
    [[nodiscard]] std::expected<void, QString> setEnabled(const QString& id, bool isEnabled);

    /// Takes in a package, in place of an installed one of the same id. The error is one line.
    [[nodiscard]] std::expected<Plugin, QString> install(const QString& path, HostGrant grant);

    /// The same; of the hosts that the package wants, those are granted that the user has confirmed.
    [[nodiscard]] std::expected<Plugin, QString> install(const QString& path,
                                                         const QStringList& confirmedHosts);

    /// Looks at a package as install() does, and changes nothing.
    [[nodiscard]] std::expected<InspectedPackage, QString> inspect(const QString& path) const;

    /// Moves a plugin's folder to the trash, and forgets what it was granted.
    [[nodiscard]] std::expected<void, QString> remove(const QString& id);

    /// Of the hosts that the plugin wants those that the user has confirmed.
    QStringList grantedHosts(const Plugin& plugin) const;
    [[nodiscard]] std::expected<void, QString> setGrantedHosts(const QString& id, const QStringList& hosts);

    // What users set for a plugin; it finds it in the context of its calls.
    QJsonObject settings(const QString& id) const;
    [[nodiscard]] std::expected<void, QString> setSettings(const QString& id, const QJsonObject& settings);

    /// Loads the plugins that are enabled and have not been loaded, so that their entry points are known;
    /// `done` comes after the last.
    void loadRuntimes(const std::function<void()>& done);
    const PluginRuntimeState& runtime(const QString& id) { return caller_.state(id); }

    /// Calls an entry point. The answer comes later: JSON text, or an error that is one line.
    PluginTicket call(const QString& id, const QString& operation, const QByteArray& arguments,
                      const PluginOrder::Answer& answer);
    void cancel(PluginTicket ticket) { caller_.cancel(ticket); }

    // What a plugin says and what becomes of its calls.
    std::deque<PluginLogLine> log(const QString& id) const { return log_.lines(id); }
    void addToLog(const QString& id, const QString& text);
    void noteError(const QString& id, const QString& error) { caller_.note(id, error); }

    /// Installs the newest version of a plugin's repository if it is newer.
    void update(const QString& id, const PluginUpdater::Done& done);
    bool isUpdating(const QString& id) const { return updater_.isUpdating(id); }
    bool checksForUpdates() const;
    [[nodiscard]] std::expected<void, QString> setChecksForUpdates(bool isOn);

    /// For a program that stays: the run on opening, once; the timers; and updates, if they are wanted.
    void start();

    const PluginFolder& folder() const { return folder_; }
    const RunnerProcess& runner() const { return caller_.runner(); }

    /// Packages that were handed over wait for the user to say whether they are to be installed.
    QList<QUrl> pendingPackages;
    bool showInstallDialog = false;

Q_SIGNALS:
    void pluginsChanged();
    void stateChanged(const QString& id); ///< what runtime() says
    void logged(const QString& id);
    void updateDue(const QString& id); ///< its updateInvoices is to run, on opening or by its timer

private:
    void reload();
    void reload(const QString& id);
    void setTimers();
    void updateAll();
    PluginOrder order(const Plugin& plugin, const PluginOrder::Answer& answer);

    StoreContext& context_;
    PluginSetting setting_;
    PluginFolder folder_;
    PluginUpdater updater_;
    PluginCaller caller_;
    PluginLog log_;
    std::vector<Plugin> plugins_;
    QStringList disabledIds_;
    std::map<QString, std::unique_ptr<QTimer>> timers_;
    bool hasStarted_ = false; ///< the run on opening has happened
};

} // namespace ledra
