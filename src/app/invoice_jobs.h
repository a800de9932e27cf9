#pragma once

#include "app/job_result.h"
#include "exchange/invoice_importer.h"
#include "store/invoice_manager.h"
#include "store/profile_manager.h"

#include <functional>

namespace ledra {

/// What users do to invoices, quotes and cancellations. The rules that no front end may forget are kept here:
///
/// A record that is sent, paid or cancelled is a document that others hold. It is edited or deleted only with
/// force; its status, its note and its reference stay free.
class InvoiceJobs
{
public:
    InvoiceJobs(InvoiceManager& invoices, const ProfileManager& profiles)
        : invoices_(invoices), profiles_(profiles)
    {}

    /// @param fill completes the new record before it is written
    JobResult<InvoicePtr> create(InvoiceType type, const InvoiceManager::Adjust& fill = {});

    JobResult<InvoicePtr> duplicate(const QUuid& id);
    JobResult<InvoicePtr> cancel(const QUuid& id);  ///< makes the cancellation; invoices only
    JobResult<InvoicePtr> convert(const QUuid& id); ///< makes the invoice; quotes only

    /// Takes in an exported PDF or an e-invoice.
    JobResult<ImportedInvoice> importFile(const QString& path);

    JobResult<void> edit(const QUuid& id, const std::function<void(Invoice&)>& change, Force force);

    /// The same for a change of many, such as typing: it is seen at once and written a little later.
    JobResult<void> editSoon(const QUuid& id, const std::function<void(Invoice&)>& change, Force force);

    JobResult<void> refreshNumberSettings(const QUuid& id, Force force);
    JobResult<void> setStatus(const QUuid& id, Status status);

    /// Writes all that is not written yet.
    JobResult<void> finishWriting() { return jobResult(invoices_.writeUnsaved()); }

    /// To the trash.
    JobResult<void> remove(const QUuid& id, Force force);

    /// Why nothing can be written to the active profile at all; nothing when it can.
    std::optional<JobFailure> writeProblem() const;

    /// What a record answers with that is not to be changed any more.
    JobFailure guarded(const InvoicePtr& record) const;

private:
    JobResult<InvoicePtr> find(const QUuid& id) const;
    JobResult<void> mayEdit(const InvoicePtr& record, const std::function<void(Invoice&)>& change,
                            Force force) const;

    InvoiceManager& invoices_;
    const ProfileManager& profiles_;
};

/// Whether a record is one that others hold.
bool isGuarded(const Invoice& invoice);

} // namespace ledra
