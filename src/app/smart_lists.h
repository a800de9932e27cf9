#pragma once

#include "app/filter_manager.h"
#include "app/list_walk.h"
#include "model/currency.h"

#include <QString>

#include <vector>

namespace ledra {

/// A ready-made choice of records: by what has to be done with them, or by their year.
struct SmartList
{
    enum class Kind { all, drafts, sent, overdue, paid, cancelled, quotes, year };

    Kind kind = Kind::all;
    int year = 0; ///< of Kind::year

    friend bool operator==(const SmartList&, const SmartList&) = default;
};

/// What a list holds: how many records, and their totals in each currency, in the order of the codes.
struct SmartListContent
{
    struct Sum
    {
        Currency currency;
        double total = 0;
        friend bool operator==(const Sum&, const Sum&) = default;
    };

    SmartList list;
    std::size_t count = 0;
    std::vector<Sum> sums;
};

/// The filter that leaves the records of a list.
InvoiceFilter filterOf(const SmartList& list);

/// Counts and sums up the lists. What was found out about a record is kept until it changes, since totals and
/// the calendar take far longer than adding up.
class SmartLists
{
public:
    /// All lists with what they hold: the kinds in their order, then the years, the latest first. Quotes
    /// count in their own list, in that of all records and in their year, but their totals are summed up in
    /// their own list only: nobody owes them.
    std::vector<SmartListContent> contents(const InvoiceList& invoices, std::uint64_t revision,
                                           Timestamp now);

    /// Looks at the records until all is known, which is the result, or the time is over. contents() does the
    /// same itself; a window asks for it while nobody waits.
    ///
    /// @param revision tells states of what is in the records apart; see InvoiceManager::contentRevision()
    bool prepare(const InvoiceList& invoices, std::uint64_t revision, QDeadlineTimer end);

private:
    /// What counts of a record, close together: a record itself is spread over much memory.
    struct Facts
    {
        double total = 0;
        int year = 0;
        std::uint32_t revision = 0; ///< of the record, when it was looked at
        std::uint16_t currency = 0; ///< its place among the currencies
        Status status = Status::draft;
        bool isQuote = false;
    };

    /// What is known of the first records of a list.
    struct Known
    {
        InvoiceList list = {};
        std::vector<Facts> facts = {};
    };

    void lookAt(const InvoicePtr& record);
    Facts factsOf(const InvoiceRecord& record);

    Known earlier_; ///< while the present state is looked at
    ListWalk walk_; ///< through its list
    Known present_;
    std::uint64_t revision_ = 0;
    std::vector<Currency> currencies_; ///< that have ever occurred
};

} // namespace ledra
