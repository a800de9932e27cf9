#pragma once

#include "model/invoice.h"
#include "platform/console.h"
#include "platform/file_io.h"
#include "render/document_paginator.h"
#include "render/invoice_document.h"
#include "render/pdf_renderer.h"
#include "render/web_engine.h"

#include <QString>
#include <QStringList>

#include <expected>
#include <functional>
#include <memory>
#include <optional>

namespace ledra {

enum class ExportFormat { pdf, zugferd, xrechnung, html };

template <>
inline constexpr std::array enumTexts<ExportFormat> = {
    EnumText{ExportFormat::pdf, "pdf", "PDF"},
    EnumText{ExportFormat::zugferd, "zugferd", "ZUGFeRD PDF"},
    EnumText{ExportFormat::xrechnung, "xrechnung", "XRechnung"},
    EnumText{ExportFormat::html, "html", "HTML"},
};

/// The extension of a format's files, with its dot.
QString fileExtension(ExportFormat format);

/// Whether a format carries an e-invoice.
bool isEInvoice(ExportFormat format);

/// What a document is made of: an invoice, quote or cancellation, or else a reminder of that invoice.
struct ExportRecord
{
    Invoice invoice;
    std::optional<Reminder> reminder = {};
};

/// A document ready to be written.
struct ExportedDocument
{
    QByteArray content;
    bool isMeasured = true;   ///< false: pages could not be broken between blocks
    QStringList notices = {}; ///< what users are to know before they send it; a sentence each
};

/// Makes the file of a document: pages, PDF, the hidden copy of the record, the e-invoice.
class DocumentExport
{
public:
    using Completion = std::function<void(std::expected<ExportedDocument, QString>)>;

    /// @param hybridFailed what the console says when the PDF of a hybrid cannot be made
    DocumentExport(WebEngine& engine, Console& console,
                   const char* hybridFailed = "Failed to create PDF for ZUGFeRD export");

    /// Answers later, exactly once, unless it goes before that. Documents may be under way side by side. A
    /// reminder is never an e-invoice.
    void run(const ExportRecord& record, const DocumentSetting& setting, const WebFontManager& fonts,
             ExportFormat format, const Completion& completion);

private:
    struct Order;

    void makeFile(const std::shared_ptr<const Order>& order, const PaginationResult& pages);
    static void finishPdf(const Order& order, PdfFile pdf, ExportedDocument file);

    Console& console_;
    const char* hybridFailed_;
    DocumentPaginator paginator_;
    PDFRenderer renderer_;
};

/// The pages of a document as one HTML file that needs no other: fonts are inside, several pages stand below
/// one another.
QByteArray standaloneHtml(const QString& title, const std::vector<QString>& pages, PageFormat paper);

} // namespace ledra
