#include "store/data_folder.h"

#include "platform/file_move.h"
#include "platform/folder_bookmark.h"
#include "platform/folder_listing.h"

#include <QDir>
#include <QFileInfo>

namespace ledra {

namespace {

const QString bookmarkKey = QStringLiteral("customDataPathBookmark");

} // namespace

bool isProfileFolder(const QString& folder)
{
    return QFileInfo::exists(folder + QStringLiteral("/profile.json"));
}

std::optional<QString> profileFolderProblem(const QString& folder)
{
    if (folder.isEmpty())
        return QStringLiteral("the profile has no folder");
    return QFileInfo::exists(folder) ? std::nullopt
                                     : std::optional(folder + QStringLiteral(": the folder is gone"));
}

std::optional<QString> invoicesFolderProblem(const QString& folder)
{
    return profileFolderProblem(folder.isEmpty() ? QString() : QFileInfo(folder).path());
}

void DataFolder::restore()
{
    const QVariant stored = context_.defaults.value(bookmarkKey);
    if (!stored.isValid())
        return;
    const auto resolved = resolveFolderBookmark(stored.toByteArray());
    if (!resolved) {
        context_.console.failure(
            QStringLiteral("ProfileManager: Failed to restore security-scoped bookmark: ") +
            resolved.error());
    } else if (resolved->isStale) {
        context_.console.failure(
            QStringLiteral("ProfileManager: Security-scoped bookmark is stale, clearing custom path"));
        clearBookmark();
    } else {
        customPath_ = resolved->path;
    }
}

QString DataFolder::defaultPath() const
{
    return context_.support + QStringLiteral("/Data");
}

QString DataFolder::path() const
{
    const QString path = place();
    if (customPath_ && !isAccessibleFolder(path)) {
        if (inaccessible_ != path) // once is enough: the folder is asked for all the time
            context_.console.failure(
                QStringLiteral("ProfileManager: Failed to start accessing security-scoped resource: ") +
                path);
        inaccessible_ = path;
    } else {
        inaccessible_.clear();
    }
    QDir().mkpath(path);
    return path;
}

void DataFolder::clearBookmark()
{
    customPath_.reset();
    if (const auto removed = context_.defaults.remove(bookmarkKey); !removed)
        context_.console.failure(removed.error());
}

Migration DataFolder::setCustomPath(const QString& folder, const std::optional<QString>& previous)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    QDir().mkpath(folder); // a bookmark needs something to point at
    if (const auto stored = context_.defaults.setValue(bookmarkKey, makeFolderBookmark(folder)); !stored)
        return {{}, {}, stored.error()};
    customPath_ = folder;
    const bool hadCustom = previous && QDir::isAbsolutePath(*previous);
    return migrate(hadCustom ? *previous : defaultPath(), folder, QStringLiteral("to custom path"));
}

Migration DataFolder::resetToDefault()
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    Migration migration;
    if (customPath_)
        migration = migrate(*customPath_, defaultPath(), QStringLiteral("from custom path back to default"));
    clearBookmark();
    return migration;
}

Migration DataFolder::migrate(const QString& source, const QString& destination, const QString& description)
{
    Migration migration;
    if (!QFileInfo(source).isDir()) {
        context_.console.failure(QStringLiteral("Migration: Source directory does not exist: ") + source);
        return migration;
    }
    if (!QDir().mkpath(destination))
        migration.error = destination + QStringLiteral(": the folder cannot be made");
    else
        moveProfiles(source, destination, migration);
    if (migration.error)
        context_.console.failure(
            QStringLiteral("Error migrating data %1: %2").arg(description, *migration.error));
    return migration;
}

void DataFolder::moveProfiles(const QString& source, const QString& destination, Migration& migration)
{
    auto entries = listFolder(source);
    if (!entries) {
        migration.error = entries.error().text();
        return;
    }
    std::ranges::sort(*entries, {}, &FolderEntry::name);
    for (const FolderEntry& entry : *entries) {
        const QString from = source + u'/' + entry.name;
        const QString to = destination + u'/' + entry.name;
        if (!entry.isFolder || !isProfileFolder(from))
            continue;
        if (QFileInfo::exists(to)) {
            migration.stayed += entry.name;
            continue;
        }
        if (const auto moved = moveFile(from, to); !moved) {
            migration.error = moved.error().text();
            return;
        }
        context_.writer.conflicts().relocate(from, to);
        migration.moved += entry.name;
    }
}

} // namespace ledra
