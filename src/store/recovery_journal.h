#pragma once

#include "platform/console.h"
#include "platform/file_device.h"

#include <QByteArray>
#include <QString>

#include <expected>
#include <optional>

namespace ledra {

/// What a save is about to do.
struct JournalEntry
{
    QString target;
    QByteArray oldHash; ///< of the target's content so far; empty: there is no such file
    QByteArray content; ///< the new one
    QString moved;      ///< the file whose place the target takes, and its hash; empty: none
    QByteArray movedHash;
    QString owner; ///< the writing process, as processIdentity() names it
};

/// SHA-256; the mark by which a content is recognised in another process.
QByteArray journalHash(const QByteArray& content);

/// The saves under way, one file each in "Journal". An entry is durable before its target is touched and goes
/// when the target is durable. A process that dies in between leaves its entry behind, and the next start
/// finishes the work. All calls are made under the writers' lock.
class RecoveryJournal
{
public:
    RecoveryJournal(QString folder, FileDevice& device, Console& console);

    /// Makes an entry durable; returns its file.
    [[nodiscard]] std::expected<QString, FileError> begin(const JournalEntry& entry);

    /// The save is durable, or was never begun; the entry goes.
    void end(const QString& entryFile);

    /// Looks after the entries whose owner is no longer alive, the latest first. A target that holds the old
    /// or the new version, or a third one that is a whole JSON document, is left alone; only a torn one is
    /// written again.
    void recover();

private:
    bool settle(const JournalEntry& entry);
    bool finishMove(const JournalEntry& entry);

    QString folder_;
    FileDevice& device_;
    Console& console_;
    int nextEntry_ = 0;
};

} // namespace ledra
