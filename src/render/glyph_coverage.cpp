#include "render/glyph_coverage.h"

#include <QSet>

#include <fontconfig/fontconfig.h>

namespace ledra {

namespace {

// The shipped faces have all Latin letters of Europe; a space or a format character needs no glyph.
constexpr char32_t firstAskedFor = 0x250;

struct CharSetRelease
{
    void operator()(FcCharSet* set) const { FcCharSetDestroy(set); }
};
using CharSet = std::unique_ptr<FcCharSet, CharSetRelease>;

/// All characters of the installed fonts together.
CharSet installedCharacters()
{
    CharSet all(FcCharSetCreate());
    const FcFontSet* fonts = FcInit() == FcTrue ? FcConfigGetFonts(nullptr, FcSetSystem) : nullptr;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcCharSet* characters = nullptr;
        if (FcPatternGetCharSet(fonts->fonts[i], FC_CHARSET, 0, &characters) == FcResultMatch)
            FcCharSetMerge(all.get(), characters, nullptr);
    }
    return all;
}

bool needsGlyph(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
    case QChar::Separator_Space:
    case QChar::Other_Format:
    case QChar::Other_Control:
        return false;
    default:
        break;
    }
    const bool isVariationSelector =
        (character >= 0xfe00 && character <= 0xfe0f) || (character >= 0xe0100 && character <= 0xe01ef);
    return character >= firstAskedFor && !isVariationSelector;
}

} // namespace

QString visibleText(const QString& html)
{
    const QString styleStart = QStringLiteral("<style");
    const QString styleEnd = QStringLiteral("</style");
    QString text;
    qsizetype at = 0;
    while (at < html.size()) {
        const qsizetype tag = html.indexOf(u'<', at);
        text += QStringView(html).mid(at, tag < 0 ? -1 : tag - at);
        if (tag < 0)
            break;
        const bool isStyle = QStringView(html).mid(tag).startsWith(styleStart, Qt::CaseInsensitive);
        const qsizetype from = isStyle ? html.indexOf(styleEnd, tag, Qt::CaseInsensitive) : tag;
        const qsizetype end = from < 0 ? -1 : html.indexOf(u'>', from);
        if (end < 0)
            break;
        text += u' ';
        at = end + 1;
    }
    return text;
}

QStringList charactersWithoutGlyph(const QString& text)
{
    static const CharSet installed = installedCharacters(); // reading the fonts takes a while, and they stay
    QStringList missing;
    QSet<char32_t> seen;
    for (const uint unit : text.toUcs4()) {
        const auto character = static_cast<char32_t>(unit);
        if (!needsGlyph(character) || seen.contains(character))
            continue;
        seen.insert(character);
        if (FcCharSetHasChar(installed.get(), character) == FcFalse)
            missing += QString::fromUcs4(&character, 1);
    }
    return missing;
}

QString missingGlyphText(const QStringList& characters)
{
    constexpr qsizetype mostNamed = 10;
    QStringList named;
    for (const QString& character : characters.first(std::min(mostNamed, characters.size()))) {
        const uint code = character.toUcs4().front();
        named += QStringLiteral("\"%1\" (U+%2)")
                     .arg(character, QString::number(code, 16).toUpper().rightJustified(4, u'0'));
    }
    if (characters.size() > mostNamed)
        named += QStringLiteral("%1 more").arg(characters.size() - mostNamed);
    return QStringLiteral("no installed font can show ") + named.join(QStringLiteral(", "));
}

} // namespace ledra
