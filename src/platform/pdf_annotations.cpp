#include "platform/pdf_document.h"

namespace ledra {

namespace {

constexpr int hiddenFlag = 1 << 1;
constexpr int lockedFlag = 1 << 7;

QPDFObjectHandle emptyAppearance(QPDF& pdf)
{
    QPDFObjectHandle form = QPDFObjectHandle::newStream(&pdf, "");
    form.replaceDict(
        QPDFObjectHandle::parse("<< /Type /XObject /Subtype /Form /BBox [0 0 1 1] /Resources << >> >>"));
    return form;
}

/// A page's annotations that are objects of the right kind.
std::vector<QPDFObjectHandle> annotationsOf(const QPDFPageObjectHelper& page)
{
    std::vector<QPDFObjectHandle> annotations;
    QPDFObjectHandle list = QPDFObjectHandle(page.getObjectHandle()).getKey("/Annots");
    if (!list.isArray())
        return annotations;
    for (const QPDFObjectHandle& annotation : list.getArrayAsVector()) {
        if (QPDFObjectHandle(annotation).isDictionary())
            annotations.push_back(annotation);
    }
    return annotations;
}

void changeFlags(QPDFObjectHandle annotation, int cleared, int added)
{
    QPDFObjectHandle flags = annotation.getKey("/F");
    const int before = flags.isInteger() ? flags.getIntValueAsInt() : 0;
    const int after = (before & ~cleared) | added;
    if (after != before)
        annotation.replaceKey("/F", QPDFObjectHandle::newInteger(after));
}

} // namespace

void PdfFile::addHiddenAnnotation(const HiddenAnnotation& annotation)
{
    QPDF& pdf = document_->pdf;
    QPDFObjectHandle note = QPDFObjectHandle::newDictionary();
    note.replaceKey("/Type", QPDFObjectHandle::newName("/Annot"));
    note.replaceKey("/Subtype", QPDFObjectHandle::newName("/Text"));
    note.replaceKey("/Rect", QPDFObjectHandle::newArray(QPDFObjectHandle::Rectangle(0, 0, 1, 1)));
    note.replaceKey("/F", QPDFObjectHandle::newInteger(hiddenFlag | lockedFlag));
    note.replaceKey("/T", QPDFObjectHandle::newUnicodeString(annotation.author.toStdString()));
    note.replaceKey("/Contents", QPDFObjectHandle::newUnicodeString(annotation.contents.toStdString()));
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
        for (QPDFObjectHandle note : annotationsOf(pages.front())) {
            const bool matches =
                note.getKey("/T").isString() && note.getKey("/T").getUTF8Value() == author.toStdString();
            if (matches && note.getKey("/Contents").isString())
                return QString::fromStdString(note.getKey("/Contents").getUTF8Value());
        }
    } catch (const std::exception&) {
        return std::nullopt; // a damaged page carries no annotation that could be read
    }
    return std::nullopt;
}

std::expected<void, PdfError> PdfFile::changeAnnotationFlags(int cleared, int added)
{
    try {
        for (const QPDFPageObjectHelper& page : pagesOf(document_->pdf)) {
            for (QPDFObjectHandle annotation : annotationsOf(page))
                changeFlags(annotation, cleared, added);
        }
        return {};
    } catch (const std::exception& thrown) {
        return std::unexpected(failure(thrown));
    }
}

} // namespace ledra
