#include "ui/reminders/variable_units.h"

namespace ledra {

namespace {

std::optional<ReminderVariable> variableAt(QStringView rest)
{
    if (!rest.startsWith(u"{{"))
        return std::nullopt;
    for (const EnumText<ReminderVariable>& row : enumTexts<ReminderVariable>) {
        if (rest.startsWith(token(row.value)))
            return row.value;
    }
    return std::nullopt;
}

QString withPlainLines(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (const char16_t lineEnd : {u'\r', u'\u2028', u'\u2029'})
        text.replace(QChar(lineEnd), u'\n');
    // These mean something to the editor's document, and nothing in a letter.
    for (const QChar special :
         {QChar(QChar::ObjectReplacementCharacter), QChar(QChar::Null), QChar(0xfdd0), QChar(0xfdd1)})
        text.remove(special);
    return text;
}

} // namespace

TextUnits unitsOf(const QString& source)
{
    const QString text = withPlainLines(source);
    TextUnits units;
    units.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype place = 0; place < text.size();) {
        const auto variable = variableAt(QStringView(text).sliced(place));
        units.push_back({variable ? QChar(QChar::ObjectReplacementCharacter) : text.at(place), variable});
        place += variable ? token(*variable).size() : 1;
    }
    return units;
}

QString sourceOf(const TextUnits& units)
{
    QString text;
    for (const TextUnit& unit : units)
        text += unit.variable ? token(*unit.variable) : QString(unit.letter);
    return text;
}

Difference differenceOf(const TextUnits& before, const TextUnits& after)
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
