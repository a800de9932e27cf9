#pragma once

#include "einvoice/received_file.h"
#include "einvoice/stated_totals.h"
#include "einvoice/viewer_invoice.h"
#include "model/clock.h"

#include <expected>

namespace ledra {

/// A received e-invoice with what stands beside its record.
struct OpenedEInvoice
{
    ViewerInvoice viewer;
    std::optional<int> daysToPay; ///< from the document's date to its due date, where it states one
    std::vector<StatedDifference> differences;
    QStringList attachments; ///< names of the files that came along in a PDF
};

/// Reads received e-invoices: Cross Industry Invoices, alone or attached to a PDF.
class ViewerXMLParser
{
public:
    ViewerXMLParser(const Clock& clock, IdSource& ids) : clock_(clock), ids_(ids) {}

    /// @param fileName for the tab; @param content of the file
    [[nodiscard]] std::expected<OpenedEInvoice, ReceivedFileError> parse(const QString& fileName,
                                                                         const QByteArray& content) const;

private:
    const Clock& clock_;
    IdSource& ids_;
};

} // namespace ledra
