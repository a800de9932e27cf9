#include "platform/pdf_file.h"

#include "platform/pdf_document.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDFWriter.hh>

#include <string>

namespace ledra {

namespace {

PdfError noPages()
{
    return {QStringLiteral("the document has no pages")};
}

/// Sets the paper's exact size; the engine rounds it to its own units.
void setPaper(QPDFObjectHandle page, QSize paper)
{
    for (const char* box : {"/CropBox", "/BleedBox", "/TrimBox", "/ArtBox", "/UserUnit", "/Rotate"})
        page.removeKey(box);
    page.replaceKey("/MediaBox", QPDFObjectHandle::newArray(
                                     QPDFObjectHandle::Rectangle(0, 0, paper.width(), paper.height())));
}

} // namespace

PdfFile::PdfFile(std::unique_ptr<Document> document) : document_(std::move(document)) {}
PdfFile::PdfFile(PdfFile&&) noexcept = default;
PdfFile& PdfFile::operator=(PdfFile&&) noexcept = default;
PdfFile::~PdfFile() = default;

std::expected<PdfFile, PdfError> PdfFile::open(const QByteArray& content)
{
    try {
        auto document = std::make_unique<Document>();
        document->sources.push_back(content);
        document->pdf.setSuppressWarnings(true);
        document->pdf.processMemoryFile("document", content.constData(),
                                        static_cast<std::size_t>(content.size()));
        if (pagesOf(document->pdf).empty()) // which also meets a damaged page tree here and not later
            return std::unexpected(noPages());
        return PdfFile(std::move(document));
    } catch (const std::exception& thrown) {
        return std::unexpected(failure(thrown));
    }
}

std::expected<PdfFile, PdfError> PdfFile::join(const std::vector<QByteArray>& pages, QSize paper,
                                               PrintedSheets sheets)
{
    try {
        auto document = std::make_unique<Document>();
        document->sources = pages;
        document->pdf.emptyPDF();
        QPDFPageDocumentHelper joined(document->pdf);
        for (const QByteArray& source : document->sources) {
            QPDF page;
            page.setSuppressWarnings(true);
            page.processMemoryFile("page", source.constData(), static_cast<std::size_t>(source.size()));
            // Streams are copied at once, since the source goes at the end of this turn.
            page.setImmediateCopyFrom(true);
            QPDFPageDocumentHelper(page)
                .pushInheritedAttributesToPage(); // so that setPaper() meets all of them
            for (QPDFPageObjectHelper& sheet : pagesOf(page)) {
                setPaper(sheet.getObjectHandle(), paper);
                joined.addPage(sheet, false);
                if (sheets == PrintedSheets::first)
                    break;
            }
        }
        if (pagesOf(document->pdf).empty())
            return std::unexpected(noPages());
        return PdfFile(std::move(document));
    } catch (const std::exception& thrown) {
        return std::unexpected(failure(thrown));
    }
}

int PdfFile::pageCount() const
{
    return static_cast<int>(pagesOf(document_->pdf).size());
}

QSizeF PdfFile::pageSize(int page) const
{
    QPDFObjectHandle box =
        pagesOf(document_->pdf).at(static_cast<std::size_t>(page)).getAttribute("/MediaBox", false);
    if (!box.isRectangle())
        return {};
    const QPDFObjectHandle::Rectangle corners = box.getArrayAsRectangle();
    return {corners.urx - corners.llx, corners.ury - corners.lly};
}

void PdfFile::setInformation(const QString& title, const QString& creator)
{
    QPDFObjectHandle trailer = document_->pdf.getTrailer();
    if (!trailer.getKey("/Info").isDictionary())
        trailer.replaceKey("/Info", document_->pdf.makeIndirectObject(QPDFObjectHandle::newDictionary()));
    QPDFObjectHandle information = trailer.getKey("/Info");
    information.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(title.toStdString()));
    information.replaceKey("/Creator", QPDFObjectHandle::newUnicodeString(creator.toStdString()));
}

std::expected<QByteArray, PdfError> PdfFile::bytes() const
{
    try {
        QPDFWriter writer(document_->pdf);
        writer.setOutputMemory();
        writer.setObjectStreamMode(qpdf_o_disable);
        writer.setPreserveEncryption(false);
        writer.setNewlineBeforeEndstream(true);
        writer.setDeterministicID(true);
        writer.setMinimumPDFVersion("1.7");
        writer.write();
        const std::unique_ptr<Buffer> buffer(writer.getBuffer());
        return QByteArray(reinterpret_cast<const char*>(buffer->getBuffer()),
                          static_cast<qsizetype>(buffer->getSize()));
    } catch (const std::exception& thrown) {
        return std::unexpected(failure(thrown));
    }
}

} // namespace ledra
