#pragma once

#include "model/styling.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <compare>
#include <optional>
#include <vector>

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

enum class FontVariant { regular, bold, italic };

/// What a style sheet needs to show one font slot.
struct FontSlot
{
    QString family; ///< a CSS family list, quoted
    QString weight;
    QString style;
    std::optional<FontCut> bundledCut; ///< the shipped face that is shown
};

/// The catalogue of font families that stylings may use: the faces shipped as WOFF2 files and the families
/// installed on the computer. Reading the installed ones takes a while, so it is a step of its own.
class WebFontManager : public QObject
{
    Q_OBJECT

public:
    struct FontFamily
    {
        QString name;
        bool isBundled = false;
        std::vector<FontCut> cuts;
    };

    /// Reads the shipped faces.
    WebFontManager();

    /// Adds the families of the system's font list; needs a QGuiApplication. Says fontCatalogDidLoad.
    void loadInstalled();

    /// Reads the installed families if the styling names a family that is not shipped.
    void loadFor(const Styling& styling);

    const std::vector<FontFamily>& availableFamilies() const { return availableFamilies_; }
    const std::vector<FontCut>* cutsOf(const QString& family) const;
    const FontCut* cut(const QString& faceID) const;

    /// The text that a font picker shows beside a family that is neither shipped nor installed; empty
    /// otherwise.
    QString missingFamilyWarning(const QString& family) const;

    FontSlot resolve(const QString& family, const QString& weight, const std::optional<QString>& faceID,
                     FontVariant variant) const;

    /// "@font-face" rules for shipped cuts, in order; cuts without a file give none.
    static QString fontFaceRules(const std::vector<FontCut>& cuts);

Q_SIGNALS:
    void fontCatalogDidLoad();

private:
    void addFamily(FontFamily family);
    const FontCut* nearestCut(const QString& family, const QString& weight, bool italic) const;

    std::vector<FontFamily> availableFamilies_;
    QHash<QString, std::vector<FontCut>> cutsByFamily_;
    QHash<QString, FontCut> cutIndex_;
    bool installedLoaded_ = false;
};

/// Whether a face file is an italic one, by its name alone: it ends in "italic.woff2" or "it.woff2".
bool isItalicFile(const QString& fileName);

/// The shipped face that a resource file holds; nothing for a file that belongs to no shipped family.
std::optional<FontCut> bundledCut(const QString& fileName);

} // namespace ledra
