#pragma once

#include "app/export_sources.h"

namespace ledra {

/// What to make of records in the window: their documents, what the log says of them, without a target. One
/// document is named like a letter ("Invoice 2026-042"), several by their numbers.
ExportOrder exportOrder(const std::vector<InvoicePtr>& records, LedraApp& app, ExportFormat format,
                        ExportPurpose purpose);

/// What a document is called in its own language: "Invoice 2026-042".
QString documentTitle(const Invoice& invoice, const Profile& profile);

/// "PDF (*.pdf)", for panels.
QString fileFilter(ExportFormat format);

/// Those files of an order that are in its folder already.
QStringList existingFiles(const ExportOrder& order);

/// Gives the documents of an order names that are free in its folder: "2026-042 2".
void keepBoth(ExportOrder& order);

} // namespace ledra
