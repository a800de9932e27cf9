#pragma once

#include <QDate>
#include <QString>

#include <cstdint>
#include <span>
#include <variant>
#include <vector>

namespace ledra {

enum class NumberFormatChipKind { number, date, variable };

/// The text of a chip kind for menus.
QString displayText(NumberFormatChipKind kind);

struct NumberChip
{
    int length = 3; ///< minimum digits, 1 to 5
    friend bool operator==(const NumberChip&, const NumberChip&) = default;
};

struct DateChip
{
    QString pattern; ///< letters Y, M and D
    friend bool operator==(const DateChip&, const DateChip&) = default;
};

struct VariableChip
{
    friend bool operator==(const VariableChip&, const VariableChip&) = default;
};

using NumberFormatChipFormat = std::variant<NumberChip, DateChip, VariableChip>;

/// A placeholder of a number format, with the token that writes it between braces.
struct NumberFormatChip
{
    NumberFormatChipFormat format;
    QString token;

    NumberFormatChipKind kind() const { return static_cast<NumberFormatChipKind>(format.index()); }
    friend bool operator==(const NumberFormatChip&, const NumberFormatChip&) = default;
};

/// What an editor offers for a kind of chip.
struct NumberFormatChipTypeDefinition
{
    NumberFormatChipKind kind;
    std::span<const char16_t* const> tokens;
    const char16_t* defaultToken;
};

/// The three kinds, in their order.
std::span<const NumberFormatChipTypeDefinition> numberFormatChipTypes();

/// One piece of a parsed format: literal text or a chip.
using NumberFormatSegment = std::variant<QString, NumberFormatChip>;

/// Splits a format such as "RE-{YYYY}-{NNN}". Braces that hold no chip, or that never close, stay literal.
std::vector<NumberFormatSegment> parseNumberFormat(QStringView format);

/// Writes segments back. A number chip is written with as many N as its length, so the text of a parsed
/// format is its canonical form.
QString numberFormatText(std::span<const NumberFormatSegment> segments);
QString canonicalNumberFormat(QStringView format);

/// What a number format is rendered from.
struct NumberFormatValues
{
    std::int64_t number = 0;
    QDate date; ///< the record's date in the user's time zone
    QString variable;
};

QString renderNumberFormat(std::span<const NumberFormatSegment> segments, const NumberFormatValues& values);

} // namespace ledra
