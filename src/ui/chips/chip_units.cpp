#include "ui/chips/chip_units.h"

#include <algorithm>

namespace ledra {

namespace {

QString withPlainLines(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const char16_t lineEnd : {u'\r', u'\u2028', u'\u2029'})
        text.replace(QChar(lineEnd), u'\n');
    // These mean something to the editor's document, and nothing in a text.
    for (const QChar special :
         {QChar(QChar::ObjectReplacementCharacter), QChar(QChar::Null), QChar(0xfdd0), QChar(0xfdd1)})
        text.remove(special);
    return text;
}

} // namespace

ChipUnit chipOf(const QString& token)
{
    return {QChar(QChar::ObjectReplacementCharacter), token};
}

ChipUnits unitsOf(const QString& source, const ChipLanguage& language)
{
    const QString text = withPlainLines(source);
    ChipUnits units;
    units.reserve(static_cast<std::size_t>(text.size()));
    for (const ChipPiece& piece : language.pieces(text)) {
        if (piece.isChip) {
            units.push_back(chipOf(piece.text));
            continue;
        }
        for (const QChar letter : piece.text)
            units.push_back({letter});
    }
    return units;
}

QString sourceOf(const ChipUnits& units)
{
    QString text;
    for (const ChipUnit& unit : units) {
        if (unit.isChip())
            text += unit.token;
        else
            text += unit.letter;
    }
    return text;
}

Difference differenceOf(const ChipUnits& before, const ChipUnits& after)
{
    const std::size_t most = std::min(before.size(), after.size());
    std::size_t begin = 0;
    while (begin < most && before[begin] == after[begin])
        ++begin;
    if (begin > 0 && before[begin - 1].letter.isHighSurrogate())
        --begin; // a letter of two halves is exchanged as a whole
    std::size_t same = 0;
    while (same < most - begin && before[before.size() - 1 - same] == after[after.size() - 1 - same])
        ++same;
    if (same > 0 && before[before.size() - same].letter.isLowSurrogate())
        --same;
    return {begin, before.size() - same, after.size() - same};
}

} // namespace ledra
