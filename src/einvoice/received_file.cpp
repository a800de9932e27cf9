#include "einvoice/received_file.h"

#include "einvoice/cii_reader.h"
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
    return ReceivedFile{std::move(*document), names};
}

std::expected<ReceivedFile, ReceivedFileError> openReceivedFile(const QByteArray& content)
{
    if (!isPdf(content)) {
        auto document = readDocument(content);
        if (!document)
            return std::unexpected(document.error());
        return ReceivedFile{std::move(*document), {}};
    }
    const std::expected<PdfFile, PdfError> pdf = PdfFile::openReceived(content);
    if (!pdf)
        return std::unexpected(ReceivedFileError::notAnEInvoice);
    return openReceivedFile(*pdf);
}

} // namespace ledra
