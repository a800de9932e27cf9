#include "app/einvoice_check.h"

#include "app/einvoice_export.h"
#include "einvoice/cii_losses.h"
#include "einvoice/cii_reader.h"
#include "einvoice/cii_rules.h"
#include "einvoice/missing_fields.h"
#include "einvoice/received_file.h"
#include "einvoice/stated_totals.h"
#include "einvoice/xml_generator.h"
#include "render/pdf_renderer.h"
#include "store/invoice_json.h"

namespace ledra {

namespace {

constexpr qint64 largestMetadata = qint64{4} * 1024 * 1024; // bytes

class Findings
{
public:
    void error(const char* code, const QString& text) { add(FindingLevel::error, code, text); }
    void warning(const char* code, const QString& text) { add(FindingLevel::warning, code, text); }
    void information(const char* code, const QString& text) { add(FindingLevel::information, code, text); }

    void addRules(const Element& root)
    {
        for (const BrokenRule& rule : brokenRules(root))
            list_.push_back({FindingLevel::error, rule.id, rule.text});
    }

    std::vector<Finding> take() { return std::move(list_); }

private:
    void add(FindingLevel level, const char* code, const QString& text)
    {
        list_.push_back({level, QString::fromLatin1(code), text});
    }

    std::vector<Finding> list_;
};

void checkDocument(const Element& root, Findings& findings)
{
    RandomIdSource ids;
    Invoice invoice = newInvoice(ids.newId(), SystemClock().now(), Country());
    readCrossIndustryInvoice(root, invoice, ids);
    findings.addRules(root);
    for (const StatedDifference& difference : statedDifferences(root, invoice))
        findings.warning("totals", QStringLiteral("the document states another total than its lines give: ") +
                                       statedText(difference, invoice.currency, Language::english));
}

/// The value of a property in a metadata packet, which may stand as an element or as an attribute.
QString propertyOf(const Element& packet, std::string_view name)
{
    QString value = QString::fromStdString(packet.textAt(name)).trimmed();
    packet.forEach("Description", [&](const Element& description) {
        for (const Element::Attribute& attribute : description.attributes) {
            if (value.isEmpty() && std::string_view(attribute.key).ends_with(':' + std::string(name)))
                value = QString::fromStdString(attribute.value);
        }
    });
    return value;
}

void checkMetadata(const PdfFile& pdf, const QString& attachment, Findings& findings)
{
    const std::optional<QByteArray> packet = pdf.metadata(largestMetadata);
    const std::optional<XMLDocument> document =
        packet ? XMLDocument::parse(
                     std::string_view(packet->constData(), static_cast<std::size_t>(packet->size())))
               : std::nullopt;
    if (!document) {
        findings.error("metadata", QStringLiteral("the PDF has no metadata that can be read"));
        return;
    }
    const QString part = propertyOf(*document->root, "part");
    const QString fileName = propertyOf(*document->root, "DocumentFileName");
    if (part != u"3")
        findings.error("metadata", QStringLiteral("the metadata do not say that the PDF is a PDF/A-3"));
    if (fileName != attachment)
        findings.error("metadata", QStringLiteral("the metadata do not name the attached e-invoice"));
    if (part == u"3" && fileName == attachment)
        findings.information("metadata", QStringLiteral("PDF/A-3 with an e-invoice, conformance level ") +
                                             propertyOf(*document->root, "ConformanceLevel"));
}

void checkRecord(const PdfFile& pdf, Findings& findings)
{
    const std::optional<QString> json = pdf.annotationContents(embeddedInvoiceAuthor.toString());
    if (!json) {
        findings.information("annotation",
                             QStringLiteral("the PDF does not come from Ledra; it carries no record"));
        return;
    }
    RandomIdSource ids;
    const Decoded<Invoice> record = decodeInvoice(json->toUtf8(), {SystemClock().now(), ids, QString()});
    if (!record)
        findings.error("annotation",
                       QStringLiteral("the record inside is damaged: ") + record.error().text());
    else if (const std::optional<QString> problem = pdfAProblem(json->size()))
        findings.warning("annotation", *problem);
    else
        findings.information("annotation", QStringLiteral("the PDF carries its record"));
}

std::vector<Finding> checkPdf(const QByteArray& content)
{
    Findings findings;
    const std::expected<PdfFile, PdfError> pdf = PdfFile::openReceived(content);
    if (!pdf) {
        findings.error("pdf", QStringLiteral("the PDF cannot be opened: ") + pdf.error().reason);
        return findings.take();
    }
    const std::optional<QString> name = einvoiceAttachment(pdf->attachmentNames());
    if (!name) {
        findings.error("attachment", QStringLiteral("no e-invoice is attached"));
    } else if (const auto received = openReceivedFile(*pdf)) {
        findings.information("attachment", *name + QStringLiteral(" is a Cross Industry Invoice"));
        checkDocument(*received->document.root, findings);
        checkMetadata(*pdf, *name, findings);
    } else {
        findings.error("attachment", *name + QStringLiteral(" is not a Cross Industry Invoice"));
    }
    checkRecord(*pdf, findings);
    return findings.take();
}

} // namespace

bool hasErrors(const std::vector<Finding>& findings)
{
    return std::ranges::find(findings, FindingLevel::error, &Finding::level) != findings.end();
}

std::vector<Finding> checkInvoice(const Invoice& invoice, const DocumentSetting& setting)
{
    Findings findings;
    for (const QString& label : XMLGenerator::validate(invoice))
        findings.error("missing-field", label);
    const std::optional<QByteArray> xml = XMLGenerator::generate(invoice, setting.profile, setting.invoices);
    const std::optional<XMLDocument> document =
        xml ? XMLDocument::parse(std::string_view(xml->constData(), static_cast<std::size_t>(xml->size())))
            : std::nullopt;
    if (!document) {
        findings.error("xml", QStringLiteral("the e-invoice cannot be made"));
        return findings.take();
    }
    findings.addRules(*document->root);
    for (const QString& loss : lossesInCii(invoice))
        findings.warning("loss", loss);
    return findings.take();
}

std::vector<Finding> checkReceived(const QByteArray& content)
{
    if (isPdf(content))
        return checkPdf(content);
    Findings findings;
    const std::expected<ReceivedFile, ReceivedFileError> received = openReceivedFile(content);
    if (!received) {
        findings.error("xml", errorText(received.error()));
        return findings.take();
    }
    findings.information("xml", QStringLiteral("a well-formed Cross Industry Invoice"));
    checkDocument(*received->document.root, findings);
    return findings.take();
}

} // namespace ledra
