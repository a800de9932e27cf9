#include "ui/jobs/temporary_documents.h"

#include "ui/jobs/export_flow.h"
#include "ui/jobs/export_orders.h"
#include "ui/jobs/missing_fields_question.h"

namespace ledra {

void TemporaryDocuments::make(const std::vector<InvoicePtr>& records, ExportFormat format,
                              ExportPurpose purpose, const QString& action, const Made& made)
{
    askAboutMissingFields(parts_.window, action, exportOrder(records, parts_.app, format, purpose),
                          [this, made](ExportOrder order) { run(std::move(order), made); });
}

void TemporaryDocuments::run(ExportOrder order, const Made& made)
{
    const std::optional<QString> folder = folders_.make(parts_.messages);
    if (!folder)
        return;
    order.target = *folder;
    auto* job = new ExportJob(std::move(order), parts_); // which deletes itself
    job->showProgress();
    job->start([&parts = parts_, made](const ExportOutcome& outcome) {
        tellProblems(parts.messages, outcome);
        if (!outcome.isCancelled && outcome.failures.isEmpty())
            made(outcome.files);
    });
}

ExportJob* TemporaryDocuments::start(const std::vector<InvoicePtr>& records,
                                     const std::function<void(const ExportOutcome&)>& ended)
{
    const std::optional<QString> folder = folders_.make(parts_.messages);
    if (!folder)
        return nullptr;
    ExportOrder order = exportOrder(records, parts_.app, ExportFormat::pdf, ExportPurpose::temporary);
    order.target = *folder;
    auto* job = new ExportJob(std::move(order), parts_); // which deletes itself
    job->start(ended);
    return job;
}

} // namespace ledra
