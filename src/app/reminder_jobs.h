#pragma once

#include "app/invoice_jobs.h"
#include "app/job_result.h"
#include "store/reminder_manager.h"

#include <functional>

namespace ledra {

/// What users do to reminders. Only an invoice that has been sent is reminded of; with force any invoice is.
class ReminderJobs
{
public:
    ReminderJobs(ReminderManager& reminders, const InvoiceManager& invoices, const InvoiceJobs& invoiceJobs)
        : reminders_(reminders), invoices_(invoices), invoiceJobs_(invoiceJobs)
    {}

    /// Makes the next reminder of an invoice.
    ///
    /// @param adjust changes it before it is written
    JobResult<ReminderPtr> create(const QUuid& invoiceId, Force force,
                                  const ReminderManager::Adjust& adjust = {});

    JobResult<void> edit(const QUuid& id, const std::function<void(Reminder&)>& change);

    /// To the trash.
    JobResult<void> remove(const QUuid& id);

private:
    ReminderManager& reminders_;
    const InvoiceManager& invoices_;
    const InvoiceJobs& invoiceJobs_;
};

} // namespace ledra
