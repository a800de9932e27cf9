#include "render/style_sheet.h"

#include "render/color.h"
#include "render/css_text.h"
#include "render/templates.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace ledra {

namespace {

/// A length with one decimal of exactly the number given, as printf() writes it: 1.25 is 1.2, where Qt's
/// numbers round a half up.
QString remText(double length)
{
    std::array<char, 400> text{}; // the largest number has 309 digits
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), length, std::chars_format::fixed, 1);
    return QString::fromLatin1(text.data(), end.ptr - text.data()) + QStringLiteral("rem");
}

/// Placeholders and their values, replaced in this order.
using Substitutions = std::vector<std::pair<QString, QString>>;

struct SchemeColors
{
    QString background;
    QString mix;
    double colorLightness; ///< of primary and accent, percent
    double darkLightness;
    LightnessMode mode;
    // Shares of the tints over the background.
    double primaryLight;
    double primaryFaint;
    double primaryExtralight;
    double accentLight;
    double accentExtralight;
};

SchemeColors colorsOf(ColorScheme scheme)
{
    if (scheme == ColorScheme::dark)
        return {QStringLiteral("#161616"),
                QStringLiteral("#FFFFFF"),
                60,
                80,
                LightnessMode::set,
                0.34,
                0.20,
                0.13,
                0.22,
                0.10};
    return {QStringLiteral("#FFFFFF"),
            QStringLiteral("#000000"),
            50,
            20,
            LightnessMode::darkenOnly,
            0.30,
            0.18,
            0.09,
            0.16,
            0.06};
}

QString tint(const QString& color, double share, const QString& background)
{
    const std::optional<RgbColor> over = parseColor(color);
    const std::optional<RgbColor> under = parseColor(background);
    return over && under ? u'#' + hexText(mixedColor(*over, share, *under)) : color;
}

void addPage(Substitutions& list, const Styling& styling)
{
    const PageGeometry page = pageGeometry(styling.pageFormat);
    list.emplace_back(QStringLiteral("page-width"), cssNumber(page.width));
    list.emplace_back(QStringLiteral("page-height"), cssNumber(page.height));
    list.emplace_back(QStringLiteral("fold-mark-one"), cssNumber(page.foldMarkOne));
    list.emplace_back(QStringLiteral("fold-mark-two"), cssNumber(page.foldMarkTwo));
    // One rem is one centimetre of paper; the paper is measured in whole points.
    const bool letter = styling.pageFormat == PageFormat::usLetter;
    list.emplace_back(QStringLiteral("root-font-size"),
                      letter ? QStringLiteral("calc(612px / 21.59)") : QStringLiteral("calc(595px / 21)"));
}

void addColors(Substitutions& list, const Styling& styling, const SchemeColors& scheme)
{
    const QString primary = cssColor(derivedColor(styling.primaryColor, scheme.colorLightness, scheme.mode));
    const QString accent = cssColor(derivedColor(styling.accentColor, scheme.colorLightness, scheme.mode));
    list.emplace_back(QStringLiteral("background-color"), scheme.background);
    list.emplace_back(QStringLiteral("mix-color"), scheme.mix);
    list.emplace_back(QStringLiteral("primary-color"), primary);
    list.emplace_back(QStringLiteral("primary-dark-color"),
                      cssColor(derivedColor(styling.primaryColor, scheme.darkLightness, scheme.mode)));
    list.emplace_back(QStringLiteral("accent-color"), accent);
    list.emplace_back(QStringLiteral("accent-dark-color"),
                      cssColor(derivedColor(styling.accentColor, scheme.darkLightness, scheme.mode)));
    list.emplace_back(QStringLiteral("primary-light-color"),
                      tint(primary, scheme.primaryLight, scheme.background));
    list.emplace_back(QStringLiteral("primary-faint-color"),
                      tint(primary, scheme.primaryFaint, scheme.background));
    list.emplace_back(QStringLiteral("primary-extralight-color"),
                      tint(primary, scheme.primaryExtralight, scheme.background));
    list.emplace_back(QStringLiteral("accent-light-color"),
                      tint(accent, scheme.accentLight, scheme.background));
    list.emplace_back(QStringLiteral("accent-extralight-color"),
                      tint(accent, scheme.accentExtralight, scheme.background));
}

