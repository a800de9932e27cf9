#include "einvoice/xml_encoding.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <array>

namespace ledra {

namespace {

constexpr qsizetype longestDeclaration = 512;

/// How a file of some encoding begins.
struct Beginning
{
    QByteArrayView bytes;
    QStringConverter::Encoding encoding;
    int skipped; ///< bytes of the mark
};

// The marks of UTF-32 begin like those of UTF-16, so they stand first.
constexpr std::array beginnings = {
    Beginning{QByteArrayView("\xff\xfe\x00\x00", 4), QStringConverter::Utf32LE, 4},
    Beginning{QByteArrayView("\x00\x00\xfe\xff", 4), QStringConverter::Utf32BE, 4},
    Beginning{QByteArrayView("<\x00\x00\x00", 4), QStringConverter::Utf32LE, 0},
    Beginning{QByteArrayView("\x00\x00\x00<", 4), QStringConverter::Utf32BE, 0},
    Beginning{QByteArrayView("\xff\xfe", 2), QStringConverter::Utf16LE, 2},
    Beginning{QByteArrayView("\xfe\xff", 2), QStringConverter::Utf16BE, 2},
    Beginning{QByteArrayView("<\x00", 2), QStringConverter::Utf16LE, 0},
    Beginning{QByteArrayView("\x00<", 2), QStringConverter::Utf16BE, 0},
    Beginning{QByteArrayView("\xef\xbb\xbf", 3), QStringConverter::Utf8, 3},
};

/// The encoding that the declaration names; empty when it names none.
QByteArray declaredEncoding(const QByteArray& file)
{
    static const QRegularExpression declaration(
        QStringLiteral(R"(^\s*<\?xml\s[^?>]*encoding\s*=\s*["']([A-Za-z0-9._-]+)["'])"));
    const QString beginning = QString::fromLatin1(file.left(longestDeclaration));
    return declaration.match(beginning).captured(1).toLatin1();
}

std::optional<std::string> decoded(QStringDecoder decoder, QByteArrayView bytes)
{
    if (!decoder.isValid())
        return std::nullopt;
    const QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text.toStdString();
}

} // namespace

std::optional<std::string> decodeXml(const QByteArray& file)
{
    for (const Beginning& beginning : beginnings) {
        if (!file.startsWith(beginning.bytes))
            continue;
        const QByteArrayView rest = QByteArrayView(file).sliced(beginning.skipped);
        if (beginning.encoding == QStringConverter::Utf8)
            return std::string(rest.data(), static_cast<std::size_t>(rest.size()));
        return decoded(QStringDecoder(beginning.encoding), rest);
    }
    const QByteArray name = declaredEncoding(file).toUpper();
    // A declaration that could be read byte by byte is in no wide encoding, whatever it says.
    if (name.isEmpty() || name == "UTF-8" || name.startsWith("UTF-16") || name.startsWith("UTF-32"))
        return file.toStdString();
    return decoded(QStringDecoder(name.constData()), file);
}

} // namespace ledra
