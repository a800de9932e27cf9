#include "model/amount_text.h"

#include <algorithm>
#include <cmath>

namespace ledra {

namespace {

constexpr QChar noBreakSpace = u'\u00a0';
constexpr QChar minusSign = u'\u2212';
constexpr int mostDecimals = 6;

/// The digits of a number without its sign, and whether it keeps a sign once rounded.
struct Digits
{
    QString text;
    bool negative;
};

Digits digitsOf(double number, int decimals, Language language)
{
    const QString text = documentLocale(language).toString(std::abs(number), 'f', decimals);
    const bool zero = std::ranges::none_of(text, [](QChar c) { return c >= u'1' && c <= u'9'; });
    return {text, number < 0 && !zero};
}

QString withSign(const Digits& digits, const QString& text)
{
    return digits.negative ? minusSign + text : text;
}

/// A number with as many decimals as it has, six at most.
Digits trimmedDigitsOf(double number, Language language)
{
    Digits digits = digitsOf(number, mostDecimals, language);
    const QString point = documentLocale(language).decimalPoint();
    while (digits.text.endsWith(u'0'))
        digits.text.chop(1);
    if (digits.text.endsWith(point))
        digits.text.chop(point.size());
    return digits;
}

} // namespace

QLocale documentLocale(Language language)
{
    return language == Language::german ? QLocale(QLocale::German, QLocale::Germany)
                                        : QLocale(QLocale::English, QLocale::UnitedKingdom);
}

QString amountText(double amount, const Currency& currency, Language language)
{
    const Digits digits = digitsOf(amount, currency.decimals(), language);
    const QString symbol = currency.symbol();
    if (language == Language::german)
        return withSign(digits, digits.text + noBreakSpace + symbol);
    const bool isSign = symbol.size() == 1;
    return withSign(digits, isSign ? symbol + digits.text : symbol + noBreakSpace + digits.text);
}

QString quantityText(double quantity, Language language)
{
    const Digits digits = trimmedDigitsOf(quantity, language);
    return withSign(digits, digits.text);
}

QString percentText(double percentage, Language language)
{
    const Digits digits = trimmedDigitsOf(percentage, language);
    return withSign(digits, digits.text) +
           (language == Language::german ? QString(noBreakSpace) : QString()) + u'%';
}

QString dateText(QDate date, Language language)
{
    return documentLocale(language).toString(date, QStringLiteral("d MMMM yyyy"));
}

QString shortDateText(QDate date, Language language)
{
    return documentLocale(language).toString(date, QStringLiteral("d MMMM"));
}

} // namespace ledra
