#pragma once

#include "model/styling.h"
#include "store/invoice_json.h"

namespace ledra {

// clang-format off: one line a key
template <>
inline constexpr std::tuple jsonSchema<Styling> = {
    JSONKey{"id", &Styling::id},
    JSONKey{"pageFormat", &Styling::pageFormat},
    JSONKey{"marginalColumn", &Styling::marginalColumn},
    JSONKey{"pageHeadline", &Styling::pageHeadline},
    JSONKey{"addressLine", &Styling::addressLine},
    JSONKey{"emptyItemRows", &Styling::emptyItemRows},
    JSONKey{"headlineFont", &Styling::headlineFont},
    JSONKey{"headlineFontWeight", &Styling::headlineFontWeight},
    JSONKey{"headlineFontFace", &Styling::headlineFontFace},
    JSONKey{"primaryFont", &Styling::primaryFont},
    JSONKey{"primaryFontWeight", &Styling::primaryFontWeight},
    JSONKey{"primaryFontFace", &Styling::primaryFontFace},
    JSONKey{"secondaryFont", &Styling::secondaryFont},
    JSONKey{"secondaryFontWeight", &Styling::secondaryFontWeight},
    JSONKey{"secondaryFontFace", &Styling::secondaryFontFace},
    JSONKey{"labelFont", &Styling::labelFont},
    JSONKey{"labelFontWeight", &Styling::labelFontWeight},
    JSONKey{"labelFontFace", &Styling::labelFontFace},
    JSONKey{"smallCapsLabels", &Styling::smallCapsLabels},
    JSONKey{"primaryColor", &Styling::primaryColor},
    JSONKey{"accentColor", &Styling::accentColor},
    JSONKey{"accentColorUsage", &Styling::accentColorUsage},
    JSONKey{"backgroundPattern", &Styling::backgroundPattern},
    JSONKey{"lineStyle", &Styling::lineStyle},
    JSONKey{"tintRowBackground", &Styling::tintRowBackground},
    JSONKey{"logoSize", &Styling::logoSize},
    JSONKey{"recolorLogo", &Styling::recolorLogo},
};
// clang-format on

/// Reads a "styling.json". Every key is optional; missing ones take the values of a new styling of the
/// region.
[[nodiscard]] Decoded<Styling> decodeStyling(const QByteArray& document, const NewRecordValues& values);

} // namespace ledra
