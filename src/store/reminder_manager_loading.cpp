#include "platform/folder_listing.h"
#include "platform/folder_watcher.h"
#include "store/reminder_json.h"
#include "store/reminder_manager.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace ledra {

namespace {

const QString extension = QStringLiteral(".json");

QString idStart(const QUuid& id)
{
    constexpr qsizetype length = 6;
    return idText(id).left(length);
}

/// Whether a name has one of the forms of reminderFileName(), whatever invoice it is of.
bool isOfTodaysScheme(const QString& name)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\d{4}-\\d{2}-\\d{2}-([0-9A-F]{6}-reminder(-\\d+)?|reminder-(\\d+-)?[0-9A-F]{6})"
                       "\\.json$"));
    return pattern.match(name).hasMatch();
}

bool comesBefore(const ReminderPtr& left, const ReminderPtr& right)
{
    const Reminder& a = **left;
    const Reminder& b = **right;
    if (a.date != b.date)
        return a.date > b.date;
    return a.number != b.number ? a.number > b.number : a.id < b.id;
}

} // namespace

bool isReminderFileName(const QString& name)
{
    return name.endsWith(extension, Qt::CaseInsensitive) &&
           name.contains(QStringLiteral("reminder"), Qt::CaseInsensitive);
}

QString reminderFileName(const Reminder& reminder, const QString& invoiceStem)
{
    const QString stage =
        reminder.number == 0 ? QString() : QStringLiteral("-") + QString::number(reminder.number);
    if (!invoiceStem.isEmpty())
        return invoiceStem + QStringLiteral("-reminder") + stage + extension;
    return dayText(reminder.date) + QStringLiteral("-reminder") + stage + u'-' + idStart(reminder.id) +
           extension;
}

/// What the invoice's file is called. Not worked out from its date where there is a file: the local day of a
/// moment changes with the time zone, and two computers would rename in turns.
QString ReminderManager::invoiceStem(const Reminder& reminder) const
{
    const InvoicePtr invoice = invoices_.find(reminder.invoiceId);
    if (!invoice)
        return {};
    const QString day = QFileInfo(invoices_.filePath(reminder.invoiceId)).fileName().left(10);
    const bool isDay = dayFromText(day).has_value();
    return (isDay ? day : dayText((*invoice)->date.localDate())) + u'-' + idStart(reminder.invoiceId);
}

void ReminderManager::open()
{
    const ProfilePtr& profile = profiles_.activeProfile();
    const std::optional<QString> place = profile ? profiles_.profilePlace(**profile) : std::nullopt;
    folder_ = place ? *place + QStringLiteral("/Invoices") : QString();
    entries_.clear();
    idOfFile_.clear();
    reminders_.clear();
    isLoaded_ = false;
    watcher_.reset();
    if (context_.watchesFolders && !folder_.isEmpty()) {
        watcher_ = std::make_unique<FolderWatcher>(folder_);
        connect(watcher_.get(), &FolderWatcher::changed, this, &ReminderManager::follow,
                Qt::QueuedConnection);
    }
    Q_EMIT refreshed();
}

void ReminderManager::ensureLoaded()
{
    if (!isLoaded_)
        load();
}

void ReminderManager::load()
{
    isLoaded_ = true;
    QStringList names = idOfFile_.keys();
    if (const auto entries = listFolder(folder_); entries && !folder_.isEmpty()) {
        for (const FolderEntry& entry : *entries) {
            if (!entry.isFolder && isReminderFileName(entry.name) && !idOfFile_.contains(entry.name))
                names += entry.name;
        }
    }
    names.sort();
    if (look(names))
        publish();
    renameEntries();
}

void ReminderManager::follow(const FolderChanges& changes)
{
    if (!isLoaded_)
        return; // nobody has asked yet
    if (changes.rescan) {
        load();
        return;
    }
    QStringList names(changes.names.begin(), changes.names.end());
    names.removeIf([](const QString& name) { return !isReminderFileName(name); });
    if (look(names))
        publish();
}

