#include "app/smart_lists.h"

#include <algorithm>
#include <array>
#include <map>

namespace ledra {

namespace {

using Kind = SmartList::Kind;

constexpr std::array kinds = {Kind::all,  Kind::drafts,    Kind::sent,  Kind::overdue,
                              Kind::paid, Kind::cancelled, Kind::quotes};

/// The list of a status among invoices and cancellations.
struct StatusList
{
    Kind kind;
    Status status;
};

constexpr std::array statusLists = {
    StatusList{Kind::drafts, Status::draft},
    StatusList{Kind::sent, Status::sent},
    StatusList{Kind::paid, Status::paid},
    StatusList{Kind::cancelled, Status::cancelled},
};

void add(SmartListContent& content, const Invoice& invoice, double total)
{
    ++content.count;
    const bool isQuote = invoice.type == InvoiceType::quote;
    if (isQuote && content.list.kind != Kind::quotes)
        return;
    const auto sum = std::ranges::lower_bound(
        content.sums, invoice.currency.code, {},
        [](const SmartListContent::Sum& each) -> const QString& { return each.currency.code; });
    if (sum != content.sums.end() && sum->currency == invoice.currency)
        sum->total += total;
    else
        content.sums.insert(sum, {invoice.currency, total});
}

} // namespace

InvoiceFilter filterOf(const SmartList& list)
{
    InvoiceFilter filter;
    if (list.kind == Kind::quotes)
        filter.type = InvoiceType::quote;
    if (list.kind == Kind::year)
        filter.year = list.year;
    filter.overdueOnly = list.kind == Kind::overdue;
    filter.leavesOutQuotes = filter.overdueOnly;
    for (const StatusList& row : statusLists) {
        if (row.kind == list.kind) {
            filter.status = row.status;
            filter.leavesOutQuotes = true;
        }
    }
    return filter;
}

std::vector<SmartListContent> smartLists(const std::vector<InvoicePtr>& invoices, Timestamp now)
{
    std::vector<SmartListContent> lists;
    lists.reserve(kinds.size());
    for (const Kind kind : kinds)
        lists.push_back({.list = {kind}, .count = 0, .sums = {}});
    std::map<int, SmartListContent, std::greater<>> years;
    const auto listOf = [&](Kind kind) -> SmartListContent& { return lists[static_cast<std::size_t>(kind)]; };
    for (const InvoicePtr& record : invoices) {
        const Invoice& invoice = **record;
        const double total = invoice.total();
        add(listOf(Kind::all), invoice, total);
        const int year = invoice.date.localDate().year();
        SmartListContent& ofYear = years[year];
        ofYear.list = {Kind::year, year};
        add(ofYear, invoice, total);
        if (invoice.type == InvoiceType::quote) {
            add(listOf(Kind::quotes), invoice, total);
            continue;
        }
        const auto row = std::ranges::find(statusLists, invoice.status, &StatusList::status);
        add(listOf(row->kind), invoice, total);
        if (invoice.isOverdue(now))
            add(listOf(Kind::overdue), invoice, total);
    }
    for (auto& [year, content] : years)
        lists.push_back(std::move(content));
    return lists;
}

} // namespace ledra
