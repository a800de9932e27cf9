#pragma once

#include "model/clock.h"
#include "model/invoice.h"
#include "model/profile.h"

#include <optional>

namespace ledra {

/// What a new record is made with.
struct NewInvoiceOrder
{
    const Profile& profile;
    std::int64_t number; ///< from its own range
    Timestamp now;
    IdSource& ids;
};

/// An empty invoice or quote with the profile as its sender and the profile's defaults.
Invoice invoiceFromProfile(InvoiceType type, const NewInvoiceOrder& order);

/// Copies the profile's name, address, contact data, bank and tax identifiers into the record's sender
/// fields.
void takeSender(Invoice& invoice, const Profile& profile);

/// A new draft with the content of another record, dated now.
Invoice duplicateOf(const Invoice& source, const NewInvoiceOrder& order);

/// A cancellation: the invoice once more, with every price below zero, so that its totals are the negatives.
Invoice cancellationOf(const Invoice& invoice, const NewInvoiceOrder& order);

/// The invoice for the work of a quote.
Invoice invoiceFromQuote(const Invoice& quote, const NewInvoiceOrder& order);

/// An empty line: one piece at the profile's VAT rate.
Invoice::Item newItem(const Profile& profile, IdSource& ids);

/// What the profile asks for a unit of time; 0 for the others.
double rateOf(Unit unit, const Profile& profile);

/// The number that a new record gets: the next one of its range, or, for an invoice whose range is still
/// empty, the number at which the profile begins to count (if it does so in this year).
std::int64_t numberForNew(std::int64_t next, InvoiceType type, const Profile& profile, int thisYear);

} // namespace ledra
