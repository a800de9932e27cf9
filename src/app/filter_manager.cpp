#include "app/filter_manager.h"

#include <algorithm>
#include <iterator>
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
    std::vector<InvoicePtr> passed;
    for (const std::uint32_t place : passing(filter))
        passed.push_back(all[place]);
    return passed;
}

std::vector<std::uint32_t> FilterManager::passing(const InvoiceFilter& filter)
{
    if (filter.search.trimmed().isEmpty())
        return passingCriteria(filter);
    prepareSearch();
    const std::vector<std::uint32_t>& found = index_.matches(filter.search);
    const std::vector<std::uint32_t>& passed = passingCriteria(filter);
    std::vector<std::uint32_t> both;
    both.reserve(std::min(found.size(), passed.size()));
    std::ranges::set_intersection(found, passed, std::back_inserter(both));
    return both;
}

const std::vector<std::uint32_t>& FilterManager::passingCriteria(const InvoiceFilter& filter)
{
    InvoiceFilter withoutSearch = filter;
    withoutSearch.search.clear();
    const std::uint64_t revision = invoices_.contentRevision();
    // What is overdue depends on the time as well.
    if (passing_ && passing_->revision == revision && passing_->filter == withoutSearch &&
        !filter.overdueOnly)
        return passing_->places;
    passing_ = {.filter = withoutSearch, .revision = revision, .places = {}};
    const Criteria passes(filter, clock_.now());
    const std::vector<InvoicePtr>& all = invoices_.invoices();
    for (std::uint32_t place = 0; place < all.size(); ++place) {
        if (passes(**all[place]))
            passing_->places.push_back(place);
    }
    return passing_->places;
}

bool FilterManager::prepareSearch(QDeadlineTimer end)
{
    const ProfilePtr& profile = profiles_.activeProfile();
    if (!profile)
        return true;
    const std::pair state(invoices_.contentRevision(), profiles_.profilesRevision());
    if (indexedState_ != state) {
        const bool sameNumbers = indexedState_ && indexedState_->second == state.second;
        index_.follow(invoices_.list(),
                      sameNumbers ? SearchIndex::Known::stays : SearchIndex::Known::isOutdated);
        indexedState_ = state;
    }
    if (!index_.advance(**profile, end))
        return false;
    if (filter_.overdueOnly)
        return true; // what passes then depends on the time and is not kept
    passingCriteria(filter_);
    return !end.hasExpired();
}

} // namespace ledra
