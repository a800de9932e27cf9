#pragma once

#include "ui/jobs/export_job.h"
#include "ui/jobs/temporary_folders.h"

namespace ledra {

/// Documents that are made to be handed on: attached, printed, dragged out. They lie in a folder that only
/// this user can look into, and go when the program ends: who has been given one may read it late.
class TemporaryDocuments
{
public:
    explicit TemporaryDocuments(const WindowParts& parts) : parts_(parts) {}

    using Made = std::function<void(const QStringList& files)>;

    /// Makes them, after a question where an e-invoice is incomplete. Nothing is called if the user cancels,
    /// or if one cannot be made, which is said.
    ///
    /// @param action what it is for, as the question's button says it
    void make(const std::vector<InvoicePtr>& records, ExportFormat format, ExportPurpose purpose,
              const QString& action, const Made& made);

    /// Starts to make PDFs without any question or progress. Answers with what came of it; nothing is started
    /// where there is no folder for them.
    ExportJob* start(const std::vector<InvoicePtr>& records,
                     const std::function<void(const ExportOutcome&)>& ended);

private:
    void run(ExportOrder order, const Made& made);

    const WindowParts& parts_;
    TemporaryFolders folders_; ///< one for each order, so that documents keep their names
};

} // namespace ledra
