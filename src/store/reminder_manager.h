#pragma once

#include "model/reminder.h"
#include "store/content_mark.h"
#include "store/invoice_manager.h"
#include "store/profile_manager.h"
#include "store/store_failure.h"

#include <QHash>
#include <QObject>
#include <QSet>

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ledra {

class FolderWatcher;
struct FolderChanges;

/// A reminder as others see it.
using ReminderPtr = std::shared_ptr<const ReminderRecord>;

/// Whether a file of this name holds a reminder.
bool isReminderFileName(const QString& name);

/// The name that a reminder's file gets: after the file of its invoice ("2026-03-05-9F2C41"), or after itself
/// where there is none.
QString reminderFileName(const Reminder& reminder, const QString& invoiceStem);

/// The reminders of the active profile, which lie among its invoices.
///
/// They are read when they are first asked for. A file under a name of an older scheme gets its name of now;
/// when an invoice's file moves, those of its reminders follow.
class ReminderManager : public QObject
{
    Q_OBJECT

public:
    /// Follows the active profile. Both stores must outlive this one.
    ReminderManager(StoreContext& context, ProfileManager& profiles, InvoiceManager& invoices);
    ~ReminderManager() override;

    /// The latest first.
    const std::vector<ReminderPtr>& reminders();

    /// Those of an invoice, in the order of their stages.
    std::vector<ReminderPtr> remindersOf(const QUuid& invoiceId);
    ReminderPtr find(const QUuid& id);
    QString filePath(const QUuid& id); ///< empty for an unknown one

    /// Reads the folder anew.
    void load();

    /// Makes the next reminder of an invoice and writes it. `adjust` changes it before that.
    using Adjust = std::function<void(Reminder&)>;
    std::expected<ReminderPtr, StoreFailure> create(const QUuid& invoiceId, const Adjust& adjust = {});

    /// Brings back a reminder that was deleted, under its id.
    std::expected<ReminderPtr, StoreFailure> insert(const Reminder& reminder);

    /// Changes a reminder as it is on disk now, and writes it.
    std::expected<void, StoreFailure> edit(const QUuid& id, const std::function<void(Reminder&)>& change);

    /// Writes a reminder as it is in memory.
    std::expected<void, StoreFailure> save(const QUuid& id);

    /// Moves the reminder's file to the trash.
    std::expected<void, StoreFailure> remove(const QUuid& id);

Q_SIGNALS:
    void refreshed(); ///< the list or a reminder in it is new

private:
    struct Entry
    {
        std::shared_ptr<ReminderRecord> record;
        QString fileName; ///< empty before it is written
        ContentMark mark;
    };

    void open();
    void ensureLoaded();
    void follow(const FolderChanges& changes);
    bool look(const QStringList& names);
    bool takeFile(const QString& name);
    bool dropFile(const QString& name);
    void renameEntries();
    void moveFile(Entry& entry, const QString& name);
    void publish();
    QString path(const QString& name) const { return folder_ + u'/' + name; }
    QString invoiceStem(const Reminder& reminder) const;
    QString fileNameFor(const Entry& entry) const;
    std::expected<ReminderPtr, StoreFailure> add(const Reminder& reminder);
    std::expected<void, StoreFailure> write(Entry& entry);

    StoreContext& context_;
    ProfileManager& profiles_;
    InvoiceManager& invoices_;
    QString folder_; ///< empty without an active profile
    bool isLoaded_ = false;
    QHash<QUuid, Entry> entries_;
    QHash<QString, QUuid> idOfFile_;
    std::vector<ReminderPtr> reminders_;
    std::unique_ptr<FolderWatcher> watcher_;
};

} // namespace ledra
