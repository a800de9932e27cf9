#include "store/json_node.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace ledra {

namespace {

class JSONPrinter
{
public:
    explicit JSONPrinter(bool pretty) : pretty_(pretty) {}

    void print(const JSONNode& node, int level)
    {
        std::visit([&](const auto& value) { printValue(value, level); }, node);
    }

    std::string take() { return std::move(text_); }

private:
    void printValue(const std::string& text, int) { printString(text); }
    void printValue(const JSONNumber& number, int) { text_ += number.text; }
    void printValue(bool value, int) { text_ += value ? "true" : "false"; }
    void printValue(JSONNull, int) { text_ += "null"; }

    void printValue(const std::shared_ptr<JSONObjectStorage>& object, int level)
    {
        printAll('{', '}', object->pairs, level, [&](const auto& pair) {
            printString(pair.first);
            text_ += pretty_ ? ": " : ":";
            print(pair.second, level + 1);
        });
    }

    void printValue(const std::shared_ptr<JSONArrayStorage>& array, int level)
    {
        printAll('[', ']', array->items, level, [&](const JSONNode& item) { print(item, level + 1); });
    }

    template <class Entries, class PrintEntry>
    void printAll(char open, char close, const Entries& entries, int level, PrintEntry printEntry)
    {
        text_ += open;
        bool first = true;
        for (const auto& entry : entries) {
            if (!first)
                text_ += ',';
            first = false;
            startLine(level + 1);
            printEntry(entry);
        }
        if (!first)
            startLine(level);
        text_ += close;
    }

    void startLine(int level)
    {
        if (!pretty_)
            return;
        text_ += '\n';
        text_.append(static_cast<std::size_t>(level) * 2, ' ');
    }

    void printString(const std::string& text)
    {
        text_.reserve(text_.size() + text.size() + 2);
        text_ += '"';
        std::size_t clean = 0; // start of the run that needs no escaping
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto byte = static_cast<unsigned char>(text[i]);
            if (byte >= 0x20 && byte != '"' && byte != '\\')
                continue;
            text_.append(text, clean, i - clean);
            printEscaped(byte);
            clean = i + 1;
        }
        text_.append(text, clean, text.size() - clean);
        text_ += '"';
    }

    void printEscaped(unsigned char byte)
    {
        constexpr std::string_view hex = "0123456789abcdef";
        switch (byte) {
        case '"':
            text_ += "\\\"";
            return;
        case '\\':
            text_ += "\\\\";
            return;
        case '\n':
            text_ += "\\n";
            return;
        case '\r':
            text_ += "\\r";
            return;
        case '\t':
            text_ += "\\t";
            return;
        default:
            text_ += "\\u00";
            text_ += hex[byte >> 4U];
            text_ += hex[byte & 15U];
        }
    }

    bool pretty_;
    std::string text_;
};

/// Sign, digits and decimal exponent of the shortest form that reads back the same: ±d.ddd × 10^exponent.
struct ShortestDigits
{
    bool negative;
    std::string_view digits;
    int exponent;
};

/// Splits the scientific form "-d.ddde±xx" in place; the point is squeezed out.
ShortestDigits splitScientific(char* begin, char* end)
{
    const bool negative = *begin == '-';
    char* digits = begin + (negative ? 1 : 0);
    char* mark = std::find(digits, end, 'e');
    int exponent = 0;
    std::from_chars(mark[1] == '+' ? mark + 2 : mark + 1, end, exponent);
    if (mark - digits > 1) {
        digits[1] = digits[0];
        ++digits;
    }
    return {negative, std::string_view(digits, mark), exponent};
}

void appendScientific(std::string& text, const ShortestDigits& number)
{
    text += number.digits[0];
    if (number.digits.size() > 1) {
        text += '.';
        text += number.digits.substr(1);
    }
    text += number.exponent < 0 ? "e-" : "e+";
    const int magnitude = std::abs(number.exponent);
    if (magnitude < 10)
        text += '0';
    text += std::to_string(magnitude);
}

void appendPositional(std::string& text, const ShortestDigits& number)
{
    const auto count = static_cast<int>(number.digits.size());
    if (number.exponent < 0) {
        text += "0.";
        text.append(static_cast<std::size_t>(-number.exponent - 1), '0');
        text += number.digits;
    } else if (number.exponent + 1 >= count) {
        text += number.digits;
        text.append(static_cast<std::size_t>(number.exponent + 1 - count), '0');
        text += ".0";
    } else {
        const auto whole = static_cast<std::size_t>(number.exponent) + 1;
        text += number.digits.substr(0, whole);
        text += '.';
        text += number.digits.substr(whole);
    }
}

/// Positional from 0.0001 up to the largest number whose neighbours are all whole (2^53, or 2^24 for a
/// float); beyond that the digits would claim a precision that the number has not.
template <class Float>
std::string floatingText(Float value)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";

    std::array<char, 64> buffer{};
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::scientific);
    const ShortestDigits number = splitScientific(buffer.data(), result.ptr);
    const auto wholeLimit = static_cast<Float>(std::uint64_t{1} << std::numeric_limits<Float>::digits);

    std::string text = number.negative ? "-" : "";
    if (value != 0 && (number.exponent < -4 || std::abs(value) > wholeLimit))
        appendScientific(text, number);
    else
        appendPositional(text, number);
    return text;
}

} // namespace

std::string printed(const JSONNode& node, bool pretty)
{
    JSONPrinter printer(pretty);
    printer.print(node, 0);
    return printer.take();
}

std::string numberText(double value)
{
    return floatingText(value);
}

std::string numberText(float value)
{
    return floatingText(value);
}

} // namespace ledra
