#include "ui/settings/profile_choices.h"

#include "app/reader_language.h"
#include "model/country.h"
#include "model/currency.h"
#include "ui/look/profile_symbols.h"

#include <QCollator>
#include <QSet>

namespace ledra {

namespace {

std::vector<FieldChoice> sorted(std::vector<FieldChoice> choices)
{
    const QCollator order;
    std::ranges::sort(choices,
                      [&](const FieldChoice& a, const FieldChoice& b) { return order(a.text, b.text); });
    return choices;
}

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

std::vector<FieldChoice> countryChoices()
{
    std::vector<FieldChoice> choices;
    for (const CountryFacts& facts : countryTable())
        choices.push_back({Country{text(facts.code)}.displayName(readerLanguage()), text(facts.code)});
    return sorted(choices);
}

std::vector<FieldChoice> currencyChoices()
{
    QSet<QString> codes;
    for (const CountryFacts& facts : countryTable())
        codes.insert(text(facts.currencyCode));
    codes.remove(QString());
    std::vector<FieldChoice> choices;
    for (const QString& code : codes) {
        const QString symbol = Currency{code}.symbol();
        choices.push_back({symbol == code ? code : QStringLiteral("%1 (%2)").arg(code, symbol), code});
    }
    return sorted(choices);
}

std::vector<FieldChoice> symbolChoices()
{
    std::vector<FieldChoice> choices;
    for (const ProfileSymbol& symbol : profileSymbols())
        choices.push_back(
            {QCoreApplication::translate("ProfileForms", symbol.text), QString::fromLatin1(symbol.name)});
    return choices;
}

} // namespace ledra
