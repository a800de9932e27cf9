#pragma once

#include "model/styling.h"
#include "render/web_font_manager.h"

#include <QString>

namespace ledra {

enum class ColorScheme { light, dark };

/// The scheme that a document really takes: dark only when the user setting "invoiceDarkMode" is on as well.
ColorScheme effectiveScheme(ColorScheme wanted, bool invoiceDarkMode);

/// Width and height of a page and its fold marks from the top edge, in centimetres.
struct PageGeometry
{
    double width;
    double height;
    double foldMarkOne;
    double foldMarkTwo;
};
PageGeometry pageGeometry(PageFormat format);

/// The style sheet of a document: "Template.css" with its placeholders filled from the styling.
QString makeStyleSheet(const Styling& styling, ColorScheme scheme, const WebFontManager& fonts);

/// As above, on a template handed in. The placeholders are replaced one after the other, in a fixed order,
/// since one snippet carries the placeholder of a later one.
QString fillStyleSheet(const QString& sheetTemplate, const Styling& styling, ColorScheme scheme,
                       const WebFontManager& fonts);

} // namespace ledra
