#include "app/filter_manager.h"

#include <limits>

namespace ledra {

namespace {

/// Whether a value is the wanted one, if one is wanted.
template <class T>
bool fits(const std::optional<T>& wanted, const T& value)
{
    return !wanted || *wanted == value;
}

/// A filter but for its search, with its days as moments, since that is what records are compared with.
class Criteria
{
public:
    Criteria(const InvoiceFilter& filter, Timestamp now) : filter_(filter), now_(now)
    {
        if (filter.year)
            limit(QDate(*filter.year, 1, 1), QDate(*filter.year, 12, 31));
        limit(filter.narrowing.from, filter.narrowing.to);
    }

    bool operator()(const Invoice& invoice) const
    {
        const Narrowing& narrowing = filter_.narrowing;
        return fits(filter_.type, invoice.type) && fits(filter_.status, invoice.status) &&
               fits(narrowing.type, invoice.type) && fits(narrowing.status, invoice.status) &&
               fits(narrowing.currency, invoice.currency) && invoice.date >= begin_ && invoice.date < end_ &&
               (!filter_.leavesOutQuotes || invoice.type != InvoiceType::quote) &&
               (!filter_.overdueOnly || invoice.isOverdue(now_));
    }

private:
    void limit(std::optional<QDate> from, std::optional<QDate> to)
    {
        if (from)
            begin_ = std::max(begin_, Timestamp::fromDateTime(from->startOfDay()));
        if (to)
            end_ = std::min(end_, Timestamp::fromDateTime(to->addDays(1).startOfDay()));
    }

    const InvoiceFilter& filter_;
    Timestamp now_;
    Timestamp begin_{-std::numeric_limits<double>::infinity()};
    Timestamp end_{std::numeric_limits<double>::infinity()};
};

} // namespace

FilterManager::FilterManager(const InvoiceManager& invoices, const ProfileManager& profiles,
                             const Clock& clock)
    : invoices_(invoices), profiles_(profiles), clock_(clock)
{}

void FilterManager::setFilter(const InvoiceFilter& filter)
{
    if (filter == filter_)
        return;
    filter_ = filter;
    Q_EMIT changed();
}

std::vector<InvoicePtr> FilterManager::filtered(const InvoiceFilter& filter)
{
    const std::vector<InvoicePtr>& all = invoices_.invoices();
    const bool searches = !filter.search.trimmed().isEmpty();
    if (searches)
        updateIndex();
    const std::vector<bool> found = searches ? index_.matches(filter.search) : std::vector<bool>();

    const Criteria passes(filter, clock_.now());
    std::vector<InvoicePtr> passed;
    for (std::size_t i = 0; i < all.size(); ++i) {
        if ((!searches || found[i]) && passes(**all[i]))
            passed.push_back(all[i]);
    }
    return passed;
}

void FilterManager::updateIndex()
{
    const ProfilePtr& profile = profiles_.activeProfile();
    const std::pair state(invoices_.contentRevision(), profiles_.profilesRevision());
    if (!profile || indexedState_ == state)
        return;
    index_.build(invoices_.invoices(), **profile);
    indexedState_ = state;
}

} // namespace ledra
