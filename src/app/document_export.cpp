#include "app/document_export.h"

#include "model/html_text.h"
#include "render/document_address.h"

#include <QFile>
#include <QRegularExpression>

namespace ledra {

namespace {

/// Replaces the addresses of shipped fonts by the fonts themselves.
QString withFontsInside(QString html)
{
    static const QRegularExpression address(QRegularExpression::escape(fontUrl(QString())) +
                                            QStringLiteral("([A-Za-z0-9-]+\\.woff2)"));
    QRegularExpressionMatch match = address.match(html);
    while (match.hasMatch()) {
        QFile font(QStringLiteral(":/fonts/") + match.captured(1));
        const QByteArray bytes = font.open(QIODevice::ReadOnly) ? font.readAll() : QByteArray();
        html.replace(match.captured(),
                     QStringLiteral("data:font/woff2;base64,") + QString::fromLatin1(bytes.toBase64()));
        match = address.match(html);
    }
    return html;
}

} // namespace

QByteArray standaloneHtml(const QString& title, const std::vector<QString>& pages, PageFormat paper)
{
    if (pages.size() == 1)
        return withFontsInside(pages.front()).toUtf8();
    const QSize size = paperSize(paper);
    QString html =
        QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>%1</title>\n"
                       "<style>body { margin: 0; background: #8c8c8c; } iframe { display: block; "
                       "width: %2px; height: %3px; margin: 24px auto; border: 0; background: #fff; } "
                       "</style>\n</head>\n<body>\n")
            .arg(htmlEscaped(title), QString::number(size.width()), QString::number(size.height()));
    for (const QString& page : pages)
        html += QStringLiteral("<iframe srcdoc=\"%1\"></iframe>\n")
                    .arg(withFontsInside(page)
                             .replace(u'&', QStringLiteral("&amp;"))
                             .replace(u'"', QStringLiteral("&quot;")));
    return (html + QStringLiteral("</body>\n</html>\n")).toUtf8();
}

DocumentExport::DocumentExport(WebEngine& engine, Console& console)
    : paginator_(engine, console), renderer_(engine, console)
{}

void DocumentExport::run(const Invoice& invoice, const DocumentSetting& setting, const WebFontManager& fonts,
                         ExportFormat format, Completion completion)
{
    const auto document = std::make_shared<const InvoiceDocument>(invoice, setting, fonts);
    paginator_.paginate(document, [this, document, invoice, format,
                                   completion = std::move(completion)](const PaginationResult& result) {
        if (format == ExportFormat::html)
            completion(ExportedDocument{
                standaloneHtml(document->title(), result.pages, document->pageFormat()), result.isMeasured});
        else
            makePdf(invoice, document->title(), result, document->pageFormat(), completion);
    });
}

void DocumentExport::makePdf(const Invoice& invoice, const QString& title, const PaginationResult& pages,
                             PageFormat paper, const Completion& completion)
{
    renderer_.render(pages, paper,
                     [invoice, title, completion, isMeasured = pages.isMeasured](std::optional<PdfFile> pdf) {
                         if (!pdf) {
                             completion(std::unexpected(QStringLiteral("the PDF could not be made")));
                             return;
                         }
                         embedInvoice(*pdf, invoice, title);
                         if (const std::expected<QByteArray, PdfError> bytes = pdf->bytes())
                             completion(ExportedDocument{*bytes, isMeasured});
                         else
                             completion(std::unexpected(bytes.error().reason));
                     });
}

} // namespace ledra
