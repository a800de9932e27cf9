#pragma once

#include <QDate>

#include <optional>
#include <string>
#include <string_view>

namespace ledra {

// Numbers and dates as Cross Industry Invoices write them: fixed-point with a point and no grouping, never
// with an exponent and never as a negative zero. A number that is not finite has no text.

std::string ciiAmount(double amount);     ///< two decimals
std::string ciiUnitPrice(double price);   ///< four decimals
std::string ciiPercentage(double rate);   ///< two decimals
std::string ciiQuantity(double quantity); ///< as many decimals as it takes to keep the number, at least one

/// "yyyyMMdd", date format 102 of UN/EDIFACT code list 2379; empty for a day outside the years 1 to 9999.
std::string ciiDate(QDate day);

/// A decimal number in fixed-point form, as xs:decimal has it; nothing for any other text.
std::optional<double> decimalFrom(std::string_view text);

/// A day in the form "yyyyMMdd"; nothing for any other text or a day that no calendar has.
std::optional<QDate> dayFrom(std::string_view text);

} // namespace ledra
