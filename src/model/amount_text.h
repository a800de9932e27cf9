#pragma once

#include "model/currency.h"
#include "model/enumerations.h"

#include <QDate>
#include <QLocale>
#include <QString>

namespace ledra {

/// How a language writes numbers and dates in documents, whatever the locale of the system.
QLocale documentLocale(Language language);

/// An amount with its currency: "1.234,50 €" in German, "€1,234.50" in English, with no-break spaces and, for
/// negative amounts, a minus sign (U+2212) in front. An amount that rounds to zero has no sign.
QString amountText(double amount, const Currency& currency, Language language);

/// A quantity with as many decimals as it has, six at most: "1.250,5".
QString quantityText(double quantity, Language language);

/// A rate in percent: "7,7 %" in German, "7.7%" in English.
QString percentText(double percentage, Language language);

/// "5 March 2026", in the pattern "d MMMM yyyy".
QString dateText(QDate date, Language language);

/// "5 March", in the pattern "d MMMM"; for the start of a period whose end shows the year.
QString shortDateText(QDate date, Language language);

} // namespace ledra
