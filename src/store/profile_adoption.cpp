#include "platform/tree_copy.h"
#include "store/profile_directory_watcher.h"
#include "store/profile_manager.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>

#include <filesystem>
#include <system_error>

namespace ledra {

namespace {

// Hidden, so that nobody takes it for a profile while it is being copied.
const QString staging = QStringLiteral(".import-");

/// What an import left behind that was killed. Only under the lock: else it may be somebody's at work.
void removeLeftovers(const QString& data)
{
    const QDir::Filters filters = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString& name : QDir(data).entryList({staging + u'*'}, filters)) {
        std::error_code ignored; // it is tried again next time
        std::filesystem::remove_all(nativePath(data + u'/' + name), ignored);
    }
}

/// Puts a copy away that is no profile that can be read: left in place, every start would complain of it.
/// Returns what to say of it.
QString discarded(TrashBin& trash, const QString& folder)
{
    const QString problem = QFileInfo(folder).fileName() + QStringLiteral(": cannot be read");
    const auto trashed = trash.put(folder);
    return trashed ? problem : problem + QStringLiteral("; ") + trashed.error().text();
}

} // namespace

QString ProfileManager::uniqueName(const QString& name, const std::optional<QUuid>& apart) const
{
    const auto isTaken = [&](const QString& candidate) {
        return std::ranges::any_of(profiles_, [&](const ProfilePtr& profile) {
            return (*profile)->id != apart && (*profile)->displayName() == candidate;
        });
    };
    if (!isTaken(name))
        return name;
    QString candidate = name + QStringLiteral(" Copy");
    for (int count = 2; isTaken(candidate); ++count)
        candidate = name + QStringLiteral(" Copy ") + QString::number(count);
    return candidate;
}

std::expected<ProfilePtr, StoreFailure> ProfileManager::adoptFolder(const QString& folder,
                                                                    const QString& name)
{
    if (const std::optional<QString> problem = profileNameProblem(name))
        return std::unexpected(StoreFailure{*problem});
    const QScopedValueRollback mutation(isPerformingProfileMutation_, true);
    const InterprocessLock::Guard guard = context_.writer.lock();
    const QString data = dataFolder();
    removeLeftovers(data);
    const QString temporary = data + u'/' + staging + idText(context_.ids.newId());
    const QString folderName = QString::number(nextFolderNumber()) + u'_' + name;
    auto copied = copyTree(nativePath(folder), nativePath(temporary), Durability::none);
    if (copied)
        copied = syncFileSystem(nativePath(data));
    if (copied && !QDir().rename(temporary, data + u'/' + folderName))
        copied = std::unexpected(FileError{data + u'/' + folderName, QStringLiteral("cannot be made")});
    if (!copied) {
        removeLeftovers(data);
        return std::unexpected(StoreFailure{copied.error().text()});
    }
    takeUp();
    const auto adopted = std::ranges::find_if(
        profiles_, [&](const ProfilePtr& profile) { return (*profile)->profileName == folderName; });
    std::expected<ProfilePtr, StoreFailure> result;
    if (adopted != profiles_.end()) {
        result = *adopted;
    } else {
        known_.remove(folderName);
        result = std::unexpected(StoreFailure{discarded(context_.trash, data + u'/' + folderName)});
    }
    listChanged();
    if (directoryWatcher_)
        directoryWatcher_->watch(data);
    return result;
}

} // namespace ledra
