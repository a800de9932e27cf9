#include "einvoice/zugferd_generator.h"

#include "einvoice/pdf_info.h"
#include "einvoice/xmp_packet.h"
#include "platform/pdf_file.h"
#include "platform/version.h"

#include <QColorSpace>
#include <QCryptographicHash>

#include <algorithm>
#include <vector>

namespace ledra {

namespace {

using ExportError = ZUGFeRDGenerator::ExportError;

// Invisible, Hidden, NoView and ToggleNoView go, Print comes (ISO 19005-3, 6.3.2).
constexpr int clearedFlags = 0x127;
constexpr int printFlag = 4;

/// An update under construction: the document and the objects appended to it.
class PdfUpdate
{
public:
    explicit PdfUpdate(const QByteArray& pdf, const PDFInfo& info) : bytes_(pdf), info_(info)
    {
        // Objects begin at the beginning of a line, wherever the document ends.
        if (!bytes_.endsWith('\n'))
            bytes_ += '\n';
    }

    void reserve(qsizetype additional) { bytes_.reserve(bytes_.size() + additional); }

    /// Appends an object, written as its number followed by pieces.
    void object(std::int64_t number, std::initializer_list<QByteArrayView> pieces)
    {
        offsets_.push_back({number, bytes_.size()});
        bytes_ += QByteArray::number(static_cast<qlonglong>(number));
        for (const QByteArrayView piece : pieces)
            bytes_ += piece;
    }

    void stream(std::int64_t number, QByteArrayView entries, const QByteArray& data)
    {
        object(number, {" 0 obj\n<< ", entries, " /Length ", QByteArray::number(data.size()),
                        " >>\nstream\r\n", data, "\r\nendstream\nendobj\n"});
    }

    /// Writes the cross-reference section and the trailer; the update is then complete.
    QByteArray finish(std::int64_t information)
    {
        const qsizetype section = bytes_.size();
        const QByteArray identifier = identifierText();
        bytes_ += "xref\n" + entriesFor({offsets_.back()}) +
                  entriesFor({offsets_.begin(), std::prev(offsets_.end())});
        bytes_ += "trailer\n<< /Size " + decimal(info_.size + 7) + " /Root " + decimal(info_.rootObj) +
                  " 0 R /Info " + decimal(information) + " 0 R /Prev " + decimal(info_.xrefOffset) +
                  " /ID [<" + identifier + "> <" + identifier + ">] >>\nstartxref\n" + decimal(section) +
                  "\n%%EOF\n";
        return std::move(bytes_);
    }

    static QByteArray decimal(std::int64_t number)
    {
        return QByteArray::number(static_cast<qlonglong>(number));
    }

private:
    struct Offset
    {
        std::int64_t object;
        qsizetype offset;
    };

    /// Names the file and guards nothing. Of the original it covers the cross-reference section and the
    /// trailer, whose places and own identifier differ with all that stands before them.
    QByteArray identifierText() const
    {
        const qsizetype from = std::clamp<qsizetype>(info_.xrefOffset, 0, bytes_.size());
        const QByteArrayView covered = QByteArrayView(bytes_).sliced(from);
        QCryptographicHash hash(QCryptographicHash::Md5);
        hash.addData(covered);
        return hash.result().toHex().toUpper();
    }

    /// A subsection for objects with consecutive numbers; each entry has twenty bytes.
    static QByteArray entriesFor(const std::vector<Offset>& objects)
    {
        QByteArray section =
            decimal(objects.front().object) + ' ' + QByteArray::number(objects.size()) + '\n';
        for (const Offset& entry : objects)
            section += QByteArray::number(entry.offset).rightJustified(10, '0') + " 00000 n\r\n";
        return section;
    }

