#include "exchange/invoice_importer.h"

#include "einvoice/received_file.h"
#include "einvoice/xml_text.h"
#include "exchange/imported_draft.h"
#include "platform/file_io.h"
#include "platform/pdf_file.h"

namespace ledra {

namespace {

// The author of the annotation in which exported PDFs carry their record.
constexpr QStringView recordAnnotation = u"LedraInvoiceData";

std::unexpected<ImportFailure> refused(const char* message)
{
    return std::unexpected(ImportFailure{QString::fromLatin1(message)});
}

ImportFailure unopenedPdf()
{
    return {QStringLiteral("Could not open the selected PDF.")};
}

std::unexpected<ImportFailure> foreignPdf()
{
    return refused("Only PDFs exported by Ledra can be reimported.");
}

ImportFailure failureOf(ReceivedFileError error)
{
    return {errorText(error)};
}

std::unexpected<ImportFailure> refused(const StoreFailure& failure)
{
    return std::unexpected(ImportFailure{failure.text, failure.isReported});
}

} // namespace

bool carriesRecord(const QString& path)
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestReceivedFile);
    if (!content || !isPdf(*content))
        return false;
    const std::expected<PdfFile, PdfError> pdf = PdfFile::openReceived(*content);
    return pdf && pdf->annotationContents(recordAnnotation.toString());
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::importPDF(const QString& path)
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestReceivedFile);
    return content ? take(*content, unopenedPdf()) : std::unexpected(unopenedPdf());
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::importEInvoice(const QString& path)
{
    const std::expected<QByteArray, FileError> content = readFile(path, largestReceivedFile);
    return content ? take(*content, failureOf(ReceivedFileError::notAnEInvoice))
                   : std::unexpected(failureOf(ReceivedFileError::unreadable));
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::importFile(const QString& path)
{
    const bool isNamedPdf = path.endsWith(QStringLiteral(".pdf"), Qt::CaseInsensitive);
    return isNamedPdf ? importPDF(path) : importEInvoice(path);
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::take(const QByteArray& content,
                                                                    const ImportFailure& neither)
{
    if (isPdf(content))
        return takePdf(content);
    const std::expected<ReceivedFile, ReceivedFileError> received = openReceivedFile(content);
    return received ? takeEInvoice(received->document) : std::unexpected(neither);
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::takePdf(const QByteArray& content)
{
    const std::expected<PdfFile, PdfError> pdf = PdfFile::openReceived(content);
    if (!pdf)
        return std::unexpected(unopenedPdf());
    if (const std::optional<QString> json = pdf->annotationContents(recordAnnotation.toString()))
        return takeRecord(*json);
    const std::expected<ReceivedFile, ReceivedFileError> received = openReceivedFile(*pdf);
    return received ? takeEInvoice(received->document) : foreignPdf();
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::takeRecord(const QString& json)
{
    const Decoded<Invoice> invoice = decodeInvoice(json.toUtf8(), invoices_.newRecordValues());
    if (!invoice)
        return foreignPdf();
    const auto isKnown = [&] { return invoices_.find(invoice->id) != nullptr; };
    if (!isKnown()) {
        const std::expected<InvoicePtr, StoreFailure> record = invoices_.insert(*invoice);
        if (record)
            return ImportedInvoice{*record, {}};
        if (!isKnown()) // else another process has just taken it in
            return refused(record.error());
    }
    return refused("There is already another version of this invoice. If you still want to import it, you "
                   "must first delete the existing one.");
}

std::expected<ImportedInvoice, ImportFailure> InvoiceImporter::takeEInvoice(const XMLDocument& document)
{
    const Element& root = *document.root;
    if (isBlank(root.textAt("ExchangedDocument/ID")))
        return std::unexpected(failureOf(ReceivedFileError::notAnEInvoice));
    const NewRecordValues values = invoices_.newRecordValues();
    // Tried first: what could not be read again as a file shall not become one.
    const Invoice trial = draftFrom(root, newInvoice(values.ids.newId(), values.now, Country()), values.ids);
    if (const Decoded<Invoice> again = decodeInvoice(encodeInvoiceForEmbedding(trial), values); !again)
        return std::unexpected(ImportFailure{again.error().text()});
    const auto record = invoices_.create(InvoiceType::invoice,
                                         [&](Invoice& fresh) { fresh = draftFrom(root, fresh, values.ids); });
    if (!record)
        return refused(record.error());
    return ImportedInvoice{*record, statedDifferences(root, ***record)};
}

} // namespace ledra
