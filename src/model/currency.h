#pragma once

#include <QString>

#include <span>
#include <string_view>

namespace ledra {

/// How amounts in a currency are written. Source of the decimals: ISO 4217.
struct CurrencyFacts
{
    std::string_view code;
    int decimals;
    std::string_view symbol; ///< UTF-8; empty where the code itself is printed
};

/// The currencies that deviate from "two decimals, printed by their code".
std::span<const CurrencyFacts> currencyTable();

/// A currency by its ISO 4217 code; any code that a file holds is kept as it is.
struct Currency
{
    QString code = QStringLiteral("EUR");

    /// Digits after the decimal mark: 2 unless the currency has another minor unit.
    int decimals() const;

    /// The symbol that documents print, or the code where no symbol is unmistakable.
    QString symbol() const;

    friend bool operator==(const Currency&, const Currency&) = default;
};

} // namespace ledra
