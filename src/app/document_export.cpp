#include "app/document_export.h"

#include "app/einvoice_export.h"
#include "model/html_text.h"
#include "render/document_address.h"
#include "render/glyph_coverage.h"
#include "render/reminder_document.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTimer>

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

DocumentExport::DocumentExport(WebEngine& engine, Console& console, const char* hybridFailed)
    : console_(console), hybridFailed_(hybridFailed), paginator_(engine, console), renderer_(engine, console)
{}

QString fileExtension(ExportFormat format)
{
    switch (format) {
    case ExportFormat::xrechnung:
        return QStringLiteral(".xml");
    case ExportFormat::html:
        return QStringLiteral(".html");
    case ExportFormat::pdf:
    case ExportFormat::zugferd:
        break;
    }
    return QStringLiteral(".pdf");
}

bool isEInvoice(ExportFormat format)
{
    return format == ExportFormat::zugferd || format == ExportFormat::xrechnung;
}

/// A document under way.
struct DocumentExport::Order
{
    ExportRecord record;
    std::shared_ptr<const PaginatedDocument> document;
    QString title;
    ExportFormat format = ExportFormat::pdf;
    EInvoice einvoice; ///< empty for a format without one
    Completion completion;
};

namespace {

/// Makes the document of a record in an order, which names its title.
template <class Order>
void addDocument(Order& order, const DocumentSetting& setting, const WebFontManager& fonts)
{
    const auto add = [&](const auto& document) {
        order.title = document->title();
        order.document = document;
    };
    const ExportRecord& record = order.record;
    if (record.reminder)
        add(std::make_shared<const ReminderDocument>(*record.reminder, record.invoice, setting, fonts));
    else
        add(std::make_shared<const InvoiceDocument>(record.invoice, setting, fonts));
}

std::expected<EInvoice, QString> einvoiceOf(const ExportRecord& record, const DocumentSetting& setting,
                                            ExportFormat format)
{
    if (!isEInvoice(format))
        return EInvoice();
    if (record.reminder)
        return std::unexpected(QStringLiteral("a reminder cannot be an e-invoice"));
    return makeEInvoice(record.invoice, setting);
}

} // namespace

void DocumentExport::run(const ExportRecord& record, const DocumentSetting& setting,
                         const WebFontManager& fonts, ExportFormat format, const Completion& completion)
{
    const std::expected<EInvoice, QString> einvoice = einvoiceOf(record, setting, format);
    if (!einvoice || format == ExportFormat::xrechnung) {
        std::expected<ExportedDocument, QString> answer = std::unexpected(QString());
        if (einvoice)
            answer = ExportedDocument{einvoice->xml, true, einvoice->notices};
        else
            answer = std::unexpected(einvoice.error());
        QTimer::singleShot(0, QCoreApplication::instance(), [answer, completion] { completion(answer); });
        return;
    }
    Order order{record, {}, {}, format, *einvoice, completion};
    addDocument(order, setting, fonts);
    const auto kept = std::make_shared<const Order>(std::move(order));
    paginator_.paginate(kept->document,
                        [this, kept](const PaginationResult& pages) { makeFile(kept, pages); });
}

void DocumentExport::makeFile(const std::shared_ptr<const Order>& order, const PaginationResult& pages)
{
    const PageFormat paper = order->document->pageFormat();
    ExportedDocument file{{}, pages.isMeasured, order->einvoice.notices};
    QString text;
    for (const QString& page : pages.pages)
        text += visibleText(page);
    if (const QStringList missing = charactersWithoutGlyph(text); !missing.isEmpty())
        file.notices += missingGlyphText(missing);
    if (order->format == ExportFormat::html) {
        file.content = standaloneHtml(order->title, pages.pages, paper);
        order->completion(file);
        return;
    }
    renderer_.render(pages, paper, [this, order, file](std::optional<PdfFile> pdf) {
        if (pdf) {
            finishPdf(*order, std::move(*pdf), file);
            return;
        }
        if (order->format == ExportFormat::zugferd)
            console_.information(QString::fromLatin1(hybridFailed_));
        order->completion(std::unexpected(QStringLiteral("the PDF could not be made")));
    });
}

void DocumentExport::finishPdf(const Order& order, PdfFile pdf, ExportedDocument file)
{
    namePdf(pdf, order.title);
    if (!order.record.reminder)
        embedInvoice(pdf, order.record.invoice);
    const std::expected<QByteArray, PdfError> bytes = pdf.bytes();
    std::expected<QByteArray, QString> content =
        bytes ? std::expected<QByteArray, QString>(*bytes) : std::unexpected(bytes.error().reason);
    if (content && order.format == ExportFormat::zugferd) {
        content = makeHybrid(*content, order.einvoice.xml);
        if (const std::optional<QString> problem = pdfAProblem(embeddedText(order.record.invoice).size()))
            file.notices += *problem;
    }
    if (!content) {
        order.completion(std::unexpected(content.error()));
        return;
    }
    file.content = *content;
    order.completion(file);
}

} // namespace ledra
