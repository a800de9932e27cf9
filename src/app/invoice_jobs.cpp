#include "app/invoice_jobs.h"

#include "model/displayed_number.h"

#include <QFile>

#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace ledra {

namespace {

/// What may change in a guarded record.
Invoice withoutFreeFields(Invoice invoice)
{
    invoice.status = {};
    invoice.statusUpdateDate = {};
    invoice.note.clear();
    invoice.reference.reset();
    return invoice;
}

std::optional<QString> unwritable(const QString& folder)
{
    if (::access(QFile::encodeName(folder).constData(), W_OK | X_OK) == 0 || errno == ENOENT)
        return std::nullopt;
    return QStringLiteral("%1: the folder cannot be written to (%2)")
        .arg(folder, QString::fromLocal8Bit(std::strerror(errno)));
}

JobFailure unknown(const QUuid& id)
{
    return {.text = QStringLiteral("no record has the id ") + idText(id)};
}

} // namespace

bool isGuarded(const Invoice& invoice)
{
    return invoice.status != Status::draft;
}

std::optional<JobFailure> InvoiceJobs::writeProblem() const
{
    const ProfilePtr& profile = profiles_.activeProfile();
    if (!profile)
        return JobFailure{JobFailure::Kind::refused, QStringLiteral("there is no profile")};
    const std::optional<QString> own = profiles_.profileFolder(**profile);
    if (!own)
        return JobFailure{JobFailure::Kind::store,
                          QStringLiteral("%1: the folder is gone").arg((*profile)->displayName())};
    const QString& folder = *own;
    for (const QString& path : {profiles_.dataFolder(), folder, folder + QStringLiteral("/Invoices")}) {
        if (const std::optional<QString> problem = unwritable(path))
            return JobFailure{JobFailure::Kind::store, *problem};
    }
    return std::nullopt;
}

JobResult<InvoicePtr> InvoiceJobs::find(const QUuid& id) const
{
    if (const auto problem = writeProblem())
        return std::unexpected(*problem);
    if (InvoicePtr record = invoices_.find(id))
        return record;
    return std::unexpected(unknown(id));
}

JobFailure InvoiceJobs::guarded(const InvoicePtr& record) const
{
    return {JobFailure::Kind::guarded, QStringLiteral("%1 is %2 and is not to be changed any more")
                                           .arg(displayedNumber(**record, **profiles_.activeProfile()),
                                                displayText((*record)->status).toLower())};
}

JobResult<InvoicePtr> InvoiceJobs::create(InvoiceType type, const InvoiceManager::Adjust& fill)
{
    if (const auto problem = writeProblem())
        return std::unexpected(*problem);
    return jobResult(invoices_.create(type, fill));
}

JobResult<InvoicePtr> InvoiceJobs::duplicate(const QUuid& id)
{
    const JobResult<InvoicePtr> record = find(id);
    return record ? jobResult(invoices_.duplicate(id)) : record;
}

JobResult<InvoicePtr> InvoiceJobs::cancel(const QUuid& id)
{
    const JobResult<InvoicePtr> record = find(id);
    if (!record)
        return record;
    if ((**record)->type != InvoiceType::invoice)
        return std::unexpected(JobFailure{.text = QStringLiteral("only an invoice can be cancelled")});
    return jobResult(invoices_.createCancellation(id));
}

JobResult<InvoicePtr> InvoiceJobs::convert(const QUuid& id)
{
    const JobResult<InvoicePtr> record = find(id);
    if (!record)
        return record;
    if ((**record)->type != InvoiceType::quote)
        return std::unexpected(
            JobFailure{.text = QStringLiteral("only a quote can be made into an invoice")});
    return jobResult(invoices_.createInvoiceFromQuote(id));
}

JobResult<ImportedInvoice> InvoiceJobs::importFile(const QString& path)
{
    if (const auto problem = writeProblem())
        return std::unexpected(*problem);
    auto imported = InvoiceImporter(invoices_).importFile(path);
    if (!imported)
        return std::unexpected(
            JobFailure{JobFailure::Kind::refused, imported.error().message, imported.error().isReported});
    return std::move(*imported);
}

JobResult<void> InvoiceJobs::mayEdit(const InvoicePtr& record, const std::function<void(Invoice&)>& change,
                                     Force force) const
{
    Invoice changed = **record;
    change(changed);
    if (force == Force::no && isGuarded(**record) &&
        withoutFreeFields(changed) != withoutFreeFields(**record))
        return std::unexpected(guarded(record));
    return {};
}

JobResult<void> InvoiceJobs::edit(const QUuid& id, const std::function<void(Invoice&)>& change, Force force)
{
    const JobResult<InvoicePtr> record = find(id);
    if (!record)
        return std::unexpected(record.error());
    const JobResult<void> allowed = mayEdit(*record, change, force);
    return allowed ? jobResult(invoices_.edit(id, change)) : allowed;
}

JobResult<void> InvoiceJobs::editSoon(const QUuid& id, const std::function<void(Invoice&)>& change,
                                      Force force)
{
    const InvoicePtr record = invoices_.find(id); // where it cannot be written now, it may be later
    if (!record)
        return std::unexpected(unknown(id));
    JobResult<void> allowed = mayEdit(record, change, force);
    if (allowed)
        invoices_.editSoon(id, change);
    return allowed;
}

JobResult<void> InvoiceJobs::refreshNumberSettings(const QUuid& id, Force force)
{
    const JobResult<InvoicePtr> record = find(id);
    if (!record)
        return std::unexpected(record.error());
    if (force == Force::no && isGuarded(***record))
        return std::unexpected(guarded(*record));
    return jobResult(invoices_.refreshNumberSettings(id));
}

JobResult<void> InvoiceJobs::setStatus(const QUuid& id, Status status)
{
    const JobResult<InvoicePtr> record = find(id);
    return record ? jobResult(invoices_.setStatus(id, status)) : std::unexpected(record.error());
}

JobResult<void> InvoiceJobs::remove(const QUuid& id, Force force)
{
    const JobResult<InvoicePtr> record = find(id);
    if (!record)
        return std::unexpected(record.error());
    if (force == Force::no && isGuarded(***record))
        return std::unexpected(guarded(*record));
    return jobResult(invoices_.remove(id));
}

} // namespace ledra
