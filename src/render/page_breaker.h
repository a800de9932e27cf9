#pragma once

#include <limits>
#include <optional>
#include <vector>

namespace ledra {

/// A block's edges, in CSS pixels below the top of the measured body.
struct Block
{
    double top = std::numeric_limits<double>::quiet_NaN();
    double bottom = std::numeric_limits<double>::quiet_NaN();
};

/// What the measuring script reads from a document; lengths in CSS pixels.
struct Geometry
{
    double rem = 0;           ///< pixels per rem
    double contentTop = 0;    ///< where content starts on a page
    double contentBottom = 0; ///< where content must end
    double flowTop = 0;       ///< top of the first block on the first page
    std::vector<Block> blocks;
    double headerHeight = 0; ///< of the header that continuation pages repeat
    std::optional<double> footerSectionTop;
};

/// Where a page stands in its document.
enum class PagePosition { single = 0, first = 1, middle = 2, last = 3 };

struct PagePlan
{
    PagePosition position = PagePosition::single;
    std::vector<int> blocks;   ///< indices, in order
    double remainingSpace = 0; ///< pixels; negative below an overlong block
};

/// Distributes measured blocks over pages. No block is split; one that is taller than a page stands alone.
///
/// @param continuationOffset pixels kept free at the top of every page after the first
/// @return at least one page
std::vector<PagePlan> breakIntoPages(const Geometry& geometry, double continuationOffset);

} // namespace ledra
