#include "store/profile_directory_watcher.h"

#include "store/data_folder.h"

#include <QDir>

namespace ledra {

namespace {

bool concernsProfile(const FolderChanges& changes)
{
    return changes.rescan || changes.names.contains(QStringLiteral("profile.json"));
}

bool concernsList(const FolderChanges& changes)
{
    return changes.rescan ||
           std::ranges::any_of(changes.names, [](const QString& name) { return !name.startsWith(u'.'); });
}

} // namespace

void ProfileDirectoryWatcher::watch(const QString& dataFolder)
{
    if (!dataWatcher_ || dataWatcher_->folder() != dataFolder) {
        profileWatchers_.clear();
        dataWatcher_ = std::make_unique<FolderWatcher>(dataFolder);
        // Queued, since who hears of it may come back here, where the watcher that speaks is deleted.
        connect(
            dataWatcher_.get(), &FolderWatcher::changed, this,
            [this](const FolderChanges& changes) {
                if (concernsList(changes))
                    Q_EMIT changed();
            },
            Qt::QueuedConnection);
    }
    const QStringList names = QDir(dataFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    std::erase_if(profileWatchers_, [&](const auto& watched) { return !names.contains(watched.first); });
    for (const QString& name : names) {
        // A folder without the file is watched as well: the file may come later, as with a sync service.
        if (name.startsWith(u'.') || profileWatchers_.contains(name))
            continue;
        auto watcher = std::make_unique<FolderWatcher>(dataFolder + u'/' + name);
        connect(
            watcher.get(), &FolderWatcher::changed, this,
            [this](const FolderChanges& changes) {
                if (concernsProfile(changes))
                    Q_EMIT changed();
            },
            Qt::QueuedConnection);
        profileWatchers_.emplace(name, std::move(watcher));
    }
}

} // namespace ledra
