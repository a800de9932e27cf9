#pragma once

#include "model/invoice.h"
#include "model/profile.h"

#include <span>

namespace ledra {

/// The number of a document as it is printed: its own format, else the profile's, behind the prefix that
/// quotes and cancellations carry (their own, else the profile's).
QString displayedNumber(const Invoice& invoice, const Profile& profile);

/// The next counter value for a new document of a type. `thisYear` is the year of today, which limits the
/// count when the profile starts anew each year. Gaps are not filled.
std::int64_t nextNumber(std::span<const Invoice* const> invoices, InvoiceType type,
                        NumberResetFrequency frequency, int thisYear);

} // namespace ledra
