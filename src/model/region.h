#pragma once

#include "model/currency.h"

#include <QLocale>
#include <QString>

namespace ledra {

/// The region of a locale as an ISO 3166-1 alpha-2 code; "DE" for a locale that names none, such as "C".
QString regionOf(const QLocale& locale);

/// The region of the user's locale.
QString systemRegion();

/// Whether new profiles of the region speak German: Germany, Austria, Switzerland, Liechtenstein.
bool isGermanSpeaking(const QString& region);

/// The region's currency; euro where the table of countries knows none.
Currency currencyOfRegion(const QString& region);

/// Whether some country pays with the currency, or documents know how to write it.
bool isKnownCurrency(const QString& code);

} // namespace ledra
