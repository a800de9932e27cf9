#include "app/reminder_jobs.h"

namespace ledra {

namespace {

JobFailure noInvoice()
{
    return {.text = QStringLiteral("only an invoice can be reminded of")};
}

} // namespace

JobResult<ReminderPtr> ReminderJobs::create(const QUuid& invoiceId, Force force,
                                            const ReminderManager::Adjust& adjust)
{
    if (const auto problem = invoiceJobs_.writeProblem())
        return std::unexpected(*problem);
    const InvoicePtr invoice = invoices_.find(invoiceId);
    if (!invoice || (*invoice)->type != InvoiceType::invoice)
        return std::unexpected(noInvoice());
    if (force == Force::no && (*invoice)->status != Status::sent)
        return std::unexpected(JobFailure{JobFailure::Kind::guarded,
                                          QStringLiteral("the invoice is %1; only a sent one is reminded of")
                                              .arg(displayText((*invoice)->status).toLower())});
    return jobResult(reminders_.create(invoiceId, adjust));
}

JobResult<void> ReminderJobs::edit(const QUuid& id, const std::function<void(Reminder&)>& change)
{
    if (const auto problem = invoiceJobs_.writeProblem())
        return std::unexpected(*problem);
    return jobResult(reminders_.edit(id, change));
}

JobResult<void> ReminderJobs::remove(const QUuid& id)
{
    if (const auto problem = invoiceJobs_.writeProblem())
        return std::unexpected(*problem);
    return jobResult(reminders_.remove(id));
}

} // namespace ledra