    QByteArray bytes_;
    const PDFInfo& info_;
    std::vector<Offset> offsets_;
};

QByteArray program()
{
    return "Ledra " + QByteArray(shortVersion.data(), static_cast<qsizetype>(shortVersion.size()));
}

QByteArray append(const QByteArray& pdf, const PDFInfo& info, const QByteArray& xml)
{
    const auto reference = [&](int index) { return PdfUpdate::decimal(info.size + index) + " 0 R"; };
    const auto number = [&](int index) { return info.size + index; };
    const QByteArray profile = QColorSpace(QColorSpace::SRgb).iccProfile();
    const QByteArray packet = xmpPacket();

    PdfUpdate update(pdf, info);
    constexpr qsizetype fixedPieces = 4096;
    update.reserve(xml.size() + profile.size() + packet.size() + info.catalogBody.size() + fixedPieces);
    update.stream(number(0), "/Type /EmbeddedFile /Subtype /text#2Fxml", xml);
    update.object(number(1), {" 0 obj\n<< /Type /Filespec /F (factur-x.xml) /UF (factur-x.xml) /EF << /F ",
                              reference(0), " >> /AFRelationship /Alternative >>\nendobj\n"});
    update.object(number(2), {" 0 obj\n<< /EmbeddedFiles << /Names [(factur-x.xml) ", reference(1),
                              "] >> >>\nendobj\n"});
    update.stream(number(3), "/Type /Metadata /Subtype /XML", packet);
    update.stream(number(4), "/N 3", profile);
    update.object(number(5), {" 0 obj\n<< /Type /OutputIntent /S /GTS_PDFA1 /OutputConditionIdentifier (sRGB)"
                              " /DestOutputProfile ",
                              reference(4), " >>\nendobj\n"});
    update.object(number(6),
                  {" 0 obj\n<< /Creator (", program(), ") /Producer (", program(), ") >>\nendobj\n"});
    update.object(info.rootObj,
                  {" 0 obj\n<<", info.catalogBody, " /Names ", reference(2), " /AF [", reference(1),
                   "] /Metadata ", reference(3), " /OutputIntents [", reference(5), "] >>\nendobj\n"});
    return update.finish(number(6));
}

} // namespace

QString ExportError::text() const
{
    return kind == Kind::combineFailed ? QStringLiteral("Failed to create ZUGFeRD PDF: ") + reason
                                       : QStringLiteral("The PDF could not be processed.");
}

std::expected<QByteArray, ExportError> ZUGFeRDGenerator::withPrintableAnnotations(const QByteArray& pdf)
{
    // What lacks these is no PDF to build on, even where the library could put the pieces together again.
    const bool isWhole = pdf.lastIndexOf("startxref") >= 0 && pdf.lastIndexOf("/Root") >= 0;
    std::expected<PdfFile, PdfError> document =
        isWhole ? PdfFile::open(pdf) : std::unexpected(PdfError{QStringLiteral("it is not whole")});
    if (!document)
        return std::unexpected(ExportError{ExportError::Kind::invalidPDF});
    document->removeConformanceEntries();
    const std::expected<void, PdfError> changed = document->changeAnnotationFlags(clearedFlags, printFlag);
    const std::expected<QByteArray, PdfError> bytes =
        changed ? document->bytes() : std::unexpected(changed.error());
    if (!bytes)
        return std::unexpected(ExportError{ExportError::Kind::combineFailed, bytes.error().reason});
    return *bytes;
}

std::expected<QByteArray, ExportError> ZUGFeRDGenerator::withAttachedXml(const QByteArray& pdf,
                                                                         const QByteArray& xml)
{
    const std::optional<PDFInfo> info = readPdfInfo(pdf);
    if (!info)
        return std::unexpected(ExportError{ExportError::Kind::invalidPDF});
    return append(pdf, *info, xml);
}

std::expected<QByteArray, ExportError> ZUGFeRDGenerator::createHybrid(const QByteArray& pdf,
                                                                      const QByteArray& xml)
{
    const std::expected<QByteArray, ExportError> prepared = withPrintableAnnotations(pdf);
    return prepared ? withAttachedXml(*prepared, xml) : prepared;
}

} // namespace ledra
