#pragma once

#include "model/styling.h"
#include "platform/console.h"

#include <QString>

namespace ledra {

/// Fills a styling's logo and style sheet from the files that lie in its folder: the first one by name whose
/// extension is that of a logo (svg, png, jpg, jpeg, webp) or of a style sheet (css). A file that cannot be
/// read is said on the console and left out.
void loadStylingAssets(Styling& styling, const QString& folder, Console& console);

/// A logo's content as the styling holds it: SVG markup, or a data URL for an image.
QString logoContent(const QString& fileName, const QByteArray& bytes);

} // namespace ledra
