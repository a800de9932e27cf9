#pragma once

#include "model/enumerations.h"

#include <QString>
#include <QStringView>

#include <span>
#include <string_view>

namespace ledra {

/// What Ledra knows of a country. One row a country, sorted by code.
///
/// Where to check a row: codes in ISO 3166-1 (XK, Kosovo, is user-assigned there); currencies in ISO 4217;
/// names in Unicode CLDR, from which the table departs where another name is usual on envelopes; state lines
/// in ISO 3166-2 and the addressing guides of the national posts; Letter paper in the US-Letter territories
/// of Unicode CLDR, to which the Dominican Republic is added; VAT rates, as in force at the beginning of
/// 2026, in the Taxes in Europe Database of the European Commission and with the national tax authorities
/// elsewhere.
struct CountryFacts
{
    /// ISO 3166-1 alpha-2, upper case.
    std::string_view code;
    /// The everyday name in English, UTF-8.
    std::string_view englishName;
    /// The everyday name in German, UTF-8.
    std::string_view germanName;
    /// The English label of the state line in the address form: "State", "Prefecture", "Canton".
    std::string_view stateLabel;
    /// The standard rate of VAT or GST in percent; 0 where there is no such tax or no single rate is known.
    double standardVatRate;
    /// ISO 4217; empty for Antarctica alone, which has no currency.
    std::string_view currencyCode;
    /// Whether letters are written on US Letter instead of A4.
    bool usesLetterPaper;
};

/// All countries, ascending by code.
std::span<const CountryFacts> countryTable();

/// The row of an upper-case code; nullptr when the code is unknown ("de" and "" are unknown).
const CountryFacts* findCountry(QStringView code);

/// A country by its code. Any code that a file holds is kept as it is, known or not.
struct Country
{
    QString code;

    /// The name in that language; the code itself when it is unknown.
    [[nodiscard]] QString displayName(Language language) const;

    /// The label of the state line in the address form; "State" when the code is unknown.
    [[nodiscard]] QString stateLabel() const;

    friend bool operator==(const Country&, const Country&) = default;
};

} // namespace ledra
