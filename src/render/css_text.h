#pragma once

#include <QString>

namespace ledra {

/// A text as a CSS string between double quotes. Everything that could end the string, the rule or the style
/// element becomes a CSS escape, so that a font name out of a file stays a font name.
QString cssString(const QString& text);

/// A CSS font weight: a number from 1 to 1000, "normal" or "bold"; anything else becomes "400".
QString cssFontWeight(const QString& text);

/// A colour behind one "#": letters and digits of the text only, since nothing else can be part of a colour.
QString cssColor(const QString& text);

/// A whole style sheet for use inside a style element, which it cannot close.
QString cssSheet(const QString& text);

/// A length or number: three decimals at most, whole numbers without a point ("21", "29.7", "9.313").
QString cssNumber(double value);

} // namespace ledra
