#pragma once

#include "model/styling.h"
#include "render/font_cut.h"

#include <QHash>
#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace ledra {

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

} // namespace ledra
