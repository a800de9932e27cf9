#include "einvoice/received_file.h"

#include "einvoice/cii_reader.h"
#include "einvoice/embedded_files.h"
#include "einvoice/xml_encoding.h"
#include "einvoice/xml_parser.h"

#include <array>

namespace ledra {

namespace {

// By precedence: Factur-X and ZUGFeRD 2.1 on, ZUGFeRD 2.0, ZUGFeRD 1.0, XRechnung inside a PDF.
constexpr std::array<QStringView, 4> einvoiceNames = {u"factur-x.xml", u"zugferd-invoice.xml",
                                                      u"ZUGFeRD-invoice.xml", u"xrechnung.xml"};

std::expected<XMLDocument, ReceivedFileError> readDocument(const QByteArray& content)
{
    const std::optional<std::string> text = decodeXml(content);
    std::optional<XMLDocument> document = text ? XMLDocument::parse(*text) : std::nullopt;
    if (!document || !isCrossIndustryInvoice(*document->root))
        return std::unexpected(ReceivedFileError::notAnEInvoice);
    return std::move(*document);
}

} // namespace

QString errorText(ReceivedFileError error)
{
    return error == ReceivedFileError::unreadable
               ? QStringLiteral("Could not read the selected XML file.")
               : QStringLiteral("This file does not appear to be a valid e-invoice.");
}

bool isPdf(const QByteArray& content)
{
    constexpr qsizetype headerRange = 1024; // readers accept the header anywhere in there
    return content.left(headerRange).contains("%PDF-");
}

std::optional<QString> einvoiceAttachment(const QStringList& names)
{
    for (const QStringView wanted : einvoiceNames) {
        if (names.contains(wanted))
            return wanted.toString();
    }
    return std::nullopt;
}

std::expected<ReceivedFile, ReceivedFileError> openReceivedFile(const PdfFile& pdf)
{
    QStringList names = pdf.attachmentNames();
    const std::optional<QString> name = einvoiceAttachment(names);
    if (!name)
        return std::unexpected(ReceivedFileError::notAnEInvoice);
    const auto content = pdf.attachment(*name, static_cast<qint64>(largestXml));
    if (!content)
        return std::unexpected(ReceivedFileError::notAnEInvoice);
    auto document = readDocument(*content);
    if (!document)
        return std::unexpected(document.error());
    names.removeOne(*name);
    names += embeddedFileNames(*document->root);
    names.removeDuplicates();
    return ReceivedFile{std::move(*document), names};
}

std::expected<ReceivedFile, ReceivedFileError> openReceivedFile(const QByteArray& content)
{
    if (!isPdf(content)) {
        auto document = readDocument(content);
        if (!document)
            return std::unexpected(document.error());
        QStringList names = embeddedFileNames(*document->root);
        return ReceivedFile{std::move(*document), std::move(names)};
    }
    const std::expected<PdfFile, PdfError> pdf = PdfFile::openReceived(content);
    if (!pdf)
        return std::unexpected(ReceivedFileError::notAnEInvoice);
    return openReceivedFile(*pdf);
}

std::optional<QByteArray> attachedFile(const QByteArray& content, const QString& name)
{
    if (!isPdf(content)) {
        const auto document = readDocument(content);
        return document ? embeddedFile(*document->root, name) : std::nullopt;
    }
    const std::expected<PdfFile, PdfError> pdf = PdfFile::openReceived(content);
    if (!pdf)
        return std::nullopt;
    if (const auto attached = pdf->attachment(name, largestReceivedFile))
        return *attached;
    const auto received = openReceivedFile(*pdf);
    return received ? embeddedFile(*received->document.root, name) : std::nullopt;
}

} // namespace ledra
