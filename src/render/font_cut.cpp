#include "render/font_cut.h"

#include "render/document_address.h"

#include <algorithm>
#include <array>
#include <tuple>

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

} // namespace

int weightNumber(const QString& cssWeight)
{
    if (cssWeight == u"bold")
        return 700;
    bool isNumber = false;
    const int number = cssWeight.toInt(&isNumber);
    return isNumber ? number : 400;
}

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

} // namespace ledra
