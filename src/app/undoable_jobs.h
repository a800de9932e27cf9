#pragma once

#include "app/invoice_jobs.h"

#include <QUndoStack>

#include <memory>

namespace ledra {

/// How a change comes about, which decides what one step back takes back.
enum class EditKind {
    single, ///< a choice, a date, a pasted text: a step of its own
    typing, ///< letter by letter: changes of the same fields of a record are one step while nothing else
            ///< happens
};

/// Several changes that are one step on the undo stack in force. It is there when this object goes, if
/// anything has changed.
class UndoStep
{
public:
    /// @param text what is done, as users read it
    UndoStep(InvoiceManager& invoices, const QString& text);
    ~UndoStep();
    UndoStep(const UndoStep&) = delete;
    UndoStep& operator=(const UndoStep&) = delete;

    // To be told of what has been done.
    void made(const Invoice& record);
    void edited(const Invoice& before, const Invoice& after);

private:
    InvoiceManager& invoices_;
    std::unique_ptr<QUndoCommand> changes_;
};

/// What users do to records in a window, each with its way back on the undo stack in force: InvoiceJobs with
/// a memory. A step takes back the fields that it changed and no others, so that what somebody else has
/// changed meanwhile stays. A step whose record is gone does nothing.
class UndoableJobs
{
public:
    UndoableJobs(InvoiceManager& invoices, InvoiceJobs& jobs) : invoices_(invoices), jobs_(jobs) {}

    /// Written a little later, as typing goes on.
    JobResult<void> edit(const QUuid& id, const std::function<void(Invoice&)>& change, EditKind kind,
                         Force force = Force::no);

    JobResult<void> setStatus(const QUuid& id, Status status) { return jobs_.setStatus(id, status); }

    // Going back moves the new record to the trash, going on brings the same one back.
    /// @param fill completes the new record before it is written, as part of the same step
    JobResult<InvoicePtr> create(InvoiceType type, const InvoiceManager::Adjust& fill = {});
    JobResult<InvoicePtr> duplicate(const QUuid& id);
    JobResult<InvoicePtr> convert(const QUuid& id);

    /// Takes in an exported PDF or an e-invoice.
    JobResult<ImportedInvoice> importFile(const QString& path);

    /// Going back also gives the invoice the status that it had.
    JobResult<InvoicePtr> cancel(const QUuid& id);

    /// To the trash; going back brings it out of there under its id.
    JobResult<void> remove(const QUuid& id, Force force = Force::no);

private:
    JobResult<InvoicePtr> made(JobResult<InvoicePtr> record, const char* text);

    InvoiceManager& invoices_;
    InvoiceJobs& jobs_;
};

} // namespace ledra
