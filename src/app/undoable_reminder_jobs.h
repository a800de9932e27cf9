#pragma once

#include "app/reminder_jobs.h"
#include "app/undoable_jobs.h"

namespace ledra {

/// What users do to reminders in a window, each with its way back: ReminderJobs with a memory, under the
/// rules of UndoableJobs.
class UndoableReminderJobs
{
public:
    UndoableReminderJobs(ReminderManager& reminders, ReminderJobs& jobs, QUndoStack& stack)
        : reminders_(reminders), jobs_(jobs), stack_(stack)
    {}

    /// @param run letters of one run of typing are one step, so that a long letter is not taken back at once
    JobResult<void> edit(const QUuid& id, const std::function<void(Reminder&)>& change, EditKind kind,
                         int run = 0);

    /// Going back moves the new reminder to the trash, going on brings the same one back.
    JobResult<ReminderPtr> create(const QUuid& invoiceId, Force force);

    /// To the trash; going back brings it out of there under its id.
    JobResult<void> remove(const QUuid& id);

private:
    ReminderManager& reminders_;
    ReminderJobs& jobs_;
    QUndoStack& stack_;
};

} // namespace ledra
