#include "model/number_format_checks.h"

#include "model/number_format.h"

#include <algorithm>
#include <array>

namespace ledra {

namespace {

template <class Is>
bool hasChip(const std::vector<NumberFormatSegment>& segments, const Is& is)
{
    return std::ranges::any_of(segments, [&](const NumberFormatSegment& segment) {
        const auto* chip = std::get_if<NumberFormatChip>(&segment);
        return chip && is(*chip);
    });
}

bool isNumber(const NumberFormatChip& chip)
{
    return chip.kind() == NumberFormatChipKind::number;
}

bool isYear(const NumberFormatChip& chip)
{
    return chip.kind() == NumberFormatChipKind::date && chip.token.contains(u'Y');
}

} // namespace

QString unknownVariable(const QString& format)
{
    for (const NumberFormatSegment& segment : parseNumberFormat(format)) {
        const auto* text = std::get_if<QString>(&segment);
        const qsizetype open = text ? text->indexOf(u'{') : -1;
        const qsizetype close = open < 0 ? -1 : text->indexOf(u'}', open);
        if (close >= 0)
            return text->sliced(open, close - open + 1);
    }
    return {};
}

NumberFormatFinding checkNumberFormat(const QString& format, NumberResetFrequency frequency)
{
    if (format.isEmpty())
        return {NumberFormatProblem::empty};
    const std::vector<NumberFormatSegment> segments = parseNumberFormat(format);
    if (!hasChip(segments, isNumber))
        return {NumberFormatProblem::noNumber};
    if (const QString unknown = unknownVariable(format); !unknown.isEmpty())
        return {NumberFormatProblem::unknownVariable, unknown};
    if (frequency == NumberResetFrequency::year && !hasChip(segments, isYear))
        return {NumberFormatProblem::noYear};
    return {};
}

QString displayText(NumberFormatProblem problem)
{
    constexpr std::array<QStringView, 5> texts = {
        u"",
        u"An empty format is not kept: the one before stays in force",
        u"Without “Number” all invoices have the same number",
        u"Numbers begin anew each year: without the year they repeat",
        u"“%1” is no variable and is printed as it stands",
    };
    return texts.at(static_cast<std::size_t>(problem)).toString();
}

} // namespace ledra
