#pragma once

#include "ui/jobs/export_job.h"

namespace ledra {

/// Exports records to files that the user keeps: asks what is to be asked, shows how far it is, and says at
/// the end what came of it.
void exportToFiles(const WindowParts& parts, const std::vector<InvoicePtr>& records, ExportFormat format);

/// "Export as XRechnung"
QString exportTitle(ExportFormat format);

/// Says that files were written, with a way to them.
void tellFiles(const WindowParts& parts, const QStringList& files);

/// Tells what an export left to be told: notices and what failed.
void tellProblems(MessageBar& messages, const ExportOutcome& outcome);

} // namespace ledra
