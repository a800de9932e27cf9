#include "model/displayed_number.h"

#include "model/number_format.h"

#include <algorithm>
#include <limits>

namespace ledra {

namespace {

QString prefixOf(const Invoice& invoice, const Profile& profile)
{
    switch (invoice.type) {
    case InvoiceType::quote:
        return invoice.quotePrefix.value_or(profile.quotePrefix);
    case InvoiceType::cancellation:
        return invoice.cancellationPrefix.value_or(profile.cancellationPrefix);
    case InvoiceType::invoice:
        break;
    }
    return {};
}

} // namespace

QString displayedNumber(const Invoice& invoice, const Profile& profile)
{
    const auto segments = parseNumberFormat(invoice.numberFormat.value_or(profile.numberFormat));
    const NumberFormatValues values{invoice.number, invoice.date.localDate(), invoice.numberVariable};
    return prefixOf(invoice, profile) + renderNumberFormat(segments, values);
}

std::int64_t nextNumber(std::span<const Invoice* const> invoices, InvoiceType type,
                        NumberResetFrequency frequency, int thisYear)
{
    // Comparing moments is far cheaper than asking the calendar for the year of each record.
    const Timestamp begin = Timestamp::fromDateTime(QDate(thisYear, 1, 1).startOfDay());
    const Timestamp end = Timestamp::fromDateTime(QDate(thisYear + 1, 1, 1).startOfDay());
    std::int64_t largest = 0;
    bool found = false;
    for (const Invoice* invoice : invoices) {
        const bool counts = invoice->type == type && (frequency == NumberResetFrequency::never ||
                                                      (invoice->date >= begin && invoice->date < end));
        if (!counts)
            continue;
        largest = found ? std::max(largest, invoice->number) : invoice->number;
        found = true;
    }
    if (largest == std::numeric_limits<std::int64_t>::max())
        return largest; // there is no next one
    return found ? largest + 1 : 1;
}

} // namespace ledra
