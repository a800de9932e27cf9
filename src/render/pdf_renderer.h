#pragma once

#include "platform/console.h"
#include "platform/pdf_file.h"
#include "render/document_paginator.h"
#include "render/web_engine.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ledra {

struct Invoice;

/// Prints the pages of a document and joins them into one PDF. Who goes before that is done gets no answer.
class PDFRenderer
{
public:
    using Completion = std::function<void(std::optional<PdfFile>)>;

    PDFRenderer(WebEngine& engine, Console& console) : engine_(engine), console_(console) {}

    /// Prints all pages side by side and joins them in order. A failure is said on the console, and the
    /// completion then receives nothing.
    void render(const PaginationResult& document, const Paper& paper, Completion completion);

private:
    struct Session;

    void pagePrinted(const std::shared_ptr<Session>& session, std::size_t page,
                     const std::expected<QByteArray, WebEngineError>& pdf);
    void join(const Session& session);

    WebEngine& engine_;
    Console& console_;
    std::shared_ptr<const char> life_ = std::make_shared<const char>(); ///< the engine may outlive this
};

/// The author of the annotation that carries a document's own record.
inline constexpr QStringView embeddedInvoiceAuthor = u"LedraInvoiceData";

/// The record as the annotation carries it: compact JSON in ASCII, which takes a byte a character in a PDF.
QString embeddedText(const Invoice& invoice);

/// Names the document and the program that made it.
void namePdf(PdfFile& pdf, const QString& title);

/// Hides the invoice in the PDF, as JSON, so that it can be read back.
void embedInvoice(PdfFile& pdf, const Invoice& invoice);

} // namespace ledra
