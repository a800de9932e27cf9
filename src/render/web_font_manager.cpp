#include "render/web_font_manager.h"

#include "render/css_text.h"

#include <QDir>
#include <QFontDatabase>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

static void initialiseFonts()
{
    Q_INIT_RESOURCE(fonts);
}

namespace ledra {

namespace {

std::vector<FontCut> installedCuts(const QString& family)
{
    std::vector<FontCut> cuts;
    for (const QString& style : QFontDatabase::styles(family)) {
        FontCut cut;
        cut.faceID = family + u'-' + style;
        cut.displayName = style == u"Normal" ? QStringLiteral("Regular") : style;
        cut.family = family;
        cut.cssWeight = QString::number(QFontDatabase::weight(family, style));
        cut.isItalic = QFontDatabase::italic(family, style);
        cuts.push_back(cut);
    }
    return cuts;
}

} // namespace

WebFontManager::WebFontManager()
{
    initialiseFonts();
    std::map<QString, FontFamily> families;
    for (const QString& name : QDir(QStringLiteral(":/fonts")).entryList({QStringLiteral("*.woff2")})) {
        if (const std::optional<FontCut> cut = bundledCut(name)) {
            FontFamily& family = families[cut->family];
            family.name = cut->family;
            family.isBundled = true;
            family.cuts.push_back(*cut);
        }
    }
    for (auto& [name, family] : families)
        addFamily(std::move(family));
}

void WebFontManager::loadInstalled()
{
    if (installedLoaded_)
        return;
    installedLoaded_ = true;
    for (const QString& name : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(name) && !cutsByFamily_.contains(name))
            addFamily({name, false, installedCuts(name)});
    }
    Q_EMIT fontCatalogDidLoad();
}

void WebFontManager::loadFor(const Styling& styling)
{
    const std::array names = {&styling.headlineFont, &styling.primaryFont, &styling.secondaryFont,
                              &styling.labelFont};
    if (std::ranges::any_of(names, [&](const QString* name) { return !cutsOf(*name); }))
        loadInstalled();
}

void WebFontManager::addFamily(FontFamily family)
{
    std::ranges::sort(family.cuts, {}, FontStyleSort::keyOf);
    for (const FontCut& cut : family.cuts)
        cutIndex_.insert(cut.faceID, cut);
    cutsByFamily_.insert(family.name, family.cuts);
    availableFamilies_.push_back(std::move(family));
}

const std::vector<FontCut>* WebFontManager::cutsOf(const QString& family) const
{
    const auto found = cutsByFamily_.constFind(family);
    return found == cutsByFamily_.constEnd() ? nullptr : &*found;
}

const FontCut* WebFontManager::cut(const QString& faceID) const
{
    const auto found = cutIndex_.constFind(faceID);
    return found == cutIndex_.constEnd() ? nullptr : &*found;
}

QString WebFontManager::missingFamilyWarning(const QString& family) const
{
    return cutsOf(family) ? QString() : u'“' + family + QStringLiteral("” is not installed on this Mac");
}

const FontCut* WebFontManager::nearestCut(const QString& family, const QString& weight, bool italic) const
{
    const std::vector<FontCut>* cuts = cutsOf(family);
    if (!cuts)
        return nullptr;
    const FontCut* nearest = nullptr;
    const auto distance = [&](const FontCut& cut) {
        return std::abs(weightNumber(cut.cssWeight) - weightNumber(weight));
    };
    for (const FontCut& cut : *cuts) {
        if (cut.isItalic == italic && (!nearest || distance(cut) < distance(*nearest)))
            nearest = &cut;
    }
    return nearest;
}

FontSlot WebFontManager::resolve(const QString& family, const QString& weight,
                                 const std::optional<QString>& faceID, FontVariant variant) const
{
    const FontCut* face = faceID ? cut(*faceID) : nullptr;
    if (!face || face->family != family)
        face = nearestCut(family, weight, false);
    const QString regularWeight = cssFontWeight(weight);

    const FontCut* shown = face;
    if (variant == FontVariant::bold)
        shown = nearestCut(family, QStringLiteral("700"), face && face->isItalic);
    else if (variant == FontVariant::italic)
        shown = nearestCut(family, weight, true);
    const bool isRealBold = shown && weightNumber(shown->cssWeight) >= 600;
    const bool isFound = shown && (variant != FontVariant::bold || isRealBold);
    if (isFound && shown->isBundled)
        return {cssString(shown->faceID) + QStringLiteral(", ") + cssString(shown->family),
                QStringLiteral("normal"), QStringLiteral("normal"), *shown};

    // The engine makes what is missing out of the face that is there.
    FontSlot slot{cssString(family), regularWeight, QStringLiteral("normal"), std::nullopt};
    if (face && face->isBundled) {
        slot = resolve(family, weight, faceID, FontVariant::regular);
    } else if (face && face->isItalic) {
        slot.style = QStringLiteral("italic");
    }
    if (variant == FontVariant::bold)
        slot.weight = QStringLiteral("bold");
    else if (variant == FontVariant::italic)
        slot.style = QStringLiteral("italic");
    return slot;
}

QString WebFontManager::fontFaceRules(const std::vector<FontCut>& cuts)
{
    QString rules;
    for (const FontCut& cut : cuts) {
        if (cut.bundledPath)
            rules += QStringLiteral(
                         "@font-face {\n    font-family: '%1';\n    src: url('%2') format('woff2');\n}\n")
                         .arg(cut.faceID, *cut.bundledPath);
    }
    return rules;
}

} // namespace ledra