struct NamedSlot
{
    const char* name;
    FontSlot slot;
};

std::vector<NamedSlot> fontSlots(const Styling& s, const WebFontManager& fonts)
{
    const auto primary = [&](FontVariant variant) {
        return fonts.resolve(s.primaryFont, s.primaryFontWeight, s.primaryFontFace, variant);
    };
    const auto secondary = [&](FontVariant variant) {
        return fonts.resolve(s.secondaryFont, s.secondaryFontWeight, s.secondaryFontFace, variant);
    };
    return {
        {"headline",
         fonts.resolve(s.headlineFont, s.headlineFontWeight, s.headlineFontFace, FontVariant::regular)},
        {"primary", primary(FontVariant::regular)},
        {"primary-bold", primary(FontVariant::bold)},
        {"primary-italic", primary(FontVariant::italic)},
        {"secondary", secondary(FontVariant::regular)},
        {"secondary-bold", secondary(FontVariant::bold)},
        {"label", fonts.resolve(s.labelFont, s.labelFontWeight, s.labelFontFace, FontVariant::regular)},
    };
}

QString fontFaces(const std::vector<NamedSlot>& slots)
{
    std::vector<FontCut> cuts;
    for (const NamedSlot& named : slots) {
        const std::optional<FontCut>& cut = named.slot.bundledCut;
        if (cut && std::ranges::find(cuts, *cut) == cuts.end())
            cuts.push_back(*cut);
    }
    return WebFontManager::fontFaceRules(cuts);
}

void addFonts(Substitutions& list, const std::vector<NamedSlot>& slots)
{
    for (const auto& [name, slot] : slots) {
        const QString prefix = QString::fromLatin1(name);
        list.emplace_back(prefix + QStringLiteral("-font"), slot.family);
        list.emplace_back(prefix + QStringLiteral("-font-weight"), slot.weight);
        list.emplace_back(prefix + QStringLiteral("-font-style"), slot.style);
    }
}

QString lineStyleText(LineStyle style)
{
    constexpr std::array<const char*, 4> texts = {"0.04rem solid", "0.07rem double", "0.05rem dotted",
                                                  "0.05rem dashed"};
    return QString::fromLatin1(texts.at(static_cast<std::size_t>(style)));
}

constexpr const char* smallCaps = "    font-variant: all-small-caps;\n    letter-spacing: 0.02rem;";
constexpr const char* accentLabels = "    --primary: var(--accent);\n    background-color: none;";
constexpr const char* accentTint = "    --primary: var(--accent);\n"
                                   "    --primary-dark: var(--accent-dark);\n"
                                   "    --primary-light: var(--accent-light);\n"
                                   "    --primary-extralight: var(--accent-extralight);";
constexpr const char* dotsPattern =
    "    background-image: radial-gradient(var(--primary-light) 0.04rem, transparent 0);\n"
    "    background-size: 0.6rem 0.6rem;\n"
    "    background-position-x: center;\n"
    "    background-position-y: center;";
// Drawn in A4 dimensions on either paper.
constexpr const char* framePattern = "    body::before {\n"
                                     "        content: \"\";\n"
                                     "        position: absolute;\n"
                                     "        display: block;\n"
                                     "        left: 0;\n"
                                     "        top: 0;\n"
                                     "        width: 18.5rem;\n"
                                     "        height: 27.2rem;\n"
                                     "        margin: 1.2rem;\n"
                                     "        z-index: -10;\n"
                                     "        background-color: var(--primary-light);\n"
                                     "        opacity: 0.6;\n"
                                     "    }\n"
                                     "    body::after {\n"
                                     "        content: \"\";\n"
                                     "        position: absolute;\n"
                                     "        display: block;\n"
                                     "        left: 0;\n"
                                     "        top: 0;\n"
                                     "        width: 18.9rem;\n"
                                     "        height: 27.6rem;\n"
                                     "        margin: 0.9rem;\n"
                                     "        z-index: -10;\n"
                                     "        border: 0.2rem solid var(--primary-light);\n"
                                     "        opacity: 0.6;\n"
                                     "    }";

