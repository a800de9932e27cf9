#include "plugins/plugin_updater.h"

#include "platform/file_io.h"
#include "platform/working_folder.h"
#include "plugins/plugin_update_error.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

QString installedVersion(const Plugin& plugin)
{
    constexpr qint64 longest = 1000;
    const auto noted = readFile(plugin.directory + u'/' + sourceVersionFile, longest);
    const QString version = noted ? QString::fromUtf8(*noted).trimmed() : QString();
    return version.isEmpty() ? plugin.manifest.version.value_or(QString()) : version;
}

void PluginUpdater::update(const Plugin& plugin, const Done& done)
{
    const QString id = plugin.id();
    if (updating_.contains(id))
        return done(std::unexpected(QStringLiteral("it is being updated already")));
    updating_.insert(id);
    const auto end = [this, id, done](const Outcome& outcome) {
        updating_.remove(id);
        done(outcome);
    };
    const auto compare = [this, id, end, installed = installedVersion(plugin)](
                             const std::expected<PluginSource, QString>& source) {
        if (!source)
            return end(std::unexpected(source.error()));
        if (!isNewer(source->version, installed))
            return end(std::optional<QString>());
        forge_.download(source->downloadURL, [this, id, end, version = source->version](const auto& archive) {
            end(archive ? install(*archive, id, version) : std::unexpected(archive.error()));
        });
    };
    forge_.newestSource(plugin.manifest.url.value_or(QString()), compare);
}

PluginUpdater::Outcome PluginUpdater::install(const QByteArray& archive, const QString& id,
                                              const QString& version)
{
    const auto working = WorkingFolder::create(QStringLiteral("LedraPluginUpdate"));
    if (!working)
        return std::unexpected(working.error().text());
    const QString file = working->path() + QStringLiteral("/source.zip");
    const QString unpacked = working->path() + QStringLiteral("/source");
    if (const auto written = writeExport(file, archive, Overwrite::refuse); !written)
        return std::unexpected(written.error().text());
    if (!QDir().mkdir(unpacked))
        return std::unexpected(unpacked + QStringLiteral(": the folder cannot be made"));
    const auto package = unpackPackage(file, unpacked);
    if (!package)
        return std::unexpected(package.error());
    if (package->folder.isEmpty())
        return std::unexpected(errorText(PluginUpdateError::noManifest));
    if (const auto inspected = inspectPackage(package->folder); !inspected)
        return std::unexpected(inspected.error());
    if (const auto installed = folder_.install(package->folder, id, version); !installed)
        return std::unexpected(installed.error());
    return std::optional(version);
}

} // namespace ledra
