#include "model/number_format.h"

#include <algorithm>
#include <array>
#include <optional>

namespace ledra {

namespace {

constexpr int longestNumber = 5;

constexpr std::array numberTokens = {u"N", u"NN", u"NNN", u"NNNN", u"NNNNN"};
constexpr std::array dateTokens = {u"YY", u"YYYY", u"YYYYMM", u"MM", u"DD"};
constexpr std::array variableTokens = {u"X"};

constexpr std::array<NumberFormatChipTypeDefinition, 3> chipTypes = {{
    {NumberFormatChipKind::number, numberTokens, u"NNN"},
    {NumberFormatChipKind::date, dateTokens, u"YYYY"},
    {NumberFormatChipKind::variable, variableTokens, u"X"},
}};

bool consistsOf(QStringView token, QStringView letters)
{
    return !token.isEmpty() && std::ranges::all_of(token, [&](QChar c) { return letters.contains(c); });
}

std::optional<NumberFormatChip> classify(QStringView token)
{
    if (consistsOf(token, u"N")) {
        const int length = static_cast<int>(std::min<qsizetype>(token.size(), longestNumber));
        return NumberFormatChip{NumberChip{length}, QString(length, u'N')};
    }
    if (consistsOf(token, u"YMD"))
        return NumberFormatChip{DateChip{token.toString()}, token.toString()};
    if (token == u"X")
        return NumberFormatChip{VariableChip{}, QStringLiteral("X")};
    return std::nullopt;
}

/// The last `digits` decimal digits of a value, padded with zeros in front.
QString digitsOf(int value, qsizetype digits)
{
    return QString::number(value).rightJustified(digits, u'0').right(digits);
}

QString padded(std::int64_t value, int digits)
{
    const QString text = QString::number(value);
    return value < 0 ? u'-' + text.sliced(1).rightJustified(digits, u'0') : text.rightJustified(digits, u'0');
}

/// A pattern is read as runs of equal letters; only years are cut to the length of their run.
QString renderDate(QStringView pattern, QDate date)
{
    QString text;
    for (qsizetype start = 0; start < pattern.size();) {
        const QChar letter = pattern[start];
        qsizetype end = start;
        while (end < pattern.size() && pattern[end] == letter)
            ++end;
        const qsizetype run = end - start;
        if (letter == u'Y')
            text += digitsOf(date.year(), run);
        else
            text += QString::number(letter == u'M' ? date.month() : date.day()).rightJustified(run, u'0');
        start = end;
    }
    return text;
}

struct SegmentRenderer
{
    const NumberFormatValues& values;

    QString operator()(const QString& text) const { return text; }
    QString operator()(const NumberFormatChip& chip) const { return std::visit(*this, chip.format); }
    QString operator()(const NumberChip& chip) const { return padded(values.number, chip.length); }
    QString operator()(const DateChip& chip) const { return renderDate(chip.pattern, values.date); }
    QString operator()(VariableChip) const { return values.variable; }
};

struct SegmentWriter
{
    QString operator()(const QString& text) const { return text; }
    QString operator()(const NumberFormatChip& chip) const { return u'{' + chip.token + u'}'; }
};

} // namespace

QString displayText(NumberFormatChipKind kind)
{
    constexpr std::array<QStringView, 3> texts = {u"Number", u"Date", u"Per-Invoice Variable"};
    return texts.at(static_cast<std::size_t>(kind)).toString();
}

std::span<const NumberFormatChipTypeDefinition> numberFormatChipTypes()
{
    return chipTypes;
}

std::vector<NumberFormatSegment> parseNumberFormat(QStringView format)
{
    std::vector<NumberFormatSegment> segments;
    QString pending;
    qsizetype position = 0;
    while (position < format.size()) {
        const qsizetype close = format[position] == u'{' ? format.indexOf(u'}', position) : position;
        if (close < 0) {
            pending += format.sliced(position);
            break;
        }
        const QStringView piece = format.sliced(position, close - position + 1);
        const auto chip = piece.size() > 1 ? classify(piece.sliced(1, piece.size() - 2)) : std::nullopt;
        if (chip) {
            if (!pending.isEmpty())
                segments.emplace_back(std::exchange(pending, {}));
            segments.emplace_back(*chip);
        } else {
            pending += piece;
        }
        position = close + 1;
    }
    if (!pending.isEmpty())
        segments.emplace_back(pending);
    return segments;
}

QString numberFormatText(std::span<const NumberFormatSegment> segments)
{
    QString text;
    for (const NumberFormatSegment& segment : segments)
        text += std::visit(SegmentWriter{}, segment);
    return text;
}

QString canonicalNumberFormat(QStringView format)
{
    return numberFormatText(parseNumberFormat(format));
}

QString renderNumberFormat(std::span<const NumberFormatSegment> segments, const NumberFormatValues& values)
{
    QString text;
    for (const NumberFormatSegment& segment : segments)
        text += std::visit(SegmentRenderer{values}, segment);
    return text;
}

} // namespace ledra
