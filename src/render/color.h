#pragma once

#include <QString>

#include <optional>

namespace ledra {

/// An sRGB colour, components 0 to 255.
struct RgbColor
{
    int red = 0;
    int green = 0;
    int blue = 0;

    friend bool operator==(const RgbColor&, const RgbColor&) = default;
};

/// A colour as stylings hold it: exactly six hexadecimal digits after white space and one "#" are taken off.
std::optional<RgbColor> parseColor(const QString& text);

/// Six upper-case hexadecimal digits.
QString hexText(const RgbColor& color);

/// How a lightness is applied: only to a colour that is lighter, or to every colour.
enum class LightnessMode { darkenOnly, set };

/// A colour of another lightness, with its hue and chroma kept in the OKLCH space (B. Ottosson, 2020).
///
/// @param lightness percent, limited to 0 … 100
/// @return six upper-case digits; the text as entered (trimmed, without "#") for a colour that is dark enough
///         already in darken-only mode, and for a text that is no colour
QString derivedColor(const QString& text, double lightness, LightnessMode mode);

/// A share of one colour over another, computed per component.
RgbColor mixedColor(const RgbColor& color, double share, const RgbColor& background);

} // namespace ledra
