#pragma once

#include "model/enumerations.h"
#include "model/record.h"

#include <QString>
#include <QUuid>

#include <optional>
#include <set>

namespace ledra {

/// How the documents of a profile look. Colours are six hexadecimal digits without "#"; fonts are named by
/// family, with a CSS weight and, where one was chosen, the id of a single face.
struct Styling
{
    QUuid id;
    PageFormat pageFormat = PageFormat::a4;
    bool marginalColumn = true;
    bool pageHeadline = true;
    bool addressLine = true;
    bool emptyItemRows = true;
    QString headlineFont = QStringLiteral("Source Serif");
    QString headlineFontWeight = QStringLiteral("400");
    std::optional<QString> headlineFontFace;
    QString primaryFont = QStringLiteral("iA Writer Duo");
    QString primaryFontWeight = QStringLiteral("400");
    std::optional<QString> primaryFontFace;
    QString secondaryFont = QStringLiteral("Source Serif");
    QString secondaryFontWeight = QStringLiteral("400");
    std::optional<QString> secondaryFontFace;
    QString labelFont = QStringLiteral("Source Serif");
    QString labelFontWeight = QStringLiteral("400");
    std::optional<QString> labelFontFace;
    bool smallCapsLabels = true;
    QString primaryColor = QStringLiteral("68977C");
    QString accentColor = QStringLiteral("FF4B14");
    std::set<AccentColorUsage> accentColorUsage = {AccentColorUsage::important};
    BackgroundPattern backgroundPattern = BackgroundPattern::none;
    LineStyle lineStyle = LineStyle::dotted;
    bool tintRowBackground = true;
    double logoSize = 1.4; ///< height in rem, i.e. centimetres on paper
    bool recolorLogo = true;
    std::optional<QString> logo; ///< SVG markup or a data URL, loaded beside the file, never written into it
    std::optional<QString> css;  ///< the user's style sheet, likewise

    friend bool operator==(const Styling&, const Styling&) = default;
};

using StylingRecord = Record<Styling>;

/// The paper of a region; unknown regions count as Germany.
PageFormat pageFormatOfRegion(const QString& region);

/// A new styling on the paper of a region.
Styling newStyling(const QUuid& id, const QString& region);

template <>
inline constexpr std::tuple recordFields<Styling> = {
    &Styling::id,
    &Styling::pageFormat,
    &Styling::marginalColumn,
    &Styling::pageHeadline,
    &Styling::addressLine,
    &Styling::emptyItemRows,
    &Styling::headlineFont,
    &Styling::headlineFontWeight,
    &Styling::headlineFontFace,
    &Styling::primaryFont,
    &Styling::primaryFontWeight,
    &Styling::primaryFontFace,
    &Styling::secondaryFont,
    &Styling::secondaryFontWeight,
    &Styling::secondaryFontFace,
    &Styling::labelFont,
    &Styling::labelFontWeight,
    &Styling::labelFontFace,
    &Styling::smallCapsLabels,
    &Styling::primaryColor,
    &Styling::accentColor,
    &Styling::accentColorUsage,
    &Styling::backgroundPattern,
    &Styling::lineStyle,
    &Styling::tintRowBackground,
    &Styling::logoSize,
    &Styling::recolorLogo,
    &Styling::logo,
    &Styling::css,
};

} // namespace ledra
