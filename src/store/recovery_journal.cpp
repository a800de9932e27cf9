#include "store/recovery_journal.h"

#include "platform/process_identity.h"
#include "store/json_reader.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDateTime>
#include <QFileInfo>

namespace ledra {

namespace {

constexpr quint32 magic = 0x4C454A31; // "LEJ1", the first layout
constexpr auto streamVersion = QDataStream::Qt_6_4;
constexpr qint64 largestEntry = 2 * largestRecordFile;
const QString entrySuffix = QStringLiteral(".entry");

QByteArray encoded(const JournalEntry& entry)
{
    QByteArray fields;
    QDataStream stream(&fields, QIODevice::WriteOnly);
    stream.setVersion(streamVersion);
    stream << entry.target << entry.oldHash << entry.content << entry.moved << entry.movedHash << entry.owner;

    QByteArray whole;
    QDataStream frame(&whole, QIODevice::WriteOnly);
    frame.setVersion(streamVersion);
    frame << magic << fields << journalHash(fields);
    return whole;
}

std::optional<JournalEntry> decoded(const QByteArray& whole)
{
    quint32 mark = 0;
    QByteArray fields;
    QByteArray hash;
    QDataStream frame(whole);
    frame.setVersion(streamVersion);
    frame >> mark >> fields >> hash;
    if (frame.status() != QDataStream::Ok || mark != magic || hash != journalHash(fields))
        return std::nullopt;

    JournalEntry entry;
    QDataStream stream(fields);
    stream.setVersion(streamVersion);
    stream >> entry.target >> entry.oldHash >> entry.content >> entry.moved >> entry.movedHash >> entry.owner;
    return stream.status() == QDataStream::Ok ? std::optional(std::move(entry)) : std::nullopt;
}

} // namespace

QByteArray journalHash(const QByteArray& content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256);
}

RecoveryJournal::RecoveryJournal(QString folder, FileDevice& device, Console& console)
    : folder_(std::move(folder)), device_(device), console_(console)
{}

std::expected<QString, FileError> RecoveryJournal::begin(const JournalEntry& entry)
{
    // Entries sort by age, so that recovery can begin with the latest.
    const QString name = QStringLiteral("%1-%2-%3")
                             .arg(QDateTime::currentMSecsSinceEpoch(), 15, 10, QChar(u'0'))
                             .arg(nextEntry_++, 9, 10, QChar(u'0'))
                             .arg(entry.owner.section(u':', 1, 1));
    const QString draft = folder_ + u'/' + name + QStringLiteral(".draft");
    QString file = folder_ + u'/' + name + entrySuffix;
    std::expected<void, FileError> step = device_.makeFolder(folder_);
    if (step)
        step = device_.write(draft, encoded(entry));
    if (step)
        step = device_.sync(draft);
    if (step)
        step = device_.rename(draft, file);
    if (step)
        step = device_.syncFolder(folder_);
    if (step)
        return file;
    for (const QString& left : {draft, file})
        (void)device_.remove(left); // it has one of the names at most
    return std::unexpected(step.error());
}

void RecoveryJournal::end(const QString& entryFile)
{
    // An entry that stays is harmless: its target holds the new version, and the next start removes it.
    if (const auto removed = device_.remove(entryFile); !removed)
        console_.information(QStringLiteral("RecoveryJournal: ") + removed.error().text());
}

void RecoveryJournal::recover()
{
    QStringList names = device_.files(folder_);
    std::reverse(names.begin(), names.end());
    for (const QString& name : names) {
        const QString file = folder_ + u'/' + name;
        if (name.endsWith(QStringLiteral(".draft")))
            end(file); // its target was never touched
        if (!name.endsWith(entrySuffix))
            continue;
        const auto whole = device_.read(file, largestEntry);
        const std::optional<JournalEntry> entry =
            whole ? decoded(whole->value_or(QByteArray())) : std::nullopt;
        if (!entry)
            console_.failure(QStringLiteral("RecoveryJournal: cannot read ") + file);
        else if (!isAlive(entry->owner) && settle(*entry))
            end(file);
    }
}

bool RecoveryJournal::settle(const JournalEntry& entry)
{
    const auto current = device_.read(entry.target, largestRecordFile);
    if (!current)
        return current.error().reason.startsWith(
            QStringLiteral("larger")); // then it is not what was being written
    const QString folder = QFileInfo(entry.target).path();
    const std::optional<QByteArray>& content = *current;
    if (!content) {
        (void)device_.syncFolder(folder); // which may be gone as well
        return true;
    }
    const QByteArray hash = journalHash(*content);
    const bool isNew = hash == journalHash(entry.content);
    const bool isBeginningOfNew = entry.content.startsWith(*content); // all but the last line feed, say
    const bool isTorn = !isNew && hash != entry.oldHash && (isBeginningOfNew || !isWholeJson(*content));
    // Whatever it holds, its writer may have died before it was durable; without the entry it must be.
    std::expected<void, FileError> step;
    if (isTorn)
        step = device_.write(entry.target, entry.content);
    if (step)
        step = device_.sync(entry.target);
    if (step)
        step = device_.syncFolder(folder);
    if (!step) {
        console_.failure(QStringLiteral("RecoveryJournal: ") + step.error().text());
        return false;
    }
    if (isTorn)
        console_.information(QStringLiteral("RecoveryJournal: finished the interrupted saving of ") +
                             entry.target);
    return isNew || isTorn ? finishMove(entry) : true;
}

bool RecoveryJournal::finishMove(const JournalEntry& entry)
{
    if (entry.moved.isEmpty())
        return true;
    const auto left = device_.read(entry.moved, largestRecordFile);
    const std::optional<QByteArray> content = left.value_or(std::nullopt);
    const bool isLeft = content && journalHash(*content) == entry.movedHash;
    if (isLeft && !device_.remove(entry.moved))
        return false;
    const bool isSynced = device_.syncFolder(QFileInfo(entry.moved).path()).has_value();
    return isSynced || !isLeft; // the folder of a file that has gone may be gone as well
}

} // namespace ledra
