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
    /// From the document's date to the day by which it asks for money, where it states that; nobody pays a
    /// credit note.
    std::optional<int> daysToPay;
    // What the record holds otherwise is not from the document.
    bool hasDate = false;
    bool hasServiceDate = false;
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
