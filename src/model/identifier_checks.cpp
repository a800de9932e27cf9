#include "model/identifier_checks.h"

#include "model/country.h"
#include "model/vat_check_digits.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace ledra {

namespace {

using Problem = IdentifierProblem;

struct IbanLength
{
    std::u16string_view country;
    int length;
};

/// As the IBAN registry of SWIFT has them.
constexpr auto ibanLengths = std::to_array<IbanLength>({
    {u"AD", 24}, {u"AE", 23}, {u"AL", 28}, {u"AT", 20}, {u"AZ", 28}, {u"BA", 20}, {u"BE", 16}, {u"BG", 22},
    {u"BH", 22}, {u"BI", 27}, {u"BR", 29}, {u"BY", 28}, {u"CH", 21}, {u"CR", 22}, {u"CY", 28}, {u"CZ", 24},
    {u"DE", 22}, {u"DJ", 27}, {u"DK", 18}, {u"DO", 28}, {u"EE", 20}, {u"EG", 29}, {u"ES", 24}, {u"FI", 18},
    {u"FO", 18}, {u"FR", 27}, {u"GB", 22}, {u"GE", 22}, {u"GI", 23}, {u"GL", 18}, {u"GR", 27}, {u"GT", 28},
    {u"HR", 21}, {u"HU", 28}, {u"IE", 22}, {u"IL", 23}, {u"IQ", 23}, {u"IS", 26}, {u"IT", 27}, {u"JO", 30},
    {u"KW", 30}, {u"KZ", 20}, {u"LB", 28}, {u"LC", 32}, {u"LI", 21}, {u"LT", 20}, {u"LU", 20}, {u"LV", 21},
    {u"LY", 25}, {u"MC", 27}, {u"MD", 24}, {u"ME", 22}, {u"MK", 19}, {u"MR", 27}, {u"MT", 31}, {u"MU", 30},
    {u"NL", 18}, {u"NO", 15}, {u"PK", 24}, {u"PL", 28}, {u"PS", 29}, {u"PT", 25}, {u"QA", 29}, {u"RO", 24},
    {u"RS", 22}, {u"SA", 24}, {u"SC", 31}, {u"SD", 18}, {u"SE", 24}, {u"SI", 19}, {u"SK", 24}, {u"SM", 27},
    {u"ST", 25}, {u"SV", 28}, {u"TL", 23}, {u"TN", 24}, {u"TR", 26}, {u"UA", 29}, {u"VA", 22}, {u"VG", 24},
    {u"XK", 20},
});

struct VatForm
{
    std::u16string_view prefix;
    const char16_t* pattern; ///< of what follows the prefix
    bool (*hasRightCheckDigits)(const QString& number) = nullptr;
};

/// As the VAT Information Exchange System of the European Commission asks for them.
constexpr auto vatForms = std::to_array<VatForm>({
    {u"AT", uR"(U\d{8})", isAustrianVatNumber},
    {u"BE", uR"([01]\d{9})", isBelgianVatNumber},
    {u"BG", uR"(\d{9,10})"},
    {u"CY", uR"(\d{8}[A-Z])"},
    {u"CZ", uR"(\d{8,10})"},
    {u"DE", uR"([1-9]\d{8})", isMod11And10Number},
    {u"DK", uR"(\d{8})"},
    {u"EE", uR"(\d{9})"},
    {u"EL", uR"(\d{9})"},
    {u"ES", uR"([A-Z]\d{7}[A-Z0-9]|\d{8}[A-Z])", isSpanishVatNumber},
    {u"FI", uR"(\d{8})"},
    {u"FR", uR"([A-HJ-NP-Z0-9]{2}\d{9})", isFrenchVatNumber},
    {u"HR", uR"(\d{11})", isMod11And10Number},
    {u"HU", uR"(\d{8})"},
    {u"IE", uR"(\d[A-Z0-9+*]\d{5}[A-W][A-I]?)"},
    {u"IT", uR"(\d{11})", isItalianVatNumber},
    {u"LT", uR"(\d{9}|\d{12})"},
    {u"LU", uR"(\d{8})"},
    {u"LV", uR"(\d{11})"},
    {u"MT", uR"(\d{8})"},
    {u"NL", uR"([A-Z0-9+*]{9}B[A-Z0-9+*]{2})", isDutchVatNumber},
    {u"PL", uR"(\d{10})", isPolishVatNumber},
    {u"PT", uR"(\d{9})"},
    {u"RO", uR"([1-9]\d{1,9})"},
    {u"SE", uR"(\d{10}01)"},
    {u"SI", uR"([1-9]\d{7})"},
    {u"SK", uR"([1-9]\d{9})"},
    {u"XI", uR"(\d{9}|\d{12}|(GD|HA)\d{3})"},
});

bool matches(const QString& text, const QString& pattern)
{
    const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
    return whole.match(text).hasMatch();
}

/// Without what is written for reading only.
QString compact(const QString& text, QStringView marks = {})
{
    QString plain = text.toUpper();
    plain.removeIf([marks](QChar c) { return c.isSpace() || marks.contains(c); });
    return plain;
}

const VatForm* vatFormOf(const QString& prefix)
{
    const auto found = std::ranges::find_if(
        vatForms, [&](const VatForm& form) { return prefix == QStringView(form.prefix); });
    return found == vatForms.end() ? nullptr : &*found;
}

bool isTaxedInUnion(const QString& country)
{
    return vatFormOf(country == u"GR" ? QStringLiteral("EL") : country) != nullptr;
}

} // namespace

