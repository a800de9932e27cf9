#include "render/pdf_renderer.h"

#include "model/invoice.h"
#include "platform/version.h"
#include "store/invoice_json.h"

#include <algorithm>

namespace ledra {

struct PDFRenderer::Session
{
    PageFormat format;
    PrintedSheets sheets;
    std::vector<QByteArray> pages; ///< empty where a page is not printed yet
    std::size_t remaining;
    std::optional<WebEngineError> error; ///< of the first page that failed
    Completion completion;
};

void PDFRenderer::render(const PaginationResult& document, const Paper& paper, Completion completion)
{
    const auto sheets = document.isMeasured ? PrintedSheets::first : PrintedSheets::all;
    const std::size_t count = document.pages.size();
    const auto session = std::make_shared<Session>(Session{
        paper.format, sheets, std::vector<QByteArray>(count), count, std::nullopt, std::move(completion)});
    for (std::size_t page = 0; page < count; ++page) {
        engine_.print(document.pages[page], paper,
                      [this, life = std::weak_ptr(life_), session,
                       page](const std::expected<QByteArray, WebEngineError>& pdf) {
                          if (!life.expired())
                              pagePrinted(session, page, pdf);
                      });
    }
}

void PDFRenderer::pagePrinted(const std::shared_ptr<Session>& session, std::size_t page,
                              const std::expected<QByteArray, WebEngineError>& pdf)
{
    if (pdf)
        session->pages[page] = *pdf;
    else if (!session->error)
        session->error = pdf.error();
    if (--session->remaining == 0)
        join(*session);
}

void PDFRenderer::join(const Session& session)
{
    if (session.error) {
        console_.failure(QStringLiteral("Failed to create PDF: ") + errorText(*session.error));
        session.completion(std::nullopt);
        return;
    }
    auto joined = PdfFile::join(session.pages, paperSize(session.format), session.sheets);
    if (joined) {
        session.completion(std::move(*joined));
    } else {
        console_.failure(QStringLiteral("Failed to create PDF: ") + joined.error().reason);
        session.completion(std::nullopt);
    }
}

QString embeddedText(const Invoice& invoice)
{
    QString ascii;
    for (const QChar c : QString::fromUtf8(encodeInvoiceForEmbedding(invoice).trimmed())) {
        if (c.unicode() < 0x80) // all others stand inside strings, where JSON lets them be escaped
            ascii += c;
        else
            ascii += QStringLiteral("\\u") + QString::number(c.unicode(), 16).rightJustified(4, u'0');
    }
    return ascii;
}

void namePdf(PdfFile& pdf, const QString& title)
{
    const auto version = QString::fromUtf8(shortVersion.data(), static_cast<qsizetype>(shortVersion.size()));
    pdf.setInformation(title, QStringLiteral("Ledra ") + version);
}

void embedInvoice(PdfFile& pdf, const Invoice& invoice)
{
    pdf.addHiddenAnnotation({embeddedInvoiceAuthor.toString(), embeddedText(invoice)});
}

} // namespace ledra
