#include "plugins/plugin_manager.h"

#include <QJsonDocument>

#include <algorithm>

namespace ledra {

namespace {

const QString disabledKey = QStringLiteral("Plugins.disabledIDs");
const QString checkKey = QStringLiteral("Plugins.checkForUpdatesEnabled");
const QString secondsKey = QStringLiteral("Plugins.callSeconds");

QString settingsKey(const QString& id)
{
    return QStringLiteral("Plugins.settings.") + id;
}

PluginSetting completed(PluginSetting setting, const UserDefaults& defaults)
{
    constexpr int longestCall = 600; // seconds
    if (setting.runner.isEmpty())
        setting.runner = runnerProgram();
    const QVariant seconds = defaults.value(secondsKey);
    if (seconds.isValid() && seconds.toInt() > 0)
        setting.limits.scriptSeconds = std::min(seconds.toInt(), longestCall);
    return setting;
}

} // namespace

PluginManager::PluginManager(StoreContext& context, const PluginSetting& setting)
    : context_(context),
      setting_(completed(setting, context.defaults)),
      folder_(context.support + QStringLiteral("/Plugins"), context.trash),
      updater_(folder_, setting_.forge),
      caller_(setting_.runner, setting_.limits),
      disabledIds_(context.defaults.value(disabledKey).toStringList())
{
    connect(&caller_, &PluginCaller::logged, this, [this](const QString& id, const QString& text) {
        context_.console.information(id + QStringLiteral(": ") + text);
        addToLog(id, text);
    });
    connect(&caller_, &PluginCaller::stateChanged, this, &PluginManager::stateChanged);
    folder_.recover();
    reload();
}

void PluginManager::reload()
{
    plugins_.clear();
    for (const QString& directory : folder_.installed()) {
        Plugin plugin{{}, directory, {}};
        const auto manifest = readManifest(directory);
        if (manifest) {
            plugin.manifest = *manifest;
        } else { // it stays in the list, to be seen and removed
            plugin.manifest.name = plugin.id();
            plugin.problem = manifest.error();
            caller_.exclude(plugin.id(), plugin.problem);
        }
        plugins_.push_back(std::move(plugin));
    }
    setTimers();
    Q_EMIT pluginsChanged();
}

void PluginManager::reload(const QString& id)
{
    caller_.forget(id);
    reload();
}

const Plugin* PluginManager::find(const QString& id) const
{
    const auto found =
        std::ranges::find_if(plugins_, [&](const Plugin& plugin) { return plugin.id() == id; });
    return found == plugins_.end() ? nullptr : &*found;
}

std::expected<void, QString> PluginManager::setEnabled(const QString& id, bool isEnabled)
{
    if (!find(id))
        return unknownPlugin(id);
    QStringList disabled = context_.defaults.value(disabledKey).toStringList();
    disabled.removeAll(id);
    if (!isEnabled)
        disabled += id;
    if (const auto saved = context_.defaults.setValue(disabledKey, disabled); !saved)
        return saved;
    disabledIds_ = disabled;
    if (!isEnabled)
        caller_.cancelAll(id);
    reload(id);
    return {};
}

void PluginManager::addToLog(const QString& id, const QString& text)
{
    log_.add(id, {context_.clock.now(), text});
    Q_EMIT logged(id);
}

QJsonObject PluginManager::settings(const QString& id) const
{
    return QJsonDocument::fromJson(context_.defaults.value(settingsKey(id)).toString().toUtf8()).object();
}

std::expected<void, QString> PluginManager::setSettings(const QString& id, const QJsonObject& settings)
{
    if (!find(id))
        return unknownPlugin(id);
    const QByteArray text = QJsonDocument(settings).toJson(QJsonDocument::Compact);
    return context_.defaults.setValue(settingsKey(id), QString::fromUtf8(text));
}

PluginOrder PluginManager::order(const Plugin& plugin, const PluginOrder::Answer& answer)
{
    return {.plugin = plugin,
            .grants = {.hosts = grantedHosts(plugin),
                       .hasConnector = plugin.asksFor(connectorCapability),
                       .connectorFolder = folder_.path(),
                       .allowsPlainHttp = setting_.forge.allowsPlainHttp},
            .operation = {},
            .arguments = {},
            .answer = answer};
}

void PluginManager::loadRuntimes(const std::function<void()>& done)
{
    const auto left = std::make_shared<qsizetype>(1);
    const auto countDown = [left, done](const auto&) {
        if (--*left == 0)
            done();
    };
    for (const Plugin& plugin : plugins_) {
        if (!isEnabled(plugin.id()) || !plugin.problem.isEmpty() || caller_.state(plugin.id()).isLoaded)
            continue;
        ++*left;
        caller_.take(order(plugin, countDown));
    }
    QMetaObject::invokeMethod(this, [countDown] { countDown(0); }, Qt::QueuedConnection);
}

PluginTicket PluginManager::call(const QString& id, const QString& operation, const QByteArray& arguments,
                                 const PluginOrder::Answer& answer)
{
    const Plugin* plugin = find(id);
    const auto refuse = [this, answer](const QString& reason) {
        QMetaObject::invokeMethod(
            this, [answer, reason] { answer(std::unexpected(reason)); }, Qt::QueuedConnection);
        return PluginTicket{};
    };
    if (!plugin)
        return refuse(unknownPlugin(id).error());
    if (!isEnabled(id))
        return refuse(QStringLiteral("%1 is disabled").arg(id));
    if (!plugin->problem.isEmpty())
        return refuse(plugin->problem);
    PluginOrder wanted = order(*plugin, answer);
    wanted.operation = operation;
    wanted.arguments = arguments;
    return caller_.take(std::move(wanted));
}

void PluginManager::update(const QString& id, const PluginUpdater::Done& done)
{
    const Plugin* plugin = find(id);
    if (!plugin)
        return done(unknownPlugin(id));
    updater_.update(*plugin, [this, id, done](const PluginUpdater::Outcome& outcome) {
        if (outcome && *outcome)
            reload(id);
        addToLog(id, !outcome   ? outcome.error()
                     : *outcome ? QStringLiteral("updated to ") + **outcome
                                : QStringLiteral("nothing newer"));
        done(outcome);
    });
}

bool PluginManager::checksForUpdates() const
{
    return context_.defaults.boolean(checkKey, false);
}

std::expected<void, QString> PluginManager::setChecksForUpdates(bool isOn)
{
    return context_.defaults.setValue(checkKey, isOn);
}

void PluginManager::start()
{
    if (std::exchange(hasStarted_, true))
        return;
    setTimers();
    for (const Plugin& plugin : plugins_) {
        if (isEnabled(plugin.id()) && plugin.asksFor(onOpenCapability))
            Q_EMIT updateDue(plugin.id());
    }
    if (checksForUpdates())
        updateAll();
}

/// Nobody has asked for it at this moment, so what fails is only logged: without a network it may be
/// everything, at every start.
void PluginManager::updateAll()
{
    for (const Plugin& plugin : std::vector(plugins_)) {
        if (!plugin.manifest.url || !isEnabled(plugin.id()))
            continue;
        update(plugin.id(), [this, id = plugin.id()](const PluginUpdater::Outcome& outcome) {
            if (!outcome)
                context_.console.information(id + QStringLiteral(": ") + outcome.error());
        });
    }
}

/// Each runs first when one interval has passed; one whose interval stays goes on counting.
void PluginManager::setTimers()
{
    if (!hasStarted_)
        return;
    std::erase_if(timers_, [this](const auto& entry) {
        const Plugin* plugin = find(entry.first);
        return !plugin || !isEnabled(entry.first) || !plugin->manifest.timer;
    });
    for (const Plugin& plugin : plugins_) {
        const QString id = plugin.id();
        if (!plugin.manifest.timer || !isEnabled(id))
            continue;
        const std::chrono::milliseconds interval = *plugin.manifest.timer * setting_.timerUnit;
        std::unique_ptr<QTimer>& timer = timers_[id];
        if (timer && timer->intervalAsDuration() == interval)
            continue;
        timer = std::make_unique<QTimer>();
        connect(timer.get(), &QTimer::timeout, this, [this, id] { Q_EMIT updateDue(id); });
        timer->start(interval);
    }
}

} // namespace ledra
