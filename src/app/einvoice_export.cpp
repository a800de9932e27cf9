#include "app/einvoice_export.h"

#include "einvoice/cii_losses.h"
#include "einvoice/cii_rules.h"
#include "einvoice/xml_generator.h"
#include "einvoice/zugferd_generator.h"
#include "render/pdf_renderer.h"

namespace ledra {

namespace {

QStringList noticesFor(const Invoice& invoice, const QByteArray& xml)
{
    QStringList notices;
    const auto document =
        XMLDocument::parse(std::string_view(xml.constData(), static_cast<std::size_t>(xml.size())));
    if (!document)
        return {QStringLiteral("the e-invoice cannot be read back")};
    for (const BrokenRule& rule : brokenRules(*document->root))
        notices += QStringLiteral("the e-invoice breaks the rule %1: %2").arg(rule.id, rule.text);
    for (const QString& loss : lossesInCii(invoice))
        notices += QStringLiteral("who reads the e-invoice may see something else: ") + loss;
    return notices;
}

} // namespace

std::expected<EInvoice, QString> makeEInvoice(const Invoice& invoice, const DocumentSetting& setting)
{
    const std::optional<QByteArray> xml = XMLGenerator::generate(invoice, setting.profile, setting.invoices);
    if (!xml)
        return std::unexpected(QStringLiteral("the template of e-invoices cannot be read"));
    return EInvoice{*xml, noticesFor(invoice, *xml)};
}

std::expected<QByteArray, QString> makeHybrid(const QByteArray& pdf, const QByteArray& xml)
{
    const auto hybrid = ZUGFeRDGenerator::createHybrid(pdf, xml);
    if (!hybrid)
        return std::unexpected(hybrid.error().text());
    return *hybrid;
}

std::optional<QString> pdfAProblem(qsizetype recordLength)
{
    if (recordLength <= longestPdfAString)
        return std::nullopt;
    return QStringLiteral(
               "the file is no PDF/A, since the copy of the record inside it has %1 bytes, and PDF/A allows "
               "%2; it is complete in everything else")
        .arg(recordLength)
        .arg(longestPdfAString);
}

} // namespace ledra
