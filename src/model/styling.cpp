#include "model/styling.h"

#include "model/country.h"

namespace ledra {

PageFormat pageFormatOfRegion(const QString& region)
{
    const CountryFacts* facts = findCountry(region);
    return facts && facts->usesLetterPaper ? PageFormat::usLetter : PageFormat::a4;
}

Styling newStyling(const QUuid& id, const QString& region)
{
    Styling styling;
    styling.id = id;
    styling.pageFormat = pageFormatOfRegion(region);
    return styling;
}

} // namespace ledra
