#include "store/reminder_manager.h"

#include "model/next_reminder.h"
#include "platform/folder_listing.h"
#include "platform/folder_watcher.h"
#include "store/reminder_json.h"

#include <QFileInfo>

namespace ledra {

namespace {

StoreFailure unknownReminder(const QUuid& id)
{
    return {QStringLiteral("no reminder has the id ") + idText(id), false};
}

} // namespace

ReminderManager::ReminderManager(StoreContext& context, ProfileManager& profiles, InvoiceManager& invoices)
    : context_(context), profiles_(profiles), invoices_(invoices)
{
    open();
    connect(&profiles, &ProfileManager::activeProfileChanged, this, &ReminderManager::open);
    connect(&profiles, &ProfileManager::dataFolderChanged, this, &ReminderManager::open);
    connect(&invoices, &InvoiceManager::saved, this, [this](const QUuid& id) {
        if (!remindersOf(id).empty())
            renameEntries(); // the invoice's file may have moved
    });
}

ReminderManager::~ReminderManager() = default;

std::expected<ReminderPtr, StoreFailure> ReminderManager::create(const QUuid& invoiceId, const Adjust& adjust)
{
    const ProfilePtr profile = profiles_.activeProfile();
    const InvoicePtr invoice = invoices_.find(invoiceId);
    if (!profile || !invoice)
        return std::unexpected(StoreFailure{QStringLiteral("no record has the id ") + idText(invoiceId)});
    // From looking which stages there are to writing the next one nobody else may make one.
    const InterprocessLock::Guard guard = context_.writer.lock();
    load();
    std::vector<Reminder> earlier;
    for (const ReminderPtr& reminder : remindersOf(invoiceId))
        earlier.push_back(**reminder);
    Reminder reminder = nextReminder(**invoice, **profile, earlier, context_.clock.now().localDate());
    if (adjust)
        adjust(reminder);
    reminder.id = context_.ids.newId();
    return add(reminder);
}

std::expected<ReminderPtr, StoreFailure> ReminderManager::insert(const Reminder& reminder)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    load();
    if (entries_.contains(reminder.id))
        return std::unexpected(StoreFailure{
            QStringLiteral("a reminder with the id %1 exists already").arg(idText(reminder.id))});
    return add(reminder);
}

std::expected<ReminderPtr, StoreFailure> ReminderManager::add(const Reminder& reminder)
{
    Entry& entry = entries_[reminder.id];
    entry.record = std::make_shared<ReminderRecord>(reminder);
    const auto written = write(entry);
    publish();
    if (!written)
        return std::unexpected(written.error());
    return find(reminder.id);
}

std::expected<void, StoreFailure> ReminderManager::edit(const QUuid& id,
                                                        const std::function<void(Reminder&)>& change)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    ensureLoaded();
    if (const QString name = entries_.value(id).fileName; !name.isEmpty())
        look({name});
    const auto entry = entries_.find(id);
    if (entry == entries_.end()) {
        publish(); // its file may have gone just now
        return std::unexpected(unknownReminder(id));
    }
    entry->record->edit(change);
    const auto written = write(*entry);
    publish();
    return written;
}

std::expected<void, StoreFailure> ReminderManager::save(const QUuid& id)
{
    ensureLoaded();
    const auto entry = entries_.find(id);
    return entry == entries_.end() ? std::unexpected(unknownReminder(id)) : write(*entry);
}

std::expected<void, StoreFailure> ReminderManager::remove(const QUuid& id)
{
    const InterprocessLock::Guard guard = context_.writer.lock();
    ensureLoaded();
    const auto entry = entries_.constFind(id);
    if (entry == entries_.constEnd())
        return std::unexpected(unknownReminder(id));
    const QString name = entry->fileName;
    if (!name.isEmpty() && QFileInfo::exists(path(name))) {
        if (const auto trashed = context_.trash.put(path(name)); !trashed)
            return std::unexpected(StoreFailure{trashed.error().text()});
    }
    idOfFile_.remove(name);
    entries_.remove(id);
    publish();
    return {};
}

/// The name under which a reminder is written: its proper one unless another reminder has that, as two of one
/// stage would.
QString ReminderManager::fileNameFor(const Entry& entry) const
{
    const Reminder& reminder = **entry.record;
    const auto isFree = [&](const QString& name) {
        return name == entry.fileName || (!idOfFile_.contains(name) && !QFileInfo::exists(path(name)));
    };
    QString proper = reminderFileName(reminder, invoiceStem(reminder));
    if (isFree(proper))
        return proper;
    return entry.fileName.isEmpty() ? reminderFileName(reminder, QString()) : entry.fileName;
}

std::expected<void, StoreFailure> ReminderManager::write(Entry& entry)
{
    const bool isNew = entry.fileName.isEmpty();
    const QString name = fileNameFor(entry);
    const auto fail = [this](const QString& reason) {
        const QString line = QStringLiteral("Error saving reminder: ") + reason;
        context_.console.failure(line);
        return std::unexpected(StoreFailure{line, true});
    };
    if (const std::optional<QString> problem = invoicesFolderProblem(folder_))
        return fail(*problem);
    const auto written = context_.writer.write({
        .path = path(name),
        .content = fileText(**entry.record),
        .known = isNew ? std::nullopt : std::optional(entry.mark),
        .moved = isNew || name == entry.fileName ? QString() : path(entry.fileName),
    });
    if (!written)
        return fail(written.error().text());
    idOfFile_.remove(entry.fileName);
    idOfFile_.insert(name, (*entry.record)->id);
    entry.fileName = name;
    entry.mark = *written;
    return {};
}

const std::vector<ReminderPtr>& ReminderManager::reminders()
{
    ensureLoaded();
    return reminders_;
}

std::vector<ReminderPtr> ReminderManager::remindersOf(const QUuid& invoiceId)
{
    ensureLoaded();
    std::vector<ReminderPtr> found;
    std::ranges::copy_if(reminders_, std::back_inserter(found),
                         [&](const ReminderPtr& reminder) { return (*reminder)->invoiceId == invoiceId; });
    std::ranges::stable_sort(found, {}, [](const ReminderPtr& reminder) { return (*reminder)->number; });
    return found;
}

ReminderPtr ReminderManager::find(const QUuid& id)
{
    ensureLoaded();
    const auto entry = entries_.constFind(id);
    return entry == entries_.constEnd() ? nullptr : entry->record;
}

QString ReminderManager::filePath(const QUuid& id)
{
    ensureLoaded();
    const QString name = entries_.value(id).fileName;
    return name.isEmpty() ? QString() : path(name);
}

} // namespace ledra
