#pragma once

#include "model/styling.h"
#include "platform/console.h"

#include <QString>

namespace ledra {

inline constexpr qint64 largestLogo = qint64{8} * 1024 * 1024;
inline constexpr qint64 largestStyleSheet = qint64{1} * 1024 * 1024;

/// By the lower-cased extension: svg, png, jpg, jpeg, webp.
bool isLogoFile(const QString& path);
bool isStyleSheetFile(const QString& path); ///< css

/// Fills a styling's logo and style sheet from the files that lie in its folder: the first one by name whose
/// extension is that of a logo (svg, png, jpg, jpeg, webp) or of a style sheet (css). A file that cannot be
/// read is said on the console and left out.
void loadStylingAssets(Styling& styling, const QString& folder, Console& console);

/// A logo's content as the styling holds it: SVG markup, or a data URL for an image.
QString logoContent(const QString& fileName, const QByteArray& bytes);

/// A logo's file, made of the content that the styling holds.
struct LogoFile
{
    QString name; ///< "logo.svg"
    QByteArray bytes;
};
LogoFile logoFile(const QString& content);

} // namespace ledra
