#include "render/color.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace ledra {

namespace {

struct Oklch
{
    double lightness; // 0 … 1
    double chroma;
    double hue; // degrees, 0 … 360
};

double toLinear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double fromLinear(double component)
{
    return component <= 0.0031308 ? component * 12.92 : 1.055 * std::pow(component, 1.0 / 2.4) - 0.055;
}

// The matrices of the OKLab definition: linear sRGB to cone responses, their cube roots to Lab, and back.
Oklch toOklch(const RgbColor& color)
{
    const double r = toLinear(color.red / 255.0);
    const double g = toLinear(color.green / 255.0);
    const double b = toLinear(color.blue / 255.0);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    const double lightness = 0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s;
    const double a = 1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s;
    const double axisB = 0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s;
    const double degrees = std::atan2(axisB, a) * 180.0 / std::numbers::pi;
    return {lightness, std::hypot(a, axisB), degrees < 0 ? degrees + 360.0 : degrees};
}

int component(double linear)
{
    return static_cast<int>(std::clamp(fromLinear(linear), 0.0, 1.0) * 255.0); // truncated
}

RgbColor fromOklch(const Oklch& color)
{
    const double radians = color.hue * std::numbers::pi / 180.0;
    const double a = color.chroma * std::cos(radians);
    const double b = color.chroma * std::sin(radians);
    const double l = std::pow(color.lightness + 0.3963377774 * a + 0.2158037573 * b, 3);
    const double m = std::pow(color.lightness - 0.1055613458 * a - 0.0638541728 * b, 3);
    const double s = std::pow(color.lightness - 0.0894841775 * a - 1.2914855480 * b, 3);
    return {component(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            component(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            component(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

QString withoutMark(const QString& text)
{
    const QString trimmed = text.trimmed();
    return trimmed.startsWith(u'#') ? trimmed.sliced(1) : trimmed;
}

bool isHexDigit(QChar c)
{
    return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'f') || (c >= u'A' && c <= u'F');
}

} // namespace

std::optional<RgbColor> parseColor(const QString& text)
{
    const QString digits = withoutMark(text);
    if (digits.size() != 6 || !std::ranges::all_of(digits, isHexDigit))
        return std::nullopt;
    const int value = digits.toInt(nullptr, 16);
    return RgbColor{value >> 16, (value >> 8) & 0xFF, value & 0xFF};
}

QString hexText(const RgbColor& color)
{
    const int value = (color.red << 16) | (color.green << 8) | color.blue;
    return QString::number(value, 16).toUpper().rightJustified(6, u'0');
}

QString derivedColor(const QString& text, double lightness, LightnessMode mode)
{
    const std::optional<RgbColor> color = parseColor(text);
    if (!color)
        return withoutMark(text);
    const double wanted = std::clamp(lightness, 0.0, 100.0) / 100.0;
    Oklch perceptual = toOklch(*color);
    if (mode == LightnessMode::darkenOnly && perceptual.lightness <= wanted)
        return withoutMark(text);
    perceptual.lightness = wanted;
    return hexText(fromOklch(perceptual));
}

RgbColor mixedColor(const RgbColor& color, double share, const RgbColor& background)
{
    const auto mix = [share](int over, int under) {
        return static_cast<int>(std::lround(over * share + under * (1.0 - share)));
    };
    return {mix(color.red, background.red), mix(color.green, background.green),
            mix(color.blue, background.blue)};
}

} // namespace ledra
