// Any bytes as a PDF: searched for a record and for attachments, and made a hybrid.
#include "einvoice/pdf_info.h"
#include "einvoice/received_file.h"
#include "einvoice/zugferd_generator.h"
#include "fixed_surroundings.h"
#include "store/invoice_json.h"

namespace {

using namespace ledra;

constexpr qint64 largestPart = qint64{256} * 1024; // small, so that packed bombs do not fill the time

void readRecord(const PdfFile& pdf)
{
    CountedIds ids;
    if (const std::optional<QString> json = pdf.annotationContents(QStringLiteral("LedraInvoiceData")))
        (void)decodeInvoice(json->toUtf8(), {FixedClock().now(), ids, QStringLiteral("DE")});
}

void readAttachments(const PdfFile& pdf)
{
    constexpr qsizetype mostRead = 8;
    for (const QString& name : pdf.attachmentNames().first(std::min(mostRead, pdf.attachmentNames().size())))
        (void)pdf.attachment(name, largestPart);
    (void)pdf.metadata(largestPart);
    (void)openReceivedFile(pdf);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray file = inputBytes(data, size);
    (void)readPdfInfo(file);
    if (const auto pdf = PdfFile::openReceived(file)) {
        readRecord(*pdf);
        readAttachments(*pdf);
    }
    const QByteArray xml = "<rsm:CrossIndustryInvoice xmlns:rsm=\"urn:a\"/>";
    if (const auto hybrid = ZUGFeRDGenerator::createHybrid(file, xml))
        (void)PdfFile::open(*hybrid);
    (void)ZUGFeRDGenerator::withAttachedXml(file, xml);
    return 0;
}
