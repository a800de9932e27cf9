#pragma once

#include "platform/folder_watcher.h"

#include <QObject>
#include <QString>

#include <map>
#include <memory>

namespace ledra {

/// Says when a profile of the data folder may have come, gone, got another name or another content.
class ProfileDirectoryWatcher : public QObject
{
    Q_OBJECT

public:
    /// Watches a data folder and the profile folders that lie in it now; to be called again when there are
    /// others.
    void watch(const QString& dataFolder);

Q_SIGNALS:
    void changed();

private:
    std::unique_ptr<FolderWatcher> dataWatcher_;
    std::map<QString, std::unique_ptr<FolderWatcher>> profileWatchers_; ///< by folder name
};

} // namespace ledra
