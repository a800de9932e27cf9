#include "app/undoable_reminder_jobs.h"

#include "model/field_changes.h"

#include <QCoreApplication>
#include <QUndoCommand>

namespace ledra {

namespace {

// Tells these commands from those of records, whose typing has the id 1.
constexpr int typingId = 2;

/// A change of fields, which has been made when the command is pushed.
class EditReminderCommand final : public QUndoCommand
{
public:
    EditReminderCommand(ReminderManager& reminders, Reminder before, Reminder after, EditKind kind, int run)
        : reminders_(reminders),
          before_(std::move(before)),
          after_(std::move(after)),
          fields_(changedFields(before_, after_)),
          kind_(kind),
          run_(run)
    {
        setText(QCoreApplication::translate("UndoText", "Edit Reminder"));
    }

    void undo() override { apply(before_); }
    void redo() override
    {
        if (std::exchange(isMade_, false))
            return;
        apply(after_);
    }

    int id() const override { return kind_ == EditKind::typing ? typingId : -1; }

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next = static_cast<const EditReminderCommand*>(other); // of the same id()
        if (next->before_.id != before_.id || next->fields_ != fields_ || next->run_ != run_)
            return false;
        after_ = next->after_;
        fields_ = changedFields(before_, after_);
        setObsolete(fields_.none());
        return true;
    }

private:
    /// What fails has been told by the store.
    void apply(const Reminder& state) const
    {
        if (reminders_.find(state.id))
            (void)reminders_.edit(state.id,
                                  [&](Reminder& reminder) { copyFields(state, reminder, fields_); });
    }

    ReminderManager& reminders_;
    Reminder before_;
    Reminder after_;
    FieldSet<Reminder> fields_;
    EditKind kind_;
    int run_;
    bool isMade_ = true;
};

/// A reminder that was made or deleted, which has happened when the command is pushed.
class ReminderPresenceCommand final : public QUndoCommand
{
public:
    ReminderPresenceCommand(ReminderManager& reminders, Reminder reminder, bool isPresent, const char* text)
        : reminders_(reminders), reminder_(std::move(reminder)), isPresent_(isPresent)
    {
        setText(QCoreApplication::translate("UndoText", text));
    }

    void undo() override { apply(!isPresent_); }
    void redo() override
    {
        if (std::exchange(isMade_, false))
            return;
        apply(isPresent_);
    }

private:
    /// What fails has been told by the store or shows in the list.
    void apply(bool isPresent)
    {
        const ReminderPtr present = reminders_.find(reminder_.id);
        if (isPresent && !present) {
            (void)reminders_.insert(reminder_);
        } else if (!isPresent && present) {
            reminder_ = **present; // as it is by now
            (void)reminders_.remove(reminder_.id);
        }
    }

    ReminderManager& reminders_;
    Reminder reminder_;
    bool isPresent_; ///< after the command
    bool isMade_ = true;
};

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
        stack_.push(new EditReminderCommand(reminders_, before, after, kind, run)); // the stack owns it
    return edited;
}

JobResult<ReminderPtr> UndoableReminderJobs::create(const QUuid& invoiceId, Force force)
{
    JobResult<ReminderPtr> made = jobs_.create(invoiceId, force);
    if (made)
        stack_.push(new ReminderPresenceCommand(reminders_, ***made, true,
                                                QT_TRANSLATE_NOOP("UndoText", "Create Payment Reminder")));
    return made;
}

JobResult<void> UndoableReminderJobs::remove(const QUuid& id)
{
    const ReminderPtr reminder = reminders_.find(id);
    const Reminder before = reminder ? **reminder : Reminder();
    if (const JobResult<void> removed = jobs_.remove(id); !removed)
        return removed;
    stack_.push(new ReminderPresenceCommand(reminders_, before, false,
                                            QT_TRANSLATE_NOOP("UndoText", "Delete Reminder")));
    return {};
}

} // namespace ledra
