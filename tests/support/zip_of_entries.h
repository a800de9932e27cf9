#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace ledra::test {

/// An entry of an archive in which anything may be said.
struct ZipEntry
{
    QByteArray name;
    QByteArray content = {};
    int method = 0; ///< 0: as it is; 8: deflated; with others the content is not packed
    int flags = 0;
    int unixMode = 0;
    std::optional<quint32> size = {}; ///< these are said instead of the truth
    std::optional<quint32> packedSize = {};
    std::optional<quint32> checksum = {};
    bool isAlias = false; ///< it has no data of its own but that of the first entry
};

inline constexpr int utf8Name = 1 << 11;

inline QByteArray littleEndian(quint64 number, int bytes)
{
    QByteArray written;
    for (int byte = 0; byte < bytes; ++byte)
        written += static_cast<char>(number >> 8 * byte & 0xff);
    return written;
}

inline quint32 crc32(const QByteArray& content)
{
    quint32 sum = 0xffffffff;
    for (const char byte : content) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xedb88320 : 0);
    }
    return ~sum;
}

/// What both headers of an entry share.
inline QByteArray zipFields(const ZipEntry& entry, const QByteArray& packed)
{
    const auto size = entry.size.value_or(static_cast<quint32>(entry.content.size()));
    const auto packedSize = entry.packedSize.value_or(static_cast<quint32>(packed.size()));
    const auto checksum = entry.checksum ? *entry.checksum : crc32(entry.content);
    const auto nameSize = static_cast<quint64>(entry.name.size());
    return littleEndian(20, 2) + littleEndian(static_cast<quint64>(entry.flags), 2) +
           littleEndian(static_cast<quint64>(entry.method), 2) + littleEndian(0x21 << 16, 4) +
           littleEndian(checksum, 4) + littleEndian(packedSize, 4) + littleEndian(size, 4) +
           littleEndian(nameSize, 2) + littleEndian(0, 2);
}

inline QByteArray deflated(const QByteArray& content)
{
    constexpr int before = 6; // what qCompress() puts around the bare data, of which it makes none of nothing
    constexpr int behind = 4;
    return content.isEmpty() ? QByteArray("\3\0", 2) : qCompress(content).sliced(before).chopped(behind);
}

/// An archive of these entries.
inline QByteArray zipOf(const QList<ZipEntry>& entries)
{
    QByteArray zip;
    QByteArray directory;
    for (const ZipEntry& entry : entries) {
        const QByteArray packed = entry.method == 8 ? deflated(entry.content) : entry.content;
        const QByteArray fields = zipFields(entry, packed);
        directory += "PK\1\2" + littleEndian(0x0314, 2) + fields + QByteArray(6, '\0') +
                     littleEndian(static_cast<quint64>(entry.unixMode) << 16, 4) +
                     littleEndian(entry.isAlias ? 0 : static_cast<quint64>(zip.size()), 4) + entry.name;
        if (!entry.isAlias)
            zip += "PK\3\4" + fields + entry.name + packed;
    }
    const QByteArray count = littleEndian(static_cast<quint64>(entries.size()), 2);
    return zip + directory + "PK\5\6" + QByteArray(4, '\0') + count + count +
           littleEndian(static_cast<quint64>(directory.size()), 4) +
           littleEndian(static_cast<quint64>(zip.size()), 4) + QByteArray(2, '\0');
}

} // namespace ledra::test
