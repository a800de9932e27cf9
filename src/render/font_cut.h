#pragma once

#include <QString>

#include <compare>
#include <optional>

namespace ledra {

/// One face of a family.
struct FontCut
{
    QString faceID;      ///< unique; the CSS family name of a shipped face
    QString displayName; ///< "Regular" for the upright normal face
    QString family;
    QString cssWeight;
    bool isItalic = false;
    bool isBundled = false;
    std::optional<QString> bundledPath; ///< the WOFF2 file of a shipped face

    friend bool operator==(const FontCut&, const FontCut&) = default;
};

/// From the lightest to the heaviest; CSS weights 100 to 900.
enum class FontWeight { thin, extraLight, light, normal, medium, semibold, bold, heavy, black };

/// The order in which the cuts of a family are listed.
namespace FontStyleSort {

struct SortKey
{
    int subfamilyRank; ///< the plain family before its optical sizes
    int weightRank;    ///< the regular weight first, then from light to heavy
    int widthRank;     ///< normal width before condensed and extended ones
    int italicRank;    ///< upright before italic
    QString tieBreaker;

    friend std::strong_ordering operator<=>(const SortKey& a, const SortKey& b);
    friend bool operator==(const SortKey&, const SortKey&) = default;
};

SortKey keyOf(const FontCut& cut);

} // namespace FontStyleSort

/// A CSS weight as a number: 400 and 700 for the CSS words, 400 for nonsense.
int weightNumber(const QString& cssWeight);

/// Whether a face file is an italic one, by its name alone: it ends in "italic.woff2" or "it.woff2".
bool isItalicFile(const QString& fileName);

/// The shipped face that a resource file holds; nothing for a file that belongs to no shipped family.
std::optional<FontCut> bundledCut(const QString& fileName);

} // namespace ledra
