#include "ui/look/typed_day.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace ledra {

namespace {

/// Day, month and year, or day and month.
QStringList partsOf(const QString& text)
{
    static const QRegularExpression marks(QStringLiteral("[\\s./,\\-–]+"));
    QStringList parts = text.split(marks, Qt::SkipEmptyParts);
    constexpr qsizetype dayAndMonth = 4;
    if (parts.size() == 1 && parts[0].size() >= dayAndMonth)
        parts = {parts[0].left(2), parts[0].mid(2, 2), parts[0].mid(dayAndMonth)};
    parts.removeAll(QString());
    return parts;
}

std::optional<int> yearOf(const QString& text, std::optional<int> usualYear)
{
    constexpr qsizetype whole = 4;
    constexpr qsizetype shortened = 2;
    constexpr int century = 2000;
    if (text.size() == whole)
        return text.toInt();
    return text.size() == shortened && usualYear ? std::optional(century + text.toInt()) : std::nullopt;
}

} // namespace

std::optional<QDate> dayTyped(const QString& text, std::optional<int> usualYear)
{
    QStringList parts = partsOf(text);
    const bool areNumbers = std::ranges::all_of(parts, [](const QString& part) {
        return std::ranges::all_of(part, [](QChar c) { return c.isDigit(); });
    });
    if (!areNumbers || parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    if (parts.size() == 3 && parts[0].size() > 2)
        std::ranges::reverse(parts);
    const std::optional<int> year = parts.size() == 3 ? yearOf(parts[2], usualYear) : usualYear;
    constexpr int firstYear = 1900;
    if (!year || *year < firstYear || parts[0].size() > 2 || parts[1].size() > 2)
        return std::nullopt;
    const QDate day(*year, parts[1].toInt(), parts[0].toInt());
    return day.isValid() ? std::optional(day) : std::nullopt;
}

} // namespace ledra
