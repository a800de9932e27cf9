#pragma once

#include "app/search_index.h"
#include "model/enumerations.h"
#include "store/invoice_manager.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace ledra {

/// What a filter bar narrows a list down to; everything that is set must hold.
struct Narrowing
{
    std::optional<InvoiceType> type = {};
    std::optional<Status> status = {};
    std::optional<QDate> from = {}; ///< the first day of the record's date
    std::optional<QDate> to = {};   ///< the last one
    std::optional<Currency> currency = {};

    friend bool operator==(const Narrowing&, const Narrowing&) = default;
};

/// What a list shows; everything that is set must hold.
struct InvoiceFilter
{
    std::optional<InvoiceType> type = {};
    std::optional<Status> status = {};
    bool overdueOnly = false;
    bool leavesOutQuotes = false;
    std::optional<int> year = {}; ///< of the record's date
    QString search = {};          ///< words that all occur somewhere in the record
    Narrowing narrowing = {};

    friend bool operator==(const InvoiceFilter&, const InvoiceFilter&) = default;
};

/// The filter in force and what it leaves of the list.
class FilterManager : public QObject
{
    Q_OBJECT

public:
    FilterManager(const InvoiceManager& invoices, const ProfileManager& profiles, const Clock& clock);

    const InvoiceFilter& filter() const { return filter_; }
    void setFilter(const InvoiceFilter& filter);

    /// The records that pass, in the order of the list.
    std::vector<InvoicePtr> filtered(const InvoiceFilter& filter);

    /// The same as places in the list, ascending.
    std::vector<std::uint32_t> passing(const InvoiceFilter& filter);

    /// Reads the records for the next search until all is read, which is the result, or the time is over, and
    /// goes through the rest of the filter. A search does the same itself; a window asks for it while nobody
    /// waits.
    bool prepareSearch(QDeadlineTimer end = QDeadlineTimer(QDeadlineTimer::Forever));

Q_SIGNALS:
    void changed();

private:
    const std::vector<std::uint32_t>& passingCriteria(const InvoiceFilter& filter);

    const InvoiceManager& invoices_;
    const ProfileManager& profiles_;
    const Clock& clock_;
    InvoiceFilter filter_;
    SearchIndex index_;
    std::optional<std::pair<std::uint64_t, unsigned>> indexedState_; ///< revisions of invoices and profiles

    /// What passes without the search, which changes at each key stroke while the rest stays.
    struct Passing
    {
        InvoiceFilter filter;
        std::uint64_t revision = 0;
        std::vector<std::uint32_t> places;
    };
    std::optional<Passing> passing_;
};

} // namespace ledra
