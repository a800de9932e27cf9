#pragma once

#include "model/text_enum.h"
#include "platform/console.h"
#include "platform/file_io.h"
#include "platform/interprocess_lock.h"
#include "store/store_context.h"

#include <QDateTime>
#include <QString>

#include <expected>
#include <functional>
#include <optional>
#include <vector>

namespace ledra {

/// How often a backup is made. The raw value is the interval in days.
enum class BackupFrequency { daily, every3Days, weekly, monthly };

template <>
inline constexpr std::array enumTexts<BackupFrequency> = {
    EnumText{BackupFrequency::daily, "1", "Daily"},
    EnumText{BackupFrequency::every3Days, "3", "Every 3 Days"},
    EnumText{BackupFrequency::weekly, "7", "Weekly"},
    EnumText{BackupFrequency::monthly, "30", "Monthly"},
};

int intervalDays(BackupFrequency frequency);

/// How many of the newest backups are kept.
enum class BackupRetention { ten, twenty, thirty, fifty, hundred, all };

template <>
inline constexpr std::array enumTexts<BackupRetention> = {
    EnumText{BackupRetention::ten, "ten", "10 Backups"},
    EnumText{BackupRetention::twenty, "twenty", "20 Backups"},
    EnumText{BackupRetention::thirty, "thirty", "30 Backups"},
    EnumText{BackupRetention::fifty, "fifty", "50 Backups"},
    EnumText{BackupRetention::hundred, "hundred", "100 Backups"},
    EnumText{BackupRetention::all, "all", "All Backups"},
};

/// The number; nothing for all.
std::optional<std::size_t> keptBackups(BackupRetention retention);

/// A backup in the folder.
struct Backup
{
    QString path;
    QDateTime created; ///< local time
    qint64 bytes = 0;
};

/// Whether so many whole days have passed since the newest backup; without one it is time as well.
bool isBackupDue(const std::optional<QDateTime>& newest, const QDateTime& now, BackupFrequency frequency);

/// When a file was made: as its file system says; where that does not tell, the day in the name of a backup,
/// else the time of its last change.
QDateTime creationDate(const QString& path);

/// Keeps backups of all profiles in "Backups" of the support folder: at most one a day, each a data file.
/// Failures are told on the console and never stop anybody.
class BackupManager
{
public:
    /// Writes all profiles into a data file, under a name that does not end so until it is whole.
    using ArchiveWriter = std::function<std::expected<void, QString>(const QString& target)>;
    using CreationDate = std::function<QDateTime(const QString& path)>;

    BackupManager(StoreContext& context, ArchiveWriter write, CreationDate created = creationDate);

    /// What came of a try. A backup is made even where the oldest ones could not be removed after it.
    enum class Outcome { made, notDue, madeToday, failed };

    /// Makes today's backup if it is time, then removes the oldest ones.
    Outcome backUpIfDue();

    /// Makes today's backup whether it is time or not.
    Outcome backUp();

    /// Newest first; none while there is no folder.
    [[nodiscard]] std::expected<std::vector<Backup>, FileError> backups() const;

    QString folder() const { return folder_; }
    QString todaysFile() const;

    BackupFrequency frequency() const;
    BackupRetention retention() const;

private:
    Outcome write();
    Outcome failed(const QString& why);
    void removeLeftovers() const;
    [[nodiscard]] std::expected<void, FileError> prune() const;

    StoreContext& context_;
    QString folder_;
    ArchiveWriter write_;
    CreationDate created_;
    InterprocessLock lock_; ///< between all that make backups
};

} // namespace ledra
