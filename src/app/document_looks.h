#pragma once

#include "model/styling.h"

#include <array>
#include <span>

namespace ledra {

/// A ready-made look of documents: what of a styling it decides. Paper, logo and style sheet stay the user's
/// own. All fonts are shipped ones.
struct DocumentLook
{
    const char* name; ///< English, to be translated in the context "DocumentLook"
    const char* text; ///< one line about it, likewise
    const char* headlineFont;
    const char* headlineWeight;
    const char* textFont;
    const char* secondaryFont; ///< of labels as well
    const char* primaryColor;
    const char* accentColor;
    AccentColorUsage accentUsage;
    BackgroundPattern background;
    LineStyle lines;
    bool tintsRows;
    bool hasMargin;    ///< the column at the margin
    bool hasSmallCaps; ///< in labels
};

/// All of them; the first is that of new stylings.
std::span<const DocumentLook> documentLooks();

/// Takes over what the look decides.
void takeLook(Styling& styling, const DocumentLook& look);

/// Whether a styling has a look, whatever its colours.
bool hasLook(const Styling& styling, const DocumentLook& look);

} // namespace ledra
