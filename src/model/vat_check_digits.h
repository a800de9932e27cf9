#pragma once

#include <QString>

namespace ledra {

/// The remainder by 97 of a text whose letters count as two digits each (A is 10, Z is 35, "+" is 36, "*" is
/// 37), as in ISO 7064.
int mod97(const QString& text);

// Whether the check digits of a VAT number are right. Each takes the number without the letters of the
// country, in upper case and of the right form.

bool isAustrianVatNumber(const QString& number);
bool isBelgianVatNumber(const QString& number);
bool isMod11And10Number(const QString& number); ///< Germany and Croatia
bool isSpanishVatNumber(const QString& number);
bool isFrenchVatNumber(const QString& number);
bool isItalianVatNumber(const QString& number);
bool isDutchVatNumber(const QString& number);
bool isPolishVatNumber(const QString& number);

} // namespace ledra
