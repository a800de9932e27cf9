#include "app/typed_number.h"

#include <cmath>

namespace ledra {

namespace {

bool isMark(QChar c)
{
    return c == u'.' || c == u',';
}

/// Whether a lone mark stands between thousands.
bool isThousandsMark(const QString& digits, qsizetype place, const QLocale& locale)
{
    constexpr qsizetype group = 3;
    const QChar mark = digits[place];
    return QStringView(locale.groupSeparator()).startsWith(mark) && digits.size() - place - 1 == group &&
           place >= 1 && place <= group && digits[0] != u'0';
}

/// Whether what is between the marks are groups of thousands: "1.250.000", not a day such as "05.03.2026".
bool hasGroups(const QString& digits, QChar mark)
{
    constexpr qsizetype group = 3;
    const QStringList groups = digits.split(mark);
    return groups.first().size() <= group &&
           std::all_of(std::next(groups.begin()), groups.end(),
                       [](const QString& each) { return each.size() == group; });
}

} // namespace

std::optional<double> numberTyped(const QString& text, const QLocale& locale)
{
    QString plain = text;
    plain.replace(QChar(0x2212), u'-'); // the minus sign
    plain.removeIf([](QChar c) {
        return c.isSpace() || c == u'\'' || c == u'’' || c == u'%' || c.category() == QChar::Symbol_Currency;
    });
    const bool isNegative = plain.startsWith(u'-');
    if (isNegative)
        plain.remove(0, 1);
    const qsizetype last = std::max(plain.lastIndexOf(u'.'), plain.lastIndexOf(u','));
    const auto marks = std::count_if(plain.begin(), plain.end(), isMark);
    const bool hasBoth = plain.contains(u'.') && plain.contains(u',');
    const bool hasDecimals = last >= 0 && (hasBoth || (marks == 1 && !isThousandsMark(plain, last, locale)));
    if (hasBoth && plain.count(plain[last]) > 1)
        return std::nullopt; // "1,234.567,8" is nothing that anybody means
    QString digits = hasDecimals ? plain.left(last) : plain;
    for (const QChar mark : {u'.', u','}) {
        if (digits.contains(mark) && !hasGroups(digits, mark))
            return std::nullopt;
    }
    digits.removeIf(isMark);
    if (hasDecimals)
        digits += u'.' + plain.mid(last + 1);
    bool isNumber = false;
    const bool startsWell = !digits.isEmpty() && (digits[0].isDigit() || digits[0] == u'.');
    const double number = digits.toDouble(&isNumber);
    constexpr double most = 1e12; // cents of larger amounts are no longer exact
    if (!isNumber || !startsWell || digits.contains(u'e', Qt::CaseInsensitive) || std::abs(number) > most)
        return std::nullopt;
    return isNegative ? -number : number;
}

QString numberForTyping(double number, int leastDecimals, const QLocale& locale)
{
    constexpr int mostDecimals = 6;
    QString text = QString::number(number, 'f', mostDecimals);
    const qsizetype least = text.size() - mostDecimals + leastDecimals;
    while (text.size() > least && text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text.replace(u'.', locale.decimalPoint());
}

} // namespace ledra
