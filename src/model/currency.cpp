#include "model/currency.h"

#include <algorithm>
#include <array>

namespace ledra {

namespace {

// Only symbols that both shipped fonts carry and that a recipient cannot take for another currency; a
// Canadian or Australian dollar is therefore printed by its code.
constexpr std::array<CurrencyFacts, 27> currencies = {{
    {"BHD", 3, ""}, {"BIF", 0, ""}, {"CLP", 0, ""},  {"DJF", 0, ""}, {"EUR", 2, "€"}, {"GBP", 2, "£"},
    {"GNF", 0, ""}, {"IQD", 3, ""}, {"ISK", 0, ""},  {"JOD", 3, ""}, {"JPY", 0, "¥"}, {"KMF", 0, ""},
    {"KRW", 0, ""}, {"KWD", 3, ""}, {"LYD", 3, ""},  {"OMR", 3, ""}, {"PYG", 0, ""},  {"RWF", 0, ""},
    {"TND", 3, ""}, {"UGX", 0, ""}, {"USD", 2, "$"}, {"UYI", 0, ""}, {"VND", 0, ""},  {"VUV", 0, ""},
    {"XAF", 0, ""}, {"XOF", 0, ""}, {"XPF", 0, ""},
}};

const CurrencyFacts* findCurrency(const QString& code)
{
    const std::string wanted = code.toStdString();
    const auto row = std::ranges::find(currencies, std::string_view(wanted), &CurrencyFacts::code);
    return row == currencies.end() ? nullptr : &*row;
}

} // namespace

std::span<const CurrencyFacts> currencyTable()
{
    return currencies;
}

int Currency::decimals() const
{
    const CurrencyFacts* facts = findCurrency(code);
    return facts ? facts->decimals : 2;
}

QString Currency::symbol() const
{
    const CurrencyFacts* facts = findCurrency(code);
    if (!facts || facts->symbol.empty())
        return code;
    return QString::fromUtf8(facts->symbol.data(), static_cast<qsizetype>(facts->symbol.size()));
}

} // namespace ledra
