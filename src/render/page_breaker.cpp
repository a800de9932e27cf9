#include "render/page_breaker.h"

#include <algorithm>

namespace ledra {

namespace {

constexpr double distanceToFooter = 1.2; // rem

double heightOf(const Block& block)
{
    return std::max(0.0, block.bottom - block.top);
}

double gapBetween(const Block& upper, const Block& lower)
{
    return std::max(0.0, lower.top - upper.bottom);
}

PagePosition positionOf(std::size_t page, std::size_t count)
{
    if (count == 1)
        return PagePosition::single;
    if (page == 0)
        return PagePosition::first;
    return page + 1 == count ? PagePosition::last : PagePosition::middle;
}

} // namespace

std::vector<PagePlan> breakIntoPages(const Geometry& geometry, double continuationOffset)
{
    const double limit = geometry.footerSectionTop
                             ? *geometry.footerSectionTop - distanceToFooter * geometry.rem
                             : geometry.contentBottom;
    const double continuationTop = geometry.contentTop + continuationOffset + geometry.headerHeight;

    std::vector<PagePlan> pages(1);
    double y = geometry.flowTop;
    for (std::size_t i = 0; i < geometry.blocks.size(); ++i) {
        const Block& block = geometry.blocks[i];
        const bool isFirstOnPage = pages.back().blocks.empty();
        double gap = isFirstOnPage ? 0 : gapBetween(geometry.blocks[i - 1], block);
        if (!isFirstOnPage && y + gap + heightOf(block) > limit) {
            pages.back().remainingSpace = limit - y;
            pages.emplace_back();
            y = continuationTop;
            gap = 0;
        }
        pages.back().blocks.push_back(static_cast<int>(i));
        y += gap + heightOf(block);
    }
    pages.back().remainingSpace = limit - y;

    for (std::size_t page = 0; page < pages.size(); ++page)
        pages[page].position = positionOf(page, pages.size());
    return pages;
}

} // namespace ledra
