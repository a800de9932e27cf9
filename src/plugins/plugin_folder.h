#pragma once

#include "platform/interprocess_lock.h"
#include "platform/trash_bin.h"
#include "plugins/plugin_package.h"

#include <QString>

#include <expected>
#include <functional>
#include <vector>

namespace ledra {

/// The folder of the installed plugins. A plugin is put in place whole or not at all: the new folder is
/// copied beside the old one and made durable, the old one gets a name that begins with
/// "ledraplugin-backup-", the new one takes its place. What a killed process has left is put right by
/// recover().
class PluginFolder
{
public:
    /// @param path made when the first plugin is installed
    PluginFolder(QString path, TrashBin& trash);

    QString path() const { return path_; }
    QString pathOf(const QString& id) const { return path_ + u'/' + id + pluginFolderEnding; }

    /// The folders in it, by name.
    std::vector<QString> installed() const;

    /// Puts old versions back whose replacement was not finished, and removes what else is left.
    void recover();

    /// Installs a folder that has been inspected, in place of one of the same id.
    /// @param sourceVersion what an update has come from; without it the file that tells of one goes
    [[nodiscard]] std::expected<void, QString> install(const QString& folder, const QString& id,
                                                       const QString& sourceVersion = {});

    [[nodiscard]] std::expected<void, QString> remove(const QString& id);

    /// Called between the steps of install(); for tests, which stop there.
    std::function<void()> betweenRenames = [] {};

private:
    std::expected<void, QString> prepare(const QString& folder, const QString& fresh,
                                         const QString& sourceVersion);
    std::expected<void, QString> exchange(const QString& fresh, const QString& id);
    void putRight();

    QString path_;
    TrashBin& trash_;
    InterprocessLock lock_;
};

} // namespace ledra
