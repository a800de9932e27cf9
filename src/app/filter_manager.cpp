#include "app/filter_manager.h"

namespace ledra {

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

    const int year = filter.year.value_or(1);
    const Timestamp begin = Timestamp::fromDateTime(QDate(year, 1, 1).startOfDay());
    const Timestamp end = Timestamp::fromDateTime(QDate(year + 1, 1, 1).startOfDay());
    const Timestamp now = clock_.now();
    std::vector<InvoicePtr> passed;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Invoice& invoice = **all[i];
        const bool passes = (!filter.type || invoice.type == *filter.type) &&
                            (!filter.status || invoice.status == *filter.status) &&
                            (!filter.year || (invoice.date >= begin && invoice.date < end)) &&
                            (!filter.leavesOutQuotes || invoice.type != InvoiceType::quote) &&
                            (!searches || found[i]) && (!filter.overdueOnly || invoice.isOverdue(now));
        if (passes)
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
