#pragma once

#include "einvoice/stated_totals.h"
#include "store/invoice_manager.h"

#include <QStringList>

#include <expected>

namespace ledra {

/// Why a file was not imported.
struct ImportFailure
{
    QString message;
    bool isReported = false; ///< the console has said it already
};

/// A record that was imported.
struct ImportedInvoice
{
    InvoicePtr record;
    std::vector<StatedDifference> differences; ///< between an e-invoice and the record made of it
};

/// Whether a file is a PDF of this application with its record inside.
bool carriesRecord(const QString& path);

/// Brings invoices back into the store: from PDFs of this application, unchanged, and from e-invoices, as
/// drafts. A failure leaves the store untouched.
class InvoiceImporter
{
public:
    explicit InvoiceImporter(InvoiceManager& invoices) : invoices_(invoices) {}

    // Both go by what the file holds, since names may be wrong; what is said of a file that is neither a PDF
    // nor an e-invoice is what differs.

    /// A PDF of this application, or of another one with an e-invoice attached.
    [[nodiscard]] std::expected<ImportedInvoice, ImportFailure> importPDF(const QString& path);

    /// An e-invoice file.
    [[nodiscard]] std::expected<ImportedInvoice, ImportFailure> importEInvoice(const QString& path);

    /// Either, by the file's name.
    [[nodiscard]] std::expected<ImportedInvoice, ImportFailure> importFile(const QString& path);

private:
    std::expected<ImportedInvoice, ImportFailure> take(const QByteArray& content,
                                                       const ImportFailure& neither);
    std::expected<ImportedInvoice, ImportFailure> takePdf(const QByteArray& content);
    std::expected<ImportedInvoice, ImportFailure> takeRecord(const QString& json);
    std::expected<ImportedInvoice, ImportFailure> takeEInvoice(const XMLDocument& document);

    InvoiceManager& invoices_;
};

} // namespace ledra
