#include "store/data_file_writer.h"

#include "store/json_reader.h"

#include <QFileInfo>

namespace ledra {

DataFileWriter::DataFileWriter(const QString& support, FileDevice& device, Console& console, QString owner)
    : device_(device),
      console_(console),
      owner_(std::move(owner)),
      lock_(support + QStringLiteral("/Journal/lock")),
      journal_(support + QStringLiteral("/Journal"), device, console),
      conflicts_(support + QStringLiteral("/Conflicts"), device)
{}

void DataFileWriter::recover()
{
    const InterprocessLock::Guard guard = lock();
    journal_.recover();
}

std::expected<DataFileWriter::Before, FileError> DataFileWriter::prepare(const Order& order)
{
    std::expected<Content, FileError> target = readOrKeep(order.path, order);
    std::expected<Content, FileError> moved;
    if (target && !order.moved.isEmpty())
        moved = readOrKeep(order.moved, order);
    if (!target || !moved)
        return std::unexpected(target ? moved.error() : target.error());
    if (const auto made = device_.makeFolder(QFileInfo(order.path).path()); !made)
        return std::unexpected(made.error());
    return Before{std::move(*target), std::move(*moved)};
}

/// Returns what a file holds, after a foreign version in it has been kept.
std::expected<DataFileWriter::Content, FileError> DataFileWriter::readOrKeep(const QString& path,
                                                                             const Order& order)
{
    std::expected<Content, FileError> read = device_.read(path, largestRecordFile);
    const Content held = read.value_or(std::nullopt);
    if (!held)
        return read;
    const QByteArray& current = *held;
    const bool isOurs = current == order.content ||
                        (order.known && ContentMark::of(current) == *order.known) ||
                        (unfinished_.contains(path) && !isWholeJson(current));
    if (isOurs)
        return read;
    const std::expected<Conflict, FileError> kept = conflicts_.keep(path, current);
    if (!kept)
        return std::unexpected(kept.error());
    console_.failure(
        QStringLiteral("%1: changed by somebody else meanwhile; that version is kept as conflict %2")
            .arg(path)
            .arg(kept->number));
    return read;
}

std::expected<ContentMark, FileError> DataFileWriter::write(const Order& order)
{
    const InterprocessLock::Guard guard = lock();
    const std::expected<Before, FileError> before = prepare(order);
    if (!before)
        return std::unexpected(before.error());
    const ContentMark mark = ContentMark::of(order.content);
    if (before->target == order.content && order.moved.isEmpty())
        return mark;

    const auto hashOf = [](const Content& content) { return content ? journalHash(*content) : QByteArray(); };
    const std::expected<QString, FileError> entry = journal_.begin(
        {order.path, hashOf(before->target), order.content, order.moved, hashOf(before->moved), owner_});
    if (!entry)
        return std::unexpected(entry.error());
    if (const auto written = putInPlace(order, !before->target); !written) {
        if (putBack(order.path, before->target))
            journal_.end(*entry);
        else
            unfinished_.insert(order.path, *entry);
        return std::unexpected(written.error());
    }
    journal_.end(*entry);
    if (const QString stale = unfinished_.take(order.path); !stale.isEmpty())
        journal_.end(stale);
    return mark;
}

std::expected<void, FileError> DataFileWriter::putInPlace(const Order& order, bool isNew)
{
    std::expected<void, FileError> step = device_.write(order.path, order.content);
    if (step)
        step = device_.sync(order.path);
    if (step && isNew)
        step = device_.syncFolder(QFileInfo(order.path).path());
    if (!step || order.moved.isEmpty())
        return step;
    // The record is safe under its new name; should the old file not go, it is found as a second one of the
    // record.
    if (const auto removed = device_.remove(order.moved); !removed)
        console_.failure(removed.error().text());
    else if (const auto synced = device_.syncFolder(QFileInfo(order.moved).path()); !synced)
        console_.failure(synced.error().text());
    return {};
}

/// After a failure, the file as it was; says whether that worked.
bool DataFileWriter::putBack(const QString& path, const Content& before)
{
    const auto left = device_.read(path, largestRecordFile);
    if (left && *left == before) // it could not even be opened, say
        return true;
    if (before)
        return device_.write(path, *before).has_value() && device_.sync(path).has_value();
    return left && device_.remove(path) && device_.syncFolder(QFileInfo(path).path());
}

std::expected<ContentMark, FileError> DataFileWriter::writeAtomically(const Order& order)
{
    const InterprocessLock::Guard guard = lock();
    const std::expected<Before, FileError> before = prepare(order);
    if (!before)
        return std::unexpected(before.error());
    const QFileInfo target(order.path);
    const QString draft = target.path() + QStringLiteral("/.") + target.fileName() + QStringLiteral(".draft");
    std::expected<void, FileError> step = device_.write(draft, order.content);
    if (step)
        step = device_.sync(draft);
    if (step)
        step = device_.rename(draft, order.path);
    if (step)
        step = device_.syncFolder(target.path());
    if (!step) {
        (void)device_.remove(draft);                                        // it may not even exist
        return std::unexpected(FileError{order.path, step.error().reason}); // nobody knows of the draft
    }
    return ContentMark::of(order.content);
}

} // namespace ledra
