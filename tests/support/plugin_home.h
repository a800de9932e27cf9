#pragma once

#include "plugins/plugin_manager.h"
#include "support/program_run.h"
#include "support/store_home.h"
#include "support/wait_for.h"

namespace ledra::test {

/// Plugins in a home of their own, with limits that tests can wait for.
struct PluginHome : StoreHome
{
    explicit PluginHome(PluginSetting wanted = {}) : setting(std::move(wanted))
    {
        if (setting.runner.isEmpty())
            setting.runner = QStringLiteral(LEDRA_PLUGIN_RUNNER);
        start();
    }

    /// The program starts anew.
    void start()
    {
        manager.reset();
        manager = std::make_unique<PluginManager>(context, setting);
    }

    /// Writes a package with a main module; an entry of `files` may be any other file of it.
    QString package(const QString& id, const QByteArray& main,
                    const QByteArray& manifest = R"({"name":"Test"})",
                    const QMap<QString, QByteArray>& files = {}) const
    {
        const QString place = path(QStringLiteral("packages/%1.ledraplugin").arg(id));
        QDir(place).removeRecursively();
        bool isFine = put(place + QStringLiteral("/plugin.json"), manifest) &&
                      put(place + QStringLiteral("/main.js"), main);
        for (const auto& [name, content] : files.asKeyValueRange())
            isFine = isFine && put(place + u'/' + name, content);
        return isFine ? place : QString();
    }

    /// "" when it went well.
    QString install(const QString& package, HostGrant grant = HostGrant::none) const
    {
        const auto installed = manager->install(package, grant);
        return installed ? QString() : installed.error();
    }

    QString install(const QString& id, const QByteArray& main,
                    const QByteArray& manifest = R"({"name":"Test"})",
                    const QMap<QString, QByteArray>& files = {}, HostGrant grant = HostGrant::none) const
    {
        return install(package(id, main, manifest, files), grant);
    }

    /// The JSON that an entry point returns, or "error: " and why there is none.
    QByteArray call(const QString& id, const char* operation, const QByteArray& arguments = "[]") const
    {
        QByteArray result = "no answer";
        Waiting waiting;
        manager->call(id, QString::fromLatin1(operation), arguments, [&](const auto& json) {
            result = json ? *json : "error: " + json.error().toUtf8();
            waiting.done();
        });
        return waiting.wait() ? result : "no answer";
    }

    bool loadAll() const
    {
        Waiting waiting;
        manager->loadRuntimes([&] { waiting.done(); });
        return waiting.wait();
    }

    PluginSetting setting;
    std::unique_ptr<PluginManager> manager;
};

} // namespace ledra::test
