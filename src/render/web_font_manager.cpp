#include "render/web_font_manager.h"

#include "render/css_text.h"
#include "render/document_address.h"

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

/// The beginning of a shipped file's name and the family it belongs to, as stylings name it.
struct BundledFamily
{
    QStringView prefix;
    QStringView family;
};

constexpr std::array<BundledFamily, 2> bundledFamilies = {{
    {u"SourceSerif4-", u"Source Serif"},
    {u"iAWriterDuo-", u"iA Writer Duo"},
}};

struct WeightName
{
    QStringView token; ///< as it stands in file and style names
    FontWeight weight;
};

// Longer tokens stand before those that they contain.
constexpr std::array<WeightName, 12> weightNames = {{
    {u"ExtraLight", FontWeight::extraLight},
    {u"Thin", FontWeight::thin},
    {u"Light", FontWeight::light},
    {u"Regular", FontWeight::normal},
    {u"Medium", FontWeight::medium},
    {u"Semibold", FontWeight::semibold},
    {u"SemiBold", FontWeight::semibold},
    {u"ExtraBold", FontWeight::heavy},
    {u"Bold", FontWeight::bold},
    {u"Heavy", FontWeight::heavy},
    {u"Black", FontWeight::black},
    {u"Normal", FontWeight::normal},
}};

FontWeight weightIn(const QString& styleName)
{
    const auto row = std::ranges::find_if(
        weightNames, [&](const WeightName& name) { return styleName.contains(name.token); });
    return row == weightNames.end() ? FontWeight::normal : row->weight;
}

QString cssWeight(FontWeight weight)
{
    return QString::number((static_cast<int>(weight) + 1) * 100);
}

/// 400 and 700 for the CSS words, else the number; 400 for nonsense.
int weightNumber(const QString& cssWeightText)
{
    if (cssWeightText == u"bold")
        return 700;
    bool isNumber = false;
    const int number = cssWeightText.toInt(&isNumber);
    return isNumber ? number : 400;
}

QString displayNameOf(FontWeight weight, bool italic)
{
    constexpr std::array<QStringView, 9> names = {
        u"Thin", u"Extra Light", u"Light", u"Regular", u"Medium", u"Semibold", u"Bold", u"Heavy", u"Black"};
    QString name = names.at(static_cast<std::size_t>(weight)).toString();
    if (!italic)
        return name;
    return weight == FontWeight::normal ? QStringLiteral("Italic") : name + QStringLiteral(" Italic");
}

int rankIn(const QString& text, std::initializer_list<QStringView> words)
{
    int rank = 1;
    for (const QStringView word : words) {
        if (text.contains(word, Qt::CaseInsensitive))
            return rank;
        ++rank;
    }
    return 0;
}

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

namespace FontStyleSort {

std::strong_ordering operator<=>(const SortKey& a, const SortKey& b)
{
    const auto ranks = [](const SortKey& key) {
        return std::tuple(key.subfamilyRank, key.weightRank, key.widthRank, key.italicRank);
    };
    if (const auto order = ranks(a) <=> ranks(b); order != 0)
        return order;
    return QString::compare(a.tieBreaker, b.tieBreaker) <=> 0;
}

SortKey keyOf(const FontCut& cut)
{
    const int weight = weightNumber(cut.cssWeight);
    return {rankIn(cut.displayName, {u"caption", u"small", u"subhead", u"display"}),
            weight == 400 ? 0 : weight,
            rankIn(cut.displayName, {u"semi condensed", u"condensed", u"expanded", u"extended"}),
            cut.isItalic ? 1 : 0, cut.displayName};
}

} // namespace FontStyleSort

bool isItalicFile(const QString& fileName)
{
    const QString lower = fileName.toLower();
    return lower.endsWith(u"italic.woff2") || lower.endsWith(u"it.woff2");
}

std::optional<FontCut> bundledCut(const QString& fileName)
{
    for (const BundledFamily& bundled : bundledFamilies) {
        if (!fileName.startsWith(bundled.prefix))
            continue;
        FontCut cut;
        cut.faceID = fileName.chopped(QStringLiteral(".woff2").size());
        cut.family = bundled.family.toString();
        cut.isItalic = isItalicFile(fileName);
        const FontWeight weight = weightIn(cut.faceID.sliced(bundled.prefix.size()));
        cut.cssWeight = cssWeight(weight);
        cut.displayName = displayNameOf(weight, cut.isItalic);
        cut.isBundled = true;
        cut.bundledPath = fontUrl(fileName);
        return cut;
    }
    return std::nullopt;
}

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
