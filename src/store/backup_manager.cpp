#include "store/backup_manager.h"

#include "platform/folder_listing.h"
#include "platform/tree_copy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace ledra {

namespace {

const QString extension = QStringLiteral(".ledradata");
const QString namePrefix = QStringLiteral("Backup-");

} // namespace

int intervalDays(BackupFrequency frequency)
{
    const std::string_view days = rawValue(frequency);
    return QByteArray(days.data(), static_cast<qsizetype>(days.size())).toInt();
}

std::optional<std::size_t> keptBackups(BackupRetention retention)
{
    constexpr std::array<std::size_t, 5> counts = {10, 20, 30, 50, 100}; // in the order of the cases
    const auto position = static_cast<std::size_t>(retention);
    return position < counts.size() ? std::optional(counts.at(position)) : std::nullopt;
}

bool isBackupDue(const std::optional<QDateTime>& newest, const QDateTime& now, BackupFrequency frequency)
{
    return !newest || newest->addDays(intervalDays(frequency)) <= now;
}

QDateTime creationDate(const QString& path)
{
    const QFileInfo info(path);
    if (const QDateTime born = info.birthTime(); born.isValid())
        return born;
    const std::optional<QDate> day = dayFromText(info.completeBaseName().mid(namePrefix.size()));
    return day ? day->startOfDay() : info.lastModified();
}

BackupManager::BackupManager(StoreContext& context, ArchiveWriter write, CreationDate created)
    : context_(context),
      folder_(context.support + QStringLiteral("/Backups")),
      write_(std::move(write)),
      created_(std::move(created)),
      lock_(folder_ + QStringLiteral("/.lock"))
{}

BackupFrequency BackupManager::frequency() const
{
    const QString stored = context_.defaults.value(QStringLiteral("backupFrequency")).toString();
    return enumFromRawValue<BackupFrequency>(stored.toStdString()).value_or(BackupFrequency::daily);
}

BackupRetention BackupManager::retention() const
{
    const QString stored = context_.defaults.value(QStringLiteral("backupRetention")).toString();
    return enumFromRawValue<BackupRetention>(stored.toStdString()).value_or(BackupRetention::thirty);
}

QString BackupManager::todaysFile() const
{
    return folder_ + u'/' + namePrefix + dayText(context_.clock.now().localDate()) + extension;
}

std::expected<std::vector<Backup>, FileError> BackupManager::backups() const
{
    namespace fs = std::filesystem;
    std::error_code ignored; // whatever else is wrong with it shows as it is listed
    if (fs::status(nativePath(folder_), ignored).type() == fs::file_type::not_found)
        return {};
    const auto entries = listFolder(folder_);
    if (!entries)
        return std::unexpected(entries.error());
    std::vector<Backup> found;
    for (const FolderEntry& entry : *entries) {
        const QString path = folder_ + u'/' + entry.name;
        if (!entry.isFolder && !entry.name.startsWith(u'.') && entry.name.endsWith(extension))
            found.push_back({path, created_(path), QFileInfo(path).size()});
    }
    std::ranges::sort(found, [](const Backup& left, const Backup& right) {
        return left.created != right.created ? left.created > right.created : left.path > right.path;
    });
    return found;
}

BackupManager::Outcome BackupManager::backUpIfDue()
{
    QDir().mkpath(folder_);
    const InterprocessLock::Guard guard = lock_.hold();
    const auto existing = backups();
    if (!existing)
        return failed(existing.error().text());
    const auto newest = existing->empty() ? std::nullopt : std::optional(existing->front().created);
    if (!isBackupDue(newest, context_.clock.now().toLocal(), frequency()))
        return Outcome::notDue;
    return write();
}

BackupManager::Outcome BackupManager::backUp()
{
    QDir().mkpath(folder_);
    const InterprocessLock::Guard guard = lock_.hold();
    return write();
}

BackupManager::Outcome BackupManager::write()
{
    removeLeftovers();
    if (QFile::exists(todaysFile()))
        return Outcome::madeToday;
    if (const auto written = write_(todaysFile()); !written)
        return failed(written.error());
    if (const auto pruned = prune(); !pruned)
        context_.console.failure(QStringLiteral("BackupManager: Failed to remove excess backups: ") +
                                 pruned.error().text());
    return Outcome::made;
}

BackupManager::Outcome BackupManager::failed(const QString& why)
{
    context_.console.failure(QStringLiteral("BackupManager: Backup failed: ") + why);
    return Outcome::failed;
}

/// What backups that were killed left behind: names that go on after the extension. Whoever holds the lock is
/// the only one at work.
void BackupManager::removeLeftovers() const
{
    const QStringList names =
        QDir(folder_).entryList({namePrefix + u'*' + extension + QStringLiteral(".*")}, QDir::Files);
    for (const QString& name : names)
        QFile::remove(folder_ + u'/' + name);
}

/// Where one cannot be removed, the rest stays too.
std::expected<void, FileError> BackupManager::prune() const
{
    const std::optional<std::size_t> kept = keptBackups(retention());
    if (!kept)
        return {};
    const auto existing = backups();
    if (!existing)
        return std::unexpected(existing.error());
    for (std::size_t position = *kept; position < existing->size(); ++position) {
        QFile file((*existing)[position].path);
        if (!file.remove())
            return std::unexpected(FileError{file.fileName(), file.errorString()});
    }
    return {};
}

} // namespace ledra
