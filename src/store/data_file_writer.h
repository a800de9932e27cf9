#pragma once

#include "platform/console.h"
#include "platform/file_device.h"
#include "platform/interprocess_lock.h"
#include "platform/process_identity.h"
#include "store/conflict_store.h"
#include "store/content_mark.h"
#include "store/recovery_journal.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <expected>
#include <optional>

namespace ledra {

/// Writes data files; every data file goes through here.
///
/// A file is written in place, so that a sync service sees one file changing and never two. So that nothing
/// is lost even when the program or the computer stops half-way, the new content first goes into the recovery
/// journal. A version that somebody else wrote since the file was read is kept under "Conflicts" before it is
/// overwritten, and the console says so.
class DataFileWriter
{
public:
    /// @param support the application's support folder, which holds "Journal" and "Conflicts"
    /// @param owner the process in whose name it writes
    DataFileWriter(const QString& support, FileDevice& device, Console& console,
                   QString owner = processIdentity());

    /// One write.
    struct Order
    {
        QString path;
        QByteArray content;
        std::optional<ContentMark> known =
            {}; ///< of the content that the new one was made from; none: a new file
        QString moved =
            {}; ///< the file that has held the record so far, of which `known` speaks then; it goes
    };

    /// The mark of what the file now holds.
    [[nodiscard]] std::expected<ContentMark, FileError> write(const Order& order);

    /// The same for a file that others may read at any moment: the new version takes the old one's place in
    /// one step.
    [[nodiscard]] std::expected<ContentMark, FileError> writeAtomically(const Order& order);

    /// Holds other processes off as long as the guard lives: for reading, deciding and writing as one step.
    [[nodiscard]] InterprocessLock::Guard lock() { return lock_.hold(); }

    /// Finishes what writers that are no longer alive left half-done; once, at start.
    void recover();

    ConflictStore& conflicts() { return conflicts_; }

private:
    using Content = std::optional<QByteArray>;

    /// What lay there before a write.
    struct Before
    {
        Content target;
        Content moved;
    };

    std::expected<Before, FileError> prepare(const Order& order);
    std::expected<Content, FileError> readOrKeep(const QString& path, const Order& order);
    std::expected<void, FileError> putInPlace(const Order& order, bool isNew);
    bool putBack(const QString& path, const Content& before);

    FileDevice& device_;
    Console& console_;
    QString owner_;
    InterprocessLock lock_;
    RecoveryJournal journal_;
    ConflictStore conflicts_;
    QHash<QString, QString>
        unfinished_; ///< journal entries of targets that could neither be written nor put back
};

} // namespace ledra
