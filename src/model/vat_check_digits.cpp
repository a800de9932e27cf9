#include "model/vat_check_digits.h"

#include <span>

namespace ledra {

namespace {

int valueOf(QChar c)
{
    constexpr int firstLetter = 10;
    if (c == u'+')
        return 36;
    if (c == u'*')
        return 37;
    return c.isDigit() ? c.digitValue() : c.unicode() - u'A' + firstLetter;
}

int weightedSum(QStringView digits, std::span<const int> weights)
{
    int sum = 0;
    for (std::size_t place = 0; place < weights.size(); ++place)
        sum += weights[place] * digits[static_cast<qsizetype>(place)].digitValue();
    return sum;
}

/// Every second digit counts twice, and of two digits the sum; `doublesFirst` says where that begins.
int luhnSum(QStringView digits, bool doublesFirst)
{
    constexpr int largestDigit = 9;
    int sum = 0;
    bool doubles = doublesFirst;
    for (const QChar c : digits) {
        const int value = c.digitValue() * (doubles ? 2 : 1);
        sum += value > largestDigit ? value - largestDigit : value;
        doubles = !doubles;
    }
    return sum;
}

QChar spanishLetter(const QString& digits)
{
    constexpr QStringView letters = u"TRWAGMYFPDXBNJZSQVHLCKE";
    return letters[digits.toInt() % letters.size()];
}

} // namespace

int mod97(const QString& text)
{
    int remainder = 0;
    for (const QChar c : text) {
        const int value = valueOf(c);
        remainder = (remainder * (value < 10 ? 10 : 100) + value) % 97;
    }
    return remainder;
}

bool isAustrianVatNumber(const QString& number)
{
    const QStringView digits = QStringView(number).mid(1); // after the U
    const int sum = luhnSum(digits.left(7), false) + 4;
    return (10 - sum % 10) % 10 == digits[7].digitValue();
}

bool isBelgianVatNumber(const QString& number)
{
    return 97 - number.left(8).toInt() % 97 == number.right(2).toInt();
}

bool isMod11And10Number(const QString& number)
{
    int product = 10;
    for (const QChar c : number.chopped(1)) {
        const int sum = (c.digitValue() + product) % 10;
        product = 2 * (sum == 0 ? 10 : sum) % 11;
    }
    return (11 - product) % 10 == number.back().digitValue();
}

/// Persons have a number and a letter, foreigners a letter for its first digit; companies have a letter, a
/// number and a control that is a digit or, of some kinds, a letter.
bool isSpanishVatNumber(const QString& number)
{
    constexpr QStringView foreigners = u"XYZ";
    constexpr QStringView otherPersons = u"KLM";
    constexpr QStringView controlLetters = u"JABCDEFGHI";
    const QChar first = number.front();
    const QString digits = number.mid(1, 7);
    if (first.isDigit())
        return spanishLetter(number.left(8)) == number.back();
    if (const qsizetype digit = foreigners.indexOf(first); digit >= 0)
        return spanishLetter(QString::number(digit) + digits) == number.back();
    if (otherPersons.contains(first))
        return spanishLetter(digits) == number.back();
    const int control = (10 - luhnSum(digits, true) % 10) % 10;
    return number.back().isDigit() ? number.back().digitValue() == control
                                   : number.back() == controlLetters[control];
}

/// The rule for keys with letters is not public; those pass.
bool isFrenchVatNumber(const QString& number)
{
    bool isNumber = false;
    const int key = number.left(2).toInt(&isNumber);
    return !isNumber || (12 + 3 * (number.mid(2).toInt() % 97)) % 97 == key;
}

bool isItalianVatNumber(const QString& number)
{
    return luhnSum(number, false) % 10 == 0;
}

/// Numbers since 2020 have check digits over all of it, earlier ones and those of companies within the first
/// nine digits.
bool isDutchVatNumber(const QString& number)
{
    if (mod97(QStringLiteral("NL") + number) == 1)
        return true;
    bool isNumber = false;
    (void)number.left(9).toInt(&isNumber);
    constexpr int weights[] = {9, 8, 7, 6, 5, 4, 3, 2};
    return isNumber && weightedSum(number, weights) % 11 == number[8].digitValue();
}

bool isPolishVatNumber(const QString& number)
{
    constexpr int weights[] = {6, 5, 7, 2, 3, 4, 5, 6, 7};
    return weightedSum(number, weights) % 11 == number[9].digitValue();
}

} // namespace ledra