/// Reads these files, or notes that they have gone; says whether anything is new.
bool ReminderManager::look(const QStringList& names)
{
    if (invoicesFolderProblem(folder_))
        return false; // it is away, and has taken nothing along
    bool isNew = false;
    for (const QString& name : names)
        isNew = (QFileInfo::exists(path(name)) ? takeFile(name) : dropFile(name)) || isNew;
    return isNew;
}

bool ReminderManager::takeFile(const QString& name)
{
    const InterprocessLock::Guard guard = context_.writer.lock(); // nobody is half-way through writing it
    const auto content = readFile(path(name), largestRecordFile);
    const auto reminder = content ? decodeReminder(*content, context_.newRecordValues())
                                  : Decoded<Reminder>(std::unexpected(DecodingError{}));
    if (!reminder) {
        context_.console.failure(
            QStringLiteral("Error loading reminder from %1: %2")
                .arg(path(name), content ? reminder.error().text() : content.error().reason));
        return false;
    }
    const QUuid known = idOfFile_.value(name);
    Reminder found = *reminder;
    const bool isSameFile = !known.isNull() && entries_.contains(known);
    if (isSameFile && known != found.id)
        dropFile(name); // it holds another reminder now
    Entry& entry = entries_[found.id];
    const bool isSecond =
        !entry.fileName.isEmpty() && entry.fileName != name && QFileInfo::exists(path(entry.fileName));
    if (isSecond && name != reminderFileName(found, invoiceStem(found))) {
        context_.console.failure(
            QStringLiteral("%1: a second file of the reminder in %2; it is left as it is")
                .arg(path(name), entry.fileName));
        return false;
    }
    const ContentMark mark = ContentMark::of(*content);
    if (entry.record && entry.fileName == name && entry.mark == mark)
        return false;
    idOfFile_.remove(entry.fileName);
    idOfFile_.insert(name, found.id);
    entry.fileName = name;
    entry.mark = mark;
    if (entry.record)
        entry.record->edit([&](Reminder& record) { record = found; });
    else
        entry.record = std::make_shared<ReminderRecord>(found);
    return true;
}

bool ReminderManager::dropFile(const QString& name)
{
    const QUuid id = idOfFile_.take(name);
    const auto entry = entries_.constFind(id);
    if (entry == entries_.constEnd() || entry->fileName != name)
        return false;
    entries_.erase(entry);
    return true;
}

/// Gives files the names that they would get now: those of an older scheme, and those whose invoice has
/// moved. A reminder whose invoice is gone keeps any name of today's scheme.
void ReminderManager::renameEntries()
{
    for (Entry& entry : entries_) {
        const bool hasInvoice = !invoiceStem(**entry.record).isEmpty();
        if (!hasInvoice && isOfTodaysScheme(entry.fileName))
            continue;
        if (const QString name = fileNameFor(entry); name != entry.fileName)
            moveFile(entry, name);
    }
}

/// As it is: a newer version of the program may have written more into it than this one knows.
void ReminderManager::moveFile(Entry& entry, const QString& name)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    const auto content = readFile(path(entry.fileName), largestRecordFile);
    if (!content || ContentMark::of(*content) != entry.mark)
        return; // somebody else is at it; the watcher will tell
    const auto moved = context_.writer.write(
        {.path = path(name), .content = *content, .known = entry.mark, .moved = path(entry.fileName)});
    if (!moved) {
        context_.console.failure(QStringLiteral("Error saving reminder: ") + moved.error().text());
        return;
    }
    idOfFile_.remove(entry.fileName);
    idOfFile_.insert(name, (*entry.record)->id);
    entry.fileName = name;
}

void ReminderManager::publish()
{
    reminders_.clear();
    reminders_.reserve(static_cast<std::size_t>(entries_.size()));
    for (const Entry& entry : std::as_const(entries_))
        reminders_.push_back(entry.record);
    std::ranges::sort(reminders_, comesBefore);
    Q_EMIT refreshed();
}

} // namespace ledra
