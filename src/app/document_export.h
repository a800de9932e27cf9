#pragma once

#include "model/invoice.h"
#include "platform/console.h"
#include "platform/file_io.h"
#include "render/document_paginator.h"
#include "render/invoice_document.h"
#include "render/pdf_renderer.h"
#include "render/web_engine.h"

#include <QString>

#include <expected>
#include <functional>
#include <optional>

namespace ledra {

enum class ExportFormat { pdf, html };

template <>
inline constexpr std::array enumTexts<ExportFormat> = {
    EnumText{ExportFormat::pdf, "pdf", "PDF"},
    EnumText{ExportFormat::html, "html", "HTML"},
};

/// A document ready to be written.
struct ExportedDocument
{
    QByteArray content;
    bool isMeasured = true; ///< false: pages could not be broken between blocks
};

/// Makes the file of a document: pages, PDF, the hidden copy of the record.
class DocumentExport
{
public:
    using Completion = std::function<void(std::expected<ExportedDocument, QString>)>;

    DocumentExport(WebEngine& engine, Console& console);

    /// Answers later, exactly once. Documents may be under way side by side.
    void run(const Invoice& invoice, const DocumentSetting& setting, const WebFontManager& fonts,
             ExportFormat format, Completion completion);

private:
    void makePdf(const Invoice& invoice, const QString& title, const PaginationResult& pages,
                 PageFormat paper, const Completion& completion);

    DocumentPaginator paginator_;
    PDFRenderer renderer_;
};

/// The pages of a document as one HTML file that needs no other: fonts are inside, several pages stand below
/// one another.
QByteArray standaloneHtml(const QString& title, const std::vector<QString>& pages, PageFormat paper);

} // namespace ledra
