#include "render/document_paginator.h"

#include "render/measuring_script.h"
#include "render/style_sheet.h"

#include <QPointer>
#include <QTimer>

#include <numeric>

namespace ledra {

namespace {

constexpr std::size_t mostCached = 32; // documents; a few hundred kilobytes each

/// The pages of a measured document, page numbers filled in.
std::vector<QString> pagesOf(const PaginatedDocument& document, const Geometry& geometry)
{
    const std::vector<PagePlan> plans = breakIntoPages(geometry, document.continuationOffset(geometry.rem));
    std::vector<QString> pages;
    pages.reserve(plans.size());
    for (const PagePlan& plan : plans) {
        QString html = document.pageHtml(plan.position, plan.blocks, plan.remainingSpace, geometry.rem);
        html.replace(pageNumberMarker.toString(), QString::number(pages.size() + 1));
        html.replace(pageCountMarker.toString(), QString::number(plans.size()));
        pages.push_back(std::move(html));
    }
    return pages;
}

PaginationResult singlePage(const PaginatedDocument& document)
{
    std::vector<int> all(static_cast<std::size_t>(document.expectedBlockCount()));
    std::iota(all.begin(), all.end(), 0);
    return {{document.pageHtml(PagePosition::single, all, unmeasuredSpace, 1)}, false};
}

} // namespace

void DocumentPaginator::paginate(std::shared_ptr<const PaginatedDocument> document, Completion completion)
{
    queue_.push_back({std::move(document), std::move(completion)});
    if (!isRunning_) {
        isRunning_ = true;
        QTimer::singleShot(0, this, &DocumentPaginator::startNext);
    }
}

void DocumentPaginator::startNext()
{
    const PaginatedDocument& document = *queue_.front().document;
    const QString html = document.measuringHtml();
    const CacheKey key{document.cacheKey(), qHash(html)};
    if (const auto kept = cache_.constFind(key); kept != cache_.constEnd()) {
        finish(*kept);
        return;
    }
    const QString script = measuringScript(document.blockSelectors(), document.headerSelector(),
                                           pageGeometry(document.pageFormat()).height);
    engine_.measure(html, document.pageFormat(), script,
                    [self = QPointer(this), key](const std::expected<QString, WebEngineError>& answer) {
                        if (self) // else who wanted the pages has gone meanwhile
                            self->measured(key, answer);
                    });
}

void DocumentPaginator::measured(const CacheKey& key, const std::expected<QString, WebEngineError>& answer)
{
    const PaginatedDocument& document = *queue_.front().document;
    const std::optional<Geometry> geometry = answer ? parseGeometry(*answer) : std::nullopt;
    const auto expected = static_cast<std::size_t>(document.expectedBlockCount());
    if (!geometry || geometry->blocks.size() != expected) {
        console_.failure(QStringLiteral("Pagination measurement failed, falling back to a single page"));
        finish(singlePage(document));
        return;
    }
    PaginationResult result{pagesOf(document, *geometry), true};
    remember(key, result);
    finish(std::move(result));
}

void DocumentPaginator::finish(PaginationResult result)
{
    Job job = std::move(queue_.front());
    queue_.pop_front();
    isRunning_ = !queue_.empty();
    if (isRunning_)
        QTimer::singleShot(0, this, &DocumentPaginator::startNext);
    QTimer::singleShot(0, this, [completion = std::move(job.completion), result = std::move(result)] {
        completion(result);
    });
}

void DocumentPaginator::remember(const CacheKey& key, const PaginationResult& result)
{
    cache_.insert(key, result);
    cacheOrder_.push_back(key);
    if (cacheOrder_.size() > mostCached) {
        cache_.remove(cacheOrder_.front());
        cacheOrder_.pop_front();
    }
}

} // namespace ledra
