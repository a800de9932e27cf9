#include "platform/pdf_document.h"

#include <qpdf/Pipeline.hh>

#include <set>

namespace ledra {

namespace {

// What is looked at in a tree of names, so that neither a cycle nor a tree that repeats its branches holds us
// up.
constexpr std::size_t mostNodes = 2000;
constexpr qsizetype mostAttachments = 500;

/// An embedded file: what it is called and its file specification.
struct Attachment
{
    QString name;
    QPDFObjectHandle specification;
};

/// Collects unpacked bytes up to a limit.
class BoundedSink final : public Pipeline
{
public:
    explicit BoundedSink(qint64 limit) : Pipeline("bounded sink", nullptr), limit_(limit) {}

    void write(const unsigned char* data, std::size_t length) override
    {
        if (static_cast<qint64>(length) > limit_ - bytes_.size())
            throw std::length_error("larger than " + std::to_string(limit_) + " bytes");
        bytes_.append(reinterpret_cast<const char*>(data), static_cast<qsizetype>(length));
    }
    void finish() override { isFinished_ = true; }

    /// Whether the stream came to its end; one that grew too large, or is damaged, does not.
    bool isFinished() const { return isFinished_; }
    const QByteArray& bytes() const { return bytes_; }

private:
    qint64 limit_;
    QByteArray bytes_;
    bool isFinished_ = false;
};

std::optional<QByteArray> unpacked(QPDFObjectHandle stream, qint64 limit)
{
    BoundedSink sink(limit);
    bool isDecoded = false;
    const bool isRead = stream.pipeStreamData(&sink, &isDecoded, 0, qpdf_dl_generalized, true, true);
    return isRead && isDecoded && sink.isFinished() ? std::optional(sink.bytes()) : std::nullopt;
}

/// The name that a file specification gives; the one for all systems wins.
QString fileNameOf(QPDFObjectHandle specification)
{
    for (const char* key : {"/UF", "/F"}) {
        QPDFObjectHandle name = specification.getKey(key);
        if (name.isString())
            return QString::fromStdString(name.getUTF8Value());
    }
    return {};
}

QPDFObjectHandle embeddedStream(QPDFObjectHandle specification)
{
    QPDFObjectHandle files = specification.getKey("/EF");
    if (!files.isDictionary())
        return QPDFObjectHandle::newNull();
    QPDFObjectHandle stream = files.getKey("/UF");
    return stream.isStream() ? stream : files.getKey("/F");
}

/// Walks the places where a document keeps its files: the tree of names and the list of associated files.
class AttachmentWalk
{
public:
    explicit AttachmentWalk(QPDF& pdf)
    {
        QPDFObjectHandle catalog = pdf.getRoot();
        QPDFObjectHandle names = catalog.getKey("/Names");
        if (names.isDictionary())
            node(names.getKey("/EmbeddedFiles"));
        addAll(catalog.getKey("/AF"), 0, 1);
    }

    std::vector<Attachment> take() { return std::move(found_); }

private:
    void node(const QPDFObjectHandle& root)
    {
        std::vector<QPDFObjectHandle> open = {root};
        std::set<QPDFObjGen> seen;
        for (std::size_t count = 0; !open.empty() && count < mostNodes; ++count) {
            QPDFObjectHandle current = open.back();
            open.pop_back();
            if (!current.isDictionary() || (current.isIndirect() && !seen.insert(current.getObjGen()).second))
                continue;
            addAll(current.getKey("/Names"), 1, 2); // pairs of key and value
            QPDFObjectHandle kids = current.getKey("/Kids");
            if (!kids.isArray())
                continue;
            const std::vector<QPDFObjectHandle> list = kids.getArrayAsVector();
            open.insert(open.end(), list.rbegin(), list.rend());
        }
    }

    void addAll(QPDFObjectHandle list, int first, int step)
    {
        if (!list.isArray())
            return;
        for (int i = first; i < list.getArrayNItems(); i += step)
            add(list.getArrayItem(i));
    }

    void add(QPDFObjectHandle specification)
    {
        const bool isFull = static_cast<qsizetype>(found_.size()) == mostAttachments;
        if (isFull || !specification.isDictionary() || !embeddedStream(specification).isStream())
            return;
        const QString name = fileNameOf(specification);
        if (!name.isEmpty() && names_.insert(name).second)
            found_.push_back({name, specification});
    }

    std::vector<Attachment> found_;
    std::set<QString> names_; ///< a file in the list is in the tree as well
};

} // namespace

QStringList PdfFile::attachmentNames() const
{
    QStringList names;
    try {
        for (const Attachment& attachment : AttachmentWalk(document_->pdf).take())
            names += attachment.name;
    } catch (const std::exception&) {
        return names; // what a damaged tree holds behind the damage cannot be named
    }
    return names;
}

std::expected<QByteArray, PdfError> PdfFile::attachment(const QString& name, qint64 limit) const
{
    try {
        for (const Attachment& attachment : AttachmentWalk(document_->pdf).take()) {
            if (attachment.name != name)
                continue;
            if (std::optional<QByteArray> content = unpacked(embeddedStream(attachment.specification), limit))
                return *content;
            return std::unexpected(PdfError{QStringLiteral("%1 is damaged or too large").arg(name)});
        }
        return std::unexpected(PdfError{QStringLiteral("there is no attachment named %1").arg(name)});
    } catch (const std::exception& thrown) {
        return std::unexpected(failure(thrown));
    }
}

std::optional<QByteArray> PdfFile::metadata(qint64 limit) const
{
    try {
        QPDFObjectHandle packet = document_->pdf.getRoot().getKey("/Metadata");
        return packet.isStream() ? unpacked(packet, limit) : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

void PdfFile::removeConformanceEntries()
{
    QPDFObjectHandle catalog = document_->pdf.getRoot();
    for (const char* key : {"/Names", "/AF", "/Metadata", "/OutputIntents"})
        catalog.removeKey(key);
}

} // namespace ledra
