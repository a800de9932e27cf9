#include "model/region.h"

#include "model/country.h"

#include <algorithm>
#include <array>

namespace ledra {

QString regionOf(const QLocale& locale)
{
    const QString code = QLocale::territoryToCode(locale.territory());
    return locale.language() == QLocale::C || code.size() != 2 ? QStringLiteral("DE") : code;
}

QString systemRegion()
{
    return regionOf(QLocale::system());
}

bool isGermanSpeaking(const QString& region)
{
    constexpr std::array<QStringView, 4> regions = {u"DE", u"AT", u"CH", u"LI"};
    return std::ranges::find(regions, region) != regions.end();
}

Currency currencyOfRegion(const QString& region)
{
    const CountryFacts* facts = findCountry(region);
    if (!facts || facts->currencyCode.empty())
        return Currency{};
    const std::string_view code = facts->currencyCode;
    return Currency{QString::fromLatin1(code.data(), static_cast<qsizetype>(code.size()))};
}

bool isKnownCurrency(const QString& code)
{
    const std::string wanted = code.toStdString();
    return std::ranges::any_of(countryTable(),
                               [&](const CountryFacts& row) { return row.currencyCode == wanted; }) ||
           std::ranges::any_of(currencyTable(), [&](const CurrencyFacts& row) { return row.code == wanted; });
}

} // namespace ledra
