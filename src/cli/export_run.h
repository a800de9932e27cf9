#pragma once

#include "app/export_batch.h"
#include "cli/command.h"
#include "cli/export_report.h"

#include <vector>

namespace ledra {

/// How the common options ask for a report.
ReportStyle reportStyle(const CommandArguments& arguments);

/// Exports documents as the options "format", "output", "force" and "allow-missing" say, as far as the
/// command has them.
///
/// @param named how many documents the user asked for: several of them go into a folder
ExitCode runExport(std::vector<ExportSource> sources, std::size_t named, const CommandArguments& arguments,
                   Console& console);

/// Runs a batch and tells how it goes.
ExitCode runBatch(ExportOrder order, Console& console, ReportStyle style);

} // namespace ledra
