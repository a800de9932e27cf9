#include "einvoice/viewer_html_generator.h"

#include "einvoice/cii_reader.h"
#include "einvoice/resource_text.h"
#include "einvoice/viewer_page.h"
#include "model/document_labels.h"

namespace ledra {

QString viewerTitle(const ViewerInvoice& invoice, Language language)
{
    return documentLabel(invoice.typeCode == creditNoteCode ? QStringLiteral("Credit Note")
                                                            : QStringLiteral("Invoice"),
                         language);
}

QString ViewerHTMLGenerator::html(const OpenedEInvoice& opened, const ViewerSetting& setting,
                                  const std::optional<QString>& templateText)
{
    if (!templateText)
        return QStringLiteral("<h1>Error Loading Template</h1>");
    return filledTemplate(*templateText, ViewerPage(opened, setting).values());
}

QString ViewerHTMLGenerator::html(const OpenedEInvoice& opened, const ViewerSetting& setting)
{
    const std::optional<QByteArray> bytes = einvoiceResource(QStringLiteral("ViewerTemplate.html"));
    return html(opened, setting, bytes ? std::optional(QString::fromUtf8(*bytes)) : std::nullopt);
}

} // namespace ledra
