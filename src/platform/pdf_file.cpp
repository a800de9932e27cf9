#include "platform/pdf_file.h"

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <string>

namespace ledra {

struct PdfFile::Document
{
    QPDF pdf;
    std::vector<QByteArray> sources; // the library reads pages from these until the document is written
};

namespace {

constexpr int hiddenFlag = 1 << 1;
constexpr int lockedFlag = 1 << 7;

PdfError failure(const std::exception& thrown)
{
    return {QString::fromUtf8(thrown.what())};
}

PdfError noPages()
{
    return {QStringLiteral("the document has no pages")};
}

std::string utf8(const QString& text)
{
    return text.toStdString();
}

std::vector<QPDFPageObjectHelper> pagesOf(QPDF& pdf)
{
    return QPDFPageDocumentHelper(pdf).getAllPages();
}

/// Sets the paper's exact size; the engine rounds it to its own units.
void setPaper(QPDFObjectHandle page, QSize paper)
{
    for (const char* box : {"/CropBox", "/BleedBox", "/TrimBox", "/ArtBox", "/UserUnit", "/Rotate"})
        page.removeKey(box);
    page.replaceKey("/MediaBox", QPDFObjectHandle::newArray(
                                     QPDFObjectHandle::Rectangle(0, 0, paper.width(), paper.height())));
}

QPDFObjectHandle emptyAppearance(QPDF& pdf)
{
    QPDFObjectHandle form = QPDFObjectHandle::newStream(&pdf, "");
    form.replaceDict(
        QPDFObjectHandle::parse("<< /Type /XObject /Subtype /Form /BBox [0 0 1 1] /Resources << >> >>"));
    return form;
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
    information.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(utf8(title)));
    information.replaceKey("/Creator", QPDFObjectHandle::newUnicodeString(utf8(creator)));
}

void PdfFile::addHiddenAnnotation(const HiddenAnnotation& annotation)
{
    QPDF& pdf = document_->pdf;
    QPDFObjectHandle note = QPDFObjectHandle::newDictionary();
    note.replaceKey("/Type", QPDFObjectHandle::newName("/Annot"));
    note.replaceKey("/Subtype", QPDFObjectHandle::newName("/Text"));
    note.replaceKey("/Rect", QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(0, 0, 1, 1)));
    note.replaceKey("/F", QPDFObjectHandle::newInteger(hiddenFlag | lockedFlag));
    note.replaceKey("/T", QPDFObjectHandle::newUnicodeString(utf8(annotation.author)));
    note.replaceKey("/Contents", QPDFObjectHandle::newUnicodeString(utf8(annotation.contents)));
    QPDFObjectHandle appearance = QPDFObjectHandle::newDictionary();
    appearance.replaceKey("/N", emptyAppearance(pdf));
    note.replaceKey("/AP", appearance);

    QPDFObjectHandle page = pagesOf(pdf).front().getObjectHandle();
    if (!page.getKey("/Annots").isArray())
        page.replaceKey("/Annots", QPDFObjectHandle::newArray());
    page.getKey("/Annots").appendItem(pdf.makeIndirectObject(note));
}

std::optional<QString> PdfFile::annotationContents(const QString& author) const
{
    try {
        const std::vector<QPDFPageObjectHelper> pages = pagesOf(document_->pdf);
        if (pages.empty())
            return std::nullopt;
        QPDFObjectHandle annotations = QPDFObjectHandle(pages.front().getObjectHandle()).getKey("/Annots");
        if (!annotations.isArray())
            return std::nullopt;
        for (QPDFObjectHandle note : annotations.getArrayAsVector()) {
            const bool matches = note.isDictionary() && note.getKey("/T").isString() &&
                                 note.getKey("/T").getUTF8Value() == utf8(author);
            if (matches && note.getKey("/Contents").isString())
                return QString::fromStdString(note.getKey("/Contents").getUTF8Value());
        }
    } catch (const std::exception&) {
        return std::nullopt; // a damaged page carries no annotation that could be read
    }
    return std::nullopt;
}

std::expected<QByteArray, PdfError> PdfFile::bytes() const
{
    try {
        QPDFWriter writer(document_->pdf);
        writer.setOutputMemory();
        writer.setObjectStreamMode(qpdf_o_disable);
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
