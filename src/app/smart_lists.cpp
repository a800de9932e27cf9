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

/// What has been added up for a list.
class Tally
{
public:
    explicit Tally(std::size_t currencies) : totals_(currencies) {}

    void count() { ++count_; }

    void add(std::size_t currency, double total)
    {
        totals_[currency] = totals_[currency].value_or(0) + total;
    }

    SmartListContent content(SmartList list, const std::vector<Currency>& currencies) const
    {
        SmartListContent content{.list = list, .count = count_, .sums = {}};
        for (std::size_t i = 0; i < totals_.size(); ++i) {
            if (totals_[i])
                content.sums.push_back({currencies[i], *totals_[i]});
        }
        std::ranges::sort(content.sums, {},
                          [](const SmartListContent::Sum& sum) { return sum.currency.code; });
        return content;
    }

private:
    std::size_t count_ = 0;
    std::vector<std::optional<double>> totals_; ///< of each currency
};

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

SmartLists::Facts SmartLists::factsOf(const InvoiceRecord& record)
{
    auto currency = std::ranges::find(currencies_, record->currency);
    if (currency == currencies_.end())
        currency = currencies_.insert(currency, record->currency);
    return {.total = record->total(),
            .year = record->date.localDate().year(),
            .revision = record.revision(),
            .currency = static_cast<std::uint16_t>(currency - currencies_.begin()),
            .status = record->status,
            .isQuote = record->type == InvoiceType::quote};
}

void SmartLists::lookAt(const InvoicePtr& record)
{
    const auto place = earlier_.list
                           ? walk_.placeOf(record, std::span(*earlier_.list).first(earlier_.facts.size()))
                           : std::nullopt;
    const bool isKnown = place && earlier_.facts[*place].revision == record->revision();
    present_.facts.push_back(isKnown ? earlier_.facts[*place] : factsOf(*record));
}

bool SmartLists::prepare(const InvoiceList& invoices, std::uint64_t revision, QDeadlineTimer end)
{
    if (present_.list != invoices || revision_ != revision) {
        // Looking may have been cut off: the longer stretch saves more.
        if (present_.facts.size() >= earlier_.facts.size())
            earlier_ = std::move(present_);
        present_ = {.list = invoices};
        present_.facts.reserve(invoices->size());
        walk_ = {};
        revision_ = revision;
    }
    constexpr std::size_t recordsBetweenLooks = 256;
    while (present_.facts.size() < invoices->size()) {
        lookAt((*invoices)[present_.facts.size()]);
        if (present_.facts.size() % recordsBetweenLooks == 0 && end.hasExpired())
            return false;
    }
    earlier_ = {}; // letting go of a long list takes its time as well
    return !end.hasExpired();
}

std::vector<SmartListContent> SmartLists::contents(const InvoiceList& invoices, std::uint64_t revision,
                                                   Timestamp now)
{
    prepare(invoices, revision, QDeadlineTimer(QDeadlineTimer::Forever));
    const Tally empty(currencies_.size());
    std::vector tallies(kinds.size(), empty);
    std::map<int, Tally, std::greater<>> years;
    for (std::size_t place = 0; place < present_.facts.size(); ++place) {
        const Facts& facts = present_.facts[place];
        const auto addTo = [&](Tally& tally, bool isOwed) {
            tally.count();
            if (isOwed)
                tally.add(facts.currency, facts.total);
        };
        const auto addToList = [&](Kind kind, bool isOwed) {
            addTo(tallies[static_cast<std::size_t>(kind)], isOwed);
        };
        addToList(Kind::all, !facts.isQuote);
        addTo(years.try_emplace(facts.year, empty).first->second, !facts.isQuote);
        if (facts.isQuote) {
            addToList(Kind::quotes, true);
            continue;
        }
        addToList(std::ranges::find(statusLists, facts.status, &StatusList::status)->kind, true);
        if (facts.status == Status::sent && (**(*invoices)[place]).isOverdue(now))
            addToList(Kind::overdue, true);
    }
    std::vector<SmartListContent> lists;
    for (std::size_t i = 0; i < kinds.size(); ++i)
        lists.push_back(tallies[i].content({kinds[i]}, currencies_));
    for (const auto& [year, tally] : years)
        lists.push_back(tally.content({Kind::year, year}, currencies_));
    return lists;
}

} // namespace ledra
