#pragma once

#include "app/filter_manager.h"
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

/// All lists with what they hold: the kinds in their order, then the years, the latest first. Quotes count in
/// their own list, in that of all records and in their year, but their totals are summed up in their own list
/// only: nobody owes them.
std::vector<SmartListContent> smartLists(const std::vector<InvoicePtr>& invoices, Timestamp now);

} // namespace ledra
