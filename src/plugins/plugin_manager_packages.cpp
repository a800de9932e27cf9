// Packages on their way in and out of the manager, and what the user has granted them.

#include "platform/working_folder.h"
#include "plugins/plugin_manager.h"

namespace ledra {

namespace {

QString hostsKey(const QString& id)
{
    return QStringLiteral("Plugins.grantedHosts.") + id;
}

/// A package that is open in a working folder, and what its manifest says.
struct Opened
{
    WorkingFolder working;
    OpenedPackage package;
    PluginManifest manifest;
};

std::expected<Opened, QString> open(const QString& path)
{
    auto working = WorkingFolder::create(QStringLiteral("LedraPluginInstall"));
    if (!working)
        return std::unexpected(working.error().text());
    const auto package = openPackage(path, working->path());
    if (!package)
        return std::unexpected(package.error());
    const auto manifest = inspectPackage(package->folder);
    if (!manifest)
        return std::unexpected(manifest.error());
    return Opened{std::move(*working), *package, *manifest};
}

} // namespace

std::expected<InspectedPackage, QString> PluginManager::inspect(const QString& path) const
{
    const auto opened = open(path);
    if (!opened)
        return std::unexpected(opened.error());
    if (const auto whole = requireMainModule(opened->package.folder); !whole)
        return std::unexpected(whole.error());
    const Plugin* installed = find(opened->package.id);
    return InspectedPackage{.plugin = {opened->manifest, folder_.pathOf(opened->package.id)},
                            .isInstalled = installed != nullptr,
                            .installedVersion = installed ? installed->manifest.version : std::nullopt};
}

std::expected<Plugin, QString> PluginManager::install(const QString& path, HostGrant grant)
{
    if (grant == HostGrant::none)
        return install(path, QStringList());
    const auto inspected = inspect(path);
    return inspected ? install(path, inspected->plugin.wantedHosts()) : std::unexpected(inspected.error());
}

std::expected<Plugin, QString> PluginManager::install(const QString& path, const QStringList& confirmedHosts)
{
    const auto opened = open(path);
    if (!opened)
        return std::unexpected(opened.error());
    const QString id = opened->package.id;
    const Plugin plugin{opened->manifest, folder_.pathOf(id)};
    // What an earlier package of this id was granted is not for this one; and nothing is, before it is in
    // place.
    const QVariant earlier = context_.defaults.value(hostsKey(id));
    if (const auto forgotten = context_.defaults.remove(hostsKey(id)); !forgotten)
        return std::unexpected(forgotten.error());
    if (const auto installed = folder_.install(opened->package.folder, id); !installed) {
        if (earlier.isValid()) // the earlier package stays
            (void)context_.defaults.setValue(hostsKey(id), earlier);
        return std::unexpected(installed.error());
    }
    caller_.cancelAll(id); // the files that they run are gone
    reload(id);
    if (const auto granted = setGrantedHosts(id, confirmedHosts); !granted)
        return std::unexpected(granted.error());
    addToLog(id, QStringLiteral("installed"));
    return plugin;
}

std::expected<void, QString> PluginManager::remove(const QString& id)
{
    if (!find(id))
        return unknownPlugin(id);
    caller_.cancelAll(id);
    if (const auto enabled = setEnabled(id, true); !enabled)
        return enabled;
    if (const auto removed = folder_.remove(id); !removed)
        return removed;
    const auto forgotten = context_.defaults.remove(hostsKey(id));
    log_.forget(id);
    reload(id);
    return forgotten;
}

QStringList PluginManager::grantedHosts(const Plugin& plugin) const
{
    const QStringList confirmed = context_.defaults.value(hostsKey(plugin.id())).toStringList();
    QStringList granted = plugin.wantedHosts();
    granted.removeIf([&](const QString& host) { return !confirmed.contains(host); });
    return granted;
}

std::expected<void, QString> PluginManager::setGrantedHosts(const QString& id, const QStringList& hosts)
{
    const Plugin* plugin = find(id);
    if (!plugin)
        return unknownPlugin(id);
    QStringList granted = plugin->wantedHosts();
    granted.removeIf([&](const QString& host) { return !hosts.contains(host); });
    if (granted == grantedHosts(*plugin))
        return {};
    const auto saved = granted.isEmpty() ? context_.defaults.remove(hostsKey(id))
                                         : context_.defaults.setValue(hostsKey(id), granted);
    if (saved)
        reload(id); // the runtime is made with the rights that it has
    return saved;
}

} // namespace ledra
