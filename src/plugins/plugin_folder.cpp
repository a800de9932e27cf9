#include "plugins/plugin_folder.h"

#include "platform/folder_tree.h"
#include "platform/tree_copy.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <cstdio>

namespace ledra {

namespace {

const QString backupPrefix = QStringLiteral("ledraplugin-backup-");
const QString freshPrefix = QStringLiteral(".ledraplugin-new-");

std::unexpected<QString> failed(const FileError& error)
{
    return std::unexpected(error.text());
}

std::expected<void, QString> renameFolder(const QString& from, const QString& to)
{
    if (std::rename(nativePath(from).c_str(), nativePath(to).c_str()) != 0)
        return failed(fileError(nativePath(to), errno).error());
    return {};
}

} // namespace

PluginFolder::PluginFolder(QString path, TrashBin& trash)
    : path_(std::move(path)), trash_(trash), lock_(path_ + QStringLiteral("/.lock"))
{}

std::vector<QString> PluginFolder::installed() const
{
    std::vector<QString> folders;
    for (const QString& name : QDir(path_).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        if (name.endsWith(pluginFolderEnding) && isPluginId(QFileInfo(name).completeBaseName()))
            folders.push_back(path_ + u'/' + name);
    }
    return folders;
}

void PluginFolder::recover()
{
    const QStringList left = {backupPrefix + u'*', freshPrefix + u'*'};
    if (QDir(path_).entryList(left, QDir::Dirs | QDir::Hidden).isEmpty())
        return;
    const InterprocessLock::Guard guard = lock_.hold(); // whoever is installing is waited for
    putRight();
}

/// The new folder is whole before it gets its name: where it has, the backup is of no use any more.
void PluginFolder::putRight()
{
    for (const QString& name : QDir(path_).entryList({backupPrefix + u'*'}, QDir::Dirs)) {
        const QString place = pathOf(name.sliced(backupPrefix.size()));
        const QString backup = path_ + u'/' + name;
        if (QFileInfo::exists(place))
            (void)removeTree(nativePath(backup)); // else the next start tries again, as it does below
        else
            (void)renameFolder(backup, place);
    }
    for (const QString& name : QDir(path_).entryList({freshPrefix + u'*'}, QDir::Dirs | QDir::Hidden))
        (void)removeTree(nativePath(path_ + u'/' + name));
}

std::expected<void, QString> PluginFolder::prepare(const QString& folder, const QString& fresh,
                                                   const QString& sourceVersion)
{
    if (const auto copied = copyTree(nativePath(folder), nativePath(fresh)); !copied)
        return failed(copied.error());
    const QString versionFile = fresh + u'/' + sourceVersionFile;
    QFile::remove(versionFile); // whatever the package says there
    if (!sourceVersion.isEmpty()) {
        if (const auto written = writeExport(versionFile, sourceVersion.toUtf8(), Overwrite::replace);
            !written)
            return failed(written.error());
    }
    // The copy is what counts: the original may have changed meanwhile.
    if (const auto manifest = inspectPackage(fresh); !manifest)
        return std::unexpected(manifest.error());
    return requireMainModule(fresh);
}

std::expected<void, QString> PluginFolder::exchange(const QString& fresh, const QString& id)
{
    const QString place = pathOf(id);
    const QString backup = path_ + u'/' + backupPrefix + id;
    const bool isReplaced = QFileInfo::exists(place);
    if (isReplaced) {
        if (const auto renamed = renameFolder(place, backup); !renamed)
            return renamed;
    }
    betweenRenames();
    if (const auto renamed = renameFolder(fresh, place); !renamed) {
        if (isReplaced)
            (void)renameFolder(backup, place); // else recover() will
        return renamed;
    }
    if (const auto durable = syncFolder(nativePath(path_)); !durable)
        return failed(durable.error());
    if (isReplaced)
        (void)removeTree(nativePath(backup)); // else recover() will
    return {};
}

std::expected<void, QString> PluginFolder::install(const QString& folder, const QString& id,
                                                   const QString& sourceVersion)
{
    if (!QDir().mkpath(path_))
        return std::unexpected(path_ + QStringLiteral(": the folder cannot be made"));
    const InterprocessLock::Guard guard = lock_.hold();
    putRight();
    const QString fresh = path_ + u'/' + freshPrefix + QUuid::createUuid().toString(QUuid::WithoutBraces);
    const auto prepared = prepare(folder, fresh, sourceVersion);
    const auto done = prepared ? exchange(fresh, id) : prepared;
    if (!done)
        (void)removeTree(nativePath(fresh));
    return done;
}

std::expected<void, QString> PluginFolder::remove(const QString& id)
{
    const InterprocessLock::Guard guard = lock_.hold();
    if (const auto trashed = trash_.put(pathOf(id)); !trashed)
        return failed(trashed.error());
    return {};
}

} // namespace ledra
