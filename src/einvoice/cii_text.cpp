#include "einvoice/cii_text.h"

#include "einvoice/xml_text.h"

#include <charconv>
#include <cmath>

namespace ledra {

namespace {

// The largest double has 309 digits before the point, the smallest 1074 behind it.
constexpr std::size_t longestNumber = 1400;

std::string withoutNegativeZero(std::string text)
{
    const bool isZero = text.find_first_not_of("-0.") == std::string::npos;
    if (isZero && text.starts_with('-'))
        text.erase(0, 1);
    return text;
}

std::string fixedPoint(double number, int decimals)
{
    if (!std::isfinite(number))
        return {};
    std::array<char, longestNumber> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed, decimals);
    return withoutNegativeZero(std::string(digits.data(), end.ptr));
}

} // namespace

std::string ciiAmount(double amount)
{
    return fixedPoint(amount, 2);
}

std::string ciiUnitPrice(double price)
{
    return fixedPoint(price, 4);
}

std::string ciiPercentage(double rate)
{
    return fixedPoint(rate, 2);
}

std::string ciiQuantity(double quantity)
{
    if (!std::isfinite(quantity))
        return {};
    std::array<char, longestNumber> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), quantity, std::chars_format::fixed);
    std::string text(digits.data(), end.ptr);
    if (text.find('.') == std::string::npos)
        text += ".0";
    return withoutNegativeZero(text);
}

std::string ciiDate(QDate day)
{
    if (!day.isValid() || day.year() < 1 || day.year() > 9999)
        return {};
    const std::string digits = std::to_string(day.year() * 10000 + day.month() * 100 + day.day());
    constexpr std::size_t length = 8;
    return std::string(length - digits.size(), '0') + digits;
}

std::optional<double> decimalFrom(std::string_view text)
{
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    const std::string_view digits = text.starts_with('-') ? text.substr(1) : text;
    if (digits.find_first_of("0123456789") == std::string_view::npos ||
        digits.find_first_not_of("0123456789.") != std::string_view::npos)
        return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number == 0 ? 0 : number; // no −0
}

std::optional<QDate> dayFrom(std::string_view text)
{
    text = trimmed(text);
    constexpr std::size_t length = 8;
    if (text.size() != length || text.find_first_not_of("0123456789") != std::string_view::npos)
        return std::nullopt;
    int digits = 0;
    std::from_chars(text.data(), text.data() + text.size(), digits);
    const QDate day(digits / 10000, digits / 100 % 100, digits % 100);
    return day.isValid() ? std::optional(day) : std::nullopt;
}

} // namespace ledra
