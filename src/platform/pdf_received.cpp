#include "platform/pdf_file.h"

#include <zlib.h>

#include <array>

namespace ledra {

namespace {

constexpr QByteArrayView streamKeyword = "stream";

/// Whether data begins as zlib's format does (RFC 1950, 2.2): Deflate, and a sum that is a multiple of 31.
bool isPacked(QByteArrayView data)
{
    if (data.size() < 2)
        return false;
    const int first = static_cast<unsigned char>(data[0]);
    const int second = static_cast<unsigned char>(data[1]);
    return (first & 0x0f) == 8 && (first * 256 + second) % 31 == 0;
}

/// The data behind a keyword "stream" and its line break, up to the end of the file: the length that is
/// declared may be a lie, and packed data knows its own end.
QByteArrayView dataBehind(QByteArrayView file, qsizetype keyword)
{
    QByteArrayView data = file.sliced(keyword + streamKeyword.size());
    if (data.startsWith('\r'))
        data = data.sliced(1);
    return data.startsWith('\n') ? data.sliced(1) : data;
}

/// Counts what unpacking takes and gives.
class UnpackingCount
{
public:
    explicit UnpackingCount(qint64 limit) : left_(limit) {}

    /// Unpacks a stream; what is damaged ends there. Whether it is within the limit, with all before it.
    bool fits(QByteArrayView data)
    {
        z_stream unpacking{};
        if (inflateInit(&unpacking) != Z_OK)
            return false;
        // The interface is older than const; it only reads.
        unpacking.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(data.data())); // NOLINT(*-const-cast)
        unpacking.avail_in = static_cast<uInt>(data.size());
        int state = Z_OK;
        while (state == Z_OK && left_ >= 0)
            state = step(unpacking);
        inflateEnd(&unpacking);
        return left_ >= 0;
    }

private:
    int step(z_stream& unpacking)
    {
        unpacking.next_out = room_.data();
        unpacking.avail_out = static_cast<uInt>(room_.size());
        const uInt before = unpacking.avail_in;
        const int state = inflate(&unpacking, Z_NO_FLUSH);
        left_ -= before - unpacking.avail_in;
        left_ -= static_cast<qint64>(room_.size() - unpacking.avail_out);
        return state;
    }

    qint64 left_;
    std::array<Bytef, 65'536> room_{};
};

bool unpacksWithin(const QByteArray& file, qint64 limit)
{
    UnpackingCount count(limit);
    qsizetype keyword = file.indexOf(streamKeyword);
    for (; keyword >= 0; keyword = file.indexOf(streamKeyword, keyword + streamKeyword.size())) {
        const QByteArrayView data = dataBehind(file, keyword);
        if (isPacked(data) && !count.fits(data))
            return false;
    }
    return true;
}

} // namespace

std::expected<PdfFile, PdfError> PdfFile::openReceived(const QByteArray& content)
{
    if (!unpacksWithin(content, largestUnpacked))
        return std::unexpected(PdfError{QStringLiteral("what is packed in it is too large")});
    return open(content);
}

} // namespace ledra
