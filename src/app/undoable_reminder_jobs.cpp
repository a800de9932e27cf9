#include "app/undoable_reminder_jobs.h"

#include "app/undo_commands.h"

namespace ledra {

namespace {

// Tells these steps from those of records, whose typing has the id 1.
constexpr int typingId = 2;

using ReminderPresence = PresenceStep<ReminderManager, Reminder>;

} // namespace

JobResult<void> UndoableReminderJobs::edit(const QUuid& id, const std::function<void(Reminder&)>& change,
                                           EditKind kind, int run)
{
    Reminder before; // as it is when the change is made, with what others have written meanwhile
    Reminder after;
    const JobResult<void> edited = jobs_.edit(id, [&](Reminder& reminder) {
        before = reminder;
        change(reminder);
        after = reminder;
    });
    // What could not be written is changed in memory all the same, and has its way back.
    if (before != after)
        stack_.push(new EditStep<Reminder>( // the stack owns it
            QT_TRANSLATE_NOOP("UndoText", "Edit Reminder"), before, after,
            {kind == EditKind::typing ? typingId : -1, run},
            [&reminders = reminders_](const Reminder&, const Reminder& to, const FieldSet<Reminder>& fields) {
                if (reminders.find(to.id))
                    (void)reminders.edit(to.id,
                                         [&](Reminder& reminder) { copyFields(to, reminder, fields); });
            }));
    return edited;
}

JobResult<ReminderPtr> UndoableReminderJobs::create(const QUuid& invoiceId, Force force)
{
    JobResult<ReminderPtr> made = jobs_.create(invoiceId, force);
    if (made)
        stack_.push(new ReminderPresence(QT_TRANSLATE_NOOP("UndoText", "Create Payment Reminder"), reminders_,
                                         ***made, true));
    return made;
}

JobResult<void> UndoableReminderJobs::remove(const QUuid& id)
{
    const ReminderPtr reminder = reminders_.find(id);
    const Reminder before = reminder ? **reminder : Reminder();
    if (const JobResult<void> removed = jobs_.remove(id); !removed)
        return removed;
    stack_.push(
        new ReminderPresence(QT_TRANSLATE_NOOP("UndoText", "Delete Reminder"), reminders_, before, false));
    return {};
}

} // namespace ledra