Problem ibanProblem(const QString& text)
{
    const QString iban = compact(text);
    if (iban.isEmpty())
        return Problem::none;
    if (!matches(iban, QStringLiteral(R"([A-Z]{2}\d{2}[A-Z0-9]*)")))
        return Problem::ibanForm;
    const auto known = std::ranges::find_if(
        ibanLengths, [&](const IbanLength& row) { return iban.startsWith(QStringView(row.country)); });
    constexpr int shortest = 15;
    constexpr int longest = 34;
    const bool isKnown = known != ibanLengths.end();
    if (iban.size() < (isKnown ? known->length : shortest) ||
        iban.size() > (isKnown ? known->length : longest))
        return Problem::ibanLength;
    return mod97(iban.mid(4) + iban.left(4)) == 1 ? Problem::none : Problem::ibanCheckDigits;
}

Problem bicProblem(const QString& text)
{
    const QString bic = compact(text);
    if (bic.isEmpty())
        return Problem::none;
    if (!matches(bic, QStringLiteral("[A-Z0-9]{4}[A-Z]{2}[A-Z0-9]{2}([A-Z0-9]{3})?")))
        return Problem::bicForm;
    return findCountry(bic.mid(4, 2)) ? Problem::none : Problem::bicCountry;
}

Problem taxNumberProblem(const QString& text, const QString& country)
{
    const QString number = compact(text, u"/-.");
    const bool isFine =
        number.isEmpty() || country != u"DE" || matches(number, QStringLiteral(R"(\d{10,13})"));
    return isFine ? Problem::none : Problem::taxNumberForm;
}

Problem vatNumberProblem(const QString& text, const QString& country)
{
    const QString number = compact(text, u".-/");
    if (number.isEmpty())
        return Problem::none;
    const bool hasPrefix = matches(number.left(2), QStringLiteral("[A-Z]{2}"));
    if (!hasPrefix)
        return isTaxedInUnion(country) ? Problem::vatPrefix : Problem::none;
    const QString prefix = number.left(2) == u"GR" ? QStringLiteral("EL") : number.left(2);
    const VatForm* form = vatFormOf(prefix);
    if (!form)
        return findCountry(prefix) ? Problem::none : Problem::vatPrefix;
    const QString rest = number.mid(2);
    if (!matches(rest, QString::fromUtf16(form->pattern)))
        return Problem::vatForm;
    return !form->hasRightCheckDigits || form->hasRightCheckDigits(rest) ? Problem::none
                                                                         : Problem::vatCheckDigits;
}

} // namespace ledra
