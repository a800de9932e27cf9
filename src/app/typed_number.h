#pragma once

#include <QLocale>
#include <QString>

#include <optional>

namespace ledra {

/// A number as people type it: with a decimal point or a decimal comma, whatever the language, with or
/// without marks between the thousands, and with a currency or percent sign around it. A single mark is the
/// decimal one, unless the language puts it between thousands and three digits follow: "1.234" is 1234 in
/// German and 1.234 in English, "0.125" and "12.5" are the same in both.
std::optional<double> numberTyped(const QString& text, const QLocale& locale);

/// A number for typing on: without marks between the thousands, with at least so many decimals and as many as
/// it has up to six.
QString numberForTyping(double number, int leastDecimals, const QLocale& locale);

} // namespace ledra
