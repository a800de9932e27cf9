#pragma once

#include "model/enumerations.h"
#include "render/page_breaker.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace ledra {

/// The remaining space that a document is told when its blocks could not be measured. All its blocks then
/// stand in one page, which must be let grow over as many sheets as the engine prints.
inline constexpr double unmeasuredSpace = 1'000'000;

/// Text in a page that the paginator replaces once it knows how many pages there are.
inline constexpr QStringView pageNumberMarker = u"<!--page-number-->";
inline constexpr QStringView pageCountMarker = u"<!--page-count-->";

/// What a document provides to be laid out on pages.
class PaginatedDocument
{
public:
    virtual ~PaginatedDocument() = default;

    /// The whole document as one page of the classes "page-single measuring".
    virtual QString measuringHtml() const = 0;

    /// CSS selectors of the blocks that must not be split, in document order.
    virtual QStringList blockSelectors() const = 0;

    /// How many blocks the measuring HTML must contain.
    virtual int expectedBlockCount() const = 0;

    virtual PageFormat pageFormat() const = 0;

    /// A hash of the record, the styling, the style sheet and the scheme.
    virtual std::size_t cacheKey() const = 0;

    /// The header that every continuation page repeats.
    virtual std::optional<QString> headerSelector() const = 0;

    /// Space kept free at the top of every page after the first, in pixels.
    ///
    /// @param rem pixels per rem
    virtual double continuationOffset(double rem) const = 0;

    /// One page that holds exactly the blocks named.
    ///
    /// @param remainingSpace pixels left below the last block
    /// @param rem pixels per rem
    virtual QString pageHtml(PagePosition position, const std::vector<int>& blocks, double remainingSpace,
                             double rem) const = 0;
};

} // namespace ledra