void addSnippets(Substitutions& list, const Styling& s)
{
    const auto when = [](bool condition, const char* text) {
        return condition ? QString::fromLatin1(text) : QString();
    };
    const auto uses = [&](AccentColorUsage usage) { return s.accentColorUsage.contains(usage); };
    const auto flag = [](bool on) { return QString(on ? u'1' : u'0'); };

    list.emplace_back(QStringLiteral("primary-font-feature-settings"),
                      when(s.primaryFont == u"iA Writer Duo", "font-feature-settings: 'ss04';"));
    list.emplace_back(QStringLiteral("show-headline"), flag(s.pageHeadline));
    list.emplace_back(QStringLiteral("show-address-line"), flag(s.addressLine));
    list.emplace_back(QStringLiteral("small-caps-font-feature"), when(s.smallCapsLabels, smallCaps));
    list.emplace_back(QStringLiteral("accent-labels"), when(uses(AccentColorUsage::labels), accentLabels));
    list.emplace_back(QStringLiteral("primary-extralight-background"),
                      when(s.tintRowBackground, "background-color: var(--primary-extralight);"));
    list.emplace_back(QStringLiteral("line"),
                      when(!s.tintRowBackground, "border-bottom: {{line-style}} var(--primary-light);"));
    list.emplace_back(QStringLiteral("line-style"), lineStyleText(s.lineStyle));
    list.emplace_back(QStringLiteral("primary-light-background"),
                      when(s.tintRowBackground, "background-color: var(--primary-light);"));
    list.emplace_back(QStringLiteral("accent-tint"), when(uses(AccentColorUsage::important), accentTint));
    list.emplace_back(QStringLiteral("recolor-logo"), when(s.recolorLogo, "fill: var(--primary);"));
    list.emplace_back(QStringLiteral("accent-logo"),
                      when(s.recolorLogo && uses(AccentColorUsage::logo), "--primary: var(--accent);"));
    list.emplace_back(QStringLiteral("accent-headline"),
                      when(uses(AccentColorUsage::headline), "color: var(--accent);"));
    list.emplace_back(QStringLiteral("logo-size"), remText(s.logoSize));
    list.emplace_back(QStringLiteral("show-sidebar"), flag(s.marginalColumn));
    list.emplace_back(QStringLiteral("show-footer"), flag(!s.marginalColumn));
    list.emplace_back(QStringLiteral("background-grid"),
                      when(s.backgroundPattern == BackgroundPattern::dots, dotsPattern));
    list.emplace_back(QStringLiteral("background-frame"),
                      when(s.backgroundPattern == BackgroundPattern::frame, framePattern));
}

} // namespace

ColorScheme effectiveScheme(ColorScheme wanted, bool invoiceDarkMode)
{
    return invoiceDarkMode ? wanted : ColorScheme::light;
}

PageGeometry pageGeometry(PageFormat format)
{
    if (format == PageFormat::usLetter)
        return {21.59, 27.94, 27.94 / 3, 27.94 * 2 / 3}; // the sheet is folded in thirds
    return {21, 29.7, 10.5, 21};                         // DIN 5008 form B
}

QString makeStyleSheet(const Styling& styling, ColorScheme scheme, const WebFontManager& fonts)
{
    return fillStyleSheet(templateText(QStringLiteral("Template.css")).value_or(QString()), styling, scheme,
                          fonts);
}

QString fillStyleSheet(const QString& sheetTemplate, const Styling& styling, ColorScheme scheme,
                       const WebFontManager& fonts)
{
    const std::vector<NamedSlot> slots = fontSlots(styling, fonts);
    Substitutions substitutions;
    addPage(substitutions, styling);
    substitutions.emplace_back(QStringLiteral("font-faces"), fontFaces(slots));
    addColors(substitutions, styling, colorsOf(scheme));
    substitutions.emplace_back(QStringLiteral("right-margin"),
                               styling.marginalColumn ? QStringLiteral("6rem") : QStringLiteral("1.8rem"));
    addFonts(substitutions, slots);
    addSnippets(substitutions, styling);

    QString sheet = sheetTemplate;
    for (const auto& [name, value] : substitutions)
        sheet.replace(QStringLiteral("{{") + name + QStringLiteral("}}"), value);
    return sheet;
}

} // namespace ledra
