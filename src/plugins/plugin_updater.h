#pragma once

#include "plugins/forge_client.h"
#include "plugins/plugin_folder.h"

#include <QObject>
#include <QSet>

#include <expected>
#include <functional>

namespace ledra {

/// The version of its source that an installed plugin has: what the last update noted, else what its manifest
/// says.
QString installedVersion(const Plugin& plugin);

/// Brings plugins up to date from their repositories.
class PluginUpdater : public QObject
{
    Q_OBJECT

public:
    /// The version that was installed, or nothing when there is no newer one; the error is one line.
    using Outcome = std::expected<std::optional<QString>, QString>;
    using Done = std::function<void(const Outcome&)>;

    PluginUpdater(PluginFolder& folder, ForgeSetting setting) : folder_(folder), forge_(std::move(setting)) {}

    void update(const Plugin& plugin, const Done& done);

    bool isUpdating(const QString& id) const { return updating_.contains(id); }

private:
    Outcome install(const QByteArray& archive, const QString& id, const QString& version);

    PluginFolder& folder_;
    ForgeClient forge_;
    QSet<QString> updating_;
};

} // namespace ledra
