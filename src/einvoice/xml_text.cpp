#include "einvoice/xml_text.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>

namespace ledra {

namespace {

constexpr auto asciiSpaces = std::string_view(" \t\n\v\f\r");

/// What a byte of a text becomes; empty: it stays.
struct Replacement
{
    bool isReplaced = false;
    std::string_view by;
};

Replacement replacementOf(unsigned char byte)
{
    switch (byte) {
    case '&':
        return {true, "&amp;"};
    case '<':
        return {true, "&lt;"};
    case '>':
        return {true, "&gt;"};
    case '\r':
        return {true, "&#13;"};
    case '\t':
    case '\n':
        return {};
    default:
        return {byte < 0x20 || byte == 0x7f, {}};
    }
}

/// The bytes that stay whatever stands beside them.
constexpr std::array<bool, 256> plainBytes()
{
    std::array<bool, 256> plain{};
    for (unsigned byte = 0x20; byte < 0xc2; ++byte)
        plain[byte] = byte != 0x7f && byte != '&' && byte != '<' && byte != '>';
    return plain;
}

constexpr std::array<bool, 256> isPlain = plainBytes();

/// How many bytes at a place are a character that must not be written: U+0080 to U+009F, U+FFFE, U+FFFF.
std::size_t forbiddenAt(std::string_view text, std::size_t at)
{
    const auto byte = [&](std::size_t offset) {
        return at + offset < text.size() ? static_cast<unsigned char>(text[at + offset]) : 0U;
    };
    if (byte(0) == 0xc2 && byte(1) >= 0x80 && byte(1) <= 0x9f)
        return 2;
    if (byte(0) == 0xef && byte(1) == 0xbf && byte(2) >= 0xbe)
        return 3;
    return 0;
}

/// The text with all its characters. QString::fromUtf8() would leave out a byte-order mark at the beginning,
/// and lengths that are counted in the one would be wrong in the other.
QString unicode(std::string_view text)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

/// The length of the white space at the beginning, in bytes.
std::size_t leadingSpace(std::string_view text)
{
    const QString wide = unicode(text);
    qsizetype count = 0;
    while (count < wide.size() && wide[count].isSpace())
        ++count;
    return static_cast<std::size_t>(wide.left(count).toUtf8().size());
}

std::size_t trailingSpace(std::string_view text)
{
    const QString wide = unicode(text);
    qsizetype count = 0;
    while (count < wide.size() && wide[wide.size() - 1 - count].isSpace())
        ++count;
    return static_cast<std::size_t>(wide.right(count).toUtf8().size());
}

bool isAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

/// Whether nothing can be seen of a character: white space, and what appendEscaped() leaves out.
bool isInvisible(QChar c)
{
    return c.isSpace() || c < u' ' || (c >= u'\x7f' && c <= u'\x9f') || c >= u'\xfffe';
}

} // namespace

void appendEscaped(std::string& out, std::string_view text)
{
    std::size_t begin = 0; // of what is to be copied as it stands
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (isPlain[byte])
            continue;
        const std::size_t forbidden = byte >= 0xc2 ? forbiddenAt(text, i) : 0;
        const Replacement replacement = forbidden > 0 ? Replacement{true, {}} : replacementOf(byte);
        if (!replacement.isReplaced)
            continue;
        out.append(text, begin, i - begin);
        out += replacement.by;
        i += forbidden > 0 ? forbidden - 1 : 0;
        begin = i + 1;
    }
    out.append(text, begin);
}

void appendAttributeEscaped(std::string& out, std::string_view text)
{
    for (const char c : xmlEscaped(text)) {
        if (c == '"')
            out += "&quot;";
        else if (c == '\n')
            out += "&#10;";
        else if (c == '\t')
            out += "&#9;";
        else
            out += c;
    }
}

std::string xmlEscaped(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size());
    appendEscaped(escaped, text);
    return escaped;
}

std::string xmlAttributeEscaped(std::string_view text)
{
    std::string escaped;
    appendAttributeEscaped(escaped, text);
    return escaped;
}

bool isBlank(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(asciiSpaces);
    if (first == std::string_view::npos)
        return true;
    const bool beginsVisibly = text[first] > ' ' && text[first] < 0x7f;
    return !beginsVisibly && std::ranges::all_of(unicode(text.substr(first)), isInvisible);
}

std::string_view trimmed(std::string_view text)
{
    // Nearly every text begins and ends with ASCII; only then is Unicode asked.
    const auto cutAscii = [&text] {
        const std::size_t first = std::min(text.find_first_not_of(asciiSpaces), text.size());
        text.remove_prefix(first);
        text = text.substr(0, text.find_last_not_of(asciiSpaces) + 1);
    };
    cutAscii();
    if (!text.empty() && !isAscii(text.front()))
        text.remove_prefix(leadingSpace(text));
    if (!text.empty() && !isAscii(text.back()))
        text.remove_suffix(trailingSpace(text));
    return text;
}

} // namespace ledra
