#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include <expected>
#include <memory>
#include <optional>
#include <vector>

namespace ledra {

/// What a PDF operation failed with, in the library's words.
struct PdfError
{
    QString reason;
};

/// Which sheets of a printed page's PDF belong to the document.
enum class PrintedSheets {
    first, ///< the page was laid out to fit its paper; what an engine prints beyond it is an empty sheet
    all    ///< the page was not measured and may run over several sheets
};

/// A note that programs find and viewers do not show: on the first page, hidden, not printed.
struct HiddenAnnotation
{
    QString author;   ///< /T
    QString contents; ///< /Contents
};

/// A PDF document in memory; the one adapter of the PDF library.
class PdfFile
{
public:
    /// Joins printed pages in order, each set to exactly the paper's size in points, without other boxes.
    [[nodiscard]] static std::expected<PdfFile, PdfError> join(const std::vector<QByteArray>& pages,
                                                               QSize paper, PrintedSheets sheets);

    [[nodiscard]] static std::expected<PdfFile, PdfError> open(const QByteArray& content);

    /// As open(), for a file from somebody else: refused if what is packed in it (FlateDecode) unpacks to
    /// more than `largestUnpacked` bytes in all. The library unpacks cross-reference and object streams whole
    /// and on its own, so that a small file could otherwise take all memory.
    [[nodiscard]] static std::expected<PdfFile, PdfError> openReceived(const QByteArray& content);

    static constexpr qint64 largestUnpacked = qint64{512} * 1024 * 1024;

    PdfFile(PdfFile&&) noexcept;
    PdfFile& operator=(PdfFile&&) noexcept;
    ~PdfFile();

    int pageCount() const;

    /// The size of a page's MediaBox in points; invalid when the page has none that can be read.
    QSizeF pageSize(int page) const;

    void setInformation(const QString& title, const QString& creator);

    /// Adds a text annotation of one point at the page's corner. Its appearance stream is empty, so that no
    /// viewer draws an icon (and ISO 19005-3 6.3.3 holds).
    void addHiddenAnnotation(const HiddenAnnotation& annotation);

    /// The contents of the first page's annotation with that author.
    std::optional<QString> annotationContents(const QString& author) const;

    /// Clears and sets bits in the flags of every annotation (ISO 32000-1, table 165).
    [[nodiscard]] std::expected<void, PdfError> changeAnnotationFlags(int cleared, int added);

    /// Takes attachments, metadata and output intents out of the document, to make room for others.
    void removeConformanceEntries();

    /// The names of the embedded files, at most some hundreds, in the order of the document.
    QStringList attachmentNames() const;

    /// The content of an embedded file, unpacked, of at most `limit` bytes.
    [[nodiscard]] std::expected<QByteArray, PdfError> attachment(const QString& name, qint64 limit) const;

    /// The document's metadata packet, of at most `limit` bytes; nothing without one that can be read.
    std::optional<QByteArray> metadata(qint64 limit) const;

    /// The document's bytes, written in the classical form (cross-reference table, no object streams,
    /// PDF 1.7) to which incremental updates can be appended.
    [[nodiscard]] std::expected<QByteArray, PdfError> bytes() const;

    struct Document; ///< the library's view; for this folder only

private:
    explicit PdfFile(std::unique_ptr<Document> document);

    std::unique_ptr<Document> document_;
};

} // namespace ledra
