#include "model/country.h"

#include <QLatin1StringView>

#include <algorithm>

namespace ledra {
namespace {

QLatin1StringView codeOf(const CountryFacts& facts)
{
    return {facts.code.data(), static_cast<qsizetype>(facts.code.size())};
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

const CountryFacts* findCountry(QStringView code)
{
    const auto table = countryTable();
    const auto comesBefore = [](const CountryFacts& facts, QStringView sought) {
        return codeOf(facts) < sought;
    };
    const auto row = std::lower_bound(table.begin(), table.end(), code, comesBefore);
    return row != table.end() && codeOf(*row) == code ? &*row : nullptr;
}

QString Country::displayName(Language language) const
{
    const CountryFacts* facts = findCountry(code);
    if (facts == nullptr) {
        return code;
    }
    return fromUtf8(language == Language::german ? facts->germanName : facts->englishName);
}

QString Country::stateLabel() const
{
    const CountryFacts* facts = findCountry(code);
    return facts == nullptr ? QStringLiteral("State") : fromUtf8(facts->stateLabel);
}

} // namespace ledra
