#include "ui/viewer/viewer_paper.h"

#include "app/reader_language.h"
#include "app/received_attachments.h"
#include "einvoice/viewer_html_generator.h"
#include "platform/file_io.h"
#include "render/pdf_renderer.h"
#include "render/qt_web_engine.h"
#include "ui/jobs/document_printer.h"
#include "ui/jobs/file_panels.h"
#include "ui/jobs/file_reveal.h"

#include <QCoreApplication>
#include <QDir>
#include <QPointer>

namespace ledra {

namespace {

struct Viewer
{
    Q_DECLARE_TR_FUNCTIONS(Viewer)
};

} // namespace

QString documentName(const OpenedEInvoice& opened)
{
    const QString title = viewerTitle(opened.viewer, readerLanguage());
    return (title + u' ' + opened.viewer.originalNumber).trimmed();
}

void saveWithNotice(const WindowParts& parts, const QByteArray& content, const QString& target)
{
    if (const auto written = writeExport(target, content, Overwrite::replace); !written)
        parts.messages.warn(written.error().text());
    else
        parts.messages.inform(Viewer::tr("Saved: %1").arg(target),
                              {{Viewer::tr("Show"), [target] { FileReveal().show({target}); }}});
}

PageFormat ViewerPaper::paper() const
{
    return (*parts_.app.stylingManager().styling())->pageFormat;
}

void ViewerPaper::make(const OpenedEInvoice& opened, const Made& made)
{
    const auto renderer = std::make_shared<PDFRenderer>(parts_.engine, parts_.app.console());
    const QString html = ViewerHTMLGenerator::html(
        opened, {.language = readerLanguage(), .appearance = ViewerAppearance::light});
    const auto finish = [renderer, made, name = documentName(opened), window = QPointer(&parts_.window),
                         &messages = parts_.messages](std::optional<PdfFile> pdf) {
        if (!window)
            return; // and nobody waits for it any more
        if (pdf)
            namePdf(*pdf, name);
        const auto bytes = pdf ? pdf->bytes() : std::unexpected(PdfError{});
        if (bytes)
            made(*bytes);
        else
            messages.warn(Viewer::tr("No PDF could be made of %1.").arg(name));
    };
    const QMarginsF margins(51, 57, 51, 51); // those of the page's own rule, in points
    renderer->render({.pages = {html}, .isMeasured = false}, {paper(), margins}, finish);
}

void ViewerPaper::print(const OpenedEInvoice& opened)
{
    DocumentPrinter::ask(
        parts_, {documentName(opened), paper(), true}, [this, opened](const PrintOrder& order) {
            make(opened, [this, order, name = documentName(opened)](const QByteArray& pdf) {
                const std::optional<QString> folder = folders_.make(parts_.messages);
                if (!folder)
                    return;
                const QString file =
                    QDir(*folder).filePath(attachmentFileName(name + QStringLiteral(".pdf")));
                if (const auto written = writeExport(file, pdf, Overwrite::refuse); !written)
                    parts_.messages.warn(written.error().text());
                else
                    DocumentPrinter::printFiles(parts_, order, {file});
            });
        });
}

void ViewerPaper::save(const OpenedEInvoice& opened)
{
    // Named after the document: beside the received file its own name may be that of a PDF already.
    const QString name = attachmentFileName(documentName(opened) + QStringLiteral(".pdf"));
    askForTarget(parts_, {Viewer::tr("Save as PDF"), name, Viewer::tr("PDF (*.pdf)"), Viewer::tr("Save")},
                 [this, opened](const QString& target) {
                     make(opened,
                          [this, target](const QByteArray& pdf) { saveWithNotice(parts_, pdf, target); });
                 });
}

} // namespace ledra
