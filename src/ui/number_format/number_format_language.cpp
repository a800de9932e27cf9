#include "ui/number_format/number_format_language.h"

#include "model/number_format.h"

#include <QCoreApplication>

#include <algorithm>

namespace ledra {

namespace {

struct NumberFormatChips
{
    Q_DECLARE_TR_FUNCTIONS(NumberFormatChips)
};

QString dateName(const QString& pattern)
{
    const auto consistsOf = [&](QChar letter) {
        return std::ranges::all_of(pattern, [letter](QChar each) { return each == letter; });
    };
    if (consistsOf(u'Y'))
        return NumberFormatChips::tr("Year");
    if (consistsOf(u'M'))
        return NumberFormatChips::tr("Month");
    return consistsOf(u'D') ? NumberFormatChips::tr("Day") : NumberFormatChips::tr("Date");
}

} // namespace

std::vector<ChipPiece> NumberFormatLanguage::pieces(const QString& text) const
{
    std::vector<ChipPiece> pieces;
    qsizetype place = 0;
    for (const NumberFormatSegment& segment : parseNumberFormat(text)) {
        const auto* letters = std::get_if<QString>(&segment);
        // A token is taken as it stands, since the parser writes longer ones in their short form.
        const qsizetype end = letters ? place + letters->size() : text.indexOf(u'}', place) + 1;
        pieces.push_back({text.sliced(place, end - place), letters == nullptr});
        place = end;
    }
    return pieces;
}

QString NumberFormatLanguage::label(const QString& token) const
{
    const std::vector<NumberFormatSegment> segments = parseNumberFormat(token);
    const auto* chip = segments.size() == 1 ? std::get_if<NumberFormatChip>(&segments.front()) : nullptr;
    if (!chip)
        return token;
    const QString sample = renderNumberFormat(segments, {1, QDate::currentDate(), QString()});
    switch (chip->kind()) {
    case NumberFormatChipKind::number:
        return NumberFormatChips::tr("Number %1").arg(sample);
    case NumberFormatChipKind::date:
        return dateName(chip->token) + u' ' + sample;
    case NumberFormatChipKind::variable:
        break;
    }
    return QCoreApplication::translate("NumberFormatChips", "Per-Invoice Variable");
}

} // namespace ledra
