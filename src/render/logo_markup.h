#pragma once

#include <QString>

#include <optional>

namespace ledra {

/// At which corner of its box a logo stands.
enum class LogoAnchor { bottomLeft, bottomRight };

/// The HTML of a logo: inline SVG or an image, in its wrapper; empty without a logo. SVG markup comes from a
/// file and is rewritten element by element, so that only drawing reaches the document.
QString logoMarkup(const std::optional<QString>& logo, LogoAnchor anchor);

/// SVG markup without scripts, event handlers, foreign content and references that lead out of the file;
/// nothing when the text is no well-formed SVG.
std::optional<QString> safeSvg(const QString& markup, LogoAnchor anchor);

} // namespace ledra
