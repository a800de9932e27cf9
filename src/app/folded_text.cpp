#include "app/folded_text.h"

namespace ledra {

namespace {

void appendUtf8(std::string& text, char32_t letter)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((letter >> shift) & 0x3F)); };
    if (letter < 0x80) {
        text += static_cast<char>(letter);
    } else if (letter < 0x800) {
        text += static_cast<char>(0xC0 | (letter >> 6));
        tail(0);
    } else if (letter < 0x10000) {
        text += static_cast<char>(0xE0 | (letter >> 12));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0 | (letter >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

void appendFolded(std::string& folded, QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        if (unit < 0x80) {
            folded += static_cast<char>(unit >= u'A' && unit <= u'Z' ? unit + (u'a' - u'A') : unit);
        } else if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            appendUtf8(folded, QChar::toCaseFolded(QChar::surrogateToUcs4(text[i], text[i + 1])));
            ++i;
        } else {
            appendUtf8(folded, QChar::toCaseFolded(char32_t{unit}));
        }
    }
}

} // namespace ledra
