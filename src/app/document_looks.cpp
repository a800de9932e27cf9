#include "app/document_looks.h"

namespace ledra {

namespace {

constexpr const char* serif = "Source Serif";
constexpr const char* duo = "iA Writer Duo";

constexpr std::array looks = {
    DocumentLook{"Classic", "A serif letter with figures that stand in columns", serif, "400", duo, serif,
                 "68977C", "FF4B14", AccentColorUsage::important, BackgroundPattern::none, LineStyle::dotted,
                 true, true, true},
    DocumentLook{"Letter", "One typeface, fine lines and nothing at the margin", serif, "600", serif, serif,
                 "4A4A52", "1D56C4", AccentColorUsage::important, BackgroundPattern::none, LineStyle::single,
                 false, false, false},
    DocumentLook{"Studio", "A heavy headline in color, within a frame", serif, "900", duo, serif, "2B4C7E",
                 "C8102E", AccentColorUsage::headline, BackgroundPattern::frame, LineStyle::double_, true,
                 true, false},
    DocumentLook{"Typewriter", "All in one width, with dots behind it", duo, "700", duo, duo, "3F5D57",
                 "B5532A", AccentColorUsage::labels, BackgroundPattern::dots, LineStyle::dashed, false, true,
                 false},
};

QString text(const char* ascii)
{
    return QString::fromLatin1(ascii);
}

} // namespace

std::span<const DocumentLook> documentLooks()
{
    return looks;
}

void takeLook(Styling& styling, const DocumentLook& look)
{
    styling.headlineFont = text(look.headlineFont);
    styling.headlineFontWeight = text(look.headlineWeight);
    styling.primaryFont = text(look.textFont);
    styling.secondaryFont = styling.labelFont = text(look.secondaryFont);
    styling.primaryFontWeight = styling.secondaryFontWeight = styling.labelFontWeight = QStringLiteral("400");
    for (auto* face : {&styling.headlineFontFace, &styling.primaryFontFace, &styling.secondaryFontFace,
                       &styling.labelFontFace})
        face->reset();
    styling.primaryColor = text(look.primaryColor);
    styling.accentColor = text(look.accentColor);
    styling.accentColorUsage = {look.accentUsage};
    styling.backgroundPattern = look.background;
    styling.lineStyle = look.lines;
    styling.tintRowBackground = look.tintsRows;
    styling.marginalColumn = look.hasMargin;
    styling.smallCapsLabels = look.hasSmallCaps;
}

bool hasLook(const Styling& styling, const DocumentLook& look)
{
    Styling taken = styling;
    takeLook(taken, look);
    taken.primaryColor = styling.primaryColor;
    taken.accentColor = styling.accentColor;
    taken.marginalColumn = styling.marginalColumn; // a choice of its own beside the looks
    return taken == styling;
}

} // namespace ledra
