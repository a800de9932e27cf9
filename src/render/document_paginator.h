#pragma once

#include "platform/console.h"
#include "render/paginated_document.h"
#include "render/web_engine.h"

#include <QHash>
#include <QObject>

#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace ledra {

/// The pages of a document.
struct PaginationResult
{
    std::vector<QString> pages; ///< HTML, at least one
    bool isMeasured = true;     ///< false: one page with everything, which may print on several sheets
};

/// Lays documents out on pages: measures the whole document once, breaks it between its blocks and asks the
/// document for the HTML of each page. Jobs run one at a time in the order in which they came.
///
/// Results are kept under the document's cache key and a hash of its measuring HTML. The second covers what
/// the key leaves out (labels, displayed number, logo, the number of a cancelled invoice, fonts), so that a
/// kept result is never stale.
class DocumentPaginator : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(const PaginationResult&)>;

    DocumentPaginator(WebEngine& engine, Console& console) : engine_(engine), console_(console) {}

    /// The completion is called later, exactly once, with at least one page.
    void paginate(std::shared_ptr<const PaginatedDocument> document, Completion completion);

private:
    struct CacheKey
    {
        std::size_t document;
        std::size_t measuringHtml;
        friend bool operator==(const CacheKey&, const CacheKey&) = default;
        friend std::size_t qHash(const CacheKey& key, std::size_t seed = 0)
        {
            return qHashMulti(seed, key.document, key.measuringHtml);
        }
    };

    struct Job
    {
        std::shared_ptr<const PaginatedDocument> document;
        Completion completion;
    };

    void startNext();
    void measured(const CacheKey& key, const std::expected<QString, WebEngineError>& answer);
    void finish(PaginationResult result);
    void remember(const CacheKey& key, const PaginationResult& result);

    WebEngine& engine_;
    Console& console_;
    std::deque<Job> queue_;
    bool isRunning_ = false; ///< the job at the front of the queue is being measured
    QHash<CacheKey, PaginationResult> cache_;
    std::deque<CacheKey> cacheOrder_; ///< oldest first
};

} // namespace ledra
